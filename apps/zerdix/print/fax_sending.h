// SPDX-License-Identifier: MIT
// The end of a fax job: SendFaxDoc, and what is told of it. All of it stands in the library's
// outcome (zerdix/outcome.h); of a receiver that it leaves unknown the server is asked.
#ifndef ZERDIX_APP_PRINT_FAX_SENDING_H
#define ZERDIX_APP_PRINT_FAX_SENDING_H

#include <string>

namespace zerdix::app {

// Ends the open job. What was done, a clause such as "3 send jobs made". Throws failure; a document
// that can still be sent to the rest of its receivers stays on the desk then, and the failure names
// the command for it. `host` is Windows-1252.
std::string send_fax(const std::string& host);

} // namespace zerdix::app

#endif
