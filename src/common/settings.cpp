// SPDX-License-Identifier: MIT
#include "common/settings.h"

#include <cstddef>
#include <cstdlib>
#include <optional>

#include <zerdix/timetext.h>

#include "platform/encoding.h"
#include "platform/home.h"
#include "platform/profile.h"

namespace zerdix::common {
namespace {

// `width` counts the NUL of the field that the value is read into.
struct key {
    const char* name;
    const char* fallback;
    std::size_t width;
};

constexpr key user = {"User", "zerdix", 30};
constexpr key host = {"Host", "alpha", 30};
constexpr key max_page_block_len = {"MaxPageBlockLen", "16384", 8};
constexpr key trace = {"Trace", "0", 3};
constexpr key trace_file = {"Tracefile", "", 260};
constexpr key error_file = {"Errorfile", "", 260};
constexpr key log_dir = {"LogDir", "", 260};
constexpr key language = {"Language32", "", 4096};
constexpr key dialog_size = {"DialogSize", "1", 3};

struct font_keys {
    key height, face, weight;
};

constexpr font_keys list_font = {
    {"Height", "-13", 9}, {"Facename", "Courier", 80}, {"Weight", "400", 9}};
constexpr font_keys text_font = {
    {"THeight", "-13", 9}, {"TFacename", "Courier", 80}, {"TWeight", "400", 9}};

constexpr const char* section = "Zerdix";

std::string read_bytes(const key& k) {
    return platform::profile_string(section, k.name, k.fallback, k.width);
}

// The file is UTF-8, where a character may take up to four bytes, and the width counts characters.
std::string read_text(const key& k) {
    const std::string value = platform::profile_string(section, k.name, k.fallback, 4 * k.width);
    return platform::utf8_to_cp1252(value).substr(0, k.width - 1);
}

std::int32_t read_number(const key& k) {
    return static_cast<std::int32_t>(std::strtol(read_bytes(k).c_str(), nullptr, 10));
}

// An empty value counts as none.
std::optional<platform::profile_entry> find_path(const key& k) {
    auto entry = platform::find_profile_entry(section, k.name);
    if (!entry || entry->value.empty())
        return std::nullopt;
    entry->value = entry->value.substr(0, k.width - 1);
    return entry;
}

log_file read_log_file(const key& own, const char* usual_name) {
    const auto path = find_path(own);
    const auto folder = find_path(log_dir);
    std::string written = folder ? folder->value + "/" + usual_name : usual_name;
    if (path && (!folder || path->place <= folder->place))
        written = path->value;
    return {platform::from_home(written).substr(0, own.width - 1),
            platform::begins_at_home(written)};
}

font_setting read_font(const font_keys& keys) {
    return {read_number(keys.height), read_text(keys.face), read_number(keys.weight)};
}

} // namespace

std::string setting_user() {
    return read_text(user);
}

std::string setting_host() {
    return read_text(host);
}

std::int32_t setting_max_page_block_len() {
    return read_number(max_page_block_len);
}

std::string setting_trace() {
    return read_bytes(trace);
}

log_file setting_trace_file() {
    return read_log_file(trace_file, "FAXTRACE.LOG");
}

log_file setting_error_file() {
    return read_log_file(error_file, "FAXERROR.LOG");
}

language_setting setting_language() {
    language_setting fields{};
    str20 help_file;
    getTokens(',', "%20s%20s%20s", read_text(language).c_str(), fields.language.bytes,
              help_file.bytes, fields.library.bytes);
    return fields;
}

std::string setting_dialog_size() {
    return read_bytes(dialog_size);
}

font_setting setting_list_font() {
    return read_font(list_font);
}

font_setting setting_text_font() {
    return read_font(text_font);
}

} // namespace zerdix::common
