// SPDX-License-Identifier: MIT
// The page codec's two calls with values in and out, and inputs to try them on.
#ifndef ZERDIX_TESTS_IMAGING_CODEC_CALLS_H
#define ZERDIX_TESTS_IMAGING_CODEC_CALLS_H

#include <cstdlib>
#include <optional>
#include <random>
#include <string_view>
#include <vector>

#include "pages/page_codec.h"

namespace codec {

using bytes = std::vector<unsigned char>;

template <typename Operation>
std::optional<bytes> call(Operation operation, const bytes& input) {
    unsigned char* output = nullptr;
    std::int32_t length = -1;
    const auto result =
        operation(input.data(), static_cast<std::int32_t>(input.size()), &output, &length);
    std::optional<bytes> given;
    if (result == 0)
        given.emplace(output, output + length);
    std::free(output);
    return given;
}

// Empty when the call didn't return 0.
inline std::optional<bytes> compress(const bytes& input) {
    return call(zerdix::pages::compress_mem_2_mem, input);
}
inline std::optional<bytes> expand(const bytes& stream) {
    return call(zerdix::pages::uncompress_mem_2_mem, stream);
}

inline bytes text_bytes(std::string_view text) {
    return {text.begin(), text.end()};
}

inline bytes repeated(std::string_view pattern, std::size_t length) {
    bytes block(length);
    for (std::size_t n = 0; n < length; ++n)
        block[n] = static_cast<unsigned char>(pattern[n % pattern.size()]);
    return block;
}

// As a page begins: width and height, the high byte first.
inline bytes page_header(std::uint32_t width, std::uint32_t height) {
    bytes header;
    for (const std::uint32_t word : {width, height})
        for (int shift = 24; shift >= 0; shift -= 8)
            header.push_back(static_cast<unsigned char>(word >> shift));
    return header;
}

// Each byte below `kinds`.
inline bytes random_bytes(std::size_t length, unsigned seed, unsigned kinds = 256) {
    std::mt19937 generator(seed);
    bytes block(length);
    for (auto& byte : block)
        byte = static_cast<unsigned char>(generator() % kinds);
    return block;
}

// A page block in stored form, 1,728 pixels wide, of lines of text: words of letters from a font of
// strokes, at any pixel, with white between the lines and at the margins.
inline bytes page_like(std::size_t rows, unsigned seed) {
    constexpr std::size_t row_bytes = 216;
    std::mt19937 generator(seed);
    const auto below = [&generator](unsigned limit) {
        return static_cast<std::size_t>(generator() % limit);
    };
    bytes block = page_header(1728, static_cast<std::uint32_t>(rows));
    block.resize(8 + rows * row_bytes);
    const auto bar = [&](std::size_t left, std::size_t top, std::size_t width, std::size_t height) {
        for (std::size_t y = top; y < top + height; ++y)
            for (std::size_t x = left; x < left + width; ++x)
                block[8 + y * row_bytes + x / 8] |= static_cast<unsigned char>(1u << x % 8);
    };
    for (std::size_t top = 200; top + 60 < rows; top += below(9) == 0 ? 90 : 44) {
        for (std::size_t left = 200; left < 1500; left += below(6) == 0 ? 30 : 19) {
            const auto letter = below(26);
            bar(left, top, 3, 26);
            bar(left + 3, top + letter % 5 * 6, 8 + letter % 3, 3);
            bar(left + 10 - letter % 4, top + letter % 7, 3, 10 + letter % 11);
        }
    }
    return block;
}

} // namespace codec

#endif
