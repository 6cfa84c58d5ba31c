// SPDX-License-Identifier: MIT
// The codes of runs of white and black pixels (ITU-T T.4, tables 2 and 3).
#ifndef ZERDIX_TIFF_RUN_CODES_H
#define ZERDIX_TIFF_RUN_CODES_H

#include <array>
#include <cstdint>
#include <string_view>

namespace zerdix::tiff {

struct fax_code {
    std::uint16_t bits;
    std::uint8_t length;
};

consteval fax_code code(std::string_view digits) {
    fax_code made{0, static_cast<std::uint8_t>(digits.size())};
    for (const char digit : digits)
        made.bits = static_cast<std::uint16_t>(made.bits << 1 | (digit - '0'));
    return made;
}

// A run of n pixels: the code of n / 64 whole sixty-fours, if there are any, then that of the rest.
struct run_codes {
    std::array<fax_code, 64> rest;
    std::array<fax_code, 41> sixty_fours; // the first one is none
};

namespace run_code_tables {

template <std::size_t Count>
consteval std::array<fax_code, Count> codes(std::string_view text) {
    std::array<fax_code, Count> made{};
    for (std::size_t i = 0; i < Count; ++i) {
        const std::size_t end = text.find(' ');
        made[i] = code(text.substr(0, end));
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
    }
    return made;
}

constexpr std::string_view white_rest =
    "00110101 000111 0111 1000 1011 1100 1110 1111 10011 10100 00111 01000 001000 000011 110100 "
    "110101 101010 101011 0100111 0001100 0001000 0010111 0000011 0000100 0101000 0101011 0010011 "
    "0100100 0011000 00000010 00000011 00011010 00011011 00010010 00010011 00010100 00010101 "
    "00010110 00010111 00101000 00101001 00101010 00101011 00101100 00101101 00000100 00000101 "
    "00001010 00001011 01010010 01010011 01010100 01010101 00100100 00100101 01011000 01011001 "
    "01011010 01011011 01001010 01001011 00110010 00110011 00110100";

constexpr std::string_view black_rest =
    "0000110111 010 11 10 011 0011 0010 00011 000101 000100 0000100 0000101 0000111 00000100 "
    "00000111 000011000 0000010111 0000011000 0000001000 00001100111 00001101000 00001101100 "
    "00000110111 00000101000 00000010111 00000011000 000011001010 000011001011 000011001100 "
    "000011001101 000001101000 000001101001 000001101010 000001101011 000011010010 000011010011 "
    "000011010100 000011010101 000011010110 000011010111 000001101100 000001101101 000011011010 "
    "000011011011 000001010100 000001010101 000001010110 000001010111 000001100100 000001100101 "
    "000001010010 000001010011 000000100100 000000110111 000000111000 000000100111 000000101000 "
    "000001011000 000001011001 000000101011 000000101100 000001011010 000001100110 000001100111";

// From 64 to 1728; the first code is none.
constexpr std::string_view white_sixty_fours =
    " 11011 10010 010111 0110111 00110110 00110111 01100100 01100101 01101000 01100111 011001100 "
    "011001101 011010010 011010011 011010100 011010101 011010110 011010111 011011000 011011001 "
    "011011010 011011011 010011000 010011001 010011010 011000 010011011";

constexpr std::string_view black_sixty_fours =
    " 0000001111 000011001000 000011001001 000001011011 000000110011 000000110100 000000110101 "
    "0000001101100 0000001101101 0000001001010 0000001001011 0000001001100 0000001001101 "
    "0000001110010 0000001110011 0000001110100 0000001110101 0000001110110 0000001110111 "
    "0000001010010 0000001010011 0000001010100 0000001010101 0000001011010 0000001011011 "
    "0000001100100 0000001100101";

// From 1792 to 2560, of either colour.
constexpr std::string_view large_sixty_fours =
    "00000001000 00000001100 00000001101 000000010010 000000010011 000000010100 000000010101 "
    "000000010110 000000010111 000000011100 000000011101 000000011110 000000011111";

consteval std::array<fax_code, 41> with_large(std::array<fax_code, 28> own) {
    const auto large = codes<13>(large_sixty_fours);
    std::array<fax_code, 41> all{};
    for (std::size_t i = 0; i < all.size(); ++i)
        all[i] = i < own.size() ? own[i] : large[i - own.size()];
    return all;
}

} // namespace run_code_tables

// White, black.
constexpr std::array<run_codes, 2> run_codes_of{{
    {run_code_tables::codes<64>(run_code_tables::white_rest),
     run_code_tables::with_large(run_code_tables::codes<28>(run_code_tables::white_sixty_fours))},
    {run_code_tables::codes<64>(run_code_tables::black_rest),
     run_code_tables::with_large(run_code_tables::codes<28>(run_code_tables::black_sixty_fours))},
}};

} // namespace zerdix::tiff

#endif
