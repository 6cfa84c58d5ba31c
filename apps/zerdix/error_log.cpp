#include "error_log.h"

#include "common/settings.h"

namespace zerdix::app {

std::string error_log_path() {
    const std::string named = common::setting_error_file();
    if (!named.empty())
        return named;
    const std::string folder = common::setting_log_dir();
    return folder.empty() ? "FAXERROR.LOG" : folder + "/FAXERROR.LOG";
}

} // namespace zerdix::app
