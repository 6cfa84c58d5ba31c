// SPDX-License-Identifier: MIT
#include "platform/host_lookup.h"

#include <array>
#include <cerrno>
#include <cstring>

#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace zerdix::platform {
namespace {

std::int32_t host_error_of(int resolver_error) {
    switch (resolver_error) {
    case 0:
        return host_found;
    case EAI_NONAME:
        return host_not_found;
    case EAI_AGAIN:
        return host_try_again;
    case EAI_FAIL:
        return host_no_recovery;
    case EAI_NODATA:
    case EAI_ADDRFAMILY:
        return host_no_data;
    case EAI_SYSTEM:
        return errno == 0 ? EAI_SYSTEM : errno;
    default:
        return resolver_error;
    }
}

sockaddr_in socket_address(in_addr_t address) {
    sockaddr_in result = {};
    result.sin_family = AF_INET;
    result.sin_addr.s_addr = address;
    return result;
}

} // namespace

host_result host_by_name(const char* name) {
    addrinfo wanted = {};
    wanted.ai_family = AF_INET;
    wanted.ai_socktype = SOCK_STREAM;
    addrinfo* list = nullptr;
    const int error = ::getaddrinfo(name, nullptr, &wanted, &list);
    if (error != 0)
        return {0, host_error_of(error)};
    sockaddr_in first = {};
    std::memcpy(&first, list->ai_addr, sizeof first);
    ::freeaddrinfo(list);
    return {first.sin_addr.s_addr, host_found};
}

host_result host_by_address(const char* dotted) {
    const sockaddr_in address = socket_address(::inet_addr(dotted));
    std::array<char, NI_MAXHOST> name;
    const int error =
        ::getnameinfo(reinterpret_cast<const sockaddr*>(&address), sizeof address, name.data(),
                      static_cast<socklen_t>(name.size()), nullptr, 0, NI_NAMEREQD);
    return {address.sin_addr.s_addr, host_error_of(error)};
}

std::int32_t last_socket_error() {
    return errno;
}

} // namespace zerdix::platform
