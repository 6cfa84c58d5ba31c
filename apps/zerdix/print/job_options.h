// SPDX-License-Identifier: MIT
// What the commands that send share: receivers, title, time and retries.
#ifndef ZERDIX_APP_PRINT_JOB_OPTIONS_H
#define ZERDIX_APP_PRINT_JOB_OPTIONS_H

#include <string>

#include "print/merge_text.h"
#include "print/print_job.h"

namespace CLI {
class App;
}

namespace zerdix::app {

// `kind` is "fax" or "telex".
void add_receiver_options(CLI::App& command, print_options& options, const std::string& kind);

// --title, --at and --retries, as they are typed.
struct job_places {
    std::string& title;
    std::string& at;
    int& retries;
};
void add_job_options(CLI::App& command, const job_places& places, const std::string& default_title);

// --resolution and --priority of a fax.
void add_quality(CLI::App& command, int& priority, std::string& resolution);

// --at, --retries, --priority and --resolution of a fax, as they are typed.
struct fax_settings {
    std::string& at;
    int& retries;
    int& priority;
    std::string& resolution;
};
void add_settings_of_jobs(CLI::App& command, const fax_settings& places);

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
