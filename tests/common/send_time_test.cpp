// SPDX-License-Identifier: MIT
#include "common/send_time.h"

#include <ctime>
#include <string>

#include <gtest/gtest.h>
#include <zerdix/timetext.h>

#include "platform/scratch.h"

using zerdix::common::parse_send_time;
using zerdix::tests::environment_variable;

namespace {

// Sets the local time of the process, as the server's answer does.
class zone {
  public:
    explicit zone(const char* text) : variable_("TZ", text) { ::tzset(); }

  private:
    environment_variable variable_;
};

constexpr std::int32_t hour = 3600;
constexpr std::int32_t minute = 60;

// Midnight UTC.
constexpr std::int32_t y1997_12_31 = 883526400;
constexpr std::int32_t y1996_02_29 = 825552000;
constexpr std::int32_t y1997_07_01 = 867715200;
constexpr std::int32_t y2037_12_31 = 2145830400;

std::int32_t parsed(const char* text, char language) {
    return parse_send_time(text, language, y1997_07_01 + 12 * hour);
}

std::string printed(std::int32_t time, char language) {
    const char *day = nullptr, *date = nullptr, *clock = nullptr;
    EXPECT_EQ(printTime(time, language, &day, &date, &clock), 0);
    return std::string(day) + " " + date + " " + clock;
}

} // namespace

// The same moment in the forms of all languages, in zones east and west of Greenwich, in winter and
// in summer time.
TEST(SendTime, DatesAreLocalTimeInTheFormOfTheLanguage) {
    const struct {
        char language;
        const char* winter;
        const char* summer;
    } forms[] = {
        {'G', "31.12.97 20:15:30", "1.7.97 20:15:30"},
        {'F', "31.12.97 20.15.30", "01.07.97 20.15.30"},
        {'U', "31/12/97 20:15:30", "1/7/97 20:15:30"},
        {'A', "12/31/97 20:15:30", "7/1/97 20:15:30"},
        {'S', "31/12/97 20:15:30", "01/7/97 20:15:30"},
        {'I', "31/12/97 20:15:30", "1/07/97 20:15:30"},
    };
    const struct {
        const char* name;
        std::int32_t winter, summer; // seconds to add to reach UTC
    } zones[] = {{"UTC0", 0, 0},
                 {"CET-1CEST,M3.5.0,M10.5.0/3", -hour, -2 * hour},
                 {"EST5EDT,M3.2.0,M11.1.0", 5 * hour, 4 * hour}};
    const std::int32_t clock = 20 * hour + 15 * minute + 30;
    for (const auto& z : zones) {
        const zone local(z.name);
        for (const auto& f : forms) {
            EXPECT_EQ(parsed(f.winter, f.language), y1997_12_31 + clock + z.winter)
                << z.name << f.language;
            EXPECT_EQ(parsed(f.summer, f.language), y1997_07_01 + clock + z.summer)
                << z.name << f.language;
        }
    }
}

TEST(SendTime, ATimeAloneIsToday) {
    for (const char language : std::string("GUASI"))
        for (const char* text : {"20:15", " 20: 15", "+20:15", "20x15", "20.15"}) {
            const zone local("UTC0");
            const bool good = text[2] == ':' || text[3] == ':';
            EXPECT_EQ(parsed(text, language), good ? y1997_07_01 + 20 * hour + 15 * minute : 0)
                << language << text;
        }
    const zone local("EST5EDT,M3.2.0,M11.1.0");
    // 02:00 UTC is still the evening before.
    EXPECT_EQ(parse_send_time("23", 'A', y1997_07_01 + 2 * hour), y1997_07_01 + 3 * hour);
    EXPECT_EQ(parsed("20.15.30", 'F'), y1997_07_01 + 24 * hour + 15 * minute + 30);
    EXPECT_EQ(parsed("20:15", 'F'), 0);
}

TEST(SendTime, AcceptedForms) {
    const zone local("UTC0");
    const struct {
        const char* text;
        std::int32_t time;
    } cases[] = {
        {"20", y1997_07_01 + 20 * hour},
        {"20:", y1997_07_01 + 20 * hour},
        {"0:0:0", y1997_07_01},
        {"23:59:59", y1997_07_01 + 24 * hour - 1},
        {"31.12.97 20", y1997_12_31 + 20 * hour},
        {"31.12.97 20:", y1997_12_31 + 20 * hour},
        {"31.12.97   20:15 o'clock", 0}, // a fourth field without a third number
        {"31.12.97   20:15", y1997_12_31 + 20 * hour + 15 * minute},
        {"31.12.97 20:15:30:00", y1997_12_31 + 20 * hour + 15 * minute + 30},
        {"31.12.97 20:15:30 sharp", y1997_12_31 + 20 * hour + 15 * minute + 30},
        {"29.02.96 12", y1996_02_29 + 12 * hour},
        {"65567.12.97 0", y1997_12_31}, // 16 bits: 65567 is 31
        {"-65505.12.97 0", y1997_12_31},
        {"01.01.70 00", 0},
        {"01.01.70 01", hour},
        {"31.12.37 00", y2037_12_31},
    };
    for (const auto& c : cases)
        EXPECT_EQ(parsed(c.text, 'G'), c.time) << c.text;
    const zone east("CET-1");
    EXPECT_EQ(parsed("01.01.70 00", 'G'), -hour);
}

