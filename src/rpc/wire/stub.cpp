#include "rpc/wire/stub.h"

#include <cerrno>
#include <csignal>

#include "rpc/wire/deadline.h"

namespace zerdix::wire {

namespace {

// A result on its way in: the record's filter, and whether it ran to its end.
struct incoming {
    xdrproc_t filter;
    void* record;
    bool complete;
};

// How the last call ended, where the RPC library's own word isn't the whole truth.
clnt_stat last_status = RPC_SUCCESS;

bool_t decode_result(XDR* stream, ...) {
    std::va_list arguments;
    va_start(arguments, stream);
    auto* result = va_arg(arguments, incoming*);
    va_end(arguments);
    result->complete = result->filter(stream, result->record) != 0;
    return result->complete ? TRUE : FALSE;
}

// A server that closed the connection must not kill the caller's process by SIGPIPE.
class no_broken_pipe {
  public:
    no_broken_pipe() {
        sigset_t pending;
        sigpending(&pending);
        was_pending_ = sigismember(&pending, SIGPIPE) == 1;
        sigemptyset(&pipe_);
        sigaddset(&pipe_, SIGPIPE);
        pthread_sigmask(SIG_BLOCK, &pipe_, &old_);
    }
    ~no_broken_pipe() {
        const int error = errno; // the call's own, which the caller still reads
        const timespec at_once{0, 0};
        if (!was_pending_)
            while (sigtimedwait(&pipe_, nullptr, &at_once) > 0) {
            }
        pthread_sigmask(SIG_SETMASK, &old_, nullptr);
        errno = error;
    }
    no_broken_pipe(const no_broken_pipe&) = delete;
    no_broken_pipe& operator=(const no_broken_pipe&) = delete;

  private:
    sigset_t pipe_;
    sigset_t old_;
    bool was_pending_;
};

} // namespace

bool remote_call(CLIENT* handle, std::uint32_t number, xdrproc_t argument_filter, void* argument,
                 xdrproc_t result_filter, void* result) {
    incoming in{result_filter, result, false};
    const no_broken_pipe guard;
    const call_time time{std::chrono::seconds{call_seconds}};
    last_status = clnt_call(handle, number, argument_filter, argument, &decode_result, &in,
                            (timeval{call_seconds, 0}));
    if (last_status == RPC_SUCCESS && in.complete)
        return true;
    if (last_status == RPC_SUCCESS)
        last_status = RPC_CANTDECODERES;
    if (call_expired())
        last_status = RPC_TIMEDOUT;
    return false;
}

rpc_err last_error(CLIENT* handle) {
    rpc_err error{};
    clnt_geterr(handle, &error);
    error.re_status = last_status;
    return error;
}

} // namespace zerdix::wire
