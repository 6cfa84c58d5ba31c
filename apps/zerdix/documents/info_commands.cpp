// SPDX-License-Identifier: MIT
// zerdix doc info, zerdix doc log.

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <utility>

#include "arguments/commands.h"
#include "documents/arguments.h"
#include "documents/document_records.h"
#include "output/value_text.h"
#include "session/user_command.h"

namespace zerdix::app {

namespace {

constexpr std::array<std::pair<int, const char*>, 5> picture_types{{
    {0, "picture"},
    {1, "second picture"},
    {4, "text"},
    {6, "telex"},
    {10, "cover text"},
}};

json type_words(std::int32_t mask) {
    json words = json::array();
    for (const auto& [bit, word] : picture_types) {
        if ((mask >> bit & 1) != 0)
            words.push_back(word);
    }
    return words;
}

std::string joined(const json& words) {
    std::string all;
    for (const json& word : words)
        all += (all.empty() ? "" : ", ") + word.as_text();
    return all.empty() ? "nothing" : all;
}

// "1-3: picture": neighbours with the same types stand together.
json page_types(const a_get_inf_o& info) {
    json all = json::array();
    const auto known = std::min<std::size_t>(static_cast<std::size_t>(std::max(info.pagecount, 0)),
                                             info.pagemasks.size());
    for (std::size_t i = 0; i < known;) {
        std::size_t end = i + 1;
        while (end < known && info.pagemasks[end] == info.pagemasks[i])
            ++end;
        all.push_back({{"first", i + 1}, {"last", end}, {"types", type_words(info.pagemasks[i])}});
        i = end;
    }
    return all;
}

json record_of(user_session& user, const document& which) {
    const std::string doing = "fetching " + name_of(which);
    JOURNAL& journal = user.journal();
    switch (which.pool) {
    case TOPF_E:
        return as_json(user.fetch(doing, [&] { return journal.getEDoc(which.id); }));
    case TOPF_S:
        return as_json(user.fetch(doing, [&] { return journal.getSDoc(which.id); }));
    default:
        return as_json(user.fetch(doing, [&] { return journal.getPDoc(which.id); }));
    }
}

json whole_info(user_session& user, const document& which, bool mark_read) {
    json all = record_of(user, which);
    const a_get_inf_o& info = user.fetch("fetching the pages of " + name_of(which), [&] {
        return user.journal().getDocInf(which.pool, which.id, mark_read ? 1 : 0);
    });
    all["page_types"] = page_types(info);
    return all;
}

void print_page_types(const json& document) {
    for (const json& run : document["page_types"]) {
        const auto first = run["first"].as_int();
        const auto last = run["last"].as_int();
        const std::string pages =
            first == last ? "Page " + std::to_string(first)
                          : "Pages " + std::to_string(first) + '-' + std::to_string(last);
        std::printf("  %s: %s\n", pages.c_str(), joined(run["types"]).c_str());
    }
}

struct info_line {
    std::vector<std::string> documents;
    bool mark_read = false;
};

void info(user_session& user, const info_line& line) {
    json all = json::array();
    for (const std::string& typed : line.documents) {
        const document which = find_document(user, typed);
        all.push_back(whole_info(user, which, line.mark_read));
        if (user.out().is_json())
            continue;
        if (all.size() > 1)
            std::puts("");
        user.out().properties(all.back(), property_columns(which.pool));
        print_page_types(all.back());
    }
    if (user.out().is_json())
        user.out().rows(all, {}, "");
}

// The server's text without line ends, line by line.
std::vector<std::string> lines_of(std::string_view log) {
    std::vector<std::string> lines;
    while (!log.empty()) {
        const std::size_t end = std::min(log.find("\r\n"), log.size());
        lines.push_back(shown(log.substr(0, end)));
        log.remove_prefix(std::min(end + 2, log.size()));
    }
    return lines;
}

// A text of at most this length is the rest of the log; a longer one may have been cut.
constexpr std::size_t surely_whole = 65000;

// A cut text leaves out lines of the answer that it ends in, and the position that comes with it
// lies behind them. So the next text begins as many lines on as there were in this one.
std::vector<std::string> whole_log(user_session& user, const document& which) {
    std::vector<std::string> all;
    for (;;) {
        const char& text = user.fetch("fetching the log of " + name_of(which), [&] {
            const auto position = static_cast<std::int32_t>(all.size());
            return user.journal().getLog(which.pool, which.id, position, nullptr);
        });
        const std::string_view part = &text;
        for (std::string& line : lines_of(part))
            all.push_back(std::move(line));
        if (part.size() <= surely_whole)
            return all;
    }
}

void log(user_session& user, const std::string& typed) {
    const std::vector<std::string> lines = whole_log(user, find_document(user, typed));
    if (user.out().is_json())
        return user.out().rows(lines, {}, "");
    for (const std::string& line : lines)
        std::puts(line.c_str());
}

} // namespace

void add_info_commands(cli::command parent) {
    auto line = std::make_shared<info_line>();
    cli::command command = add_user_command(
        parent, "info", "Show all about documents",
        [line](user_session& user) { info(user, *line); },
        [line] { check_document_names(line->documents); });
    command.alias("show");
    add_documents(command, line->documents);
    command.add_flag("--mark-read", line->mark_read, "Mark them as read");
    command.footer("Example: zerdix doc info 17 in:23");

    auto typed = std::make_shared<std::string>();
    cli::command log_command = add_user_command(
        parent, "log", "Print the log of a document",
        [typed](user_session& user) { log(user, *typed); },
        [typed] { read_document_name(*typed); });
    add_document(log_command, *typed);
    log_command.footer("Example: zerdix doc log 17");
}

} // namespace zerdix::app
