// SPDX-License-Identifier: MIT
// A page of a document, fetched from the server.
#ifndef ZERDIX_APP_PICTURES_PAGE_FETCH_H
#define ZERDIX_APP_PICTURES_PAGE_FETCH_H

#include <cstdint>
#include <string>

#include <zerdix/journal.h>

#include "pictures/stored_page.h"

namespace zerdix::app {

struct wanted_page {
    topftype pool;
    std::int32_t document;
    int page;
};

// As a picture. `host`, in Windows-1252, is where a call that fails is looked into. Throws failure
// with the reason: no such document, page or picture, a damaged one, no connection.
page_picture fetch_picture(JOURNAL& journal, const wanted_page& wanted, const std::string& host);

// As a text, UTF-8; of a fax page only where the server has one beside the picture. Throws alike.
std::string fetch_text(JOURNAL& journal, const wanted_page& wanted, const std::string& host);

} // namespace zerdix::app

#endif
