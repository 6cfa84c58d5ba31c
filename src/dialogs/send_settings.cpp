// SPDX-License-Identifier: MIT
#include "dialogs/send_settings.h"

#include <algorithm>

#include <zerdix/journal.h>
#include <zerdix/timetext.h>
#include <zerdix/values.h>
#include <zerdix/zerdix.h>

#include "dialogs/message.h"
#include "dialogs/send_controls.h"

namespace zerdix::dialogs {

using enum send::send_control;

void send_settings::set_up() {
    dialog_.set_limit(send_date, send::date_limit);
    dialog_.set_limit(send_clock, send::date_limit);
    dialog_.set_limit(retries, 1);
    dialog_.check(normal_tariff);
    dialog_.check(as_stored);
    dialog_.set_text(retries, "9");
}

std::int32_t send_settings::read() {
    sRecWork = {};
    sRecWork.nighttariff = dialog_.is_checked(night_tariff);
    sRecWork.nettype = dialog_.is_checked(telex) ? NETTYPE_TELEX : NETTYPE_FAX;
    if (dialog_.is_checked(fine_resolution))
        sRecWork.resolution = JOURNAL::clssetPCTFine();
    else if (dialog_.is_checked(normal_resolution))
        sRecWork.resolution = JOURNAL::clssetPCTNormal();
    if (!read_send_time())
        return send::bad_send_time;
    return read_retries() ? 0 : std::int32_t{send::bad_retries};
}

bool send_settings::read_send_time() {
    std::string when = dialog_.text(send_date);
    if (!when.empty())
        when += ' ';
    when += dialog_.text(send_clock);
    if (when.empty())
        return true;
    setTZ();
    sRecWork.sendtime = str2time_t(when.c_str());
    return sRecWork.sendtime != 0;
}

bool send_settings::read_retries() {
    const std::string typed = dialog_.text(retries, 1);
    if (typed.empty() || typed[0] < '1' || typed[0] > '9')
        return false;
    sRecWork.maxretries = static_cast<std::int16_t>(typed[0] - '0');
    return true;
}

void send_settings::fetch_priority() {
    const a_user_rec* user = ZERDIX::clsGetAUserRecord();
    if (user == nullptr)
        AfxMessageBox(send::no_user_record);
    else
        sRecWork.priority =
            send_priority(std::clamp<int>(user->priority, 0, highest_user_priority));
}

} // namespace zerdix::dialogs
