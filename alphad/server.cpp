#include "alphad/server.h"

#include <arpa/inet.h>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

#include "rpc/wire/procedures.h"

namespace zerdix::alphad {

namespace {

// The RPC library's dispatch function carries no argument of the server's own.
dispatcher* serving = nullptr;

void dispatch(svc_req* request, SVCXPRT* transport) {
    serving->serve(request, transport);
}

[[noreturn]] void fail(const std::string& what) {
    throw server_error(what + ": " + std::strerror(errno));
}

sockaddr_in socket_address(const std::string& text, std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    if (inet_pton(AF_INET, text.c_str(), &address.sin_addr) != 1)
        throw server_error("\"" + text + "\" is no IPv4 address to listen on");
    return address;
}

int listening_socket(sockaddr_in& address, const std::string& text) {
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (socket < 0)
        fail("no socket");
    const int yes = 1;
    setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    socklen_t length = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    if (bind(socket, generic, length) != 0 || listen(socket, SOMAXCONN) != 0 ||
        getsockname(socket, generic, &length) != 0) {
        const int reason = errno;
        close(socket);
        errno = reason;
        fail("can't listen on " + text);
    }
    return socket;
}

// Stop signals as a file to poll. A client that goes away must not end the server.
int stop_signals() {
    std::signal(SIGPIPE, SIG_IGN);
    sigset_t stop;
    sigemptyset(&stop);
    sigaddset(&stop, SIGTERM);
    sigaddset(&stop, SIGINT);
    sigprocmask(SIG_BLOCK, &stop, nullptr);
    const int file = signalfd(-1, &stop, SFD_CLOEXEC);
    if (file < 0)
        fail("no signal file");
    return file;
}

} // namespace

std::uint32_t program_number() {
    const char* offset = std::getenv("ZERDIXRPCOFFSET");
    return wire::ZERDIX_PROG + static_cast<std::uint32_t>(offset ? std::atol(offset) : 0);
}

server::server(dispatcher& calls, const std::string& address, std::uint16_t port)
    : program_(program_number()) {
    sockaddr_in bound = socket_address(address, port);
    const int socket = listening_socket(bound, address);
    port_ = ntohs(bound.sin_port);
    listener_ = svctcp_create(socket, 0, 0);
    if (listener_ == nullptr || !svc_register(listener_, program_, wire::ZERDIX_VERS, dispatch, 0))
        throw server_error("the RPC library can't serve the socket");
    registration_ = std::make_unique<registration>(program_, wire::ZERDIX_VERS, bound);
    serving = &calls;
    signals_ = stop_signals();
}

server::~server() {
    registration_.reset();
    svc_unregister(program_, wire::ZERDIX_VERS);
    svc_destroy(listener_);
    close(signals_);
    serving = nullptr;
}

void server::run() {
    for (;;) {
        std::vector<pollfd> files(svc_pollfd, svc_pollfd + svc_max_pollfd);
        files.push_back({signals_, POLLIN, 0});
        int ready = poll(files.data(), files.size(), -1);
        if (ready < 0 && errno != EINTR)
            fail("poll");
        if (ready <= 0)
            continue;
        if (files.back().revents != 0)
            return;
        svc_getreq_poll(files.data(), ready);
    }
}

} // namespace zerdix::alphad
