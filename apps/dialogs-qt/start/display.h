// Is there a screen? Asked before the toolkit is started, which ends the process without one.
#ifndef ZERDIX_START_DISPLAY_H
#define ZERDIX_START_DISPLAY_H

#include <string>

namespace zerdix::dialogs_qt {

// How the toolkit is to reach the screen ("xcb", "wayland", or what QT_QPA_PLATFORM says); empty
// when there is none, or no way to it is installed.
std::string usable_platform();

} // namespace zerdix::dialogs_qt

#endif
