// SPDX-License-Identifier: MIT
// A stored page as a fax: its picture, and whether it has one.
#ifndef ZERDIX_ALPHAD_SENDING_FAX_PAGE_H
#define ZERDIX_ALPHAD_SENDING_FAX_PAGE_H

#include <optional>
#include <string>
#include <string_view>

#include "pages/page_picture.h"

namespace zerdix::alphad {

using zerdix::pages::page_picture;

// Nothing unless the bytes are a compressed stored page whose rows are all there.
std::optional<page_picture> read_page(std::string_view stored);

// The picture as it is stored. Throws std::bad_alloc.
std::string stored_page(const page_picture& picture);

// What a fax can't be made of is refused as early as it shows. Bytes that don't begin as a
// compressed stream are nobody's page, and not refused here.
//
// Whether a page that begins so may become a picture: its width and its height are possible ones,
// or haven't come yet.
bool may_become_picture(std::string_view beginning);
// Whether a page that is all there is one.
bool is_picture(std::string_view stored);

// Half as many rows: each is black where one of its two was.
page_picture halved(page_picture picture);

} // namespace zerdix::alphad

#endif
