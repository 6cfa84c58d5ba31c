// SPDX-License-Identifier: MIT
// zerdix doc comment, zerdix doc public, zerdix doc read.

#include <memory>

#include "arguments/commands.h"
#include "arguments/several_names.h"
#include "documents/arguments.h"
#include "documents/document_name.h"
#include "output/value_text.h"
#include "session/user_command.h"

namespace zerdix::app {

namespace {

constexpr std::size_t title_width = 30;

// A public document shows itself to all users and is changed by its owner alone.
std::string why_not_changed(user_session& user, const document& which) {
    const a_p_rec* record = which.pool == TOPF_P ? user.journal().getPDoc(which.id) : nullptr;
    return record == nullptr || record->userid == ZERDIX::clsGetUserId()
               ? "the server refused"
               : "it belongs to " + shown(record->userid);
}

struct comment_line {
    std::string document, text;
};

void comment(user_session& user, const comment_line& line) {
    const document which = find_document(user, line.document);
    const std::string text = field_text("the title", line.text, title_width);
    user.expect(
        "changing the title of " + name_of(which),
        [&] { return user.journal().putComment2Doc(which.pool, which.id, text.c_str()); },
        [&] { return why_not_changed(user, which); });
    user.out().done("the title of " + name_of(which) + " is now \"" + shown(text) + '"',
                    {{"pool", pool_word(which.pool)}, {"id", which.id}, {"title", shown(text)}});
}

void add_comment_command(cli::command parent) {
    auto line = std::make_shared<comment_line>();
    cli::command command = add_user_command(
        parent, "comment", "Give a document another title",
        [line](user_session& user) { comment(user, *line); },
        [line] { read_document_name(line->document); });
    add_document(command, line->document);
    command.add_argument("TEXT", line->text, "The title, 30 characters");
    command.footer("Example: zerdix doc comment 17 \"Offer of Monday\"");
}

struct public_line {
    std::string document, state;
};

void set_public(user_session& user, const public_line& line) {
    const bool on = line.state == "on";
    const document which =
        find_document(user, line.document, TOPF_P, "only desk documents can be public");
    user.expect(
        "changing " + name_of(which),
        [&] { return user.journal().setPublic(which.id, on ? 1 : 0); },
        [&] { return why_not_changed(user, which); });
    user.out().done(name_of(which) + (on ? " is public now" : " is private now"),
                    {{"pool", pool_word(which.pool)}, {"id", which.id}, {"public", on}});
}

void add_public_command(cli::command parent) {
    auto line = std::make_shared<public_line>();
    cli::command command = add_user_command(
        parent, "public", "Let all users read a desk document, or no longer",
        [line](user_session& user) { set_public(user, *line); },
        [line] { read_document_name(line->document); });
    add_document(command, line->document);
    command.add_argument("STATE", line->state, "on or off").one_of({"on", "off"});
    command.footer("Example: zerdix doc public 17 on");
}

struct read_line {
    std::vector<std::string> documents;
    bool unread = false;
};

named_act mark(user_session& user, const std::string& typed, bool unread) {
    const document which = find_document(user, typed);
    user.expect(
        "marking " + name_of(which),
        [&] {
            return unread ? user.journal().setbif(which.pool, which.id, 1)
                          : user.journal().setReadFlag(which.pool, which.id);
        },
        [&] { return why_not_changed(user, which); });
    return {name_of(which) + " is marked as " + (unread ? "new" : "read"),
            {{"pool", pool_word(which.pool)}, {"id", which.id}, {"new", unread}}};
}

void add_read_command(cli::command parent) {
    auto line = std::make_shared<read_line>();
    cli::command command = add_user_command(
        parent, "read", "Mark documents as read",
        [line](user_session& user) {
            for_each_name(user.out(), line->documents, [&](const std::string& typed) {
                return mark(user, typed, line->unread);
            });
        },
        [line] { check_document_names(line->documents); });
    command.alias("mark-read");
    add_documents(command, line->documents);
    command.add_flag("--unread", line->unread, "Mark them as new again");
    command.footer("Example: zerdix doc read 17 18");
}

} // namespace

void add_mark_commands(cli::command parent) {
    add_comment_command(parent);
    add_public_command(parent);
    add_read_command(parent);
}

} // namespace zerdix::app
