// SPDX-License-Identifier: MIT
// A cover page as a receiver would get it, drawn without storing or sending anything: for a program
// that shows it beforehand.
#ifndef ZERDIX_COVER_H
#define ZERDIX_COVER_H

#include <cstdint>
#include <string_view>

#include <zerdix/export.h>
#include <zerdix/records.h>

namespace zerdix {

// What a cover page is made of. Nothing is fetched for it: the first three are the bytes that
// JOURNAL::getDocPage and ZERDIX::getSignature give, empty for none.
struct cover_page {
    std::string_view form;     // page 1 of the cover template, picture type 0
    std::string_view commands; // the same, picture type 10
    std::string_view signature;
    const o_user_rec* user; // the sender
    const a_s_rec* record;  // `phone` and `comment` of it
    const o_tebul* entry;   // the receiver's, with an empty tbookid for none
    std::int32_t document;  // the number that the page shows
};

} // namespace zerdix

// Draws it in the session's language. 0: *stored becomes a stored page of *size bytes
// (zerdix/page.h), which the caller gives to FreeStoredPage. 4: the form can't be expanded. 8: it
// can't be drawn, and the user was told why. Except for 0 *stored is null.
ZX_API std::int32_t DrawCoverPage(const zerdix::cover_page& cover, unsigned char** stored,
                                  std::uint32_t* size);

#endif
