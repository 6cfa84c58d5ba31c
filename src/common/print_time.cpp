// SPDX-License-Identifier: MIT
#include <zerdix/timetext.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <ctime>

namespace {

struct form {
    char language;
    std::array<const char*, 7> days; // from Sunday
    const char* date;
    bool month_first;
    const char* clock;
};

constexpr const char* dotted = "%.2d.%.2d.%.2d";
constexpr const char* slashed = "%.2d/%.2d/%.2d";
constexpr const char* colons = "%.2d:%.2d:%.2d";

constexpr std::array<form, 6> forms = {{
    {'G', {"So", "Mo", "Di", "Mi", "Do", "Fr", "Sa"}, dotted, false, colons},
    {'F', {"Dim", "Lun", "Mar", "Mer", "Jeu", "Ven", "Sam"}, dotted, false, dotted},
    {'U', {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"}, slashed, false, colons},
    {'A', {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"}, slashed, true, colons},
    {'S', {"Dom", "Lun", "Mar", "Mie", "Jue", "Vie", "Sab"}, slashed, false, colons},
    {'I', {"Dom", "Lun", "Mar", "Mer", "Gio", "Ven", "Sab"}, slashed, false, colons},
}};

// The results: good until the next call, and what an unknown language leaves behind.
std::array<char, 8> day_text;
std::array<char, 16> date_text;
std::array<char, 16> clock_text;

const form* form_of(char language) {
    for (const form& candidate : forms) {
        if (candidate.language == language)
            return &candidate;
    }
    return nullptr;
}

void print_date(const form& as, const std::tm& time) {
    const int month = time.tm_mon + 1;
    const int first = as.month_first ? month : time.tm_mday;
    const int second = as.month_first ? time.tm_mday : month;
    std::snprintf(date_text.data(), date_text.size(), as.date, first, second, time.tm_year % 100);
}

} // namespace

extern "C" std::int32_t printTime(std::int32_t time, char language, const char** day,
                                  const char** date, const char** clock) {
    const std::time_t seconds = time;
    const std::tm* local = std::localtime(&seconds);
    const form* as = form_of(language);
    if (as != nullptr && local != nullptr) {
        if (day != nullptr)
            std::snprintf(day_text.data(), day_text.size(), "%s",
                          as->days[static_cast<std::size_t>(local->tm_wday)]);
        if (date != nullptr)
            print_date(*as, *local);
        if (clock != nullptr)
            std::snprintf(clock_text.data(), clock_text.size(), as->clock, local->tm_hour,
                          local->tm_min, local->tm_sec);
    }
    if (day != nullptr)
        *day = day_text.data();
    if (date != nullptr)
        *date = date_text.data();
    if (clock != nullptr)
        *clock = clock_text.data();
    return 0;
}
