// SPDX-License-Identifier: MIT
// A cover page as a receiver would get it.
#ifndef ZERDIX_APP_COVER_PREVIEW_H
#define ZERDIX_APP_COVER_PREVIEW_H

#include <string>

#include "cover/template_document.h"
#include "pictures/stored_page.h"
#include "session/user_session.h"

namespace zerdix::app {

// What the page is drawn for, Windows-1252.
struct cover_receiver {
    std::string phone; // a number or BOOK:ENTRY, empty for nobody
    std::string title;
};

// Stands where the number of a document will stand, which there is none of yet.
constexpr std::int32_t sample_number = 123456;

// Draws it with what the server holds of the user and of the receiver. Throws failure.
page_picture draw_cover(user_session& user, const cover_template& from,
                        const cover_receiver& receiver);

} // namespace zerdix::app

#endif
