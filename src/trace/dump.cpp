// SPDX-License-Identifier: MIT
#include <zerdix/trace.h>

#include <array>
#include <cstdio>

#include "trace/state.h"

namespace {

constexpr std::uint32_t row_size = 16;

char printable(unsigned char c) {
    return c >= 0x20 && c < 0x7f ? static_cast<char>(c) : '.';
}

// A row of at most 16 bytes as text and in hexadecimal.
struct dump_row {
    std::array<char, row_size + 1> text = {};
    std::array<char, 3 * row_size + 1> hexadecimal = {};

    dump_row(const unsigned char* data, std::uint32_t length) {
        constexpr const char* digits = "0123456789ABCDEF";
        for (std::size_t i = 0; i < length; ++i) {
            text[i] = printable(data[i]);
            hexadecimal[3 * i] = digits[data[i] >> 4];
            hexadecimal[3 * i + 1] = digits[data[i] & 15];
            hexadecimal[3 * i + 2] = ' ';
        }
    }
};

} // namespace

void T_TRACE::traceDump(const char* file, std::uint32_t line, const char*, std::uint32_t level,
                        const void* data, std::uint32_t length) {
    if (_traceOn == 0 || _enterTraceRequest(file, line, level) == 0)
        return;
    std::array<char, 256> prefix;
    std::snprintf(prefix.data(), prefix.size(), "%s: ", file);
    // The umlaut is a byte of the code pages 437 and 850, as a console shows it.
    std::array<char, 80> header;
    std::snprintf(header.data(), header.size(), "Adresse: %08zX,  L\x84nge %u Bytes",
                  reinterpret_cast<std::size_t>(data), length);
    _outTraceLine(0, level, prefix.data(), "%s", header.data());

    const auto* bytes = static_cast<const unsigned char*>(data);
    for (std::uint32_t offset = 0; offset < length; offset += row_size) {
        const std::uint32_t count = length - offset < row_size ? length - offset : row_size;
        const dump_row row(bytes + offset, count);
        _outTraceLine(0, level, "", "%04X %-16.16s %-s", offset, row.text.data(),
                      row.hexadecimal.data());
    }
    _exitTraceRequest();
}
