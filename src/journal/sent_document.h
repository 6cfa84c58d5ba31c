// SPDX-License-Identifier: MIT
// The id that the server gave an outgoing document.
#ifndef ZERDIX_JOURNAL_SENT_DOCUMENT_H
#define ZERDIX_JOURNAL_SENT_DOCUMENT_H

#include <cstdint>

namespace zerdix::journal {

// What the server answered to the last JOURNAL::sendDoc of the process: the outgoing document that
// it made, 0 when it refused or the call failed.
std::int32_t sent_document();

} // namespace zerdix::journal

#endif
