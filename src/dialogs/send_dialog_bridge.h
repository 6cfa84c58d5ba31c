// SPDX-License-Identifier: MIT
// Connects the send dialog with the print job and with SendStoredDocuments.
#ifndef ZERDIX_DIALOGS_SEND_DIALOG_BRIDGE_H
#define ZERDIX_DIALOGS_SEND_DIALOG_BRIDGE_H

namespace zerdix::dialogs {

// From here on print jobs without receivers open the send dialog.
void install_send_select();

} // namespace zerdix::dialogs

#endif
