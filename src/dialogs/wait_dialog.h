// SPDX-License-Identifier: MIT
// The dialog that stays on the screen while something goes on.
#ifndef ZERDIX_DIALOGS_WAIT_DIALOG_H
#define ZERDIX_DIALOGS_WAIT_DIALOG_H

#include <cstdint>

#include "forms/dialog.h"

namespace zerdix::dialogs {

// Lives from create() until its owner destroys the window (DestroyWindow) or the object.
class CDialogWait final : public forms::dialog {
  public:
    // With `showCancel` 0 it has no button.
    CDialogWait(forms::window_handle parent, std::int32_t showCancel);

    bool create() { return Create(); }

    // Set by the button, which does nothing else.
    std::int32_t fCancelled = 0;

  private:
    bool OnInitDialog() override;

    std::int32_t fShowCancel;
};

} // namespace zerdix::dialogs

#endif
