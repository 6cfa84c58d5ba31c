// SPDX-License-Identifier: MIT
// A fuzzer tells a fault by a crash.
#ifndef ZERDIX_FUZZ_REQUIRE_H
#define ZERDIX_FUZZ_REQUIRE_H

#include <cstdlib>

inline void require(bool holds) {
    if (!holds)
        std::abort();
}

#endif