TEST(SendTime, Rejects) {
    const zone local("UTC0");
    for (const char* time : {"", " ", "x", "-", ":20", "24:00", "20:60", "20:15:60",
                             "20:15:", "20:15:30:", "20-15", "20:15.30"})
        EXPECT_EQ(parsed(time, 'G'), 0) << time;
    for (const char* date :
         {"31.12.97", "31.12.97 ", "31.12.97 24", "31.12.97 20:15:", "31.12.97 20.15",
          "31.12.1997 20", "31.12.97,20", "31/12/97 20", "31.12/97 20", "12.31.97 20", "0.12.97 20",
          "32.12.97 20", "1.0.97 20", "1.13.97 20", "29.02.97 12", "31.04.97 12", "31.12.69 20",
          "-31.12.97 20", "31.12.-1 20"})
        EXPECT_EQ(parsed(date, 'G'), 0) << date;
    EXPECT_EQ(parsed("12/31/97 20:00", 'U'), 0);
    EXPECT_EQ(parsed("31.12.97 20:15", 'F'), 0);
    EXPECT_EQ(parsed("31.12.97 20:15", 'X'), 0);
}

TEST(PrintTime, AllLanguagesUnderThreeZones) {
    const std::int32_t time = y1997_12_31 + 23 * hour + 5 * minute + 9; // a Wednesday in UTC
    const struct {
        const char* zone;
        const char* texts[6]; // G F U A S I
    } cases[] = {
        {"UTC0",
         {"Mi 31.12.97 23:05:09", "Mer 31.12.97 23.05.09", "Wed 31/12/97 23:05:09",
          "Wed 12/31/97 23:05:09", "Mie 31/12/97 23:05:09", "Mer 31/12/97 23:05:09"}},
        {"CET-1CEST,M3.5.0,M10.5.0/3",
         {"Do 01.01.98 00:05:09", "Jeu 01.01.98 00.05.09", "Thu 01/01/98 00:05:09",
          "Thu 01/01/98 00:05:09", "Jue 01/01/98 00:05:09", "Gio 01/01/98 00:05:09"}},
        {"EST5EDT,M3.2.0,M11.1.0",
         {"Mi 31.12.97 18:05:09", "Mer 31.12.97 18.05.09", "Wed 31/12/97 18:05:09",
          "Wed 12/31/97 18:05:09", "Mie 31/12/97 18:05:09", "Mer 31/12/97 18:05:09"}},
    };
    for (const auto& c : cases) {
        const zone local(c.zone);
        for (std::size_t i = 0; i < 6; ++i)
            EXPECT_EQ(printed(time, "GFUASI"[i]), c.texts[i]) << c.zone;
    }
}

TEST(PrintTime, DayNamesBeginWithSunday) {
    const zone local("UTC0");
    const struct {
        char language;
        const char* names;
    } cases[] = {{'G', "So Mo Di Mi Do Fr Sa "},        {'F', "Dim Lun Mar Mer Jeu Ven Sam "},
                 {'U', "Sun Mon Tue Wed Thu Fri Sat "}, {'A', "Sun Mon Tue Wed Thu Fri Sat "},
                 {'S', "Dom Lun Mar Mie Jue Vie Sab "}, {'I', "Dom Lun Mar Mer Gio Ven Sab "}};
    for (const auto& c : cases) {
        std::string names;
        for (std::int32_t day = 3; day < 10; ++day) { // 1970-01-04 was a Sunday
            const char* name = nullptr;
            printTime(day * 24 * hour, c.language, &name, nullptr, nullptr);
            names += std::string(name) + " ";
        }
        EXPECT_EQ(names, c.names);
    }
}

TEST(PrintTime, AnUnknownLetterLeavesTheTexts) {
    const zone local("UTC0");
    const std::string before = printed(y1997_12_31, 'G');
    EXPECT_EQ(printed(0, 'X'), before);
    EXPECT_EQ(printed(0, 'g'), before);
    EXPECT_EQ(printTime(0, 'G', nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(printed(0, 'X'), before);
}

TEST(PrintTime, CopesWithTheEndsOfTheRange) {
    const zone local("UTC0");
    EXPECT_EQ(printed(INT32_MAX, 'G'), "Di 19.01.38 03:14:07");
    EXPECT_EQ(printed(INT32_MIN, 'U'), "Fri 13/12/01 20:45:52");
}
