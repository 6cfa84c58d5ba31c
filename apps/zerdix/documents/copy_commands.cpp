// SPDX-License-Identifier: MIT
// zerdix doc copy, zerdix doc forward, zerdix doc combine.

#include <algorithm>
#include <charconv>
#include <limits>
#include <memory>

#include "arguments/commands.h"
#include "arguments/several_names.h"
#include "documents/arguments.h"
#include "documents/document_name.h"
#include "documents/new_document.h"
#include "output/progress.h"
#include "output/value_text.h"
#include "session/user_command.h"

namespace zerdix::app {

namespace {

constexpr std::size_t user_width = 10;
constexpr std::size_t server_width = 35;

struct copy_line {
    std::string document, target;
};

void copy_to(user_session& user, const document& source, std::int32_t target) {
    user.expect("copying " + name_of(source),
                [&] { return user.journal().copyDoc(source.pool, source.id, target); });
}

std::int32_t copy_to_new(user_session& user, const document& source) {
    return new_document(user, [&](std::int32_t target) { copy_to(user, source, target); });
}

std::int32_t copy_over(user_session& user, const document& source, const std::string& typed) {
    const document target =
        find_document(user, typed, TOPF_P, "a copy can only go to a desk document");
    if (source.pool == TOPF_P && source.id == target.id)
        throw failure(exit_usage, name_of(source) + " can't be copied to itself");
    copy_to(user, source, target.id);
    return target.id;
}

void copy(user_session& user, const copy_line& line) {
    const document source = find_document(user, line.document);
    const std::int32_t target =
        line.target.empty() ? copy_to_new(user, source) : copy_over(user, source, line.target);
    const document copied{TOPF_P, target};
    user.out().done(name_of(source) + " copied to " + name_of(copied),
                    {{"pool", pool_word(TOPF_P)}, {"id", target}});
}

void add_copy_command(cli::command parent) {
    auto line = std::make_shared<copy_line>();
    cli::command command = add_user_command(
        parent, "copy", "Copy a document to the desk",
        [line](user_session& user) { copy(user, *line); },
        [line] { read_document_name(line->document); });
    command.alias("cp");
    add_document(command, line->document);
    command.add_option("--to", line->target,
                       "Desk document that gets the pages and the title in place of its own "
                       "(default: a new one)",
                       "ID");
    command.footer("Example: zerdix doc copy in:17");
}

struct forward_line {
    std::vector<std::string> documents;
    std::string to;
    std::string pool = "in";
};

struct address {
    std::string user, server; // Windows-1252; an empty server is the user's own
};

void check_address(const std::string& typed) {
    const std::size_t at = typed.find('@');
    if (at == 0 || typed.empty() || at + 1 == typed.size())
        throw failure(exit_usage, "--to \"" + typed + "\": USER or USER@SERVER is expected");
}

address read_address(const std::string& typed) {
    const std::size_t at = typed.find('@');
    const std::string server = at == std::string::npos ? "" : typed.substr(at + 1);
    return {field_text("the user", typed.substr(0, at), user_width),
            field_text("the server's name", server, server_width)};
}

// The block of one that begins at the user: it is the user, or there is none of that name.
std::string why_not_forwarded(user_session& user, const address& to) {
    const std::string server = to.server.empty() ? ZERDIX::clsGetAlphaServer() : to.server;
    const PTRLIST* found = user.session().getUserListB(to.user.c_str(), server.c_str(), 1);
    if (found == nullptr ||
        (found->getSize() > 0 && records<o_user_rec>(*found).front()->userid == to.user))
        return "the server refused";
    return "there is no user " + shown(to.user) + " on " + shown(server);
}

named_act forward(user_session& user, const std::string& typed, const forward_line& line,
                  const address& to) {
    const document which = find_document(user, typed);
    user.expect(
        "forwarding " + name_of(which),
        [&] {
            return user.journal().forwardDoc(which.pool, which.id, to.server.c_str(),
                                             to.user.c_str(), "", *pool_of_word(line.pool));
        },
        [&] { return why_not_forwarded(user, to); });
    return {name_of(which) + " forwarded to " + line.to,
            {{"pool", pool_word(which.pool)}, {"id", which.id}, {"to", line.to}}};
}

void forward_all(user_session& user, const forward_line& line) {
    const address to = read_address(line.to);
    for_each_name(user.out(), line.documents,
                  [&](const std::string& typed) { return forward(user, typed, line, to); });
}

void add_forward_command(cli::command parent) {
    auto line = std::make_shared<forward_line>();
    cli::command command = add_user_command(
        parent, "forward", "Hand documents on to another user",
        [line](user_session& user) { forward_all(user, *line); },
        [line] {
            check_document_names(line->documents);
            check_address(line->to);
        });
    add_documents(command, line->documents);
    command.add_option("-t,--to", line->to, "The user who gets a copy", "USER[@SERVER]").required();
    command.add_option("--pool", line->pool, "Where it goes: in (default) or desk", "POOL")
        .one_of({"in", "desk"});
    command.footer("Example: zerdix doc forward 17 --to meier");
}

// 17, 17:2, in:17, in:17:2. A second number is how many pages are taken, 0 all.
struct part {
    std::string document;
    int pages;
};

part read_part(const std::string& typed) {
    const std::size_t colon = typed.rfind(':');
    const bool counted =
        colon != std::string::npos && colon > 0 && typed.find_first_of("0123456789") < colon;
    if (!counted) {
        read_document_name(typed);
        return {typed, 0};
    }
    const std::string digits = typed.substr(colon + 1);
    std::uint16_t pages = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), pages);
    if (error != std::errc() || end != digits.data() + digits.size() || pages == 0)
        throw failure(exit_usage,
                      '"' + typed + "\": a number of pages is expected behind the \":\"");
    read_document_name(typed.substr(0, colon));
    return {typed.substr(0, colon), pages};
}

