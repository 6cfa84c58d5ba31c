// SPDX-License-Identifier: MIT
// Counts the heap of the whole program: the file beside it stands in for malloc and its family, for
// every library of the process. Sizes are what malloc really set aside, which for large blocks are
// whole pages. One thread only.
#ifndef ZERDIX_BENCH_HEAP_COUNT_H
#define ZERDIX_BENCH_HEAP_COUNT_H

#include <cstddef>

namespace zerdix::bench {

struct heap_count {
    std::size_t bytes;  // in use
    std::size_t blocks; // in use
    std::size_t peak;   // most bytes in use since the last reset_heap_peak
};

heap_count count_heap();
void reset_heap_peak();

} // namespace zerdix::bench

#endif
