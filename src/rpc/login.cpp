// SPDX-License-Identifier: MIT
// Logging on and off, and whether the login still stands.

#include <string>

#include <zerdix/values.h>
#include <zerdix/zerdix.h>

#include "rpc/call.h"
#include "rpc/fields.h"

using namespace zerdix;
using rpc::by_session;
using rpc::or_empty;
using rpc::session;
using rpc::trace_lines;
namespace proc = rpc::proc;

namespace {

// The versions of the protocol that this client speaks; a server must speak all of them.
constexpr std::int32_t compat_low = 1;
constexpr std::int32_t compat_high = 8;

// The policy of a login's own calls. The login closes the connection after one that failed.
class by_login {
  public:
    explicit by_login(const char* name) : name_(name) {}

    void failed(client* handle) const {
        const rpc::call_error error = rpc::settle_failed_call(handle);
        trace_lines.error("%s: Error RPC call, status: <%ld> Socket rc: <%ld>", name_, error.status,
                          error.socket_rc);
    }

  private:
    const char* name_;
};

std::int32_t compare_versions() {
    const by_login caller{"ZERDIX::login() - a_get_compat_1()"};
    const auto* range = rpc::call<proc::a_get_compat_1>(caller, session().pclient, {});
    if (range == nullptr)
        return rpc::call_failed;
    if (range->compat_low <= compat_low && range->compat_high >= compat_high)
        return rpc::success;
    trace_lines.error("ZERDIX::login(): compatibility range of client (1 - 8) must be within "
                      "server range (%ld - %ld)",
                      range->compat_low, range->compat_high);
    return result_not_accepted;
}

std::int32_t refusal(std::int32_t status) {
    switch (status) {
    case login_omega_not_reached:
        trace_lines.error("ZERDIX::login(): Omega server cannot be reached");
        return result_omega_not_reached;
    case login_present_already:
        trace_lines.error("ZERDIX::login(): The user %s has already logged on",
                          session().str10UserId.bytes);
        return result_present_already;
    case login_unknown_user:
        trace_lines.error("ZERDIX::login(): The user %s is unknown", session().str10UserId.bytes);
        return result_unknown_user;
    case login_wrong_password:
        trace_lines.error("ZERDIX::login(): Wrong password!");
        return result_wrong_password;
    default:
        trace_lines.error("ZERDIX::login(): Error No. %ld", status);
        return result_not_accepted;
    }
}

// Afterwards no object keeps a record: a setter would write that of the user before.
void forget_user_records() {
    rpc::forget<proc::a_get_user_1>();
    session().pauserrec.detach();
    rpc::forget<proc::o_get_user_1>();
}

std::int32_t log_on(const a_get_login_i& request) {
    const by_login caller{"ZERDIX::login() - a_get_login_1()"};
    auto* answer = rpc::call<proc::a_get_login_1>(caller, session().pclient, request);
    if (answer == nullptr)
        return rpc::call_failed;
    if (answer->status != login_accepted)
        return refusal(answer->status);
    session().lLoginId = answer->loginid;
    wire::release(*answer);
    return rpc::success;
}

} // namespace

std::int32_t ZERDIX::login(const char* userid, const char* password, const char* alphaServer) {
    const trace::operation traced{trace_lines, "ZERDIX::login()",
                                  "<-- ZERDIX::login(): UserId: %s Alpha Server: %s",
                                  or_empty(userid), or_empty(alphaServer)};
    std::int32_t rc = rpc::call_failed;
    if (GetClientAddr(alphaServer) == nullptr) {
        trace_lines.error("ZERDIX::login(): GetClientAddrError RPC call");
    } else {
        rc = compare_versions();
        if (rc == rpc::success) {
            setUserId(userid);
            setAlphaserver(alphaServer);
            forget_user_records();
            rc = log_on({session().str10UserId, rpc::field<20>(password)});
        }
        if (rc == rpc::call_failed)
            CleanupHostConnection();
    }
    if (rc != rpc::success)
        return rc;
    // The name that the server gives itself replaces the typed one, if it has the user's record.
    const o_user_rec* user = getOUserRecord();
    if (user != nullptr && !user->alphaid.empty())
        setAlphaserver(std::string{user->alphaid.view()}.c_str());
    traced.exit("--> ZERDIX::login(): LoginId: %ld", session().lLoginId);
    return rpc::success;
}

// Here and in clsCheckLogin a failed call leaves the connection alone, a timed out one too.
std::int32_t ZERDIX::logout() {
    const by_session caller{"ZERDIX::logout()"};
    client* handle = caller.handle();
    if (handle == nullptr)
        return rpc::no_client;
    a_logout_i request{session().str10UserId, session().lLoginId};
    const bool answered = wire::stub<proc::a_logout_1>(request, handle) != nullptr;
    if (answered)
        CleanupHostConnection();
    else
        trace_lines.error("ZERDIX::logout(): Error RPC call");
    return answered ? rpc::success : rpc::call_failed;
}

std::int32_t ZERDIX::clsCheckLogin() {
    std::int32_t loginid = session().lLoginId;
    const by_session caller{"ZERDIX::clsCheckLogin()", "<-- ZERDIX::clsCheckLogin(): LoginId: %ld",
                            loginid};
    client* handle = caller.handle();
    if (handle == nullptr)
        return rpc::no_client;
    std::int32_t rc = rpc::success;
    const boolean* known = wire::stub<proc::a_check_login_1>(loginid, handle);
    if (known == nullptr) {
        trace_lines.error("ZERDIX::clsCheckLogin(): Error RPC call\n");
        rc = rpc::call_failed;
    } else if (!*known) {
        trace_lines.error("ZERDIX::clsCheckLogin(): No login for id: %ld", loginid);
        rc = rpc::refused;
    }
    return rc;
}

std::int32_t ZERDIX::clsGetLoginId() {
    trace_lines.property("ZERDIX::clsGetLoginId():");
    return session().lLoginId;
}
