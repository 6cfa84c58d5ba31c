// SPDX-License-Identifier: MIT
// The tracer as an object: construction, opening at the first request, destruction.

#include <zerdix/trace.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <new>
#include <string>
#include <string_view>

#include "common/settings.h"
#include "platform/append_file.h"
#include "platform/message_box.h"
#include "trace/rotation.h"
#include "trace/state.h"
#include "trace/traced.h"

// Constructed before all other static objects of the library, since those may trace.
[[gnu::init_priority(1000)]] T_TRACE TTrace;

namespace zerdix::trace {

constinit T_TRACE* const process_tracer = &TTrace;
constinit trace_file_state the_trace_file = {};

std::array<char, 32> time_text() {
    std::array<char, 32> text = {};
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    if (::localtime_r(&now, &local) != nullptr)
        ::asctime_r(&local, text.data());
    return text;
}

void tell_user(std::string_view text, std::string_view caption) {
    const platform::message_log log = platform::set_message_log(nullptr);
    platform::message_box().show(text, caption);
    platform::set_message_log(log);
}

void report_no_text_buffer() {
    tell_user("T_TRACE::T_TRACE: Not enough memory to allocate text buffer", "Tracer");
}

} // namespace zerdix::trace

namespace {

using namespace zerdix;
using platform::append_files;
using trace::the_trace_file;

std::uint32_t configured_width() {
    const char* text = std::getenv("TRACE_WRAP_WIDTH");
    if (text == nullptr)
        return trace::default_width;
    const long width = std::strtol(text, nullptr, 10);
    return width >= 20 && width <= 200 ? static_cast<std::uint32_t>(width) : 200;
}

// A folder for logs in the user's home needn't be there yet: a machine's settings name the same one
// for everybody. Other folders aren't made here.
void fill_path(char* path, const common::log_file& file) {
    std::snprintf(path, trace::path_size, "%s", file.path.c_str());
    std::error_code error;
    if (file.in_home)
        std::filesystem::create_directories(std::filesystem::path(file.path).parent_path(), error);
}

void write_start_line() {
    std::array<char, 80> line;
    const int length = std::snprintf(line.data(), line.size(), "*** Tracer gestartet: %s\n",
                                     trace::time_text().data());
    append_files().write(the_trace_file.handle, {line.data(), static_cast<std::size_t>(length)});
}

void log_message(const char* line) {
    constexpr trace::tracer trace_lines{"message_box"};
    trace_lines.error("%s", line);
}

} // namespace

T_TRACE::T_TRACE()
    : _traceOn(1), _nameSet(0), _scopeNames(nullptr), _scopeExcluded(nullptr),
      _scopeLevels(nullptr), _textBuffer(nullptr), _errorFileName(nullptr), _errorFile(nullptr),
      _wrapWidth(trace::default_width) {
    if (this == trace::process_tracer)
        platform::set_message_log(log_message);
    if (common::setting_trace().starts_with('0')) {
        _traceOn = 0;
        return;
    }
    _textBuffer = new (std::nothrow) char[trace::text_size];
    if (_textBuffer == nullptr) {
        trace::report_no_text_buffer();
        _traceOn = 0;
    }
}

T_TRACE::~T_TRACE() {
    if (this == trace::process_tracer)
        platform::set_message_log(nullptr);
    delete[] _textBuffer;
    _textBuffer = nullptr;
    if (the_trace_file.handle != 0 && the_trace_file.handle != platform::append_file_port::invalid)
        append_files().close(the_trace_file.handle);
    the_trace_file.handle = 0;
    delete[] _errorFileName;
    _errorFileName = nullptr;
}

void T_TRACE::traceSetName(const char*) {
    if (_nameSet == 1)
        return;
    _wrapWidth = configured_width();
    _errorFileName = new (std::nothrow) char[trace::path_size];
    if (_errorFileName != nullptr)
        fill_path(_errorFileName, common::setting_error_file());
    // From here on the tracer is open. A message box may let other code run, which may trace.
    _nameSet = 1;
    if (_traceOn == 1) {
        fill_path(the_trace_file.path.data(), common::setting_trace_file());
        trace::open_trace_file();
        write_start_line();
    }
}
