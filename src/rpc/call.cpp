// SPDX-License-Identifier: MIT
#include "rpc/call.h"

#include <zerdix/zerdix.h>

#include "platform/host_lookup.h"

// Made here for sources that include session.h without call.h.
template class zerdix::held_result<a_user_rec>;

namespace zerdix::rpc {

session_state& session() {
    static session_state* const state = new session_state;
    return *state;
}

call_error settle_failed_call(client* handle) {
    const std::int32_t socket_rc = platform::last_socket_error();
    const rpc_err error = wire::last_error(handle);
    if (error.re_status == RPC_TIMEDOUT) {
        clnt_destroy(handle);
        session().pclient = nullptr;
    }
    session().last_failed_call = {error.re_status, socket_rc};
    ++session().failed_calls;
    return session().last_failed_call;
}

call_error last_failed_call() {
    return session().last_failed_call;
}

client* by_session::handle() const {
    client* present = session().pclient;
    if (present == nullptr) {
        trace_lines.error("%s: Client structure not set\n", name());
        exit("--> ");
    }
    return present;
}

void by_session::failed(client* handle, const char* call) const {
    const call_error error = settle_failed_call(handle);
    trace_lines.error("%s: Error RPC call, status: <%ld> Socket rc: <%ld>", call, error.status,
                      error.socket_rc);
    exit("--> %s", call);
}

client* by_object::handle() const {
    if (*copy_ != session().pclient)
        *copy_ = nullptr;
    if (*copy_ == nullptr)
        *copy_ = ZERDIX::clsGetClient();
    return *copy_;
}

void by_object::failed(client* handle) const {
    settle_failed_call(handle);
    *copy_ = session().pclient;
}

} // namespace zerdix::rpc
