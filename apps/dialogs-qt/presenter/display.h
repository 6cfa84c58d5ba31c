// SPDX-License-Identifier: MIT
// Tells whether there is a screen, before the toolkit is started, which ends the process without
// one.
#ifndef ZERDIX_PRESENTER_DISPLAY_H
#define ZERDIX_PRESENTER_DISPLAY_H

#include <memory>
#include <string>

namespace zerdix::dialogs_qt {

// How the toolkit is to reach the screen ("xcb", "wayland", or what QT_QPA_PLATFORM says); empty
// when there is none, or no way to it is installed.
struct way_to_screen {
    std::string platform;
    // To be kept until the toolkit has a connection of its own: an X server may start anew when its
    // last client goes, and answers nobody meanwhile.
    std::shared_ptr<void> connection;
};
way_to_screen find_screen();

} // namespace zerdix::dialogs_qt

#endif
