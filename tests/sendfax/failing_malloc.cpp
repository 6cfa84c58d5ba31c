// SPDX-License-Identifier: MIT
#include "sendfax/failing_malloc.h"

std::size_t zerdix::testing::failing_malloc::refused_size = 0;

// The linker takes calls of malloc here (--wrap).
extern "C" void* __real_malloc(std::size_t size);
extern "C" void* __wrap_malloc(std::size_t size) {
    const std::size_t refused = zerdix::testing::failing_malloc::refused_size;
    return refused != 0 && size == refused ? nullptr : __real_malloc(size);
}
