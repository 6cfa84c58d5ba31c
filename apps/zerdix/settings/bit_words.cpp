// SPDX-License-Identifier: MIT
#include "settings/bit_words.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <span>
#include <string_view>

#include <zerdix/values.h>

#include "output/failure.h"

namespace zerdix::app {

namespace {

struct bit_word {
    const char* word;
    std::int32_t bit;
};

constexpr bit_word features[] = {
    {"normal", hwf_normal}, {"fine", hwf_fine},       {"res1", hwf_res1},
    {"res2", hwf_res2},     {"scan", hwf_scan},       {"halftone", hwf_halftone},
    {"print", hwf_print},   {"receive", hwf_receive}, {"send", hwf_send},
    {"telex", hwf_telex},
};

constexpr bit_word actions[] = {
    {"print-send", at_print_send},       {"print-error", at_print_error},
    {"print-receive", at_print_receive}, {"mail-send", at_mail_send},
    {"mail-error", at_mail_error},       {"mail-receive", at_mail_receive},
    {"lamp-send", at_lamp_send},         {"lamp-error", at_lamp_error},
    {"lamp-receive", at_lamp_receive},   {"voice-send", at_voice_send},
    {"voice-error", at_voice_error},     {"voice-receive", at_voice_receive},
};

using bit_table = std::span<const bit_word>;

std::string hexadecimal(std::uint32_t bits) {
    char text[12];
    std::snprintf(text, sizeof text, "0x%x", bits);
    return text;
}

json words_of(bit_table table, std::int32_t bits) {
    json words = json::array();
    auto left = static_cast<std::uint32_t>(bits);
    for (const bit_word& one : table) {
        const auto bit = static_cast<std::uint32_t>(one.bit);
        if ((left & bit) != 0)
            words.push_back(one.word);
        left &= ~bit;
    }
    if (left != 0)
        words.push_back(hexadecimal(left));
    return words;
}

std::string all_words(bit_table table) {
    std::string all;
    for (const bit_word& one : table)
        all += (all.empty() ? "" : ",") + std::string(one.word);
    return all;
}

std::int32_t bit_of(bit_table table, std::string_view word) {
    for (const bit_word& one : table) {
        if (word == one.word)
            return one.bit;
    }
    std::uint32_t bits = 0;
    if (word.starts_with("0x") &&
        std::from_chars(word.begin() + 2, word.end(), bits, 16).ptr == word.end())
        return static_cast<std::int32_t>(bits);
    if (word == "none")
        throw failure(exit_usage, "\"none\" stands alone");
    throw failure(exit_usage,
                  '"' + std::string(word) + "\" isn't one of " + all_words(table) + ",none");
}

std::int32_t bits_of(bit_table table, std::string_view words) {
    std::int32_t bits = 0;
    if (words == "none" || words.empty())
        return bits;
    for (std::size_t end = 0; end != std::string_view::npos;) {
        end = words.find(',');
        bits |= bit_of(table, words.substr(0, end));
        words.remove_prefix(end == std::string_view::npos ? 0 : end + 1);
    }
    return bits;
}

} // namespace

json feature_words(std::int32_t bits) {
    return words_of(features, bits);
}
json action_words(std::int32_t bits) {
    return words_of(actions, bits);
}
std::int32_t feature_bits(const std::string& words) {
    return bits_of(features, words);
}
std::int32_t action_bits(const std::string& words) {
    return bits_of(actions, words);
}
std::string all_features() {
    return all_words(features);
}

} // namespace zerdix::app
