// SPDX-License-Identifier: MIT
#include "platform/format.h"

#include <array>
#include <cstdarg>
#include <cstdint>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace {

std::string formatted_into(std::span<char> out, std::string_view format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    const std::size_t length = zerdix::platform::format_text(out, format, arguments);
    va_end(arguments);
    EXPECT_EQ(out[length], '\0');
    return {out.data(), length};
}

template <class... Arguments>
std::string formatted(std::string_view format, Arguments... arguments) {
    std::array<char, 4096> out;
    return formatted_into(out, format, arguments...);
}

const char* const no_text = nullptr;

} // namespace

// What stands behind a narrow value in its argument slot must not show.
TEST(Format, IntegersAreAsWideAsTheProtocols) {
    EXPECT_EQ(formatted("%ld %lu %lx %lX", -1, 0xfffffffeu, 0xdeadbeefu, 0xabcdu),
              "-1 4294967294 deadbeef ABCD");
    EXPECT_EQ(formatted("%ld", 0x7fffffff00000001LL), "1");
    EXPECT_EQ(formatted("%hd %hu %hx", 0x18000, -1, 0x12345), "-32768 65535 2345");
    EXPECT_EQ(formatted("%d %i %u", INT32_MIN, -7, UINT32_MAX), "-2147483648 -7 4294967295");
}

TEST(Format, FlagsWidthAndPrecision) {
    EXPECT_EQ(formatted("[%5d|%-5d|%05d|%+d|% d|%#x]", 42, 42, 42, 42, 42, 42),
              "[   42|42   |00042|+42| 42|0x2a]");
    EXPECT_EQ(formatted("[%.3d|%8.3ld|%*d|%-*.*d]", 7, 7, 4, 7, 5, 2, 7),
              "[007|     007|   7|07   ]");
    EXPECT_EQ(formatted("[%*d]", -4, 7), "[7   ]");
    EXPECT_EQ(formatted("[%5s|%-5s|%.2s|%-16.16s]", "abc", "abc", "abc", "abcdefghijklmnopqr"),
              "[  abc|abc  |ab|abcdefghijklmnop]");
    EXPECT_EQ(formatted("[%3c|%-3c|%c]", 'x', 'y', 'z'), "[  x|y  |z]");
    EXPECT_EQ(formatted("%04X %-s", 16, "ff"), "0010 ff");
}

TEST(Format, NullTextsAndPercents) {
    EXPECT_EQ(formatted("<%s>", no_text), "<(null)>");
    EXPECT_EQ(formatted("100%% %s", "sure"), "100% sure");
}

// And they take no argument: the text behind them finds its own.
TEST(Format, WhatIsNoConversionIsCopied) {
    EXPECT_EQ(formatted("%q %s", "next"), "%q next");
    EXPECT_EQ(formatted("%ls %lld %5.2f %s", "next"), "%ls %lld %5.2f next");
    EXPECT_EQ(formatted("50% of %s", "it"), "50% of it");
    EXPECT_EQ(formatted("end %"), "end %");
    EXPECT_EQ(formatted("end %-08"), "end %-08");
    EXPECT_EQ(formatted("%n%d", 3), "%n3");
    EXPECT_EQ(formatted(""), "");
}

TEST(Format, StopsAt1024CharactersAndAtTheBuffersEnd) {
    const std::string long_text(3000, 'x');
    EXPECT_EQ(formatted("%s", long_text.c_str()).size(), 1024u);
    EXPECT_EQ(formatted("%s%s", long_text.substr(0, 1020).c_str(), "abcdefgh").substr(1018),
              "xxabcd");
    EXPECT_EQ(formatted(long_text).size(), 1024u);
    EXPECT_EQ(formatted("%99999999999d", 1).size(), 1024u);

    std::array<char, 6> small;
    EXPECT_EQ(formatted_into(small, "%s", "0123456789"), "01234");
    EXPECT_EQ(formatted_into(small, "0123456789"), "01234");
    EXPECT_EQ(formatted_into(small, "%d%d", 1234, 5678), "12345");
}
