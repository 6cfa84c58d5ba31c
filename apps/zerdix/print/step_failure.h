// SPDX-License-Identifier: MIT
// The failure of a step of a print job.
#ifndef ZERDIX_APP_PRINT_STEP_FAILURE_H
#define ZERDIX_APP_PRINT_STEP_FAILURE_H

#include <string>

#include <zerdix/settings.h>

#include "session/connection_probe.h"

namespace zerdix::app {

inline failure failed_step(const std::string& step, const failure_cause& why) {
    return {why.code, step + " failed: " + why.cause + " (the error log is " +
                          ReadSettings()->error_file + ")"};
}

inline failure nobody_named() {
    return {exit_no_dialog, "no receiver is named and no dialog can ask for one; use --to or "
                            "--group"};
}

} // namespace zerdix::app

#endif
