// SPDX-License-Identifier: MIT
// The place of a port, into which a test or a program puts one of its own.
#ifndef ZERDIX_PLATFORM_PORT_SLOT_H
#define ZERDIX_PLATFORM_PORT_SLOT_H

#include <utility>

namespace zerdix::platform {

// `Port` may be a function type, too. A slot is made when the program is loaded and is trivially
// destroyed, so that it serves those who come first and those who go last.
template <class Port>
class port_slot {
  public:
    // `standard` is in use while nobody has put another one into its place; without it, nobody is.
    constexpr explicit port_slot(Port* standard = nullptr) : standard_(standard) {}

    // The one in use.
    Port* current() const { return is_replaced() ? replacement_ : standard_; }
    bool is_replaced() const { return replacement_ != nullptr; }

    // Puts `port` into its place, null for the standard one, and returns the one that was there
    // before, null likewise. The caller keeps `port` and must take it out again before it goes.
    Port* replace(Port* port) { return std::exchange(replacement_, port); }

  private:
    Port* standard_;
    Port* replacement_ = nullptr;
};

} // namespace zerdix::platform

#endif
