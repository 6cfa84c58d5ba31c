// SPDX-License-Identifier: MIT
// Printing on the workstation: the dialog by which a user ends it, and the message pump.
#ifndef ZERDIX_DIALOGS_PRINT_ABORT_H
#define ZERDIX_DIALOGS_PRINT_ABORT_H

#include <cstdint>

#include "forms/dialog.h"

namespace zerdix::dialogs {

// 1 once the user has cancelled; a new dialog clears it.
extern std::int32_t fUserAbort;

// Lives from create() until its owner destroys it. The texts 9602 to 9606 are set by whoever
// prints.
class CDialogPrintAbort final : public forms::dialog {
  public:
    explicit CDialogPrintAbort(forms::window_handle parent);

    bool create() { return Create(); }

    std::int32_t fCancelled = 0;
};

// Takes what input waits. 1: go on printing; 0: the user has cancelled, or the program ends.
std::int32_t abortProc();

} // namespace zerdix::dialogs

#endif
