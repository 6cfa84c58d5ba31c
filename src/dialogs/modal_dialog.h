// SPDX-License-Identifier: MIT
// The base of the library's modal dialogs, which stand in front of somebody else's windows.
#ifndef ZERDIX_DIALOGS_MODAL_DIALOG_H
#define ZERDIX_DIALOGS_MODAL_DIALOG_H

#include <cstdint>

#include "forms/dialog.h"

namespace zerdix::dialogs {

class CDialogDriver : public forms::dialog {
  public:
    // `parent` names a window of any program, or none, and outlives the dialog. A dialog that opens
    // a further one hands on its own `window_`.
    CDialogDriver(std::int32_t template_id, forms::window_handle& parent);

    // Keeps the parent disabled while the dialog runs. -1 when it can't run or the program ends.
    std::int32_t DoModal() override;

  protected:
    // Centered on the screen and topmost. A derived dialog that opens elsewhere doesn't call it.
    bool OnInitDialog() override;

    forms::window_handle* pParentHandle;
    forms::window_handle hParent; // as it was when the dialog was built

  private:
    forms::loop_end run_over_parent(bool& was_active);
};

} // namespace zerdix::dialogs

#endif
