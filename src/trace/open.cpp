// The life of the tracer: construction, opening with rotation, destruction.

#include <zerdix/trace.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <new>
#include <string>
#include <string_view>

#include <unistd.h>

#include "common/settings.h"
#include "platform/append_file.h"
#include "platform/encoding.h"
#include "platform/message_box.h"
#include "trace/state.h"
#include "trace/traced.h"

// Up before every other object of the library that is made at load and may have something to say.
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
// for everybody. Every other folder is its owner's to make.
void fill_path(char* path, const common::log_file& file) {
    std::snprintf(path, trace::path_size, "%s", file.path.c_str());
    std::error_code error;
    if (file.in_home)
        std::filesystem::create_directories(std::filesystem::path(file.path).parent_path(), error);
}

// The generation before takes the name up to the first "." of the whole path, folders included.
std::string name_of_old_generation(const std::string& path) {
    return path.substr(0, path.find('.')) + ".OLD";
}

void rotate() {
    const char* path = the_trace_file.path.data();
    const std::string old = name_of_old_generation(path);
    ::unlink(old.c_str()); // takes files only: std::remove takes an empty folder, too
    std::rename(path, old.c_str());
}

// A file that is still there couldn't be rotated; it goes on.
void open_trace_file() {
    const char* path = the_trace_file.path.data();
    if (append_files().exists(path))
        rotate();
    const auto opened = append_files().exists(path) ? append_files().open_at_end(path)
                                                    : append_files().create(path);
    the_trace_file.handle = opened.handle;
    if (opened.handle != platform::append_file_port::invalid)
        return;
    std::array<char, 80> text;
    std::snprintf(text.data(), text.size(), "Tracesetname: Error open trace file\nerror code: %d",
                  opened.error);
    trace::tell_user(text.data(), platform::utf8_to_cp1252(path));
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
        open_trace_file();
        write_start_line();
    }
}
