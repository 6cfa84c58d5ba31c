// SPDX-License-Identifier: MIT
// Messages to the user by number, through the message box of the platform.
#ifndef ZERDIX_COMMON_SHOW_MESSAGE_H
#define ZERDIX_COMMON_SHOW_MESSAGE_H

#include <cstdint>
#include <string_view>

namespace zerdix::common {

// The text of that number, under the title of all notifications.
void show_message(std::int32_t number);

// The same, and a text in Windows-1252, under the application's name.
void show_plain_message(std::int32_t number);
void show_plain_message(std::string_view text);

const char* application_name();
// A literal, or another text that stays; null for the usual one.
void set_application_name(const char* name);

} // namespace zerdix::common

#endif
