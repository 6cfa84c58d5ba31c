// SPDX-License-Identifier: MIT
// zerdix preferences: the user's defaults.

#include <array>
#include <charconv>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "arguments/commands.h"
#include "output/value_text.h"
#include "session/user_command.h"
#include "settings/bit_words.h"

namespace zerdix::app {

namespace {

constexpr int sources = 10; // of paper

struct preference_line {
    std::optional<std::string> printer, scanner, features, actions;
    std::optional<int> priority;
    std::vector<std::string> paper;

    bool any() const {
        return printer || scanner || features || actions || priority || !paper.empty();
    }
};

json preferences_json(const a_user_rec& record) {
    json paper = json::array();
    for (const std::int32_t document : record.papertrays)
        paper.push_back(document);
    return {{"user", shown(record.userid)},
            {"printer", shown(record.defprinter)},
            {"scanner", shown(record.defscanner)},
            {"features", feature_words(record.hwfeatures)},
            {"paper", paper},
            {"priority", record.priority},
            {"actions", action_words(record.actions)}};
}

void report_preferences(user_session& user, const a_user_rec& record) {
    json object = preferences_json(record);
    if (!user.out().is_json()) { // for a reader only what there is: "1=17"
        json paper = json::array();
        for (std::size_t i = 0; i < record.papertrays.size(); ++i) {
            if (record.papertrays[i] != 0)
                paper.push_back(std::to_string(i) + '=' + std::to_string(record.papertrays[i]));
        }
        object["paper"] = paper;
    }
    user.out().properties(object, {{"user", "User"},
                                   {"printer", "Printer"},
                                   {"scanner", "Scanner"},
                                   {"features", "Scanner features"},
                                   {"paper", "Paper"},
                                   {"priority", "Priority"},
                                   {"actions", "Actions"}});
}

a_user_rec fetch_record(user_session& user) {
    return user.fetch("fetching your preferences", [&] { return user.session().getAUserRecord(); });
}

struct paper_choice {
    std::size_t source;
    std::int32_t document;
};

bool number(const std::string& text, std::int32_t& value) {
    const char* end = text.data() + text.size();
    const auto [at, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && at == end && value >= 0;
}

paper_choice paper_named(const std::string& typed) {
    const auto sign = typed.find('=');
    std::int32_t source = 0;
    std::int32_t document = 0;
    if (sign == std::string::npos || !number(typed.substr(0, sign), source) ||
        !number(typed.substr(sign + 1), document) || source >= sources)
        throw failure(exit_usage, "--paper " + typed +
                                      ": SOURCE=DOCUMENT is expected, a paper "
                                      "source from 0 to 9 and the id of a desk "
                                      "document, or 0 for none");
    return {static_cast<std::size_t>(source), document};
}

void require_desk_document(user_session& user, std::int32_t id) {
    const std::string name = "document " + std::to_string(id);
    const a_p_rec& document =
        user.fetch("looking up " + name, [&] { return user.journal().getPDoc(id); });
    if (document.faxid == 0)
        throw failure(exit_no_input, "there is no " + name + " on your desk");
}

void require_printer(user_session& user, const std::string& id) {
    if (id.empty())
        return;
    const PTRLIST& block = user.fetch("looking up the printer " + shown(id), [&] {
        return user.session().getPrinterListB(id.c_str(), 1);
    });
    const auto found = records<a_printer_rec>(block);
    if (found.empty() || !(found[0]->printerid == id))
        throw failure(exit_no_input,
                      "there is no printer " + shown(id) + "; zerdix printer list shows them");
}

void require_scanner(user_session& user, const std::string& id) {
    const PTRLIST& all = user.fetch("looking up the scanner " + shown(id),
                                    [&] { return user.session().getAllScanners(0); });
    for (const auto* scanner : records<a_scanner_rec>(all)) {
        if (scanner->scannerid == id)
            return;
    }
    if (!id.empty())
        throw failure(exit_no_input,
                      "there is no scanner " + shown(id) + "; zerdix scanner list shows them");
}

// What the line asks for, in Windows-1252, with everything that it names found on the server.
struct wishes {
    std::string printer, scanner;
    std::int32_t features;
    std::array<std::int32_t, sources> paper;
};

// What isn't named stays as it was before.
wishes look_up(user_session& user, const preference_line& line, const a_user_rec& before) {
    wishes all{"", std::string(before.defscanner.view()), before.hwfeatures, before.papertrays};
    if (line.printer)
        require_printer(user, all.printer = field_text("the printer's id", *line.printer, 10));
    if (line.scanner)
        require_scanner(user, all.scanner = field_text("the scanner's id", *line.scanner, 10));
    if (line.features)
        all.features = feature_bits(*line.features);
    for (const std::string& typed : line.paper) {
        const paper_choice choice = paper_named(typed);
        if (choice.document != 0)
            require_desk_document(user, choice.document);
        all.paper[choice.source] = choice.document;
    }
    return all;
}

void store(user_session& user, const preference_line& line, const wishes& all) {
    ZERDIX& session = user.session();
    if (line.printer)
        user.expect("setting the printer",
                    [&] { return session.setDefPrinter(all.printer.c_str()); });
    if (line.scanner || line.features)
        user.expect("setting the scanner",
                    [&] { return session.setDefScanner(all.scanner.c_str(), all.features); });
    if (!line.paper.empty())
        user.expect("setting the paper", [&] { return session.setPaperTrays(all.paper.data()); });
    if (line.priority)
        user.expect("setting the priority",
                    [&] { return session.setPriority(static_cast<std::int16_t>(*line.priority)); });
    if (line.actions)
        user.expect("setting the actions",
                    [&] { return session.setActions(action_bits(*line.actions)); });
}

void set(user_session& user, const preference_line& line) {
    store(user, line, look_up(user, line, fetch_record(user)));
    if (!user.out().is_quiet() || user.out().is_json())
        report_preferences(user, fetch_record(user));
}

void check(const preference_line& line) {
    if (!line.any())
        throw failure(exit_usage, "nothing is to be set; see --help for the options");
    for (const std::string& typed : line.paper)
        paper_named(typed);
    if (line.features)
        feature_bits(*line.features);
    if (line.actions)
        action_bits(*line.actions);
}

void add_set(cli::command group) {
    auto line = std::make_shared<preference_line>();
    cli::command command = add_user_command(
        group, "set", "Set your preferences", [line](user_session& user) { set(user, *line); },
        [line] { check(*line); });
    command.add_option("--printer", line->printer, "Printer, \"\" for none", "ID");
    command.add_option("--scanner", line->scanner, "Scanner, \"\" for none", "ID");
    command.add_option("--features", line->features, "What the scanner is used for, or none",
                       "FEATURE,...");
    command
        .add_option("--paper", line->paper,
                    "Background paper of a paper source, 0 to 9: a desk document, or 0",
                    "SOURCE=DOCUMENT ...")
        .repeats();
    command.add_option("-q,--priority", line->priority, "Send priority, 0 to 100", "N")
        .in_range(0, 100);
    command.add_option("--actions", line->actions,
                       "What the server does when a document was sent, failed or came, or none",
                       "ACTION,...");
    command.footer("What isn't named stays as it is.\n\nFeatures: " + all_features() +
                   "\nActions: print-, mail-, lamp- or voice- with send, error or receive\n\n"
                   "Example: zerdix preferences set --actions mail-error,print-receive");
}

} // namespace

void add_preference_commands(cli::command app) {
    cli::command group =
        app.add_group("preferences", "Your defaults for printing, scanning and sending");
    group.alias("prefs");
    add_user_command(group, "show", "Show your preferences",
                     [](user_session& user) { report_preferences(user, fetch_record(user)); });
    add_set(group);
}

} // namespace zerdix::app
