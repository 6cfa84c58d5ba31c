// SPDX-License-Identifier: MIT
// The formatter of trace lines: a printf whose integers are as wide as the protocol's.
#ifndef ZERDIX_PLATFORM_FORMAT_H
#define ZERDIX_PLATFORM_FORMAT_H

#include <cstdarg>
#include <cstddef>
#include <span>
#include <string_view>

namespace zerdix::platform {

// No formatted text is longer.
inline constexpr std::size_t most_formatted = 1024;

// Writes at most most_formatted characters and a NUL into `out`, as far as they fit, and returns
// the number of characters before the NUL. Allocates nothing.
//
//   %d %i %u %x %X  also with "l": 32 bits; with "h": 16 bits
//   %s              text; "(null)" for a null pointer
//   %c %p %%
//
// with the flags - 0 # blank +, width and precision, which may be "*". Anything else behind a "%"
// is copied as it stands and takes no argument.
std::size_t format_text(std::span<char> out, std::string_view format, std::va_list arguments);

} // namespace zerdix::platform

#endif
