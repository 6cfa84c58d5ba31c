// SPDX-License-Identifier: MIT
#include "output/report.h"

#include <algorithm>
#include <cstdio>

namespace zerdix::app {

namespace {

std::size_t width_of(const std::string& utf8) {
    return static_cast<std::size_t>(
        std::count_if(utf8.begin(), utf8.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

bool is_time(const std::string& text) {
    return text.size() == 25 && text[4] == '-' && text[7] == '-' && text[10] == 'T';
}

// A time is cut to its minute, which is what a reader wants of a table.
std::string cell_text(const std::string& text) {
    return is_time(text) ? text.substr(0, 10) + ' ' + text.substr(11, 5) : text;
}

std::string cell(const json& value) {
    if (value.is_text())
        return cell_text(value.as_text());
    if (value.is_boolean())
        return value.as_bool() ? "yes" : "no";
    if (value.is_null())
        return "";
    if (!value.is_array())
        return value.dump();
    std::string all;
    for (const json& item : value)
        all += (all.empty() ? "" : ", ") + cell(item);
    return all;
}

void put(const std::string& text, std::size_t width, bool right) {
    const std::string blanks(width - std::min(width, width_of(text)), ' ');
    std::fputs(right ? (blanks + text).c_str() : (text + blanks).c_str(), stdout);
}

void print_json(const json& value) {
    std::puts(value.dump(2).c_str());
}

// One column of a table with everything in it.
struct strip {
    std::vector<std::string> cells; // the heading first
    bool right = true;
    std::size_t width = 0;

    strip(const json& objects, const column& what) {
        cells.emplace_back(what.heading);
        for (const json& object : objects) {
            const json& value = object[what.key];
            right = right && value.is_number();
            cells.push_back(cell(value));
        }
        for (const std::string& text : cells)
            width = std::max(width, width_of(text));
    }
};

void print_row(const std::vector<strip>& strips, std::size_t row) {
    for (std::size_t i = 0; i < strips.size(); ++i) {
        const bool last = i + 1 == strips.size();
        put(strips[i].cells[row], last && !strips[i].right ? 0 : strips[i].width, strips[i].right);
        std::fputs(last ? "\n" : "  ", stdout);
    }
}

} // namespace

void report::rows(const json& objects, const std::vector<column>& columns,
                  const std::string& none) const {
    if (json_)
        return print_json(objects);
    if (objects.empty())
        return done(none);
    std::vector<strip> strips;
    for (const column& what : columns)
        strips.emplace_back(objects, what);
    for (std::size_t row = 0; row <= objects.size(); ++row)
        print_row(strips, row);
}

void report::properties(const json& object, const std::vector<column>& columns) const {
    if (json_)
        return print_json(object);
    std::size_t width = 0;
    for (const column& what : columns)
        width = std::max(width, width_of(what.heading) + 1);
    for (const column& what : columns) {
        put(what.heading + std::string(":"), width, false);
        std::printf(" %s\n", cell(object[what.key]).c_str());
    }
}

void report::done(const std::string& sentence, const json& object) const {
    if (json_)
        return print_json(object);
    if (!quiet_)
        std::puts(sentence.c_str());
}

} // namespace zerdix::app
