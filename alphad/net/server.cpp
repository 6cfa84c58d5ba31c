// SPDX-License-Identifier: MIT
#include "alphad/net/server.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <netinet/tcp.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include "rpc/wire/procedures.h"

namespace zerdix::alphad {

namespace {

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
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
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
    return with_program_offset(ZERDIX_PROG);
}

server::file::~file() {
    close(number_);
}

server::server(dispatcher& calls, const std::string& address, std::uint16_t port)
    : calls_(calls), program_(program_number()), address_(socket_address(address, port)),
      listener_(listening_socket(address_, address)), signals_(stop_signals()),
      registration_(program_, ZERDIX_VERS, address_) {}

server::~server() = default;

void server::accept_client() {
    const int socket = accept4(listener_, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (socket < 0) {
        if (errno == EMFILE || errno == ENFILE)
            room_ = std::max<std::size_t>(clients_.size(), 1);
        return;
    }
    const int yes = 1;
    setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
    clients_.push_back(std::make_unique<connection>(socket, ++last_number_));
}

void server::answer(const std::string& record, connection& client) {
    call request(record, client);
    if (!request.is_sound())
        request.drop();
    else if (request.program() != program_)
        request.fail(PROG_UNAVAIL);
    else if (request.version() != ZERDIX_VERS)
        request.fail_version(ZERDIX_VERS);
    else
        calls_.serve(request);
}

// Who has gone is known before anybody is answered.
void server::move_bytes(connection& client) {
    if (client.has_output())
        client.flush();
    else
        client.receive();
    if (client.has_ended())
        calls_.connection_gone(client.number());
}

// As long as the client takes its replies.
void server::serve(connection& client) {
    while (!client.has_output()) {
        const std::string* record = client.next_record();
        if (record == nullptr)
            break;
        answer(*record, client);
    }
}

void server::forget_ended() {
    std::erase_if(clients_, [this](const std::unique_ptr<connection>& client) {
        if (client->is_over())
            calls_.connection_gone(client->number());
        return client->is_over();
    });
}

// What there is to wait for: a signal, a new client, and then the clients in their order.
std::vector<pollfd> server::files() const {
    const short new_clients = clients_.size() < room_ ? POLLIN : 0;
    std::vector<pollfd> all{{signals_, POLLIN, 0}, {listener_, new_clients, 0}};
    for (const auto& client : clients_)
        all.push_back(
            {client->socket(), static_cast<short>(client->has_output() ? POLLOUT : POLLIN), 0});
    return all;
}

void server::run() {
    for (;;) {
        std::vector<pollfd> ready = files();
        if (poll(ready.data(), ready.size(), -1) < 0) {
            if (errno != EINTR)
                fail("poll");
            continue;
        }
        if (ready[0].revents != 0)
            return;
        for (std::size_t i = 0; i < clients_.size(); ++i)
            if (ready[i + 2].revents != 0)
                move_bytes(*clients_[i]);
        for (const auto& client : clients_)
            serve(*client);
        forget_ended();
        if (ready[1].revents != 0)
            accept_client();
    }
}

} // namespace zerdix::alphad
