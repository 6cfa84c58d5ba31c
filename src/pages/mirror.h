// SPDX-License-Identifier: MIT
// Converts the bytes of a page from one of its forms to another.
#ifndef ZERDIX_PAGES_MIRROR_H
#define ZERDIX_PAGES_MIRROR_H

#include <span>

namespace zerdix::pages {

// Reverses the order of the bits of each byte, in place: between expanded and stored form.
void mirror_bits(std::span<unsigned char> bytes);

// And inverts them: between driver form and stored form.
void mirror_and_invert(std::span<unsigned char> bytes);

} // namespace zerdix::pages

#endif
