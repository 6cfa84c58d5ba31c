// SPDX-License-Identifier: MIT
// Windows without a screen, unless the test program is started with a way to one.
#include <cstdlib>

namespace {

[[maybe_unused]] const bool is_set = [] {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    setenv("ZERDIX_RESOURCES", RESOURCES, 1);
    return true;
}();

} // namespace
