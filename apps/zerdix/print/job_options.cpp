// SPDX-License-Identifier: MIT
#include "print/job_options.h"

#include <ctime>

#include <CLI/CLI.hpp>

#include <zerdix/zerdix.h>

#include "arguments/one_of.h"
#include "output/value_text.h"

namespace zerdix::app {

void add_receiver_options(CLI::App& command, print_options& options, const std::string& kind) {
    // One value each time: what follows may be the file.
    command
        .add_option("-t,-d,--to", options.to,
                    "A " + kind + " number, or an entry of a phone book as BOOK:ENTRY")
        ->option_text("RECEIVER ...")
        ->expected(1)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command.add_option("-g,--group", options.groups, "All " + kind + " receivers of a group")
        ->option_text("ID ...")
        ->expected(1)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

namespace {

void add_time_and_retries(CLI::App& command, std::string& at, int& retries) {
    command.add_option("--retries", retries, "Retries for a busy number, 0 to 9")
        ->check(CLI::Range(0, 9).description(""))
        ->option_text("N");
    command
        .add_option("-a,--at", at,
                    "When to send, in the server's time: now, night (the cheap tariff), "
                    "20:15, or \"2026-12-31 20:15\"")
        ->option_text("TIME");
}

} // namespace

void add_job_options(CLI::App& command, const job_places& places,
                     const std::string& default_title) {
    command
        .add_option("-T,--title", places.title,
                    "Title of the document, 30 characters (default: " + default_title + ")")
        ->option_text("TEXT");
    add_time_and_retries(command, places.at, places.retries);
}

void add_quality(CLI::App& command, int& priority, std::string& resolution) {
    command.add_option("--resolution", resolution, "fine or normal (default: as rendered)")
        ->check(one_of({"fine", "normal"}))
        ->option_text("HOW");
    command.add_option("-q,--priority", priority, "0 (the lowest) to 100")
        ->check(CLI::Range(0, 100).description(""))
        ->option_text("N");
}

void add_settings_of_jobs(CLI::App& command, const fax_settings& places) {
    add_time_and_retries(command, places.at, places.retries);
    add_quality(command, places.priority, places.resolution);
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
