#include "rpc/wire/stub.h"

namespace zerdix::wire {

bool remote_call(CLIENT* handle, std::uint32_t number, xdrproc_t argument_filter, void* argument,
                 xdrproc_t result_filter, void* result) {
    return clnt_call(handle, number, argument_filter, argument, result_filter, result,
                     (timeval{call_seconds, 0})) == RPC_SUCCESS;
}

rpc_err last_error(CLIENT* handle) {
    rpc_err error{};
    clnt_geterr(handle, &error);
    return error;
}

} // namespace zerdix::wire
