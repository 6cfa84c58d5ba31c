// SPDX-License-Identifier: MIT
// The text of merge data: #KEY value# pairs anywhere in free text.
#ifndef ZERDIX_SENDFAX_MERGE_TEXT_H
#define ZERDIX_SENDFAX_MERGE_TEXT_H

#include <cstdint>
#include <string_view>

namespace zerdix::sendfax {

// What a key's text says it is. Number 8 isn't used.
enum merge_key : std::int32_t {
    key_last_docpage = 0,
    key_paper = 1,
    key_phone = 2,
    key_priority = 3,
    key_receivergroup = 4,
    key_resolution = 5,
    key_retries = 6,
    key_sendtime = 7,
    key_title = 9,
};

// Reads the next pair: its key, and its value into `value`, which holds valueSize bytes and is
// zeroed first; a longer value is cut. 0 when a key was found, otherwise 4. The cursor moves behind
// the pair's closing mark, known key or not; behind an opening mark that has no partner; and stays
// when there is no mark.
std::int32_t ExtractKeyAndValue(std::string_view& cursor, std::int32_t& id, char* value,
                                std::int16_t valueSize);

} // namespace zerdix::sendfax

#endif
