// SPDX-License-Identifier: MIT
#include "trace/traced.h"
#include "trace/tracing.h"

using namespace zerdix;
using namespace zerdix::tests;
using testing::ElementsAre;

namespace {

class Lines : public Tracing {
  protected:
    void SetUp() override { configure("Trace=1"); }

    // One message and what it becomes.
    template <class... Arguments>
    std::vector<std::string> traced(std::uint32_t level, const char* format,
                                    Arguments... arguments) {
        {
            T_TRACE tracer;
            tracer.tracePrintf("sendfax", 1, "not available", level, format, arguments...);
        }
        return trace_lines();
    }
};

std::string info(const char* text) {
    return "# Info1:  " + padded(text, 82);
}

} // namespace

TEST_F(Lines, LabelsGoByTheHundreds) {
    const char* labels[] = {"-----: ", "Error: ", "Info1: ", "IntErr:", "C/D:   ",
                            "Entry: ", "Exit:  ", "GetSet:", "Info2: ", "Warn:  "};
    for (std::uint32_t group = 0; group < 10; ++group)
        for (const std::uint32_t level : {group * 100, group * 100 + 99})
            EXPECT_THAT(traced(level, "x"), ElementsAre("# " + std::string(labels[group]) + " " +
                                                        padded("sendfax: : x", 82)));
}

TEST_F(Lines, ClosingControlCharactersDontCount) {
    const auto plain = ElementsAre(info("sendfax: : x 7"));
    EXPECT_THAT(traced(200, "x %ld\n", 7), plain);
    EXPECT_THAT(traced(200, "x %ld\r\n\t\x01\n", 7), plain);
    EXPECT_THAT(traced(200, ""), ElementsAre(info("sendfax: : ")));
    EXPECT_THAT(traced(200, "\n\n"), ElementsAre(info("sendfax: : ")));
}

TEST_F(Lines, LineBreaksInsideMakePartsThatArentExpanded) {
    EXPECT_THAT(traced(200, "one %s %d\n\r\ntwo %%\rthree %ld\n"),
                ElementsAre(info("sendfax: : "), info(": one %s %d"), info(": two %%"),
                            info(": three %ld")));
    EXPECT_EQ(traced(200, "\nx").size(), 2u);
    // A break inside an argument is no break of the format.
    EXPECT_EQ(folder.read("FAXTRACE.LOG").find("a\nb"), std::string::npos);
    traced(200, "%s", "a\nb");
    EXPECT_NE(folder.read("FAXTRACE.LOG").find("a\nb"), std::string::npos);
}

TEST_F(Lines, ALongWordIsCutHardBehindTheLastBlank) {
    const std::string word(100, 'w');
    EXPECT_THAT(traced(600, "%s", word.c_str()),
                ElementsAre("# Exit:   " + padded("sendfax: :", 82),
                            "# Exit:        " + std::string(77, 'w'),
                            "# Exit:        " + padded(std::string(23, 'w'), 77)));
}

TEST_F(Lines, BreaksAtTheLastBlankAndDropsOnlyThatOne) {
    const environment_variable narrow("TRACE_WRAP_WIDTH", "20");
    // 11 characters stand ahead of the text, so the field ends behind the ninth.
    EXPECT_THAT(traced(200, "123456789 x"),
                ElementsAre("# Info1:  sendfax: : 123456789", "# Info1:       x              "));
    EXPECT_THAT(traced(200, "1234567  89"),
                ElementsAre("# Info1:  sendfax: : 1234567  ", "# Info1:       89             "));
    EXPECT_THAT(traced(200, "123456789"), ElementsAre("# Info1:  sendfax: : 123456789"));
    EXPECT_THAT(traced(200, "12345678   x"),
                ElementsAre("# Info1:  sendfax: : 12345678 ", "# Info1:        x             "));
    // A blank at the start of what remains is no place to break.
    EXPECT_THAT(traced(200, "123456789  abcdefghijklmnop"),
                ElementsAre("# Info1:  sendfax: : 123456789", "# Info1:        abcdefghijklmn",
                            "# Info1:       op             "));
}

// Whatever the width: no character but one blank for each break gets lost.
TEST_F(Lines, NothingIsLostAtAnyWidth) {
    std::string text;
    for (int i = 0; text.size() < 900; ++i)
        text += std::string(static_cast<std::size_t>(i * 7 % 31), static_cast<char>('a' + i % 26)) +
                (i % 5 == 0 ? "   " : " ");
    text += "end";
    for (int w = 20; w <= 200; w += 9) {
        const environment_variable set("TRACE_WRAP_WIDTH", std::to_string(w));
        const auto lines = traced(200, "%s", text.c_str());
        std::string without_blanks;
        for (const std::string& line : lines) {
            EXPECT_EQ(line.size(), lines[0].size());
            for (const char c : line.substr(10))
                without_blanks += c == ' ' ? "" : std::string(1, c);
        }
        std::string expected = "sendfax::" + text;
        std::erase(expected, ' ');
        EXPECT_EQ(without_blanks, expected) << w;
        EXPECT_EQ(lines[0].size(), 10u + static_cast<std::size_t>(w));
    }
}

TEST_F(Lines, WidthOutOfTheEnvironment) {
    const struct {
        const char* text;
        std::size_t width;
    } cases[] = {{"19", 200},  {"20", 20},   {"200", 200},
                 {"201", 200}, {"", 200},    {"x", 200},
                 {"-1", 200},  {"100", 100}, {"99999999999999999999", 200}};
    for (const auto& c : cases) {
        const environment_variable set("TRACE_WRAP_WIDTH", c.text);
        EXPECT_EQ(traced(200, "x").at(0).size(), 10 + c.width) << c.text;
    }
}

TEST_F(Lines, ArgumentsAndOverlongTextsStayInBounds) {
    EXPECT_THAT(traced(200, "%ld %hd %s %s", -5, 70000, "t", static_cast<const char*>(nullptr)),
                ElementsAre(info("sendfax: : -5 4464 t (null)")));
    const std::string huge(5000, 'h');
    EXPECT_EQ(traced(200, "%s", huge.c_str()).size(), 1u + 1024 / 77 + 1);
    {
        T_TRACE tracer;
        tracer.tracePrintf(huge.c_str(), 1, "", 200, "%s", huge.c_str());
    }
    // The file name stops at 255 characters, on the fourth line, and the break is behind it.
    EXPECT_EQ(trace_lines().size(), 4u + 1024 / 77 + 1);
}

TEST_F(Lines, TheHelperPassesLevelAndFile) {
    // The process's own tracer was built with tracing off; errors pass all the same.
    constexpr trace::tracer lines{"here"};
    const std::int16_t page = -3;
    lines.entry("<-- no line: %hd", page);
    EXPECT_FALSE(folder.exists("FAXERROR.LOG"));
    lines.error("%s %hd %ld", "failed", page, INT32_MIN);
    EXPECT_THAT(lines_of("FAXERROR.LOG"),
                testing::Contains("# Error:  " + padded("here: : failed -3 -2147483648", 82)));
    EXPECT_FALSE(folder.exists("FAXTRACE.LOG"));
}
