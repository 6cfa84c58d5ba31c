// SPDX-License-Identifier: MIT
#include "print/job_options.h"

#include <ctime>

#include <zerdix/zerdix.h>

#include "output/value_text.h"

namespace zerdix::app {

void add_receiver_options(cli::command command, print_options& options, const std::string& kind) {
    // One value each time: what follows may be the file.
    command
        .add_option("-t,-d,--to", options.to,
                    "A " + kind + " number, or an entry of a phone book as BOOK:ENTRY",
                    "RECEIVER ...")
        .repeats();
    command
        .add_option("-g,--group", options.groups, "All " + kind + " receivers of a group", "ID ...")
        .repeats();
}

void add_title(cli::command command, print_options& options, const std::string& otherwise) {
    command.add_option("-T,--title", options.title,
                       "Title of the document, 30 characters (default: " + otherwise + ")");
}

void add_retries_and_time(cli::command command, print_options& options,
                          std::optional<std::string>& at, const std::string& times) {
    command.add_option("--retries", options.retries, "Retries for a busy number, 0 to 9", "N")
        .in_range(0, 9);
    command.add_option("-a,--at", at, "When to send, in the server's time: " + times, "TIME");
}

void add_quality(cli::command command, print_options& options) {
    command
        .add_option("--resolution", options.resolution, "fine or normal (default: as rendered)",
                    "HOW")
        .one_of({"fine", "normal"});
    command.add_option("-q,--priority", options.priority, "0 (the lowest) to 100", "N")
        .in_range(0, 100);
}

void check_receivers(const print_options& options) {
    for (const std::string& group : options.groups)
        group_pair(group);
    merge_text(options, "");
}

std::string given_title(const std::string& utf8) {
    const title_text title = title_of(utf8);
    if (title.cut)
        note("the title is cut to 30 characters");
    if (title.has_unknown_characters)
        note("characters of the title that aren't in Windows-1252 become \"?\"");
    return title.text;
}

std::string job_title(const print_options& options, const std::string& otherwise) {
    return options.title ? given_title(*options.title) : title_of(otherwise).text;
}

void set_up(print_job& job, const print_options& options, const std::string& settings) {
    job.apply(settings);
    if (options.at)
        job.apply(send_time_pair(
            send_time_value(*options.at, ZERDIX::clsGetLanguage(), std::time(nullptr))));
    for (const book_entry& entry : book_entries(options))
        job.require_entry(entry);
    for (const std::string& group : options.groups)
        job.add_group(group);
}

} // namespace zerdix::app
