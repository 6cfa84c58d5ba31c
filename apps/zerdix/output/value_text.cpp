// SPDX-License-Identifier: MIT
#include "output/value_text.h"

#include <algorithm>
#include <cstdio>
#include <ctime>

#include "platform/encoding.h"

namespace zerdix::app {

void note(const std::string& sentence) {
    std::fprintf(stderr, "zerdix: note: %s\n", sentence.c_str());
}

std::string field_text(const std::string& what, const std::string& utf8, std::size_t width) {
    std::string text = platform::utf8_to_cp1252(utf8);
    if (platform::cp1252_to_utf8(text) != utf8)
        note("characters of " + what + " that aren't in Windows-1252 become \"?\"");
    if (text.size() > width) {
        text.resize(width);
        note(what + " is cut to " + std::to_string(width) + " characters");
    }
    return text;
}

std::string shown(std::string_view cp1252) {
    std::string clean(cp1252.substr(0, cp1252.find('\0')));
    std::replace_if(
        clean.begin(), clean.end(),
        [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, '?');
    return platform::cp1252_to_utf8(clean);
}

std::string iso_time(std::int32_t seconds) {
    if (seconds == 0)
        return {};
    const std::time_t time = seconds;
    std::tm local{};
    char text[40];
    if (localtime_r(&time, &local) == nullptr ||
        std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S%z", &local) == 0)
        return {};
    std::string iso = text;
    return iso.insert(iso.size() - 2, ":");
}

} // namespace zerdix::app
