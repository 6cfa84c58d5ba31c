// SPDX-License-Identifier: MIT
// A server that does nothing: the peer of measurements of the client's side.
//
// A child process on loopback, registered with the port mapper under the program number that the
// environment gives. It answers every procedure of the table at once, with a fixed record (numbers
// are 1, truth values true, the time zone UTC) or with the bytes that were handed in for it, looks
// at no argument and keeps nothing.
#ifndef ZERDIX_BENCH_INSTANT_SERVER_H
#define ZERDIX_BENCH_INSTANT_SERVER_H

#include <atomic>
#include <cstdint>
#include <map>
#include <sys/types.h>
#include <vector>

namespace zerdix::bench {

class instant_server {
  public:
    // Results as they go on the wire, by procedure number. Where there are several they take turns.
    using replies = std::map<std::uint32_t, std::vector<std::vector<char>>>;

    // ZERDIXRPCOFFSET must be set by now. Ends the program with a sentence when it can't start.
    explicit instant_server(replies results = {});
    // Ends the child. It also ends by itself when its parent goes, and after ten minutes.
    ~instant_server();
    instant_server(const instant_server&) = delete;
    instant_server& operator=(const instant_server&) = delete;

    // Calls answered so far, all procedures together.
    std::uint32_t calls() const { return *calls_; }

  private:
    std::atomic<std::uint32_t>* calls_; // shared with the child
    pid_t child_;
};

} // namespace zerdix::bench

#endif
