// SPDX-License-Identifier: MIT
// The beginning and the end of every trace request, and the request for a message.

#include <zerdix/trace.h>

#include <array>
#include <cstdio>

#include "trace/state.h"

int T_TRACE::_enterTraceRequest(const char*, std::uint32_t, std::uint32_t) {
    if (_nameSet == 0)
        traceSetName(nullptr);
    return _nameSet;
}

void T_TRACE::_exitTraceRequest() {}

void T_TRACE::tracePrintf(const char* file, std::uint32_t line, const char*, std::uint32_t level,
                          const char* format, ...) {
    if (_traceOn == 0 && !zerdix::trace::is_error(level))
        return;
    if (_enterTraceRequest(file, line, level) == 0)
        return;
    std::array<char, 256> prefix;
    std::snprintf(prefix.data(), prefix.size(), "%s: ", file);
    std::va_list arguments;
    va_start(arguments, format);
    _voutTraceLine(1, level, prefix.data(), format, arguments);
    va_end(arguments);
    _exitTraceRequest();
}
