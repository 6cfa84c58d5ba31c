// SPDX-License-Identifier: MIT
// zerdix printer, zerdix scanner: the devices of the server.

#include <memory>
#include <optional>

#include "arguments/commands.h"
#include "output/value_text.h"
#include "session/user_command.h"
#include "settings/bit_words.h"
#include <zerdix/values.h>

namespace zerdix::app {

namespace {

void list_printers(user_session& user) {
    const PTRLIST& printers =
        user.fetch("listing the printers", [&] { return user.session().getPrinterList(); });
    json all = json::array();
    for (const auto* printer : records<a_printer_rec>(printers))
        all.push_back({{"printer", shown(printer->printerid)},
                       {"comment", shown(printer->comment)},
                       {"state", is_stopped(*printer) ? "stopped" : "ready"},
                       {"place", shown(place(*printer))},
                       {"model", shown(model(*printer))}});
    user.out().rows(all,
                    {{"printer", "Printer"},
                     {"state", "State"},
                     {"place", "Place"},
                     {"model", "Model"},
                     {"comment", "Comment"}},
                    "there are no printers");
}

struct scanner_line {
    bool free = false;
    std::string words;
    std::int32_t bits = any_scanner;
};

void list_scanners(user_session& user, const scanner_line& line) {
    const PTRLIST& scanners = user.fetch("listing the scanners", [&] {
        return line.free ? user.session().getFreeScanners(line.bits)
                         : user.session().getAllScanners(line.bits);
    });
    json all = json::array();
    for (const auto* scanner : records<a_scanner_rec>(scanners))
        all.push_back({{"scanner", shown(scanner->scannerid)},
                       {"state", is_busy(*scanner) ? "busy" : "free"},
                       {"place", shown(place(*scanner))},
                       {"model", shown(model(*scanner))},
                       {"features", feature_words(features(*scanner))}});
    user.out().rows(all,
                    {{"scanner", "Scanner"},
                     {"state", "State"},
                     {"place", "Place"},
                     {"model", "Model"},
                     {"features", "Features"}},
                    line.free ? "no such scanner is free" : "there are no such scanners");
}

} // namespace

void add_printer_commands(cli::command app) {
    cli::command printers = app.add_group("printer", "The server's printers: list");
    printers.alias("printers");
    add_user_command(printers, "list", "List the printers", list_printers).alias("ls");
}

void add_scanner_commands(cli::command app) {
    cli::command scanners = app.add_group("scanner", "The server's scanners: list");
    scanners.alias("scanners");
    auto line = std::make_shared<scanner_line>();
    cli::command command = add_user_command(
        scanners, "list", "List the scanners",
        [line](user_session& user) { list_scanners(user, *line); },
        [line] { line->bits = feature_bits(line->words); });
    command.alias("ls");
    command.add_flag("--free", line->free, "Only those that are free");
    command.add_option("--for", line->words, "Only those that can do all of this", "FEATURE,...");
    command.footer("Features: " + all_features() +
                   "\n\nExample: zerdix scanner list --free "
                   "--for scan,fine");
}

} // namespace zerdix::app
