// SPDX-License-Identifier: MIT
#include "dialogs/find_dialog.h"

#include "common/string_table.h"
#include "dialogs/notify_dialog.h"
#include "dialogs/search_pattern.h"
#include "dialogs/templates.h"
#include "dialogs/wait_cursor.h"

namespace zerdix::dialogs {

using forms::control_event;
using forms::current_presenter;

namespace {

enum control : std::int32_t { find_button = 1401, cancel_button = 1402, text_edit = 1403 };

constexpr std::size_t text_limit = 40;
constexpr std::size_t text_taken = 39;
constexpr std::int32_t button_word = 1321;
constexpr std::int32_t nothing_chosen = 1273;

} // namespace

std::string& searchText() {
    static std::string text;
    return text;
}

CDialogFind::CDialogFind(forms::window_handle& parent, std::int32_t mode)
    : CDialogDriver(find_form, parent), lMode(mode) {
    set_search_syntax();
    on(find_button, control_event::clicked, [this] { OnFind(); });
    on(cancel_button, control_event::clicked, [this] { OnCancel(); });
}

bool CDialogFind::OnInitDialog() {
    set_caption(find_button, common::string_text(button_word));
    set_limit(text_edit, text_limit);
    set_focus(text_edit);
    return false;
}

void CDialogFind::OnFind() {
    const std::string pattern = text(text_edit, text_taken);
    if (pattern.empty())
        return notify(nothing_chosen);
    if (!search_pattern(pattern).is_valid())
        return notify(text_bad_search);
    const wait_cursor waits;
    current_presenter().enable(window_, false);
    searchText() = pattern;
    current_presenter().post_command(
        *pParentHandle, lMode == search_groups ? group_search_command : recipient_search_command);
}

// A search may have left the parent disabled.
void CDialogFind::OnCancel() {
    EndDialog(cancel_button);
    current_presenter().enable(*pParentHandle, true);
}

void CDialogFind::ready() {
    current_presenter().enable(window_, true);
    current_presenter().activate(window_);
    set_focus(text_edit);
}

void CDialogFind::notify(std::int32_t stringId) {
    const std::string message = common::string_text(stringId);
    CDialogNotify(window_, &message).DoModal();
}

} // namespace zerdix::dialogs