fax_info source_of(user_session& user, const part& wanted) {
    const document which = find_document(user, wanted.document);
    const a_get_inf_o& info = user.fetch("fetching the pages of " + name_of(which), [&] {
        return user.journal().getDocInf(which.pool, which.id, 0);
    });
    const int pages = wanted.pages != 0 ? wanted.pages : info.pagecount;
    if (pages > info.pagecount || pages < 0 || pages > std::numeric_limits<std::uint16_t>::max())
        throw failure(exit_no_input,
                      name_of(which) + " has only " + counted(info.pagecount, "page"));
    return {which.pool, which.id, static_cast<std::uint16_t>(pages)};
}

// A page that couldn't be copied leaves a gap, which a page without pictures shows. The masks tell
// of the first pages alone.
int pages_there(user_session& user, const document& which) {
    const a_get_inf_o& info = user.fetch("counting the pages of " + name_of(which), [&] {
        return user.journal().getDocInf(which.pool, which.id, 0);
    });
    const auto known = std::min<std::int32_t>(std::max(info.pagecount, 0),
                                              static_cast<std::int32_t>(info.pagemasks.size()));
    return info.pagecount -
           static_cast<int>(std::count(info.pagemasks.begin(), info.pagemasks.begin() + known, 0));
}

void combine(user_session& user, const std::vector<std::string>& parts) {
    std::vector<fax_info> sources;
    int pages = 0;
    for (const std::string& typed : parts) {
        sources.push_back(source_of(user, read_part(typed)));
        pages += sources.back().pages;
    }
    const call_probe watch;
    const std::int32_t id =
        user.journal().combineDocs(sources.data(), static_cast<std::uint16_t>(sources.size()));
    if (id <= 0)
        user.lost("combining the documents", watch);
    const int made = pages_there(user, {TOPF_P, id});
    if (made != pages)
        throw failure(exit_unavailable, name_of({TOPF_P, id}) + " was made, but only " +
                                            std::to_string(made) + " of " + counted(pages, "page") +
                                            " could be copied to it");
    user.out().done(name_of({TOPF_P, id}) + " made of " + counted(pages, "page"),
                    {{"pool", pool_word(TOPF_P)}, {"id", id}, {"pages", pages}});
}

void check_parts(const std::vector<std::string>& parts) {
    for (const std::string& typed : parts)
        read_part(typed);
    if (parts.size() > std::numeric_limits<std::uint16_t>::max())
        throw failure(exit_usage, "at most 65535 documents can be combined");
}

void add_combine_command(cli::command parent) {
    auto parts = std::make_shared<std::vector<std::string>>();
    cli::command command = add_user_command(
        parent, "combine", "Make one desk document of the pages of several",
        [parts](user_session& user) { combine(user, *parts); }, [parts] { check_parts(*parts); });
    command.add_argument("ID", *parts,
                         "The documents; 17:2 or in:17:2 takes the first two pages alone",
                         "[:PAGES] ...");
    command.footer("Example: zerdix doc combine 17 in:23:1");
}

} // namespace

void add_copy_commands(cli::command parent) {
    add_copy_command(parent);
    add_forward_command(parent);
    add_combine_command(parent);
}

} // namespace zerdix::app
