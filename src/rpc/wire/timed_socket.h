// SPDX-License-Identifier: MIT
// A connected socket with a deadline for the call under way: every wait ends then, so that a peer
// that is silent, or sends byte by byte, can't make the call longer.
#ifndef ZERDIX_WIRE_TIMED_SOCKET_H
#define ZERDIX_WIRE_TIMED_SOCKET_H

#include <chrono>
#include <cstdint>
#include <rpc/rpc.h>

namespace zerdix::wire {

class timed_socket {
  public:
    // The file stays its owner's.
    explicit timed_socket(int file) : file_(file) {}

    // A call begins and may take this long.
    void begin(std::chrono::steady_clock::duration time);

    // As record streams want them: all of `length` is written, or what has arrived is read; -1 on
    // failure. A peer that has gone raises no signal.
    int write(const char* from, int length);
    int read(char* to, int room);

    // What went wrong in this call: RPC_SUCCESS, RPC_CANTSEND, RPC_CANTRECV or RPC_TIMEDOUT, and
    // the system's error number with it.
    clnt_stat failure() const { return failure_; }
    int error() const { return error_; }

    // How many bytes have been read so far, in all calls.
    std::uint64_t received() const { return received_; }

    // Ends the connection for both sides; whatever is tried on it from now on fails.
    void shut() const;

  private:
    bool wait(short event, clnt_stat failure);
    int fail(clnt_stat failure, int error);

    int file_;
    std::chrono::steady_clock::time_point end_{};
    clnt_stat failure_ = RPC_SUCCESS;
    int error_ = 0;
    std::uint64_t received_ = 0;
};

} // namespace zerdix::wire

#endif
