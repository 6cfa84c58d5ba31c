// SPDX-License-Identifier: MIT
// One client's connection: bytes in until a whole record is there, bytes out as fast as the client
// takes them. Nothing here waits, so that no client holds up another one.
//
// A record is made of fragments, each behind a word with its length and, in the top bit, whether it
// is the last (RFC 5531, chapter 11).
#ifndef ZERDIX_ALPHAD_NET_CONNECTION_H
#define ZERDIX_ALPHAD_NET_CONNECTION_H

#include <cstdint>
#include <string>
#include <string_view>

namespace zerdix::alphad {

class connection {
  public:
    // The socket, which mustn't wait either, is the object's from here on. No two connections have
    // the same number.
    connection(int socket, std::uint64_t number) : socket_(socket), number_(number) {}
    ~connection();
    connection(const connection&) = delete;
    connection& operator=(const connection&) = delete;

    int socket() const { return socket_; }
    std::uint64_t number() const { return number_; }

    // Takes what has arrived.
    void receive();

    // The next record, when it has come whole. Good until the next call.
    const std::string* next_record();

    // Sends what the client takes now and keeps the rest for flush().
    void send(std::string_view bytes);
    void flush();

    // Ends it at once; nothing more is read or sent.
    void drop();

    bool has_output() const { return !out_.empty(); }
    // The client has gone, or at least sends no more.
    bool has_ended() const { return ended_; }
    // Nothing more will come, and everything is sent. Records that came may still wait.
    bool is_over() const { return ended_ && out_.empty(); }

  private:
    bool begin_fragment();
    void take_fragment();
    std::string_view unread() const { return std::string_view{in_}.substr(read_); }

    int socket_;
    std::uint64_t number_;
    bool ended_ = false;   // nothing more comes
    bool dropped_ = false; // nothing more goes

    std::string in_;       // as it came
    std::size_t read_ = 0; // how much of it has gone into records
    std::string record_;   // the one under way, or the last whole one
    std::uint32_t fragment_left_ = 0;
    bool in_fragment_ = false;
    bool last_fragment_ = false;
    bool whole_ = false;

    std::string out_;
    std::size_t sent_ = 0;
};

} // namespace zerdix::alphad

#endif
