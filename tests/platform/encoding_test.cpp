// SPDX-License-Identifier: MIT
#include "platform/encoding.h"

#include <gtest/gtest.h>

using zerdix::platform::cp1252_to_utf8;
using zerdix::platform::utf8_to_cp1252;

TEST(Encoding, ConvertsWhatBothHave) {
    EXPECT_EQ(utf8_to_cp1252("Gr\xc3\xbc\xc3\x9f"
                             "e \xe2\x82\xac"),
              "Gr\xfc\xdf"
              "e \x80");
    EXPECT_EQ(cp1252_to_utf8("\x80 \xe4"), "\xe2\x82\xac \xc3\xa4");
    EXPECT_EQ(utf8_to_cp1252(""), "");
}

TEST(Encoding, OneQuestionMarkForEachCharacterWithoutCounterpart) {
    EXPECT_EQ(utf8_to_cp1252("a\xe6\x97\xa5\xe6\x9c\xac\xf0\x9f\x93\xa0z"), "a???z");
    EXPECT_EQ(cp1252_to_utf8("a\x81\x8dz"), "a??z");
}

TEST(Encoding, DamagedBytesNeverFail) {
    EXPECT_EQ(utf8_to_cp1252("a\xc3"), "a?");         // cut off at the end
    EXPECT_EQ(utf8_to_cp1252("\xe2\x82z"), "?z");     // cut off in the middle
    EXPECT_EQ(utf8_to_cp1252("\xff\xbf\x80z"), "?z"); // no character begins so
    EXPECT_EQ(utf8_to_cp1252("\x80\xbfz"), "??z");
    EXPECT_EQ(utf8_to_cp1252(std::string_view("a\0b", 3)), std::string("a\0b", 3));
}

TEST(Encoding, LongTextsCrossTheWorkBuffer) {
    std::string utf8 = "x", bytes = "x";
    for (int i = 0; i < 2000; ++i) {
        utf8 += "\xc3\xa4\xe6\x97\xa5";
        bytes += "\xe4?";
    }
    EXPECT_EQ(utf8_to_cp1252(utf8), bytes);
    EXPECT_EQ(cp1252_to_utf8(std::string(1500, '\x80')).size(), 4500u);
}
