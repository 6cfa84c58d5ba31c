// SPDX-License-Identifier: MIT
// A telex as the server takes it: a page of a print document that begins with a control record and
// is printed on a printer of the server that stands for the telex line.
#ifndef ZERDIX_SENDING_TELEX_RECORD_H
#define ZERDIX_SENDING_TELEX_RECORD_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <zerdix/records.h>

namespace zerdix::sending {

constexpr std::size_t control_record_room = 300;

// Date and clock with a blank between them, in the session's language; an empty date and "0" when
// no time is set.
std::string telex_send_time(std::int32_t sendtime);

// The line ahead of the text that tells the printer what to do with it: for whom, to whom (`phone`
// of the record) and when.
std::string control_record(const a_s_rec& record, std::string_view user, const std::string& time);

} // namespace zerdix::sending

#endif
