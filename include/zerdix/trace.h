// SPDX-License-Identifier: MIT
// T_TRACE: the tracer, and TTrace, the one object of it in a process.
//
// It writes two files on the workstation. The trace file takes every line while tracing is on; it
// is made anew by each process and keeps one older generation. The error log takes the lines of
// level 100 to 199 whether tracing is on or off, and only grows. Both are ruled by Trace,
// Tracefile, Errorfile and LogDir in section "Zerdix" of the settings; zerdix(1) tells their names
// and places. The environment variable TRACE_WRAP_WIDTH (20 to 200) sets the width of a line's
// text.
//
// The tracer never reports a failure to its caller. One thread at a time.
#ifndef ZERDIX_TRACE_H
#define ZERDIX_TRACE_H

#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include <zerdix/export.h>

class ZX_API T_TRACE {
  public:
    T_TRACE();
    ~T_TRACE();

    T_TRACE(const T_TRACE&) = delete;
    T_TRACE& operator=(const T_TRACE&) = delete;

    // Opens the tracer; the first trace request does it too. A second call does nothing. The name
    // isn't used: the files' names come from the settings.
    void traceSetName(const char* name);

    // Writes one message. `file` is the name of the calling source without its ending, `module`
    // is unused, `level` 0 to 999: 100 error, 200 information, 400 construction and destruction,
    // 500 entry, 600 exit, 700 get and set, 900 warning.
    //
    // The format's conversions are %s, %c, %d, %i, %u, %x, %X with the usual flags, width and
    // precision. "%ld", "%lu" and "%lx" take 32-bit values (std::int32_t, std::uint32_t), "%hd"
    // 16-bit ones: pass int, not long.
    void tracePrintf(const char* file, std::uint32_t line, const char* module, std::uint32_t level,
                     const char* format, ...);

    // Writes `length` bytes at `data` as rows of 16 in text and hexadecimal.
    void traceDump(const char* file, std::uint32_t line, const char* module, std::uint32_t level,
                   const void* data, std::uint32_t length);

  private:
    friend struct T_TRACE_access; // the tests' window

    int _enterTraceRequest(const char* file, std::uint32_t line, std::uint32_t level);
    void _exitTraceRequest();
    void _outTraceLine(int wrapConfigured, std::uint32_t level, const char* prefix,
                       const char* format, ...);
    void _voutTraceLine(int wrapConfigured, std::uint32_t level, const char* prefix,
                        const char* format, std::va_list arguments);
    void _outParts(int wrapConfigured, std::uint32_t level, const char* prefix,
                   std::string_view message);
    void _outWrapped(int wrapConfigured, std::uint32_t level, std::string_view text);
    void _outPhysicalLine(std::uint32_t level, const char* leader, std::string_view piece,
                          std::uint32_t width, bool last);
    int _isWithinScope(const char* name, std::uint32_t level);
    int _checkScope(const char* masks, const char* value);
    int _checkMask(const char* mask, const char* value);

    std::int32_t _traceOn;
    std::int32_t _nameSet;
    char* _scopeNames;
    char* _scopeExcluded;
    char* _scopeLevels;
    char* _textBuffer;
    char* _errorFileName;
    std::FILE* _errorFile;
    std::uint32_t _wrapWidth;
};

extern ZX_API T_TRACE TTrace;

#endif
