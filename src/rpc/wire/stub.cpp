#include "rpc/wire/stub.h"

#include "rpc/wire/call_watch.h"

namespace zerdix::wire {

namespace {

class watched_call {
  public:
    watched_call() : watch_(present_call_watch()) {
        if (watch_ != nullptr)
            watch_->begins();
    }
    ~watched_call() {
        if (watch_ != nullptr)
            watch_->ended();
    }
    watched_call(const watched_call&) = delete;
    watched_call& operator=(const watched_call&) = delete;

  private:
    call_watch* watch_;
};

} // namespace

bool remote_call(CLIENT* handle, std::uint32_t number, xdrproc_t argument_filter, void* argument,
                 xdrproc_t result_filter, void* result) {
    const watched_call watched;
    return clnt_call(handle, number, argument_filter, argument, result_filter, result,
                     (timeval{call_seconds, 0})) == RPC_SUCCESS;
}

rpc_err last_error(CLIENT* handle) {
    rpc_err error{};
    clnt_geterr(handle, &error);
    return error;
}

} // namespace zerdix::wire
