// SPDX-License-Identifier: MIT
// Sums of bits as words, in both directions: the features of a device, and what the server does for
// a user at an event.
#ifndef ZERDIX_APP_SETTINGS_BIT_WORDS_H
#define ZERDIX_APP_SETTINGS_BIT_WORDS_H

#include <cstdint>
#include <string>

#include "output/report.h"

namespace zerdix::app {

// An array of words; a bit without a word is "0x1000".
json feature_words(std::int32_t bits);
json action_words(std::int32_t bits);

// Words with commas between them, or "none". Throws failure, with the words that there are.
std::int32_t feature_bits(const std::string& words);
std::int32_t action_bits(const std::string& words);

// All words, with commas between them.
std::string all_features();

} // namespace zerdix::app

#endif
