// SPDX-License-Identifier: MIT
#include "dialogs/message.h"

#include "common/show_message.h"
#include "common/string_table.h"

namespace zerdix::dialogs {

std::int32_t showMessage(forms::window_handle window, std::int32_t stringId) {
    forms::current_presenter().show_message(window, common::string_text(stringId),
                                            common::string_text(common::text_notification));
    return 1;
}

void AfxMessageBox(std::string_view text) {
    common::show_plain_message(text);
}

void AfxMessageBox(std::int32_t stringId) {
    common::show_plain_message(stringId);
}

} // namespace zerdix::dialogs
