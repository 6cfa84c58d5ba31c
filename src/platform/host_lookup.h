// SPDX-License-Identifier: MIT
// Names and addresses of servers, IPv4 only.
#ifndef ZERDIX_PLATFORM_HOST_LOOKUP_H
#define ZERDIX_PLATFORM_HOST_LOOKUP_H

#include <cstdint>

namespace zerdix::platform {

// Why a look-up gave no address. Any other number stands for a reason of the system's own.
enum host_error : std::int32_t {
    host_found = 0,
    host_not_found = 11001,
    host_try_again = 11002,
    host_no_recovery = 11003,
    host_no_data = 11004,
};

struct host_result {
    std::uint32_t address; // in network order; without meaning unless found()
    std::int32_t error;    // host_found or the reason

    bool found() const { return error == host_found; }
};

// The first address of a host.
host_result host_by_name(const char* name);

// The address that a dotted text stands for, provided that a name is known for it: an address
// without one counts as not found. A text that is no address is looked up as 255.255.255.255.
host_result host_by_address(const char* dotted);

// The error number of this thread's last system call, for the "Socket rc" of trace lines. To be
// read before anything else is called.
std::int32_t last_socket_error();

} // namespace zerdix::platform

#endif
