// SPDX-License-Identifier: MIT
#include "sendfax/failing_malloc.h"

namespace {

std::size_t refused_size = 0;

} // namespace

// The linker takes calls of malloc here (--wrap).
extern "C" void* __real_malloc(std::size_t size);
extern "C" void* __wrap_malloc(std::size_t size) {
    return refused_size != 0 && size == refused_size ? nullptr : __real_malloc(size);
}

namespace zerdix::testing {

failing_malloc::failing_malloc(std::size_t size) {
    refused_size = size;
}

failing_malloc::~failing_malloc() {
    refused_size = 0;
}

} // namespace zerdix::testing
