// SPDX-License-Identifier: MIT
// Runs the send dialog for the print job. The dialog is a room above it.
#ifndef ZERDIX_SENDFAX_SEND_DIALOG_H
#define ZERDIX_SENDFAX_SEND_DIALOG_H

#include <cstdint>

namespace zerdix::sendfax {

// Shows a modal dialog for the job's state (zerdix/sendfax.h), which it fills, and returns how it
// ended: send_dialog_accepted or send_dialog_cancelled; any other number means that it couldn't
// run. Throws nothing. While it runs nothing ends the job or gives it pages: DeleteFaxDoc,
// SendTelex and StoreFaxPage give 8, SendFaxDoc 0, AbandonFaxDoc -1. Merge data may come.
using send_dialog = std::int32_t (*)(void* parent);

// Sets the function that shows the dialog, null where no dialog can run. Returns the one before.
send_dialog install_send_dialog(send_dialog dialog);

// For a job without receivers: gives it an array with one blank receiver and runs the dialog on it.
// Results as of CallSendDialog.
std::int32_t run_send_dialog();

// Runs the dialog: 0 accepted, 4 cancelled, 8 failure, or no dialog can run.
std::int32_t CallSendDialog(void* parent);

} // namespace zerdix::sendfax

#endif
