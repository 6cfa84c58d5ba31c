// SPDX-License-Identifier: MIT
// Taking the server's time zone for this process, and reading send times in the session's language.

#include <cstdlib>
#include <ctime>
#include <string>

#include <zerdix/timetext.h>
#include <zerdix/zerdix.h>

#include "common/send_time.h"
#include "rpc/call.h"

using namespace zerdix;

namespace {

void set_zone(std::string_view zone) {
    setenv("TZ", std::string{zone}.c_str(), 1);
    tzset();
}

} // namespace

extern "C" std::int32_t setTZ() {
    client* handle = ZERDIX::clsGetClient();
    if (handle == nullptr)
        return rpc::call_failed;
    wire::none nothing;
    a_get_tz_o* answer = wire::stub<rpc::proc::a_get_tz_1>(nothing, handle);
    if (answer == nullptr) {
        rpc::settle_failed_call(handle);
        return rpc::call_failed;
    }
    set_zone(answer->tztexts[2].view());
    wire::release(*answer);
    return rpc::success;
}

extern "C" std::int32_t str2time_t(const char* text) {
    return common::parse_send_time(text != nullptr ? text : "", ZERDIX::clsGetLanguage(),
                                   std::time(nullptr));
}
