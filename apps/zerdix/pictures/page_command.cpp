// SPDX-License-Identifier: MIT
// zerdix page: a stored page as a picture.

#include <cstdint>
#include <memory>
#include <string>

#include <zerdix/journal.h>

#include "arguments/commands.h"
#include "pictures/page_fetch.h"
#include "pictures/png_file.h"
#include "session/plain_session.h"
#include "session/settings_choice.h"

namespace zerdix::app {

namespace {

struct page_line {
    std::int32_t document = 0;
    int page = 0;
    std::string output;
    std::string pool = "desk";
    std::string settings;
};

topftype pool_of(const std::string& name) {
    if (name == "in")
        return TOPF_E;
    return name == "out" ? TOPF_S : TOPF_P;
}

page_picture fetch(const page_line& line) {
    const server_session session;
    JOURNAL journal;
    return fetch_picture(journal, {pool_of(line.pool), line.document, line.page}, session.host());
}

void run(const page_line& line, char** arguments) {
    use_settings(line.settings, arguments);
    write_png(line.output, fetch(line));
}

} // namespace

void add_page_command(cli::command app, char** arguments) {
    auto line = std::make_shared<page_line>();
    cli::command command = app.add_command("page", "Fetch a page of a document as a picture");
    command.add_argument("ID", line->document, "Number of the document").in_range(1, 2147483647);
    command.add_argument("N", line->page, "Number of the page, from 1").in_range(1, 32767);
    command
        .add_option("-o,--output", line->output, "PNG file to write; - for standard output", "FILE")
        .required();
    command
        .add_option("--pool", line->pool,
                    "Where the document lies: desk, out or in "
                    "(default: desk)",
                    "POOL")
        .one_of({"desk", "out", "in"});
    command.add_option("--settings", line->settings, "Settings file to use", "FILE");
    command.footer("Example: zerdix page 17 1 -o page.png --pool out");
    command.callback([line, arguments] { run(*line, arguments); });
}

} // namespace zerdix::app
