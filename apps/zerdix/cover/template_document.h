// SPDX-License-Identifier: MIT
// The pictures of a form's only page on the server.
#ifndef ZERDIX_APP_COVER_TEMPLATE_DOCUMENT_H
#define ZERDIX_APP_COVER_TEMPLATE_DOCUMENT_H

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "session/user_session.h"

namespace zerdix::app {

constexpr std::int16_t form_picture = 0; // picture types
constexpr std::int16_t form_commands = 10;

// A form and the commands that draw on it, as the server keeps them.
struct cover_template {
    std::vector<unsigned char> form;
    std::vector<unsigned char> commands; // empty: the form goes out as it is
};

// The result of storing a picture of page 1: 0, or 4 when the server refused, as it does for a
// document of somebody else. Throws failure when the call failed.
std::int32_t put_form(user_session& user, std::int32_t document, std::int16_t type,
                      std::span<const unsigned char> bytes);

// The same where a refusal is a failure too.
void store_form(user_session& user, std::int32_t document, std::int16_t type,
                std::span<const unsigned char> bytes);

// The id of the server's template, 0 for none. Throws failure.
std::int32_t template_id(user_session& user);

// Throws failure when there is none.
cover_template fetch_template(user_session& user);

// Gives a new document its title, which shows in lists alone.
void set_form_title(user_session& user, std::int32_t document, const char* title);

} // namespace zerdix::app

#endif
