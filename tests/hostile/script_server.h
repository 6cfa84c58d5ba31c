// SPDX-License-Identifier: MIT
// A server that does what a test tells it, byte by byte: it listens on loopback, stands in the port
// mapper, reads whole calls, and leaves what is sent in answer to a handler. It runs in a thread of
// the test and serves one connection at a time; a new one takes the place of an old one.
#ifndef ZERDIX_TESTS_SCRIPT_SERVER_H
#define ZERDIX_TESTS_SCRIPT_SERVER_H

#include <atomic>
#include <chrono>
#include <functional>
#include <mutex>
#include <netinet/in.h>
#include <thread>

#include "alphad/net/port_mapper.h"
#include "support/test_server.h"
#include "wire/wire_bytes.h"

namespace zerdix::testing {

using byte_vector = std::vector<unsigned char>;

struct incoming_call {
    std::uint32_t id;
    std::uint32_t procedure;
};

// The header of a reply that was carried out, and its result behind it.
wire_bytes reply_to(const incoming_call& call, const byte_vector& result);
// As one record, in one fragment.
byte_vector record_of(const wire_bytes& message);

// The server's end of a connection. What is sent to a client that has gone is dropped.
class peer {
  public:
    peer(int file, const std::atomic<bool>& stopping) : file_(file), stopping_(stopping) {}

    bool send(const unsigned char* bytes, std::size_t size);
    bool send(const byte_vector& bytes) { return send(bytes.data(), bytes.size()); }
    // One byte at a time, a pause before each.
    void drip(const byte_vector& bytes, std::chrono::milliseconds pause);
    // False when the test is over.
    bool pause(std::chrono::milliseconds time) const;
    void close();
    bool closed() const { return closed_; }

  private:
    int file_;
    const std::atomic<bool>& stopping_;
    bool closed_ = false;
};

// A reply of these words behind the call's id.
void send_words(const incoming_call& call, const std::vector<std::uint32_t>& words, peer& client);

class script_server {
  public:
    using handler = std::function<void(const incoming_call&, peer&)>;

    script_server();
    ~script_server();
    script_server(const script_server&) = delete;
    script_server& operator=(const script_server&) = delete;

    // From the next call on. The handler runs in the server's thread.
    void on_call(handler answer);

    sockaddr_in address() const { return address_; }
    std::uint32_t program() const { return environment_.program(); }

  private:
    void serve();
    int next_connection(int present) const;
    bool answer_call(int connection);
    handler present_handler();

    test::scratch_folder folder_;
    test::client_environment environment_;
    sockaddr_in address_;
    int listener_;
    std::optional<alphad::registration> entry_;
    std::atomic<bool> stopping_{false};
    std::mutex guard_;
    handler answer_;
    std::thread thread_;
};

} // namespace zerdix::testing

#endif
