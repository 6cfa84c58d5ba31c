// SPDX-License-Identifier: MIT
#include <array>
#include <cstdio>

#include "trace/tracing.h"

using namespace zerdix;
using namespace zerdix::tests;
using testing::ElementsAre;

namespace {

class Dump : public Tracing {
  protected:
    void SetUp() override { configure("Trace=1"); }

    std::vector<std::string> dumped(const void* data, std::uint32_t length) {
        {
            T_TRACE tracer;
            tracer.traceDump("file", 1, "not available", 200, data, length);
        }
        return trace_lines();
    }
};

std::string row(const char* text) {
    return "# Info1:  " + padded(text, 82);
}

} // namespace

TEST_F(Dump, RowsOfSixteenWithTheOffsetOfTheirFirstByte) {
    const char data[] = "AB\x1f ~\x7f\x80\xff"
                        "89abcdefg";
    std::array<char, 100> header;
    std::snprintf(header.data(), header.size(), "file: : Adresse: %08zX,  L\x84nge 17 Bytes",
                  reinterpret_cast<std::size_t>(data));
    EXPECT_THAT(
        dumped(data, 17),
        ElementsAre(row(header.data()),
                    row(": 0000 AB. ~...89abcdef 41 42 1F 20 7E 7F 80 FF 38 39 61 62 63 64 65 66 "),
                    row(": 0010 g                67 ")));
}

TEST_F(Dump, EveryLengthHasItsRows) {
    const std::string data(70000, 'x');
    for (const std::uint32_t length : {0u, 1u, 15u, 16u, 32u, 70000u})
        EXPECT_EQ(dumped(data.data(), length).size(), 1 + (length + 15) / 16) << length;
    EXPECT_THAT(dumped(data.data(), 65537).back(), testing::HasSubstr(": 10000 x "));
}

TEST_F(Dump, IsNeverNarrowerThan82) {
    const environment_variable narrow("TRACE_WRAP_WIDTH", "20");
    EXPECT_EQ(dumped("0123456789abcdef", 16).size(), 2u);
    const environment_variable wide("TRACE_WRAP_WIDTH", "120");
    EXPECT_EQ(dumped("0123456789abcdef", 16).at(1).size(), 130u);
}

TEST(Scope, MasksFitTheWholeValue) {
    T_TRACE tracer;
    const struct {
        const char* mask;
        std::vector<const char*> fitting, others;
    } cases[] = {
        {"", {""}, {"a"}},
        {"a", {}, {""}},
        {"abc", {"abc"}, {"abd", "abcd"}},
        {"abcd", {}, {"abc"}},
        {"Abc", {}, {"abc"}},
        {"*", {""}, {}},
        {"***", {"abc"}, {}},
        {"a*", {"a", "abc"}, {}},
        {"*c", {"abc"}, {"abcd", ""}},
        {"a*c*e", {"abcde"}, {"abcdf"}},
        {"*ab", {"aab"}, {}},
        {"*aab*b", {"aaabab"}, {}},
        {"?", {"a"}, {""}},
        {"a?c", {"abc"}, {}},
        {"a?", {}, {"a"}},
        {"*?", {"a"}, {""}},
        {"?*?", {"ab"}, {"a"}},
        {"a**b", {"ab"}, {}},
        {"*a?", {"abab"}, {"aba"}},
    };
    for (const auto& [mask, fitting, others] : cases) {
        for (const char* value : fitting)
            EXPECT_TRUE(T_TRACE_access::mask_fits(tracer, mask, value)) << mask << " " << value;
        for (const char* value : others)
            EXPECT_FALSE(T_TRACE_access::mask_fits(tracer, mask, value)) << mask << " " << value;
    }
    // Many stars must not take the time of all their combinations.
    std::string mask;
    for (int i = 0; i < 40; ++i)
        mask += "*a";
    EXPECT_FALSE(
        T_TRACE_access::mask_fits(tracer, (mask + "b").c_str(), std::string(200, 'a').c_str()));
}

TEST(Scope, NeedsNameAndLevelAndNoExclusion) {
    T_TRACE tracer;
    char names[] = "x;;send*", excluded[] = "*tlx;sendold", levels[] = "1??;050";
    EXPECT_FALSE(T_TRACE_access::within_scope(tracer, "sendfax", 100)); // no lists at all
    T_TRACE_access::set_scope(tracer, names, excluded, levels);
    EXPECT_TRUE(T_TRACE_access::within_scope(tracer, "sendfax", 199));
    EXPECT_TRUE(T_TRACE_access::within_scope(tracer, "sendfax", 50)); // three digits
    EXPECT_FALSE(T_TRACE_access::within_scope(tracer, "sendfax", 200));
    EXPECT_FALSE(T_TRACE_access::within_scope(tracer, "sendtlx", 100));
    EXPECT_FALSE(T_TRACE_access::within_scope(tracer, "journal", 100));
    T_TRACE_access::set_scope(tracer, names, nullptr, levels);
    EXPECT_TRUE(T_TRACE_access::within_scope(tracer, "sendtlx", 100));
    T_TRACE_access::set_scope(tracer, names, nullptr, nullptr);
    EXPECT_FALSE(T_TRACE_access::within_scope(tracer, "sendfax", 100));
}
