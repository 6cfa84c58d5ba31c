// SPDX-License-Identifier: MIT
// The trace lines of the print job.
#ifndef ZERDIX_SENDFAX_TRACE_LINES_H
#define ZERDIX_SENDFAX_TRACE_LINES_H

#include "trace/traced.h"

namespace zerdix::sendfax {

inline constexpr trace::tracer trace_lines{"sendfax"};

} // namespace zerdix::sendfax

#endif
