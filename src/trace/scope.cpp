// SPDX-License-Identifier: MIT
// The test whether a source and a level are to be traced: lists of masks for names and levels.

#include <zerdix/trace.h>

#include <array>
#include <cstdio>
#include <string>
#include <string_view>

// A null list matches nothing.
int T_TRACE::_isWithinScope(const char* name, std::uint32_t level) {
    std::array<char, 16> level_text;
    std::snprintf(level_text.data(), level_text.size(), "%3.3lu",
                  static_cast<unsigned long>(level));
    return _checkScope(_scopeNames, name) != 0 && _checkScope(_scopeExcluded, name) == 0 &&
           _checkScope(_scopeLevels, level_text.data()) != 0;
}

int T_TRACE::_checkScope(const char* masks, const char* value) {
    std::string_view rest = masks == nullptr ? "" : masks;
    while (!rest.empty()) {
        const std::string mask(rest.substr(0, rest.find(';')));
        if (!mask.empty() && _checkMask(mask.c_str(), value) != 0)
            return 1;
        rest.remove_prefix(mask.size() < rest.size() ? mask.size() + 1 : rest.size());
    }
    return 0;
}

// On a mismatch the latest "*" takes one character more. Earlier ones needn't be tried again:
// whatever they could leave to the latest one it has had already.
int T_TRACE::_checkMask(const char* mask, const char* value) {
    const char* behind_star = nullptr;
    const char* taken_by_star = value;
    while (*value != '\0') {
        if (*mask == '*') {
            behind_star = ++mask;
            taken_by_star = value;
        } else if (*mask != '\0' && (*mask == '?' || *mask == *value)) {
            ++mask;
            ++value;
        } else if (behind_star != nullptr) {
            mask = behind_star;
            value = ++taken_by_star;
        } else {
            return 0;
        }
    }
    while (*mask == '*')
        ++mask;
    return *mask == '\0';
}
