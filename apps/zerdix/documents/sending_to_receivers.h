// SPDX-License-Identifier: MIT
// A document of the desk goes to receivers that the command line names, without a dialog.
#ifndef ZERDIX_APP_DOCUMENTS_SENDING_TO_RECEIVERS_H
#define ZERDIX_APP_DOCUMENTS_SENDING_TO_RECEIVERS_H

#include <cstdint>

#include "print/merge_text.h"
#include "session/user_session.h"

namespace zerdix::app {

// In the order in which they are named, the members of groups last; it stops at the first failure,
// which names the command that sends the rest. The document stays on the desk. Throws failure.
void send_to_receivers(user_session& user, std::int32_t document, const print_options& options);

} // namespace zerdix::app

#endif
