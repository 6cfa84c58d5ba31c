// SPDX-License-Identifier: MIT
// Telling the user something in a box with an "OK" button.
#ifndef ZERDIX_DIALOGS_MESSAGE_H
#define ZERDIX_DIALOGS_MESSAGE_H

#include <cstdint>
#include <string_view>

#include "forms/presenter.h"

namespace zerdix::dialogs {

// The text of that number, titled "Benachrichtigung". Always 1.
std::int32_t showMessage(forms::window_handle window, std::int32_t stringId);

// A text of one's own, under the application's name.
void AfxMessageBox(std::string_view text);
void AfxMessageBox(std::int32_t stringId);

} // namespace zerdix::dialogs

#endif
