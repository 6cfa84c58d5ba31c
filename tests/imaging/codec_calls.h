// The page codec's two calls with values in and out, and inputs to try them on.
#ifndef ZERDIX_TESTS_IMAGING_CODEC_CALLS_H
#define ZERDIX_TESTS_IMAGING_CODEC_CALLS_H

#include <cstdlib>
#include <optional>
#include <random>
#include <string_view>
#include <vector>

#include "imaging/page_codec.h"

namespace codec {

using bytes = std::vector<unsigned char>;

template <typename Operation>
std::optional<bytes> call(Operation operation, const bytes& input) {
    unsigned char* output = nullptr;
    std::int32_t length = -1;
    const auto result =
        operation(input.data(), static_cast<std::int32_t>(input.size()), &output, &length);
    std::optional<bytes> given;
    if (result == 0) {
        given.emplace(output, output + length);
    }
    std::free(output);
    return given;
}

// Empty when the call didn't return 0.
inline std::optional<bytes> compress(const bytes& input) {
    return call(zerdix::imaging::compress_mem_2_mem, input);
}
inline std::optional<bytes> expand(const bytes& stream) {
    return call(zerdix::imaging::uncompress_mem_2_mem, stream);
}

inline bytes text_bytes(std::string_view text) {
    return {text.begin(), text.end()};
}

inline bytes repeated(std::string_view pattern, std::size_t length) {
    bytes block(length);
    for (std::size_t n = 0; n < length; ++n) {
        block[n] = static_cast<unsigned char>(pattern[n % pattern.size()]);
    }
    return block;
}

// Each byte below `kinds`.
inline bytes random_bytes(std::size_t length, unsigned seed, unsigned kinds = 256) {
    std::mt19937 generator(seed);
    bytes block(length);
    for (auto& byte : block) {
        byte = static_cast<unsigned char>(generator() % kinds);
    }
    return block;
}

// A page block of 216 bytes a row with black bars of random places on white, each repeated over
// some rows with jitter at its edges, as print has it.
inline bytes page_like(std::size_t rows, unsigned seed) {
    std::mt19937 generator(seed);
    bytes block(8 + rows * 216);
    for (std::size_t top = 40; top + 40 < rows; top += 50) {
        for (std::size_t word = 10; word < 200; word += 1 + generator() % 4) {
            const auto shape = static_cast<unsigned>(generator());
            for (std::size_t row = 0; row < 24; ++row) {
                const unsigned jitter = generator() % 8 == 0 ? 1u << generator() % 8 : 0u;
                block[8 + (top + row) * 216 + word] =
                    static_cast<unsigned char>((shape >> row / 6 * 8 & 0xff) ^ jitter);
            }
        }
    }
    return block;
}

} // namespace codec

#endif
