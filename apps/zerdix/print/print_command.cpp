// SPDX-License-Identifier: MIT
// zerdix print: a PDF goes out as a fax.

#include <cstdio>
#include <ctime>
#include <memory>
#include <optional>

#include <CLI/CLI.hpp>

#include <zerdix/sendfax.h>
#include <zerdix/zerdix.h>

#include "output/failure.h"
#include "output/interrupt.h"
#include "output/progress.h"
#include "output/value_text.h"
#include "print/commands.h"
#include "print/forms.h"
#include "print/job_options.h"
#include "print/merge_text.h"
#include "print/pages_ahead.h"
#include "print/pdf_file.h"
#include "print/print_job.h"
#include "session/settings_choice.h"

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

void store_pages(print_job& job, pages_ahead& pages, progress& shown) {
    for (int number = 1; number <= pages.count(); ++number) {
        stop_if_interrupted();
        const fax_page page = pages.next();
        if (!page.complaint.empty())
            note("page " + std::to_string(number) + " may be incomplete: " + page.complaint);
        stop_if_interrupted();
        job.store_page(page.block);
        shown.step(number, "page " + of(number, pages.count()) + " stored");
    }
    stop_if_interrupted();
}

void ask_for_cover_pages() {
    require_cover_form();
    fCoverpage = 1;
}

void note_what_the_dialog_asks_again(const print_options& options) {
    if (options.at || options.retries || options.priority || options.resolution || options.cover)
        note("the send dialog asks for time, retries, resolution and cover page; what it is told "
             "holds");
}

// What can be told wrong without the server is told before anything is asked of it.
void print(const print_options& options) {
    check_receivers(options);
    pdf_file pdf(options.file);
    const std::string title = job_title(options, pdf.title());
    const std::string settings = merge_text(options, title);
    watch_for_interrupts();
    pages_ahead pages(pdf);
    print_job job(title);
    set_up(job, options, settings);
    job.require_receivers_or_dialog();
    const bool asks = job.receivers() == 0;
    if (asks)
        note_what_the_dialog_asks_again(options);
    else if (options.cover)
        ask_for_cover_pages();
    require_letterhead(options.paper.value_or(0));
    progress shown(stdout, progress::fitting(options.quiet), pages.count());
    store_pages(job, pages, shown);
    shown.step(pages.count(), asks ? "the send dialog asks for the receivers"
                                   : "sending to " + counted(job.receivers(), "receiver"));
    const std::string done = job.send();
    shown.done(options.file + ": " + counted(pages.count(), "page") + ", " + done);
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
        line.options.at = required_send_time(line.at);
    print(line.options);
}

void add_settings(CLI::App& command, print_line& line) {
    command.add_option("--paper", line.paper, "Letterhead to print on, 0 to 9; 0 is none")
        ->check(CLI::Range(0, 9).description(""))
        ->option_text("N");
    command.add_flag("--cover", line.options.cover, "Put a cover page in front, one for each");
    add_quality(command, line.priority, line.resolution);
    add_job_options(command, {line.title, line.at, line.retries}, "the PDF's own");
    command.add_option("--settings", line.settings, "Settings file to use")->option_text("FILE");
    command.add_flag("--quiet", line.options.quiet, "Don't show progress, and no last line");
}

} // namespace

void add_print_command(CLI::App& app, char** arguments) {
    auto line = std::make_shared<print_line>();
    CLI::App* command = app.add_subcommand("print", "Send a PDF as a fax");
    command->alias("lp")->alias("sendfax");
    command->add_option("FILE", line->options.file, "The PDF to send")
        ->required()
        ->option_text(" ");
    add_receiver_options(*command, line->options, "fax");
    add_settings(*command, *line);
    command->footer("Example: zerdix print offer.pdf --to \"+49 30 123456\" --group kunden");
    command->callback([command, line, arguments] { run(*command, *line, arguments); });
}

} // namespace zerdix::app
