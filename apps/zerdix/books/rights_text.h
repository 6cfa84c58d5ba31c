// SPDX-License-Identifier: MIT
// Rights on phone books and groups as letters: r read, u use, a add, c change, d delete, p hold the
// rights.
#ifndef ZERDIX_APP_BOOKS_RIGHTS_TEXT_H
#define ZERDIX_APP_BOOKS_RIGHTS_TEXT_H

#include <string>

#include <zerdix/text.h>

namespace zerdix::app {

using rights_bytes = opaque<3>; // of the owner, the user group, all others

// Always six characters, with "-" for a right that isn't there: "ru----".
std::string rights_letters(unsigned char bits);

// The three of a record: "ruacdp ru---- r-----".
std::string rights_text(const rights_bytes& perms);

// Letters in any order; "-" counts as nothing, and "none" is no right at all. Throws failure.
unsigned char rights_bits(const std::string& letters);

} // namespace zerdix::app

#endif
