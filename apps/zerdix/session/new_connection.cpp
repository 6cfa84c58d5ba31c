// SPDX-License-Identifier: MIT
#include "session/new_connection.h"

#include <rpc/rpc.h>

namespace zerdix::app {

// The new session object has forgotten the present connection, which nobody else closes then.
new_connection::new_connection(client* present, const std::string& host) : stands_(false) {
    if (present != nullptr)
        clnt_destroy(present);
    stands_ = session_.GetClientAddr(host.c_str()) != nullptr;
}

} // namespace zerdix::app
