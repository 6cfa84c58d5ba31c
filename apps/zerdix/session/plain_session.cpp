// SPDX-License-Identifier: MIT
#include "session/plain_session.h"

#include <zerdix/settings.h>

#include "session/connection_probe.h"

namespace zerdix::app {

server_session::server_session() : host_(ReadSettings()->host) {
    session_.setUserId(ReadSettings()->user);
    session_.setAlphaserver(host_.c_str());
    if (session_.GetClientAddr(host_.c_str()) != nullptr)
        return;
    failure_cause why = probe_server(host_);
    if (why.code == exit_refused)
        why = {exit_unavailable, "the server answers, but took no connection"};
    throw failure(why.code, "there is no connection: " + why.cause);
}

} // namespace zerdix::app
