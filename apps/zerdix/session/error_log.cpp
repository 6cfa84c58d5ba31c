// SPDX-License-Identifier: MIT
#include "session/error_log.h"

#include "common/settings.h"

namespace zerdix::app {

std::string error_log_path() {
    return common::setting_error_file().path;
}

} // namespace zerdix::app
