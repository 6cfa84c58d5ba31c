// SPDX-License-Identifier: MIT
#include "hostile/script_server.h"

#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

#include "rpc/wire/procedures.h"
#include "support/raw_client.h"

namespace zerdix::testing {

namespace {

constexpr int look_around_milliseconds = 50;

bool receive(int file, unsigned char* to, std::size_t size) {
    return recv(file, to, size, MSG_WAITALL) == static_cast<ssize_t>(size);
}

} // namespace

wire_bytes reply_to(const incoming_call& call, const byte_vector& result) {
    wire_bytes message;
    message.words({call.id, 1, 0, 0, 0, 0});
    return message.raw({reinterpret_cast<const char*>(result.data()), result.size()});
}

byte_vector record_of(const wire_bytes& message) {
    wire_bytes record;
    record.word(0x80000000u | static_cast<std::uint32_t>(message.size())).append(message);
    return record.bytes();
}

void send_words(const incoming_call& call, const std::vector<std::uint32_t>& words, peer& client) {
    wire_bytes message;
    message.word(call.id);
    for (const std::uint32_t word : words)
        message.word(word);
    client.send(record_of(message));
}

bool peer::send(const unsigned char* bytes, std::size_t size) {
    while (size > 0 && !stopping_) {
        const ssize_t sent = ::send(file_, bytes, size, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent < 0 && errno != EAGAIN)
            return false;
        if (sent < 0) {
            pollfd full{file_, POLLOUT, 0};
            poll(&full, 1, look_around_milliseconds);
            continue;
        }
        bytes += sent;
        size -= static_cast<std::size_t>(sent);
    }
    return size == 0;
}

bool peer::pause(std::chrono::milliseconds time) const {
    const auto end = std::chrono::steady_clock::now() + time;
    while (!stopping_ && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::min(time, std::chrono::milliseconds{10}));
    return !stopping_;
}

void peer::drip(const byte_vector& bytes, std::chrono::milliseconds time) {
    for (const unsigned char byte : bytes)
        if (!pause(time) || !send(&byte, 1))
            return;
}

void peer::close() {
    closed_ = true;
    shutdown(file_, SHUT_RDWR);
}

script_server::script_server()
    : environment_(folder_.path()), address_(test::loopback()),
      listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    socklen_t length = sizeof address_;
    auto* generic = reinterpret_cast<sockaddr*>(&address_);
    if (bind(listener_, generic, length) != 0 || listen(listener_, SOMAXCONN) != 0 ||
        getsockname(listener_, generic, &length) != 0)
        throw std::runtime_error("no socket to listen on");
    entry_.emplace(program(), ZERDIX_VERS, address_);
    thread_ = std::thread([this] { serve(); });
}

script_server::~script_server() {
    stopping_ = true;
    thread_.join();
    close(listener_);
}

void script_server::on_call(handler answer) {
    const std::lock_guard lock(guard_);
    answer_ = std::move(answer);
}

void script_server::serve() {
    int connection = -1;
    while (!stopping_) {
        pollfd files[] = {{listener_, POLLIN, 0}, {connection, POLLIN, 0}};
        if (poll(files, 2, look_around_milliseconds) <= 0)
            continue;
        const bool gone = files[1].revents != 0 && !answer_call(connection);
        if (gone || files[0].revents != 0)
            connection = next_connection(connection);
    }
    next_connection(connection);
}

// Closes the present connection; the new one, or -1 when nobody waits for one.
int script_server::next_connection(int present) const {
    if (present >= 0)
        close(present);
    pollfd waiting{listener_, POLLIN, 0};
    return poll(&waiting, 1, 0) > 0 && !stopping_ ? accept(listener_, nullptr, nullptr) : -1;
}

bool script_server::answer_call(int connection) {
    unsigned char mark[4];
    if (!receive(connection, mark, sizeof mark))
        return false;
    byte_vector call(wire::load_word(mark) & 0x7FFFFFFFu);
    if (call.size() < 24 || !receive(connection, call.data(), call.size()))
        return false;
    peer client(connection, stopping_);
    if (const handler answer = present_handler())
        answer({wire::load_word(call.data()), wire::load_word(call.data() + 20)}, client);
    return !client.closed();
}

// A copy, so that a test can set the next one while an endless answer is still under way.
script_server::handler script_server::present_handler() {
    const std::lock_guard lock(guard_);
    return answer_;
}

} // namespace zerdix::testing
