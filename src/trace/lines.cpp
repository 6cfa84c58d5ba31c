// SPDX-License-Identifier: MIT
// Writing a message as physical lines into the trace file and the error log.

#include <zerdix/trace.h>

#include <algorithm>
#include <array>
#include <memory>
#include <new>
#include <span>
#include <string_view>
#include <utility>

#include <fcntl.h>

#include "platform/append_file.h"
#include "platform/format.h"
#include "platform/tick.h"
#include "trace/state.h"
#include "trace/wrap.h"

namespace {

using namespace zerdix;

using text_buffer = std::unique_ptr<char[]>;

constexpr std::string_view line_breaks = "\n\r";

// Lines behind the first of a message are indented, and their field is as much narrower.
constexpr const char* indent = "     ";
constexpr std::uint32_t indent_width = 5;

const char* label(std::uint32_t level) {
    constexpr std::array labels = {"-----: ", "Error: ", "Info1: ", "IntErr:", "C/D:   ",
                                   "Entry: ", "Exit:  ", "GetSet:", "Info2: ", "Warn:  "};
    return labels[trace::level_group(level)];
}

std::string_view without_closing_controls(std::string_view format) {
    while (!format.empty() && static_cast<unsigned char>(format.back()) < 0x20)
        format.remove_suffix(1);
    return format;
}

// One line as it goes into both files. The longest has a field of 200 characters.
class physical_line {
  public:
    physical_line(std::uint32_t level, const char* leader, std::string_view piece,
                  std::uint32_t width) {
        const int length =
            std::snprintf(bytes_.data(), bytes_.size(), "(%lu) %7s %s%-*.*s\n",
                          static_cast<unsigned long>(platform::tick()), label(level), leader,
                          static_cast<int>(width), static_cast<int>(piece.size()), piece.data());
        length_ = std::min(static_cast<std::size_t>(std::max(length, 0)), bytes_.size() - 1);
    }

    const char* text() const { return bytes_.data(); }
    std::string_view view() const { return {bytes_.data(), length_}; }

  private:
    std::array<char, 256> bytes_;
    std::size_t length_;
};

// Null when it can't be opened at once, such as a pipe that nobody reads.
std::FILE* open_error_log(const char* path) {
    const int descriptor =
        path == nullptr
            ? -1
            : ::open(path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK, 0666);
    return descriptor < 0 ? nullptr : ::fdopen(descriptor, "a");
}

// The log is held open for no longer than one line: other processes write to it too.
void append_to_error_log(const char* path, std::FILE*& log, const char* line, bool last) {
    log = open_error_log(path);
    if (log == nullptr) {
        trace::tell_user("Error opening error log", "Tracer");
        return;
    }
    std::fprintf(log, last ? "\nZeit:%s\n" : "Zeit:%s\n", trace::time_text().data());
    std::fputs(line, log);
    std::fclose(log);
    log = nullptr;
}

} // namespace

void T_TRACE::_outTraceLine(int wrapConfigured, std::uint32_t level, const char* prefix,
                            const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    _voutTraceLine(wrapConfigured, level, prefix, format, arguments);
    va_end(arguments);
}

void T_TRACE::_voutTraceLine(int wrapConfigured, std::uint32_t level, const char* prefix,
                             const char* format, std::va_list arguments) {
    const std::string_view message = without_closing_controls(format);
    if (message.find_first_of(line_breaks) != std::string_view::npos) {
        _outParts(wrapConfigured, level, prefix, message);
        return;
    }
    // A message box lets other code run, which may trace: its lines need a buffer of their own.
    text_buffer owned(std::exchange(_textBuffer, nullptr));
    if (owned == nullptr)
        owned.reset(new (std::nothrow) char[trace::text_size]);
    if (owned == nullptr) {
        trace::report_no_text_buffer();
        return;
    }
    const std::span<char> buffer(owned.get(), trace::text_size);
    const int start = std::snprintf(buffer.data(), buffer.size(), "%.255s: ", prefix);
    const auto used = static_cast<std::size_t>(start);
    platform::format_text(buffer.subspan(used), message, arguments);
    _outWrapped(wrapConfigured, level, buffer.data());
    delete[] std::exchange(_textBuffer, owned.release());
}

// A message with line breaks is written as it stands: a header line, then its parts.
void T_TRACE::_outParts(int wrapConfigured, std::uint32_t level, const char* prefix,
                        std::string_view message) {
    _outTraceLine(wrapConfigured, level, prefix, "");
    while (!message.empty()) {
        const std::string_view part = message.substr(0, message.find_first_of(line_breaks));
        message.remove_prefix(std::min(part.size() + 1, message.size()));
        if (!part.empty())
            _outTraceLine(wrapConfigured, level, "", "%.*s", static_cast<int>(part.size()),
                          part.data());
    }
}

void T_TRACE::_outWrapped(int wrapConfigured, std::uint32_t level, std::string_view text) {
    // A dump has at least the width that it fits.
    std::uint32_t width =
        wrapConfigured == 0 ? std::max(_wrapWidth, trace::default_width) : _wrapWidth;
    const char* leader = "";
    while (text.size() > width) {
        const std::string_view piece = trace::take_piece(text, width);
        _outPhysicalLine(level, leader, piece, width, false);
        leader = indent;
        width = _wrapWidth - indent_width;
    }
    _outPhysicalLine(level, leader, text, width, true);
}

void T_TRACE::_outPhysicalLine(std::uint32_t level, const char* leader, std::string_view piece,
                               std::uint32_t width, bool last) {
    const physical_line line(level, leader, piece, width);
    if (trace::is_error(level))
        append_to_error_log(_errorFileName, _errorFile, line.text(), last);
    if (_traceOn == 1)
        platform::append_files().write(zerdix::trace::the_trace_file.handle, line.view());
}
