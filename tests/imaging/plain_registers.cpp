// SPDX-License-Identifier: MIT
// With ZERDIX_TEST_PLAIN in the environment the program's tests run as on a processor without wide
// registers.
#include <cstdlib>

#include "pages/wide_registers.h"

namespace {

[[maybe_unused]] const bool plain = std::getenv("ZERDIX_TEST_PLAIN") != nullptr &&
                                    (zerdix::pages::wide_registers_allowed = false, true);

} // namespace
