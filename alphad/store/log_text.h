// SPDX-License-Identifier: MIT
// Lines of document logs: how they are written, and how they read for people.
//
// A line is the time in 24 characters, two blanks, an event ("$ps.page_no_completed:") and values,
// each a blank, a "$", a letter, ":=" and the value. The events of the print pipeline begin "$ps.",
// those of this server "$as.".
#ifndef ZERDIX_ALPHAD_STORE_LOG_TEXT_H
#define ZERDIX_ALPHAD_STORE_LOG_TEXT_H

#include <string>
#include <string_view>

namespace zerdix::alphad {

enum class log_language { german, french, english };

// By the name that a client sends, "german_germany" for one.
log_language language_of(std::string_view name);

// The line with its event as a sentence. A line of another form comes back as it is.
std::string in_words(std::string_view line, log_language language);

// A line of this server's own, with the present time in front.
std::string log_line(std::string_view event_and_values);

} // namespace zerdix::alphad

#endif
