// SPDX-License-Identifier: MIT
#include "session/connection_probe.h"

#include <arpa/inet.h>
#include <cctype>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <memory>
#include <netdb.h>
#include <netinet/in.h>
#include <optional>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <rpc/rpc.h>

#include <rpc/pmap_clnt.h>

#include <zerdix/call_time.h>
#include <zerdix/values.h>
#include <zerdix/zerdix.h>

#include "platform/encoding.h"

namespace zerdix::app {

namespace {

constexpr std::uint16_t mapper_port = 111;
constexpr int probe_seconds = 5;
constexpr std::chrono::seconds call_limit{call_seconds};

std::uint32_t program_number() {
    return with_program_offset(ZERDIX_PROG);
}

class socket_handle {
  public:
    socket_handle() : fd_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, IPPROTO_TCP)) {}
    ~socket_handle() {
        if (fd_ >= 0)
            ::close(fd_);
    }
    socket_handle(const socket_handle&) = delete;
    socket_handle& operator=(const socket_handle&) = delete;

    int fd() const { return fd_; }

    bool connect(const sockaddr_in& address) const {
        const int flags = ::fcntl(fd_, F_GETFL);
        ::fcntl(fd_, F_SETFL, flags | O_NONBLOCK);
        if (::connect(fd_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 &&
            !(errno == EINPROGRESS && ends_well()))
            return false;
        ::fcntl(fd_, F_SETFL, flags);
        return true;
    }

  private:
    bool ends_well() const {
        pollfd waiting{fd_, POLLOUT, 0};
        int error = 0;
        socklen_t size = sizeof error;
        return ::poll(&waiting, 1, probe_seconds * 1000) == 1 &&
               ::getsockopt(fd_, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0;
    }

    int fd_;
};

// A host that begins with a digit is an address to the library, and must have a name.
bool has_name(const sockaddr_in& address) {
    char name[NI_MAXHOST];
    return ::getnameinfo(reinterpret_cast<const sockaddr*>(&address), sizeof address, name,
                         sizeof name, nullptr, 0, NI_NAMEREQD) == 0;
}

std::optional<sockaddr_in> resolve(const char* host) {
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (::getaddrinfo(host, nullptr, &hints, &found) != 0)
        return std::nullopt;
    const std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)> holder(found, &::freeaddrinfo);
    return *reinterpret_cast<const sockaddr_in*>(found->ai_addr); // NOLINT: by its family
}

// The filter of an empty call.
bool_t nothing(XDR*, ...) {
    return TRUE;
}

// An answer of any kind will do, also one that says that the empty call isn't served.
bool answers(CLIENT* handle) {
    const timeval limit{probe_seconds, 0};
    switch (clnt_call(handle, NULLPROC, nothing, nullptr, nothing, nullptr, limit)) {
    case RPC_SUCCESS:
    case RPC_PROCUNAVAIL:
    case RPC_SYSTEMERROR:
    case RPC_AUTHERROR:
        return true;
    default:
        return false;
    }
}

bool server_answers(sockaddr_in address, const socket_handle& connected) {
    int fd = connected.fd();
    CLIENT* handle = clnttcp_create(&address, program_number(), ZERDIX_VERS, &fd, 0, 0);
    if (handle == nullptr)
        return false;
    const bool good = answers(handle);
    clnt_destroy(handle);
    return good;
}

std::string quoted(const std::string& host) {
    return '"' + platform::cp1252_to_utf8(host) + '"';
}

failure_cause probe_port(sockaddr_in address, const std::string& name) {
    const std::uint16_t port = pmap_getport(&address, program_number(), ZERDIX_VERS, IPPROTO_TCP);
    if (port == 0 && rpc_createerr.cf_stat == RPC_PMAPFAILURE)
        return {exit_unavailable, "no port mapper answers on " + name};
    if (port == 0)
        return {exit_unavailable, "no Alpha server is registered on " + name + " (program " +
                                      std::to_string(program_number()) + ")"};
    address.sin_port = htons(port);
    const socket_handle connection;
    if (!connection.connect(address) || !server_answers(address, connection))
        return {exit_unavailable, "the Alpha server on " + name +
                                      " is registered but doesn't "
                                      "answer (port " +
                                      std::to_string(port) + ")"};
    return {exit_refused, "the server refused it"};
}

} // namespace

failure_cause probe_server(const std::string& host) {
    const std::string name = quoted(host);
    auto address = resolve(host.c_str());
    if (!address)
        return {exit_no_host, "the host " + name + " can't be found"};
    if (std::isdigit(static_cast<unsigned char>(host.front())) != 0 && !has_name(*address))
        return {exit_no_host, "the address " + name + " has no host name, and it needs one"};
    address->sin_port = htons(mapper_port);
    const socket_handle mapper;
    if (!mapper.connect(*address))
        return {exit_unavailable, "no port mapper answers on " + name};
    return probe_port(*address, name);
}

bool call_probe::timed_out() const {
    return std::chrono::steady_clock::now() - start_ >= call_limit;
}

failure_cause call_probe::explain(const std::string& host) const {
    if (timed_out())
        return {exit_unavailable,
                "the server didn't answer within " + std::to_string(call_seconds) + " seconds"};
    if (ZERDIX::clsGetClient() == nullptr)
        return probe_server(host);
    if (answers(ZERDIX::clsGetClient()))
        return {exit_refused, "the server refused it"};
    return {exit_unavailable, "the connection to the server broke"};
}

} // namespace zerdix::app
