// SPDX-License-Identifier: MIT
#include "output/output_file.h"

#include <filesystem>

#include "output/failure.h"

namespace zerdix::app {

void not_written(const std::string& path, const std::string& reason) {
    throw failure(exit_no_output, path + " can't be written: " + reason);
}

void take_away(const std::string& path) {
    std::error_code ignored;
    if (std::filesystem::is_regular_file(path, ignored))
        std::filesystem::remove(path, ignored);
}

} // namespace zerdix::app
