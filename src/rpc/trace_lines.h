// SPDX-License-Identifier: MIT
// The trace lines of the session.
#ifndef ZERDIX_RPC_TRACE_LINES_H
#define ZERDIX_RPC_TRACE_LINES_H

#include "trace/traced.h"

namespace zerdix::rpc {

inline constexpr trace::tracer trace_lines{"zerdix"};

} // namespace zerdix::rpc

#endif
