// SPDX-License-Identifier: MIT
#include "rpc/wire/timed_socket.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <poll.h>
#include <sys/socket.h>

#include "rpc/wire/call_observer.h"

namespace zerdix::wire {

namespace {

using clock = std::chrono::steady_clock;

bool passing(int error) {
    return error == EINTR || error == EAGAIN || error == EWOULDBLOCK;
}

} // namespace

void timed_socket::begin(clock::duration time) {
    end_ = clock::now() + time;
    failure_ = RPC_SUCCESS;
    error_ = 0;
}

int timed_socket::fail(clnt_stat failure, int error) {
    failure_ = failure;
    error_ = error;
    return -1;
}

// True when the socket is ready, or has an error that the next system call on it will tell.
bool timed_socket::wait(short event, clnt_stat failure) {
    call_observer* const observer = present_call_observer();
    const auto longest =
        observer != nullptr ? call_observer_interval.count() : std::numeric_limits<int>::max();
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end_ - clock::now()).count();
        if (left <= 0)
            return fail(RPC_TIMEDOUT, ETIMEDOUT) == 0;
        pollfd waiting{file_, event, 0};
        const int ready =
            poll(&waiting, 1, static_cast<int>(std::min<decltype(left)>(left, longest)));
        if (ready > 0)
            return true;
        if (ready == 0 && observer != nullptr)
            observer->goes_on();
        if (ready < 0 && !passing(errno))
            return fail(failure, errno) == 0;
    }
}

int timed_socket::write(const char* from, int length) {
    for (int written = 0; written < length;) {
        const auto rest = static_cast<std::size_t>(length - written);
        const ssize_t sent = send(file_, from + written, rest, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent >= 0)
            written += static_cast<int>(sent);
        else if (!passing(errno))
            return fail(RPC_CANTSEND, errno);
        else if (!wait(POLLOUT, RPC_CANTSEND))
            return -1;
    }
    return length;
}

int timed_socket::read(char* to, int room) {
    while (wait(POLLIN, RPC_CANTRECV)) {
        const ssize_t got = recv(file_, to, static_cast<std::size_t>(room), MSG_DONTWAIT);
        if (got > 0) {
            received_ += static_cast<std::uint64_t>(got);
            return static_cast<int>(got);
        }
        if (got == 0)
            return fail(RPC_CANTRECV, ECONNRESET); // the peer closed in the middle of a call
        if (!passing(errno))
            return fail(RPC_CANTRECV, errno);
    }
    return -1;
}

void timed_socket::shut() const {
    shutdown(file_, SHUT_RDWR);
}

} // namespace zerdix::wire
