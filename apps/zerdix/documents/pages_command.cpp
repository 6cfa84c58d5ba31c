// SPDX-License-Identifier: MIT
// zerdix doc page: pages of a document as files.

#include <memory>

#include "arguments/commands.h"
#include "documents/arguments.h"
#include "documents/page_files.h"
#include "output/progress.h"
#include "session/user_command.h"

namespace zerdix::app {

namespace {

struct pages_line {
    std::string document, pages, output;
    bool mark_read = false;
};

// One open range, "all", fits a PNG too as long as the document has a single page.
void check(const pages_line& line) {
    read_document_name(line.document);
    const std::vector<page_range> ranges = read_page_ranges(line.pages);
    if (ranges.front().last != 0)
        check_page_path(line.output, ranges);
}

struct chosen_pages {
    std::vector<page_range> ranges;
    std::vector<int> numbers;
};

chosen_pages choose(const std::string& typed, int pages, const std::string& name) {
    chosen_pages chosen;
    for (const page_range& range : read_page_ranges(typed)) {
        const page_range closed = within(range, pages, name);
        chosen.ranges.push_back(closed);
        for (int page = closed.first; page <= closed.last; ++page)
            chosen.numbers.push_back(page);
    }
    return chosen;
}

void write(user_session& user, const pages_line& line) {
    const document which = find_document(user, line.document);
    const std::string name = name_of(which);
    const a_get_inf_o& info = user.fetch("fetching the pages of " + name, [&] {
        return user.journal().getDocInf(which.pool, which.id, 0);
    });
    if (info.pagecount <= 0)
        throw failure(exit_no_input, name + " has no pages");
    const chosen_pages chosen = choose(line.pages, info.pagecount, name);
    check_page_path(line.output, chosen.ranges);
    const std::vector<std::string> paths = write_pages(user, which, chosen.numbers, line.output);
    if (line.mark_read)
        user.expect("marking " + name,
                    [&] { return user.journal().setReadFlag(which.pool, which.id); });
    if (line.output == "-")
        return;
    const int count = static_cast<int>(chosen.numbers.size());
    user.out().done(counted(count, "page") + " of " + name + " written to " +
                        (paths.size() == 1 ? paths.front() : line.output),
                    {{"pool", pool_word(which.pool)},
                     {"id", which.id},
                     {"pages", chosen.numbers},
                     {"files", paths}});
}

} // namespace

void add_pages_command(cli::command parent) {
    auto line = std::make_shared<pages_line>();
    cli::command command = add_user_command(
        parent, "page", "Write pages of a document to files",
        [line](user_session& user) { write(user, *line); }, [line] { check(*line); });
    command.alias("pages");
    add_document(command, line->document);
    command.add_argument("PAGES", line->pages, "3, 1-3, 2- or 1-3,7 (default: all pages)")
        .optional();
    command
        .add_option("-o,--output", line->output,
                    "By its ending a TIFF (.tif), a text (.txt) or a PNG; %d becomes the page's "
                    "number, - is a PNG on standard output",
                    "FILE")
        .required();
    command.add_flag("--mark-read", line->mark_read, "Mark the document as read");
    command.footer("Examples: zerdix doc page 17 -o fax.tif\n"
                   "          zerdix doc page in:17 1-3 -o page%d.png");
}

} // namespace zerdix::app
