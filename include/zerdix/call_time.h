// SPDX-License-Identifier: MIT
// How long a call to the server may take.
#ifndef ZERDIX_CALL_TIME_H
#define ZERDIX_CALL_TIME_H

namespace zerdix {

// In seconds, from the first byte sent to the last one read. A call that takes longer fails as one
// that timed out.
constexpr int call_seconds = 25;

} // namespace zerdix

#endif
