// SPDX-License-Identifier: MIT
// A computed picture with the soft gradients and the fine texture of a photograph. Nobody has
// rights in it.
#ifndef ZERDIX_SAMPLE_STILL_LIFE_H
#define ZERDIX_SAMPLE_STILL_LIFE_H

#include <vector>

namespace zerdix::sample {

struct grey_picture {
    int width;
    int height;
    std::vector<unsigned char> pixels; // rows from the top, 0 black to 255 white
};

grey_picture draw_photograph(int width, int height);

} // namespace zerdix::sample

#endif
