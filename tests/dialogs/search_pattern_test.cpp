// SPDX-License-Identifier: MIT
// Search texts: what they find, and that none of them holds a search up.

#include <clocale>
#include <random>
#include <regex.h>
#include <string>

#include <gtest/gtest.h>

#include "dialogs/search_pattern.h"

namespace zerdix::dialogs {
namespace {

class FindText : public ::testing::Test {
  protected:
    FindText() { set_search_syntax(); }

    std::mt19937 random{7};

    std::string random_text(std::string_view letters, std::size_t length) {
        std::string text;
        while (text.size() < length)
            text += letters[random() % letters.size()];
        return text;
    }
};

TEST_F(FindText, FindsWithWildcardsAndExpressionsWhateverTheLocale) {
    const struct {
        const char* pattern;
        const char* text;
        std::int32_t result;
    } cases[] = {
        {"meier", "001 meier Fax ", 9},
        {"Meier", "001 meier Fax ", -1},
        {"r F", "001 meier Fax ", 11}, // across two cells
        {"?", "", -1},
        {"*", "", 0},
        {"+49", "tel +49 30", 7},
        {"9+", "499", -1},
        {"4\\+9", "4449", 4},
        {"4\\+9", "4+9", -1},
        {"\\(a\\|b\\)c", "xbc", 3},
        {"(a|b)", "(a|b)", 5},
        {"[0-9]$", "tel 5", 5},
        {"a.c", "abc", 3},
        {"M?ller", "M\xfcller", 6},
        {"[M]?ller", "M\xfcller", 6},
        {"[\xfc]l", "\xe4\xff\xfcl", 4},
        {"b", "a\nb", -1}, // nothing stands for a line break
        {"\\(", "(", -1},
        {"[a", "[a", -1},
        {"\\(a\\)\\1", "aa", -1},
    };
    ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    for (const auto& c : cases)
        EXPECT_EQ(findInText(c.text, c.pattern), c.result) << c.pattern << " in " << c.text;
    EXPECT_EQ(findInText(nullptr, "a"), -2);
    EXPECT_EQ(findInText("a", nullptr), -2);
    for (const char* invalid : {"\\(", "[a", "\\(a\\)\\1", "*\\(b\\)\\\\\\1"})
        EXPECT_FALSE(search_pattern(invalid).is_valid()) << invalid;
    EXPECT_TRUE(search_pattern("\\\\1").is_valid());
}

TEST_F(FindText, WildcardsFindWhatTheRegularExpressionFinds) {
    for (int round = 0; round < 5000; ++round) {
        const std::string pattern = random_text("ab?*.+\n", random() % 8);
        const std::string text = random_text("ab+\n", random() % 12);
        std::string expression = ".*";
        for (const char c : pattern)
            expression += c == '*' ? ".*" : std::string(1, c == '?' ? '.' : c);
        re_pattern_buffer peer{};
        ASSERT_EQ(re_compile_pattern(expression.data(), expression.size(), &peer), nullptr);
        EXPECT_EQ(search_pattern(pattern).match(text),
                  re_match(&peer, text.data(), static_cast<regoff_t>(text.size()), 0, nullptr))
            << pattern << " in " << text;
        regfree(&peer);
    }
}

// Each would take an expression minutes or gigabytes over that many rows.
TEST_F(FindText, NoTextOfThirtyNineCharactersHoldsASearchUp) {
    const std::string many(38, '?');
    search_pattern wildcards("a" + many), stars("*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*bb");
    search_pattern expression("[ab]" + many.substr(3));
    for (int row = 0; row < 20000; ++row) {
        const std::string text = random_text("abcd", 120);
        wildcards.match(text);
        stars.match(text);
        expression.match(text);
    }
    EXPECT_TRUE(wildcards.is_valid());
    EXPECT_TRUE(stars.is_valid());
    EXPECT_FALSE(expression.is_valid());
    EXPECT_EQ(expression.match("a" + many), -1);
}

} // namespace
} // namespace zerdix::dialogs
