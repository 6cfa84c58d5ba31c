// SPDX-License-Identifier: MIT
// Options that the commands that send share: receivers, title, time and retries.
#ifndef ZERDIX_APP_PRINT_JOB_OPTIONS_H
#define ZERDIX_APP_PRINT_JOB_OPTIONS_H

#include <optional>
#include <string>

#include "arguments/command.h"
#include "print/merge_text.h"
#include "print/print_job.h"

namespace zerdix::app {

// `kind` is "fax" or "telex".
void add_receiver_options(cli::command command, print_options& options, const std::string& kind);

// `otherwise` says what the title is without it.
void add_title(cli::command command, print_options& options, const std::string& otherwise);

// What --at takes.
constexpr const char* fax_times = "now, night (the cheap tariff), 20:15, or \"2026-12-31 20:15\"";
constexpr const char* telex_times = "now, 20:15, or \"2026-12-31 20:15\"";

// --retries, and --at as it is typed.
void add_retries_and_time(cli::command command, print_options& options,
                          std::optional<std::string>& at, const std::string& times);

// --resolution and --priority of a fax.
void add_quality(cli::command command, print_options& options);

// What can be told wrong of the receivers without the server. Throws failure.
void check_receivers(const print_options& options);

// A title from UTF-8 to Windows-1252. Notes tell what is lost of it.
std::string given_title(const std::string& utf8);

// The title that was given, or the other one, of which nothing is told.
std::string job_title(const print_options& options, const std::string& otherwise);

// Settings, time and receivers of an open job. `settings` is the merge text without the time and
// the groups.
void set_up(print_job& job, const print_options& options, const std::string& settings);

} // namespace zerdix::app

#endif
