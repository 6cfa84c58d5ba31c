// SPDX-License-Identifier: MIT
// Taking the receivers and settings of a job from its merge data.

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

#include <zerdix/telebook.h>
#include <zerdix/timetext.h>
#include <zerdix/values.h>

#include "sendfax/job.h"
#include "sendfax/merge_text.h"
#include "sendfax/receiver_group.h"
#include "sendfax/receivers.h"
#include "sendfax/trace_lines.h"

using namespace zerdix;
using namespace zerdix::sendfax;

namespace {

constexpr std::int16_t value_size = 31;

// One for the process; it takes the client handle anew for each job.
TELEBOOK& telebook() {
    static TELEBOOK* const books = new TELEBOOK;
    return *books;
}

void remark(zx_remark_kind kind, const char* key, const char* value) {
    sending::job_outcome().remark(kind, key, value);
}

// Leading digits count, and text without digits is 0. A number that is too big stays so: it mustn't
// wrap around into the range.
int number_of(const char* key, const char* value) {
    constexpr long lowest = std::numeric_limits<int>::min();
    constexpr long highest = std::numeric_limits<int>::max();
    char* end = nullptr;
    const long number = std::strtol(value, &end, 10);
    if (end == value)
        remark(ZX_REMARK_NO_NUMBER, key, value);
    return static_cast<int>(std::clamp(number, lowest, highest));
}

void set_paper(const char* value) {
    const int source = number_of("PAPER", value);
    trace_lines.info("SetFaxMergeData: Paper source - <%d>", source);
    if (source >= 0 && source <= 9)
        job().sPaperSource = static_cast<std::int16_t>(source);
    else
        remark(ZX_REMARK_BAD_VALUE, "PAPER", value);
}

void set_priority(const char* value) {
    const int priority = number_of("PRIORITY", value);
    trace_lines.info("SetFaxMergeData: Priority - <%d>", priority);
    if (priority >= 0 && priority <= 100)
        pa_s_rec->priority = send_priority(priority);
    else
        remark(ZX_REMARK_BAD_VALUE, "PRIORITY", value);
}

void set_resolution(const char* value) {
    if (std::strcmp(value, "NORMAL") == 0) {
        pa_s_rec->resolution = JOURNAL::clssetPCTNormal();
        trace_lines.info("SetFaxMergeData: Resolution - normal");
    } else if (std::strcmp(value, "FINE") == 0) {
        pa_s_rec->resolution = JOURNAL::clssetPCTFine();
        trace_lines.info("SetFaxMergeData: Resolution - fine");
    } else {
        remark(ZX_REMARK_BAD_VALUE, "RESOLUTION", value);
    }
}

void set_retries(const char* value) {
    const int retries = number_of("RETRIES", value);
    pa_s_rec->maxretries = static_cast<std::int16_t>(retries);
    if (pa_s_rec->maxretries != retries)
        remark(ZX_REMARK_CUT, "RETRIES", value);
    trace_lines.info("SetFaxMergeData: Retries - <%d>", pa_s_rec->maxretries);
}

void set_time(const char* value) {
    pa_s_rec->sendtime = str2time_t(value);
    if (pa_s_rec->sendtime == 0)
        remark(ZX_REMARK_BAD_TIME, "SENDTIME", value);
}

void set_send_time(const char* value) {
    trace_lines.info("SetFaxMergeData: send time - <%s>", value);
    if (std::strcmp(value, "NOW") == 0)
        pa_s_rec->nighttariff = false;
    else if (std::strcmp(value, "DELAYED") == 0)
        pa_s_rec->nighttariff = true;
    else
        set_time(value);
}

void set_title(const char* value) {
    trace_lines.info("SetFaxMergeData: comment - <%s>", value);
    pa_s_rec->comment.assign(value);
}

// False when a remote call failed.
bool add_group(const char* value) {
    trace_lines.info("SetFaxMergeData: receiver group - <%s>", value);
    return value[0] == '\0' || add_receiver_group(telebook(), value);
}

// Acts on a pair whose key does nothing when its value is empty.
void act_on_filled(std::int32_t key, const char* value) {
    if (value[0] == '\0')
        return;
    switch (key) {
    case key_paper:
        return set_paper(value);
    case key_phone:
        return add_receiver(value);
    case key_priority:
        return set_priority(value);
    case key_retries:
        return set_retries(value);
    default:
        return;
    }
}

// False when a remote call failed.
bool act_on(std::int32_t key, const char* value, bool& last_page) {
    switch (key) {
    case key_last_docpage:
        last_page = true;
        return true;
    case key_receivergroup:
        return add_group(value);
    case key_resolution:
        set_resolution(value);
        return true;
    case key_sendtime:
        set_send_time(value);
        return true;
    case key_title:
        set_title(value);
        return true;
    default:
        act_on_filled(key, value);
        return true;
    }
}

std::int32_t handle_pairs(std::string_view cursor) {
    bool last_page = false;
    char value[value_size];
    while (cursor.find('#') != std::string_view::npos) {
        std::int32_t key = 0;
        if (ExtractKeyAndValue(cursor, key, value, value_size) != success)
            continue;
        if (!act_on(key, value, last_page))
            return failure;
    }
    return last_page ? declined : success;
}

} // namespace

extern "C" std::int32_t SetFaxMergeData(const char* text, std::int32_t length) {
    const std::string copy =
        text != nullptr && length > 0 ? std::string(text, static_cast<std::size_t>(length)) : "";
    trace_lines.entry("<-- SetFaxMergeData: %s", copy.c_str());
    telebook();
    sending::job_outcome().begin();
    const std::int32_t rc = handle_pairs(copy);
    trace_lines.exit("--> SetFaxMergeData: rc = %ld", rc);
    return rc;
}
