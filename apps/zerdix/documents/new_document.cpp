// SPDX-License-Identifier: MIT
#include "documents/new_document.h"

namespace zerdix::app {

std::int32_t new_document(user_session& user) {
    const call_probe watch;
    const std::int32_t id = user.journal().makeDoc();
    if (id == -1)
        user.lost("making a desk document", watch);
    if (id == 0)
        throw failure(exit_refused, "making a desk document failed: the server refused");
    return id;
}

} // namespace zerdix::app
