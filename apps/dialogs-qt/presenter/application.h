// SPDX-License-Identifier: MIT
// The toolkit's application object: the host's own where it has one, else one of ours.
#ifndef ZERDIX_PRESENTER_APPLICATION_H
#define ZERDIX_PRESENTER_APPLICATION_H

namespace zerdix::dialogs_qt {

enum class application { none, of_the_host, ours };

// `none` when the present thread can't show windows or no screen is there. An application of ours
// lives until the process ends.
application find_application();

} // namespace zerdix::dialogs_qt

#endif
