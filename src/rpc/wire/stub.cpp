// SPDX-License-Identifier: MIT
#include "rpc/wire/stub.h"

#include <zerdix/call_time.h>

#include "rpc/wire/call_observer.h"

namespace zerdix::wire {

namespace {

class observed_call {
  public:
    observed_call() : observer_(present_call_observer()) {
        if (observer_ != nullptr)
            observer_->begins();
    }
    ~observed_call() {
        if (observer_ != nullptr)
            observer_->ended();
    }
    observed_call(const observed_call&) = delete;
    observed_call& operator=(const observed_call&) = delete;

  private:
    call_observer* observer_;
};

} // namespace

bool remote_call(CLIENT* handle, std::uint32_t number, xdrproc_t argument_filter, void* argument,
                 xdrproc_t result_filter, void* result) {
    const observed_call observed;
    return clnt_call(handle, number, argument_filter, argument, result_filter, result,
                     (timeval{call_seconds, 0})) == RPC_SUCCESS;
}

rpc_err last_error(CLIENT* handle) {
    rpc_err error{};
    clnt_geterr(handle, &error);
    return error;
}

} // namespace zerdix::wire
