// SPDX-License-Identifier: MIT
// The step between the forms of a page that every byte of it goes through.
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
