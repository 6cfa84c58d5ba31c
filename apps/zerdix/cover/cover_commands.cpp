// SPDX-License-Identifier: MIT
// zerdix cover: looking at the cover page that receivers get, and giving the server a new one.

#include <memory>
#include <optional>
#include <string>

#include "arguments/commands.h"
#include "cover/form_file.h"
#include "cover/preview.h"
#include "cover/template_document.h"
#include "documents/new_document.h"
#include "output/value_text.h"
#include "pictures/png_file.h"
#include "print/job_options.h"
#include "session/user_command.h"

namespace zerdix::app {

namespace {

std::vector<unsigned char> bytes_of(const std::string& text) {
    return {text.begin(), text.end()};
}

struct preview_line {
    std::string to, title, form, commands, output;
    cover_receiver receiver;
    std::optional<cover_template> local; // the files, in place of the server's template
};

// What can be told wrong without the server is told before anything is asked of it.
void check(preview_line& line) {
    if (!line.to.empty())
        line.receiver.phone = phone_value(line.to);
    line.receiver.title = given_title(line.title);
    if (line.form.empty())
        return;
    line.local = cover_template{store_page(read_form(line.form)), {}};
    if (!line.commands.empty())
        line.local->commands = bytes_of(read_commands(line.commands));
}

void preview(user_session& user, const preview_line& line) {
    const page_picture page =
        draw_cover(user, line.local ? *line.local : fetch_template(user), line.receiver);
    write_png(line.output, page);
    if (line.output != "-")
        user.out().done("cover page of " + std::to_string(page.width) + " by " +
                            std::to_string(page.rows) + " pixels written to " + line.output,
                        {{"file", line.output}, {"width", page.width}, {"height", page.rows}});
}

void add_preview(cli::command group) {
    auto line = std::make_shared<preview_line>();
    cli::command command = add_user_command(
        group, "preview", "Draw the cover page of a receiver, without sending",
        [line](user_session& user) { preview(user, *line); }, [line] { check(*line); });
    command.add_option("-t,--to", line->to, "A fax number, or a phone book entry as BOOK:ENTRY",
                       "RECEIVER");
    command.add_option("-T,--title", line->title, "Title of the fax, 30 characters");
    const cli::option form = command.add_option(
        "--form", line->form,
        "Draw on this PNG, or this PDF's first page, not on the server's form", "FILE");
    command.add_option("--commands", line->commands, "What to draw on it", "FILE").needs(form);
    command
        .add_option("-o,--output", line->output, "PNG file to write; - for standard output", "FILE")
        .required();
    command.footer("Example: zerdix cover preview --to common:kanzlei -o cover.png");
}

struct install_line {
    std::string form, commands;
    cover_template files;
};

void store_template(user_session& user, std::int32_t document, const cover_template& files) {
    store_form(user, document, form_picture, files.form);
    store_form(user, document, form_commands, files.commands);
}

// Whether the template is the user's own, and was replaced.
bool replace_template(user_session& user, std::int32_t document, const cover_template& files) {
    if (document == 0 || put_form(user, document, form_commands, files.commands) != 0)
        return false;
    store_form(user, document, form_picture, files.form);
    return true;
}

std::int32_t make_template(user_session& user, const cover_template& files) {
    return new_document(user, [&](std::int32_t id) {
        store_template(user, id, files);
        set_form_title(user, id, "Deckblatt");
        user.expect("making document " + std::to_string(id) + " readable for all",
                    [&] { return user.journal().setPublic(id, 1); });
    });
}

// The server's setting is its administrator's.
void install(user_session& user, const install_line& line) {
    std::int32_t id = template_id(user);
    const bool in_use = replace_template(user, id, line.files);
    if (!in_use)
        id = make_template(user, line.files);
    const std::string name = "document " + std::to_string(id);
    user.out().done(in_use ? "cover template replaced: " + name
                           : "cover template stored as " + name +
                                 "; it is used once the server's administrator has run: alphad "
                                 "config COVER " +
                                 std::to_string(id),
                    {{"id", id}, {"in_use", in_use}});
}

void add_install(cli::command group) {
    auto line = std::make_shared<install_line>();
    cli::command command = add_user_command(
        group, "install", "Store a form and its commands as the cover template",
        [line](user_session& user) { install(user, *line); },
        [line] {
            line->files = {store_page(read_form(line->form)),
                           bytes_of(read_commands(line->commands))};
        });
    command.add_argument("FORM", line->form, "PNG, or PDF, whose first page is taken");
    command.add_argument("COMMANDS", line->commands, "What to draw on it, a text file");
    command.footer("Example: zerdix cover install form.pdf commands.txt");
}

} // namespace

void add_cover_commands(cli::command app) {
    cli::command group = app.add_group("cover", "The cover page that receivers get");
    add_preview(group);
    add_install(group);
}

} // namespace zerdix::app
