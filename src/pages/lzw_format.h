// SPDX-License-Identifier: MIT
// The numbers of the compressed stream that both directions of the page codec share.
#ifndef ZERDIX_PAGES_LZW_FORMAT_H
#define ZERDIX_PAGES_LZW_FORMAT_H

#include <cstddef>
#include <cstdint>

namespace zerdix::pages {

inline constexpr unsigned char magic_1 = 0x1f;
inline constexpr unsigned char magic_2 = 0x9d;
inline constexpr unsigned char width_mask = 0x1f;
inline constexpr unsigned char block_flag = 0x80;
inline constexpr std::size_t header_size = 3;

inline constexpr std::uint32_t first_width = 9;
inline constexpr std::uint32_t last_width = 16;
inline constexpr std::uint32_t code_limit = 1u << last_width;

inline constexpr std::uint32_t clear_code = 256;
inline constexpr std::uint32_t first_free = 257; // in block mode

inline constexpr std::size_t block_step = 65536; // output blocks are multiples of this

constexpr std::size_t whole_blocks(std::size_t length) {
    return (length + block_step - 1) / block_step * block_step;
}

// The largest free code up to which codes stay `width` bits wide. At the stream's largest width
// that is more than any free code, so that the width stays.
constexpr std::uint32_t max_code(std::uint32_t width, std::uint32_t largest_width) {
    return width == largest_width ? 1u << width : (1u << width) - 1;
}

} // namespace zerdix::pages

#endif
