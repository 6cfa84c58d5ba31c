// SPDX-License-Identifier: MIT
// The page codec: a block of bytes in memory to a compressed stream and back.
//
// The stream is that of the Unix compress tool: 1F 9D, a byte with the largest code width and the
// block mode flag, then LZW codes of 9 to 16 bits, lowest bit first, in groups of eight.
//
// The two directions aren't each other's inverse. The expander mirrors the bits of every byte that
// it gives (0x01 comes back as 0x80): the server keeps pages with the leftmost pixel in bit 0, the
// library works with the leftmost pixel in bit 7.
//
// Each call is a run of its own and keeps nothing; calls on different threads don't meet.
#ifndef ZERDIX_PAGES_PAGE_CODEC_H
#define ZERDIX_PAGES_PAGE_CODEC_H

#include <cstddef>
#include <cstdint>

namespace zerdix::pages {

// The expander gives no more bytes than this, whatever the stream asks for: a few thousand bytes
// of a hostile stream can stand for gigabytes. It is some 500 fax pages.
inline constexpr std::size_t expanded_limit = std::size_t{256} << 20;

// Compresses `inputLength` bytes (none when negative). *output becomes a block of malloc that the
// caller frees, *outputLength its length; the block itself is a multiple of 65,536 bytes long.
// 0, or 1 when memory ran out: then *output is null and *outputLength 0.
std::int32_t compress_mem_2_mem(const unsigned char* input, std::int32_t inputLength,
                                unsigned char** output, std::int32_t* outputLength);

// Expands a stream and mirrors its bytes. The output is handed over as above, and is null when
// there are no bytes. 1 when the header isn't one of ours, declares codes of more than 16 bits, or
// memory ran out.
//
// Damage isn't reported: a stream that ends early or goes past expanded_limit gives what was
// expanded so far, with 0. A code that can't be known yet counts as the one that is being defined.
std::int32_t uncompress_mem_2_mem(const unsigned char* input, std::int32_t inputLength,
                                  unsigned char** output, std::int32_t* outputLength);

} // namespace zerdix::pages

#endif
