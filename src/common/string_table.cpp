// SPDX-License-Identifier: MIT
#include "common/string_table.h"

#include <cstring>
#include <string_view>
#include <utility>

#include "platform/resource_text.h"

namespace zerdix {

extern const std::string_view german_resources; // resources/deutsch.lng

namespace common {
namespace {

constinit platform::library_handle source = 0;

// Never destroyed, since the tracer may show a message while the process ends.
const platform::resource_texts& built_in() {
    static const auto* texts = new platform::resource_texts(
        platform::parse_resources(german_resources).texts.value_or(platform::resource_texts{}));
    return *texts;
}

template <class Texts, class Key>
const std::string& found(const Texts& texts, const Key& key) {
    static const auto* none = new std::string;
    const auto at = texts.find(key);
    return at != texts.end() ? at->second : *none;
}

} // namespace

const char* string_text(std::int32_t number) {
    const std::string* text = platform::library_string(source, number);
    return text != nullptr ? text->c_str() : found(built_in().strings, number).c_str();
}

std::string string_text_with(std::int32_t number, std::int32_t value) {
    constexpr std::string_view place = "%ld";
    std::string text = string_text(number);
    if (const std::size_t at = text.find(place); at != std::string::npos)
        text.replace(at, place.size(), std::to_string(value));
    return text;
}

std::string caption(std::int32_t dialog, std::int32_t control) {
    const std::string* text = platform::library_caption(source, dialog, control);
    return text != nullptr ? *text : found(built_in().captions, std::pair{dialog, control});
}

void set_resource_source(platform::library_handle library) {
    source = library;
}

} // namespace common
} // namespace zerdix
