// SPDX-License-Identifier: MIT
#include "imaging/barcode.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace zerdix::imaging {
namespace {

constexpr std::string_view start = "wwn";
constexpr std::string_view stop = "wnw";
constexpr std::string_view digit_elements[] = {"nnwwn", "wnnnw", "nwnnw", "wwnnn", "nnwnw",
                                               "wnwnn", "nwwnn", "nnnww", "wnnwn", "nwnwn"};
constexpr std::size_t header_size = 8;
constexpr std::uint32_t rows = 50;

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

// Weights 3, 1, 3, 1 ... from the last digit to the first; the sum with the check digit is a
// multiple of 10.
char check_digit(std::string_view digits) {
    int sum = 0;
    int weight = 3;
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        sum += weight * (*digit - '0');
        weight = 4 - weight;
    }
    return static_cast<char>('0' + (10 - sum % 10) % 10);
}

std::string elements_of(std::string_view digits) {
    std::string elements{start};
    for (const char digit : digits)
        elements += digit_elements[digit - '0'];
    elements += digit_elements[check_digit(digits) - '0'];
    elements += stop;
    return elements;
}

// One row of the symbol, up to a multiple of 16 pixels.
std::string row_of(std::string_view elements) {
    std::string row;
    for (const char element : elements)
        row += element == 'w' ? "\xff\x0f" : "\x0f";
    row.resize(row.size() + row.size() % 2, '\0');
    return row;
}

} // namespace

unsigned char* BuildBarcodeBlock(const char* digits) {
    const std::string_view text{digits == nullptr ? "" : digits};
    if (text.empty() || text.size() > barcode_longest ||
        !std::all_of(text.begin(), text.end(), is_digit))
        return nullptr;
    const std::string row = row_of(elements_of(text));
    auto* block = static_cast<unsigned char*>(std::malloc(header_size + rows * row.size()));
    if (block == nullptr)
        return nullptr;
    const std::uint32_t header[] = {static_cast<std::uint32_t>(row.size() * 8), rows};
    std::memcpy(block, header, header_size);
    for (std::uint32_t i = 0; i < rows; ++i)
        std::copy(row.begin(), row.end(), block + header_size + i * row.size());
    return block;
}

} // namespace zerdix::imaging
