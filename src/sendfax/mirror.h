// The step between driver form and stored form that every byte of a page goes through.
#ifndef ZERDIX_SENDFAX_MIRROR_H
#define ZERDIX_SENDFAX_MIRROR_H

#include <span>

namespace zerdix::sendfax {

// Reverses the order of the bits of each byte and inverts them, in place.
void mirror_and_invert(std::span<unsigned char> bytes);

} // namespace zerdix::sendfax

#endif
