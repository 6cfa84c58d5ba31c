// SPDX-License-Identifier: MIT
// Converts the bytes of a page from one of its forms to another.
#ifndef ZERDIX_PAGES_MIRROR_H
#define ZERDIX_PAGES_MIRROR_H

#include <cstddef>
#include <span>

namespace zerdix::pages {

// Reverses the order of the bits of each byte, in place: between expanded and stored form.
void mirror_bits(std::span<unsigned char> bytes);

// Rows that lie one behind the other, or apart: `step` bytes from the start of one to that of the
// next, less than 0 where they are taken from the last to the first.
struct row_walk {
    const unsigned char* first;
    std::ptrdiff_t step;
    std::size_t bytes; // of a row
    std::size_t count;
};

// Copies rows into one stretch of memory with the bits of each byte reversed, and inverted as well
// where `invert` is set: that is between driver form and stored form. `to` has room for them all
// and doesn't overlap with them.
void mirror_rows(const row_walk& rows, unsigned char* to, bool invert);

} // namespace zerdix::pages

#endif
