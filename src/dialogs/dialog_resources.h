// SPDX-License-Identifier: MIT
// Sets the source of the dialogs' templates and words.
#ifndef ZERDIX_DIALOGS_DIALOG_RESOURCES_H
#define ZERDIX_DIALOGS_DIALOG_RESOURCES_H

namespace zerdix::dialogs {

// Until then no dialog can be made.
void install_dialog_resources();

} // namespace zerdix::dialogs

#endif
