// SPDX-License-Identifier: MIT
// The texts that the user sees, by number: those of the resource library in use, and the built-in
// German ones where there is no library or where it lacks a text. Windows-1252.
#ifndef ZERDIX_COMMON_STRING_TABLE_H
#define ZERDIX_COMMON_STRING_TABLE_H

#include <cstdint>
#include <string>

#include "platform/resource_library.h"

namespace zerdix::common {

// Numbers of texts that no dialog holds.
constexpr std::int32_t text_notification = 525; // the caption of messages
constexpr std::int32_t text_no_resource_library = 1470;
constexpr std::int32_t text_server_is_asked = 40000; // while a remote call runs
constexpr std::int32_t text_message_button = 40001;
constexpr std::int32_t text_choose_font = 40002;

// Empty for a number that doesn't exist. Good until another source is set.
const char* string_text(std::int32_t number);

// The text with the number in the place of its first "%ld". Nothing else in it is a format.
std::string string_text_with(std::int32_t number, std::int32_t value);

// The caption of a control, or of the dialog itself where `control` is 0; empty when it has none.
std::string caption(std::int32_t dialog, std::int32_t control);

// 0 for none. The caller keeps the library and sets another source before it frees it.
void set_resource_source(platform::library_handle library);

} // namespace zerdix::common

#endif
