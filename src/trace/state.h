// SPDX-License-Identifier: MIT
// State of the tracer that is kept once per process, beside the object.
#ifndef ZERDIX_TRACE_STATE_H
#define ZERDIX_TRACE_STATE_H

#include <array>
#include <cstdint>
#include <string_view>

namespace zerdix::trace {

inline constexpr std::size_t path_size = 260;
inline constexpr std::size_t text_size = 4096;
inline constexpr std::uint32_t default_width = 82;

struct trace_file_state {
    std::array<char, path_size> path;
    int handle; // of platform::append_files(); 0 until the file has been opened
};

// Set while the tracer opens, cleared when it is destroyed.
extern trace_file_state the_trace_file;

// Only the hundreds of a level count.
inline std::uint32_t level_group(std::uint32_t level) {
    return level / 100 % 10;
}

inline bool is_error(std::uint32_t level) {
    return level_group(level) == 1;
}

// The present local time as asctime prints it, its line feed included.
std::array<char, 32> time_text();

// Shows the user a message of the tracer itself. It isn't traced as other messages are.
void tell_user(std::string_view text, std::string_view caption);

// Tells the user that there is no memory for the text of a line.
void report_no_text_buffer();

} // namespace zerdix::trace

#endif
