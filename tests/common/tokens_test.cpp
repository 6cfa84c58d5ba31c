// SPDX-License-Identifier: MIT
#include <zerdix/timetext.h>

#include <cstring>
#include <string>

#include <gtest/gtest.h>

namespace {

constexpr std::int32_t untouched = 77;

} // namespace

TEST(GetTokens, StoresEachFieldByItsType) {
    std::int32_t number = 0;
    std::int16_t small = 0;
    char name[11] = {}, letter = 0, rest[64] = {};
    EXPECT_EQ(getTokens(';', "%ld%hd%10s%c%s", "-70000;-12;Gr\xfc\xdf;xyz;the rest", &number,
                        &small, name, &letter, rest),
              5);
    EXPECT_EQ(number, -70000);
    EXPECT_EQ(small, -12);
    EXPECT_STREQ(name, "Gr\xfc\xdf");
    EXPECT_EQ(letter, 'x');
    EXPECT_STREQ(rest, "the rest");
}

TEST(GetTokens, NumbersStayInTheirWidth) {
    struct {
        std::int32_t value = untouched, guard = untouched;
    } wide;
    struct {
        std::int16_t value = untouched, guard = untouched;
    } narrow;
    EXPECT_EQ(getTokens(',', "%3ld%9hd", "123456,65537", &wide.value, &narrow.value), 2);
    EXPECT_EQ(wide.value, 123456); // a width says nothing for a number
    EXPECT_EQ(wide.guard, untouched);
    EXPECT_EQ(narrow.value, 1);
    EXPECT_EQ(narrow.guard, untouched);
    EXPECT_EQ(getTokens(',', "%ld%ld", "99999999999,none", &wide.value, &wide.guard), 2);
    EXPECT_EQ(wide.value, INT32_MAX);
    EXPECT_EQ(wide.guard, 0);
}

TEST(GetTokens, AWidthLeavesTheNulToTheCaller) {
    char field[6] = "?????";
    EXPECT_EQ(getTokens(',', "%3s", "abcdef", field), 1);
    EXPECT_STREQ(field, "abc??");
    EXPECT_EQ(getTokens(',', "%4s", "ab", field), 1);
    EXPECT_EQ(std::memcmp(field, "ab\0\0?", 6), 0);
}

TEST(GetTokens, TheLastFieldServesAgain) {
    const struct {
        const char* text;
        const char* fields[3];
        int count;
    } cases[] = {
        {"a;b", {"a", "b", "b"}, 3},  // counts each time
        {"a;b;", {"a", "b", "b"}, 2}, // a closing delimiter: doesn't count
        {"a", {"a", "a", "a"}, 3},    {"a;", {"a", "a", "a"}, 1}, {"", {"", "", ""}, 0},
        {";", {"", "", ""}, 1},       {";;x", {"", "", "x"}, 3},  {"a;b;c;d", {"a", "b", "c"}, 3},
    };
    for (const auto& c : cases) {
        char fields[3][16] = {"?", "?", "?"};
        EXPECT_EQ(getTokens(';', "%s%s%s", c.text, fields[0], fields[1], fields[2]), c.count)
            << c.text;
        for (int i = 0; i < 3; ++i)
            EXPECT_STREQ(fields[i], c.fields[i]) << c.text;
    }
}

TEST(GetTokens, OtherTypesTakeAFieldButNoArgument) {
    std::int32_t number = untouched;
    EXPECT_EQ(getTokens(';', "%d", "1"), 1);
    EXPECT_EQ(getTokens(';', "%d%lu%x%ld", "1;2;3;4", &number), 4);
    EXPECT_EQ(number, 4);
}

TEST(GetTokens, AnythingButAConversionEndsTheWalk) {
    for (const char* format : {"%ld %ld", "%ld,%ld", "%ldx", "%ld%", "%ld%12"}) {
        std::int32_t first = untouched, second = untouched;
        EXPECT_EQ(getTokens(',', format, "1,2,3", &first, &second), 1) << format;
        EXPECT_EQ(first, 1);
        EXPECT_EQ(second, untouched);
    }
    EXPECT_EQ(getTokens(',', "", "1,2"), 0);
    EXPECT_EQ(getTokens(',', "ld", "1,2"), 0);
}

TEST(GetTokens, AFieldIsCutAt255Characters) {
    char field[300] = {}, next[8] = {};
    const std::string text = std::string(280, 'x') + ",next";
    EXPECT_EQ(getTokens(',', "%s%s", text.c_str(), field, next), 2);
    EXPECT_EQ(std::strlen(field), 255u);
    EXPECT_STREQ(next, "next");
    EXPECT_EQ(getTokens(',', "%s", std::string(280, 'y').c_str(), field), 1);
    EXPECT_EQ(std::strlen(field), 255u);
}
