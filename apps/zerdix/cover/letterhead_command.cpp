// SPDX-License-Identifier: MIT
// zerdix letterhead: the paper that the pages of a fax are laid over.

#include <memory>
#include <string>

#include "arguments/commands.h"
#include "cover/form_file.h"
#include "cover/template_document.h"
#include "documents/new_document.h"
#include "session/user_command.h"

namespace zerdix::app {

namespace {

struct letterhead_line {
    std::string file;
    int paper = 1;
    std::vector<unsigned char> form;
};

// Names the document for the paper source; what is named for the others stays.
std::int32_t set_paper(user_session& user, std::size_t paper, std::int32_t document) {
    auto trays =
        user.fetch("fetching your preferences", [&] { return user.session().getAUserRecord(); })
            .papertrays;
    const std::int32_t before = trays[paper];
    trays[paper] = document;
    user.expect("setting the paper", [&] { return user.session().setPaperTrays(trays.data()); });
    return before;
}

void install(user_session& user, const letterhead_line& line) {
    std::int32_t before = 0;
    const std::int32_t id = new_document(user, [&](std::int32_t made) {
        store_form(user, made, form_picture, line.form);
        set_form_title(user, made, "Briefbogen");
        before = set_paper(user, static_cast<std::size_t>(line.paper), made);
    });
    std::string sentence = "letterhead stored as document " + std::to_string(id) +
                           "; print with --paper " + std::to_string(line.paper);
    if (before != 0)
        sentence += "; document " + std::to_string(before) + ", which it replaces, stays";
    user.out().done(sentence, {{"id", id}, {"paper", line.paper}, {"before", before}});
}

} // namespace

void add_letterhead_commands(cli::command app) {
    cli::command group = app.add_group("letterhead", "The paper that your pages are laid on");
    auto line = std::make_shared<letterhead_line>();
    cli::command command = add_user_command(
        group, "install", "Store a page as letterhead",
        [line](user_session& user) { install(user, *line); },
        [line] { line->form = store_page(read_form(line->file)); });
    command.add_argument("FILE", line->file, "PNG, or PDF, whose first page is taken");
    command.add_option("--paper", line->paper, "Paper source, 1 to 9 (default: 1)", "N")
        .in_range(1, 9);
    command.footer("Example: zerdix letterhead install letterhead.pdf --paper 2");
}

} // namespace zerdix::app
