// SPDX-License-Identifier: MIT
// Bringing the socket layer up and down, for platforms that need it.
#ifndef ZERDIX_PLATFORM_SOCKETS_H
#define ZERDIX_PLATFORM_SOCKETS_H

namespace zerdix::platform {

// Makes sockets usable; 0 on success. Linux needs nothing.
inline int start_sockets() {
    return 0;
}

// Ends what start_sockets began.
inline void stop_sockets() {}

} // namespace zerdix::platform

#endif
