// SPDX-License-Identifier: MIT
#include "sendfax/merge_text.h"

#include <algorithm>
#include <cstring>

#include "sendfax/job.h"
#include "sendfax/trace_lines.h"

namespace zerdix::sendfax {

namespace {

struct known_key {
    const char* text;
    merge_key id;
};

// Searched in this order: the first that begins the text between the marks wins.
constexpr known_key keys[] = {
    {"LAST_DOCPAGE", key_last_docpage},
    {"PAPER", key_paper},
    {"PHONE", key_phone},
    {"PRIORITY", key_priority},
    {"RECEIVERGROUP", key_receivergroup},
    {"RESOLUTION", key_resolution},
    {"RETRIES", key_retries},
    {"SENDTIME", key_sendtime},
    {"TITLE", key_title},
};

const known_key* find_key(std::string_view pair) {
    const auto* found = std::find_if(std::begin(keys), std::end(keys), [pair](const known_key& k) {
        return pair.starts_with(k.text);
    });
    return found != std::end(keys) ? found : nullptr;
}

std::string_view without_leading_blanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

} // namespace

std::int32_t ExtractKeyAndValue(std::string_view& cursor, std::int32_t& id, char* value,
                                std::int16_t valueSize) {
    trace_lines.entry("<-- ExtractKeyAndValue");
    sending::outcome& remarks = sending::job_outcome();
    const auto room = static_cast<std::size_t>(valueSize);
    std::memset(value, 0, room);
    const std::size_t opening = cursor.find('#');
    if (opening == std::string_view::npos)
        return declined;
    cursor.remove_prefix(opening + 1);
    const std::size_t length = cursor.find('#');
    if (length == std::string_view::npos) {
        remarks.remark(ZX_REMARK_NO_END, "", cursor);
        return declined;
    }
    const std::string_view pair = cursor.substr(0, length);
    cursor.remove_prefix(length + 1);
    const known_key* key = find_key(pair);
    if (key == nullptr) {
        remarks.remark(ZX_REMARK_UNKNOWN_KEY, pair, "");
        trace_lines.exit("--> ExtractKeyAndValue: No valid key/value pair found");
        return declined;
    }
    id = key->id;
    const std::string_view text = without_leading_blanks(pair.substr(std::strlen(key->text)));
    if (text.size() > room - 1)
        remarks.remark(ZX_REMARK_CUT, key->text, text);
    std::memcpy(value, text.data(), std::min(text.size(), room - 1));
    trace_lines.exit("--> ExtractKeyAndValue: Key: #%s# Value: <%s>", key->text, value);
    return success;
}

} // namespace zerdix::sendfax
