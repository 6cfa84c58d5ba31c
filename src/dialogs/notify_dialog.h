// SPDX-License-Identifier: MIT
// A text in a modal dialog. DoModal gives 1, the number of its button.
#ifndef ZERDIX_DIALOGS_NOTIFY_DIALOG_H
#define ZERDIX_DIALOGS_NOTIFY_DIALOG_H

#include <cstdint>
#include <string>

#include "dialogs/modal_dialog.h"

namespace zerdix::dialogs {

class CDialogNotify final : public CDialogDriver {
  public:
    // The text is copied; null counts as an empty one.
    CDialogNotify(forms::window_handle& parent, const std::string* text);

  private:
    bool OnInitDialog() override;

    std::string message;
};

// The same with a text of the string table, looked up when the dialog opens.
class CDialogNotifyId final : public forms::dialog {
  public:
    CDialogNotifyId(forms::window_handle parent, std::int32_t stringId);

  private:
    bool OnInitDialog() override;

    std::int32_t lStringId;
};

} // namespace zerdix::dialogs

#endif
