// SPDX-License-Identifier: MIT
// The dialog that takes a search text. Its parent carries out the search.
#ifndef ZERDIX_DIALOGS_FIND_DIALOG_H
#define ZERDIX_DIALOGS_FIND_DIALOG_H

#include <cstdint>
#include <string>

#include "dialogs/modal_dialog.h"

namespace zerdix::dialogs {

// What is searched, and the command that is posted to the parent when a search is to begin.
constexpr std::int32_t search_recipients = 7;
constexpr std::int32_t search_groups = 8;
constexpr std::int32_t recipient_search_command = 30021;
constexpr std::int32_t group_search_command = 30022;

// The text that was entered last; set before the command is posted.
std::string& searchText();

// DoModal: 1402. It is disabled from the button until the search is done and calls ready().
class CDialogFind final : public CDialogDriver {
  public:
    CDialogFind(forms::window_handle& parent, std::int32_t mode);

    // Enables the dialog and gives it the focus, for the next search.
    void ready();

  private:
    bool OnInitDialog() override;
    void OnCancel() override;
    void OnFind();
    void notify(std::int32_t stringId);

    std::int32_t lMode;
};

} // namespace zerdix::dialogs

#endif
