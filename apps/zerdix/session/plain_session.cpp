// SPDX-License-Identifier: MIT
#include "session/plain_session.h"

#include "common/settings.h"
#include "session/connection_probe.h"

namespace zerdix::app {

server_session::server_session() : host_(common::setting_host()) {
    session_.setUserId(common::setting_user().c_str());
    session_.setAlphaserver(host_.c_str());
    if (session_.GetClientAddr(host_.c_str()) != nullptr)
        return;
    failure_cause why = probe_server(host_);
    if (why.code == exit_refused)
        why = {exit_unavailable, "the server answers, but took no connection"};
    throw failure(why.code, "there is no connection: " + why.cause);
}

} // namespace zerdix::app
