// SPDX-License-Identifier: MIT
// Options to merge data, and what is refused.

#include <gmock/gmock.h>

#include "arguments/send_time.h"
#include "output/failure.h"
#include "output/progress.h"
#include "print/merge_text.h"
#include "support/test_server.h"

namespace zerdix::app {
namespace {

print_options receivers(std::vector<std::string> to) {
    print_options options;
    options.to = std::move(to);
    return options;
}

TEST(MergeText, CarriesEachOptionAsAPair) {
    print_options options = receivers({" +49 30 123456", "common:kanzlei"});
    options.paper = 3;
    options.priority = 100;
    options.retries = 0;
    options.resolution = "fine";
    EXPECT_EQ(merge_text(options, "Gr\xfc\xdf"),
              "#TITLE Gr\xfc\xdf##PAPER 3##PRIORITY 100##RETRIES 0##RESOLUTION FINE#"
              "#PHONE +49 30 123456##PHONE common:kanzlei#");
    EXPECT_EQ(group_pair("kunden"), "#RECEIVERGROUP kunden#");
    EXPECT_EQ(merge_text({}, "Rechnung #7"), "") << "a title with a mark goes another way";
}

TEST(MergeText, RefusesReceiversThatWouldArriveChanged) {
    for (const std::string bad :
         {"", "  ", "1#2", "1234567890123456789012345678901", "12\n3", "adler", "\xe2\x98\x8e 5",
          ":x", "b:", "elevenchars:x", "b:elevenchars"}) {
        try {
            merge_text(receivers({bad}), "");
            ADD_FAILURE() << '"' << bad << "\" was taken";
        } catch (const failure& error) {
            EXPECT_EQ(error.code(), exit_usage);
            EXPECT_THAT(error.what(), testing::HasSubstr("--to \"" + bad + '"'));
        }
    }
    EXPECT_NO_THROW(merge_text(receivers({"123456789012345678901234567890", "What? 5"}), ""));
    EXPECT_THROW(group_pair("elevenchars"), failure);
    EXPECT_THROW(group_pair("a#b"), failure);
}

TEST(Title, IsCutByCharactersNotByBytes) {
    const title_text cut = title_of("\xc3\x84" + std::string(31, 'x'));
    EXPECT_EQ(cut.text, "\xc4" + std::string(29, 'x'));
    EXPECT_TRUE(cut.cut);
    EXPECT_FALSE(cut.has_unknown_characters);
    EXPECT_TRUE(title_of("\xe2\x98\x8e").has_unknown_characters);
    EXPECT_EQ(title_of(" a\tb ").text, "a b");
}

TEST(SendTime, AcceptsFourFormsOnly) {
    for (const char* good :
         {"now", "night", "0:00", "23:59", "2026-12-31 20:15", "2028-02-29T08:00"})
        EXPECT_TRUE(parse_send_time(good)) << good;
    for (const char* bad : {"", "Now", "20", "24:00", "20:60", "20:15:30", "31.12.26 20:15",
                            "2026-12-31", "2026-13-01 20:15", "2026-02-29 20:15", "20:15 "})
        EXPECT_FALSE(parse_send_time(bad)) << bad;
}

class ServerTime : public testing::Test {
  protected:
    ServerTime() : zone_("TZ", "CET-1CEST,M3.5.0,M10.5.0/3") { tzset(); }

    static std::string value(const char* typed, std::time_t now) {
        return send_time_value(*parse_send_time(typed), 'G', now);
    }

    // 2026-11-22 20:00:00 there.
    const std::time_t evening = 1795374000;
    test::environment_variable zone_;
};

TEST_F(ServerTime, BecomesTheFormOfTheLanguage) {
    EXPECT_EQ(value("now", evening), "NOW");
    EXPECT_EQ(value("night", evening), "DELAYED");
    EXPECT_EQ(value("20:15", evening), "20:15:00");
    EXPECT_EQ(value("2027-07-01 08:30", evening), "01.07.27 08:30:00");
}

TEST_F(ServerTime, MustLieAheadAndExist) {
    EXPECT_THROW(value("20:00", evening), failure);
    EXPECT_THROW(value("2026-11-22 19:59", evening), failure);
    EXPECT_THROW(value("2027-03-28 02:30", evening), failure) << "skipped by summer time";
    EXPECT_THROW(value("2038-02-01 12:00", evening), failure) << "beyond 32 bits";
}

std::string shown(progress::style style) {
    char* text = nullptr;
    std::size_t size = 0;
    std::FILE* out = open_memstream(&text, &size);
    {
        progress progress(out, style, 2);
        progress.step(1, "page 1 of 2 stored");
        progress.step(2, "sending to 1 receiver");
        progress.done("done");
    }
    std::fclose(out);
    const std::string result(text, size);
    std::free(text);
    return result;
}

TEST(Progress, IsALineABarOrNothing) {
    EXPECT_EQ(shown(progress::style::none), "");
    EXPECT_EQ(shown(progress::style::lines), "page 1 of 2 stored\nsending to 1 receiver\ndone\n");
    EXPECT_THAT(shown(progress::style::bar),
                testing::AllOf(testing::HasSubstr("[###############...............] page 1 of 2"),
                               testing::EndsWith("\r\033[Kdone\n")));
}

} // namespace
} // namespace zerdix::app
