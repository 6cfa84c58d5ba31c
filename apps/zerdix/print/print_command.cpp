// SPDX-License-Identifier: MIT
// zerdix print: PDFs go out as a fax.

#include <cstdio>
#include <ctime>
#include <memory>
#include <optional>
#include <vector>

#include <zerdix/sendfax.h>
#include <zerdix/zerdix.h>

#include "arguments/commands.h"
#include "output/failure.h"
#include "output/interrupt.h"
#include "output/progress.h"
#include "output/value_text.h"
#include "print/forms.h"
#include "print/job_options.h"
#include "print/joined_document.h"
#include "print/merge_text.h"
#include "print/pages_ahead.h"
#include "print/print_job.h"
#include "session/settings_choice.h"

namespace zerdix::app {

namespace {

struct print_line {
    std::vector<std::string> files;
    std::string pages;
    print_options options;
    std::optional<std::string> at;
    std::string settings;
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

std::string name_of(const std::vector<std::string>& files) {
    const std::string first = files.front() == "-" ? "standard input" : files.front();
    return files.size() == 1 ? first : first + " and " + std::to_string(files.size() - 1) + " more";
}

// What can be told wrong without the server is told before anything is asked of it.
void print(const print_line& line) {
    const print_options& options = line.options;
    check_receivers(options);
    joined_document document(line.files, line.pages);
    const std::string title = job_title(options, document.title());
    const std::string settings = merge_text(options, title);
    watch_for_interrupts();
    pages_ahead pages(document);
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
    shown.done(name_of(line.files) + ": " + counted(pages.count(), "page") + ", " + done);
}

void run(print_line& line, char** arguments) {
    use_settings(line.settings, arguments);
    if (line.at)
        line.options.at = required_send_time(*line.at);
    print(line);
}

void add_settings(cli::command command, print_line& line) {
    command
        .add_option("--paper", line.options.paper, "Letterhead to print on, 0 to 9; 0 is none", "N")
        .in_range(0, 9);
    command.add_flag("--cover", line.options.cover, "Put a cover page in front, one for each");
    add_quality(command, line.options);
    add_title(command, line.options, "the PDF's own");
    add_retries_and_time(command, line.options, line.at, fax_times);
    command.add_option("--settings", line.settings, "Settings file to use", "FILE");
    command.add_flag("--quiet", line.options.quiet, "Don't show progress, and no last line");
}

} // namespace

void add_print_command(cli::command app, char** arguments) {
    auto line = std::make_shared<print_line>();
    cli::command command = app.add_command("print", "Send a PDF as a fax");
    command.alias("lp").alias("sendfax");
    command.add_argument("FILE", line->files,
                         "The PDF to send, or several as one fax; - for standard input");
    command.add_option("-P,--pages", line->pages, "3, 1-3, 2- or 1-3,7 (default: all pages)",
                       "RANGE");
    add_receiver_options(command, line->options, "fax");
    add_settings(command, *line);
    command.footer("Example: zerdix print offer.pdf --to \"+49 30 123456\" --group kunden");
    command.callback([line, arguments] { run(*line, arguments); });
}

} // namespace zerdix::app
