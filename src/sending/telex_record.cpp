// SPDX-License-Identifier: MIT
#include "sending/telex_record.h"

#include <zerdix/timetext.h>
#include <zerdix/zerdix.h>

namespace zerdix::sending {

// An unknown language leaves the texts as they are.
std::string telex_send_time(std::int32_t sendtime) {
    const char *date = "", *clock = "0";
    if (sendtime != 0)
        printTime(sendtime, ZERDIX::clsGetLanguage(), nullptr, &date, &clock);
    return std::string{date} + ' ' + clock;
}

std::string control_record(const a_s_rec& record, std::string_view user, const std::string& time) {
    std::string line = "#TELEX##USER ";
    line.append(user);
    line.append("##ALPHAHOST ").append(ZERDIX::clsGetAlphaServer());
    line.append("##TITLE ").append(record.comment.view());
    line.append("##PHONE ").append(record.phone.view());
    line.append("##SENDTIME ").append(time);
    line.append("##RETRIES ").append(std::to_string(record.maxretries)).append("#\n");
    return line;
}

} // namespace zerdix::sending
