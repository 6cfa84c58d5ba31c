// SPDX-License-Identifier: MIT
#ifndef ZERDIX_TESTS_SENDFAX_FAILING_MALLOC_H
#define ZERDIX_TESTS_SENDFAX_FAILING_MALLOC_H

#include <cstddef>

namespace zerdix::testing {

// While it lives, malloc of just so many bytes fails in what is linked into the test program.
class failing_malloc {
  public:
    explicit failing_malloc(std::size_t size) { refused_size = size; }
    ~failing_malloc() { refused_size = 0; }
    failing_malloc(const failing_malloc&) = delete;
    failing_malloc& operator=(const failing_malloc&) = delete;

    static std::size_t refused_size;
};

} // namespace zerdix::testing

#endif
