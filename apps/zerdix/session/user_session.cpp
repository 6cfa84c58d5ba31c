// SPDX-License-Identifier: MIT
#include "session/user_session.h"

#include <zerdix/settings.h>
#include <zerdix/timetext.h>
#include <zerdix/values.h>

#include "output/value_text.h"
#include "platform/encoding.h"
#include "session/password.h"

namespace zerdix::app {

namespace {

constexpr std::size_t user_width = 10;
constexpr std::size_t password_width = 20;
constexpr std::size_t host_width = 35;

std::string chosen(const std::string& typed, const std::string& what, std::size_t width,
                   const std::string& setting) {
    return typed.empty() ? setting : field_text(what, typed, width);
}

failure login_failure(std::int32_t result, const std::string& user, const std::string& host,
                      const call_probe& watch) {
    const std::string name = "the user " + shown(user);
    switch (result) {
    case result_present_already:
        return {exit_refused, name + " is already logged on"};
    case result_unknown_user:
        return {exit_no_permission, name + " is unknown on " + shown(host)};
    case result_wrong_password:
        return {exit_no_permission, "wrong password for " + name};
    case result_not_accepted:
        return {exit_refused, "the server on " + shown(host) +
                                  " doesn't fit this client, or refused the login for a reason of "
                                  "its own; the trace tells which"};
    case result_omega_not_reached:
        return {exit_unavailable, "the Alpha server can't reach its Omega server"};
    default:
        const failure_cause why =
            ZERDIX::clsGetClient() != nullptr ? watch.explain(host) : probe_server(host);
        return {why.code == exit_refused ? exit_unavailable : why.code,
                "the login failed: " + why.cause};
    }
}

} // namespace

user_session::user_session(const session_options& options) : out_(options.as_json, options.quiet) {
    log_on(options);
    journal_ = std::make_unique<JOURNAL>();
    books_ = std::make_unique<TELEBOOK>();
    setTZ(); // times are shown in UTC when the server doesn't tell its zone
}

user_session::~user_session() {
    if (ZERDIX::clsGetClient() == nullptr || session_.logout() != 0)
        session_.CleanupHostConnection();
}

void user_session::log_on(const session_options& options) {
    const std::string user = chosen(options.user, "the user", user_width, ReadSettings()->user);
    host_ = chosen(options.host, "the server's name", host_width, ReadSettings()->host);
    password_ = field_text("the password", login_password(options.password_file, shown(user)),
                           password_width);
    const call_probe watch;
    const std::int32_t result = session_.login(user.c_str(), password_.c_str(), host_.c_str());
    if (result == 0)
        return;
    const failure why = login_failure(result, user, host_, watch);
    session_.CleanupHostConnection();
    throw failure(why);
}

std::string user_session::user() const {
    return shown(ZERDIX::clsGetUserId());
}

void user_session::lost(const std::string& doing, const call_probe& watch) const {
    const failure_cause why = watch.explain(host_);
    throw failure(why.code, doing + " failed: " + why.cause);
}

void user_session::check(const std::string& doing, std::int32_t result, const std::string& refused,
                         const call_probe& watch) const {
    if (result == 0)
        return;
    if (result == call_failed || result == call_without_connection)
        lost(doing, watch);
    throw failure(exit_refused, doing + " failed: " + refused);
}

} // namespace zerdix::app
