// zerdix print: a PDF goes out as a fax.

#include <cstdio>
#include <ctime>
#include <memory>

#include <CLI/CLI.hpp>

#include <zerdix/zerdix.h>

#include "commands.h"
#include "failure.h"
#include "interrupt.h"
#include "merge_text.h"
#include "pdf_file.h"
#include "print_job.h"
#include "progress.h"
#include "settings_choice.h"
#include "shell/one_of.h"
#include "shell/value_text.h"

namespace zerdix::app {

namespace {

struct print_line {
    print_options options;
    std::string title;
    std::string at;
    std::string settings;
    int paper = 0, retries = 0, priority = 0;
    std::string resolution;
};

std::string job_title(const print_options& options, const pdf_file& pdf) {
    const title_text title = title_of(options.title.value_or(pdf.title()));
    if (!options.title)
        return title.text;
    if (title.cut)
        note("the title is cut to 30 characters");
    if (title.has_strangers)
        note("characters of the title that aren't in Windows-1252 become \"?\"");
    return title.text;
}

void set_up(print_job& job, const print_options& options, const std::string& settings) {
    job.apply(settings);
    if (options.at)
        job.apply(send_time_pair(
            send_time_value(*options.at, ZERDIX::clsGetLanguage(), std::time(nullptr))));
    for (const book_entry& entry : book_entries(options))
        job.require_fax_entry(entry);
    for (const std::string& group : options.groups)
        job.add_group(group);
}

void store_pages(print_job& job, const pdf_file& pdf, progress& shown) {
    for (int page = 1; page <= pdf.pages(); ++page) {
        stop_if_interrupted();
        const std::vector<unsigned char> block = pdf.render(page);
        if (!pdf.complaint().empty())
            note("page " + std::to_string(page) + " may be incomplete: " + pdf.complaint());
        stop_if_interrupted();
        job.store_page(block);
        shown.step(page, "page " + of(page, pdf.pages()) + " stored");
    }
    stop_if_interrupted();
}

// What can be told wrong without the server is told before anything is asked of it.
void print(const print_options& options) {
    for (const std::string& group : options.groups)
        group_pair(group);
    merge_text(options, "");
    const pdf_file pdf(options.file);
    const std::string title = job_title(options, pdf);
    const std::string settings = merge_text(options, title);
    watch_for_interrupts();
    print_job job(title);
    set_up(job, options, settings);
    progress shown(stdout, progress::fitting(options.quiet), pdf.pages());
    store_pages(job, pdf, shown);
    if (job.receivers() > 0)
        shown.step(pdf.pages(), "sending to " + counted(job.receivers(), "receiver"));
    const int jobs = job.send();
    shown.done(options.file + ": " + counted(pdf.pages(), "page") + ", " +
               counted(jobs, "send job") + " made");
}

send_time typed_time(const std::string& typed) {
    const auto time = parse_send_time(typed);
    if (!time)
        throw failure(exit_usage, "--at \"" + typed +
                                      "\": now, night, HH:MM or \"YYYY-MM-DD HH:MM\" is expected");
    return *time;
}

template <class Value>
void take(const CLI::App& command, const char* option, std::optional<Value>& place,
          const Value& value) {
    if (command.count(option) > 0)
        place = value;
}

void run(const CLI::App& command, print_line& line, char** arguments) {
    use_settings(line.settings, arguments);
    take(command, "--title", line.options.title, line.title);
    take(command, "--paper", line.options.paper, line.paper);
    take(command, "--retries", line.options.retries, line.retries);
    take(command, "--priority", line.options.priority, line.priority);
    take(command, "--resolution", line.options.resolution, line.resolution);
    if (command.count("--at") > 0)
        line.options.at = typed_time(line.at);
    print(line.options);
}

void add_receivers(CLI::App& command, print_line& line) {
    command.add_option("FILE", line.options.file, "The PDF to send")->required()->option_text(" ");
    // One value each time: what follows may be the file.
    command
        .add_option("-t,--to", line.options.to,
                    "A fax number, or an entry of a phone book as BOOK:ENTRY")
        ->option_text("RECEIVER ...")
        ->expected(1)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command.add_option("-g,--group", line.options.groups, "All fax receivers of a group")
        ->option_text("ID ...")
        ->expected(1)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

void add_settings(CLI::App& command, print_line& line) {
    command
        .add_option("-T,--title", line.title,
                    "Title of the document, 30 characters (default: the PDF's own)")
        ->option_text("TEXT");
    command.add_option("--paper", line.paper, "Letterhead to print on, 0 to 9; 0 is none")
        ->check(CLI::Range(0, 9).description(""))
        ->option_text("N");
    command.add_option("--resolution", line.resolution, "fine or normal (default: as rendered)")
        ->check(one_of({"fine", "normal"}))
        ->option_text("HOW");
    command.add_option("--retries", line.retries, "Retries for a busy number, 0 to 9")
        ->check(CLI::Range(0, 9).description(""))
        ->option_text("N");
    command.add_option("-q,--priority", line.priority, "0 (the lowest) to 100")
        ->check(CLI::Range(0, 100).description(""))
        ->option_text("N");
    command
        .add_option("-a,--at", line.at,
                    "When to send, in the server's time: now, night (the cheap tariff), "
                    "20:15, or \"2026-12-31 20:15\"")
        ->option_text("TIME");
    command.add_option("--settings", line.settings, "Settings file to use")->option_text("FILE");
    command.add_flag("--quiet", line.options.quiet, "Don't show progress, and no last line");
}

} // namespace

void add_print_command(CLI::App& app, char** arguments) {
    auto line = std::make_shared<print_line>();
    CLI::App* command = app.add_subcommand("print", "Send a PDF as a fax");
    add_receivers(*command, *line);
    add_settings(*command, *line);
    command->footer("Example: zerdix print offer.pdf --to \"+49 30 123456\" --group kunden");
    command->callback([command, line, arguments] { run(*command, *line, arguments); });
}

} // namespace zerdix::app
