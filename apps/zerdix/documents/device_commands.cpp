// SPDX-License-Identifier: MIT
// zerdix doc print, zerdix doc scan: documents to and from the server's devices.

#include <memory>

#include "arguments/commands.h"
#include "arguments/page_range.h"
#include "documents/arguments.h"
#include "documents/document_name.h"
#include "documents/pool_list.h"
#include "output/progress.h"
#include "output/value_text.h"
#include "session/user_command.h"

namespace zerdix::app {

namespace {

constexpr std::size_t device_width = 10;
constexpr std::size_t title_width = 30;

// What was typed, or else what the user's preferences name.
std::string device(user_session& user, const std::string& typed, const char* what,
                   str10 a_user_rec::*own) {
    if (!typed.empty())
        return field_text(std::string("the ") + what, typed, device_width);
    const a_user_rec& preferences =
        user.fetch("fetching the preferences", [&] { return user.session().getAUserRecord(); });
    const std::string preferred((preferences.*own).view());
    if (preferred.empty())
        throw failure(exit_usage, std::string("no ") + what + " is named, and the preferences of " +
                                      user.user() + " name none");
    return preferred;
}

struct print_line {
    std::string document, printer, pages;
    int copies = 1;
};

void check_print(const print_line& line) {
    read_document_name(line.document);
    if (read_page_ranges(line.pages).size() > 1)
        throw failure(exit_usage, "--pages: one range alone, such as 2-5");
}

// The block of one that begins at the printer: it is the printer, or there is none of that name.
std::string why_not_printed(user_session& user, const std::string& printer) {
    const PTRLIST* found = user.session().getPrinterListB(printer.c_str(), 1);
    if (found == nullptr ||
        (found->getSize() > 0 && records<a_printer_rec>(*found).front()->printerid == printer))
        return "the server refused";
    return "there is no printer " + shown(printer);
}

void print(user_session& user, const print_line& line) {
    const document which = find_document(user, line.document);
    const std::string printer = device(user, line.printer, "printer", &a_user_rec::defprinter);
    const a_get_inf_o& info = user.fetch("fetching the pages of " + name_of(which), [&] {
        return user.journal().getDocInf(which.pool, which.id, 0);
    });
    const page_range range =
        within(read_page_ranges(line.pages).front(), info.pagecount, name_of(which));
    user.expect(
        "printing " + name_of(which),
        [&] {
            return user.journal().printDoc(which.pool, which.id,
                                           static_cast<std::int16_t>(range.first),
                                           static_cast<std::int16_t>(range.last), printer.c_str(),
                                           static_cast<std::int16_t>(line.copies));
        },
        [&] { return why_not_printed(user, printer); });
    user.out().done(name_of(which) + ": " + counted(range.last - range.first + 1, "page") + ", " +
                        std::to_string(line.copies) + (line.copies == 1 ? " copy" : " copies") +
                        " for printer " + shown(printer),
                    {{"pool", pool_word(which.pool)},
                     {"id", which.id},
                     {"first", range.first},
                     {"last", range.last},
                     {"copies", line.copies},
                     {"printer", shown(printer)}});
}

void add_print_command(cli::command parent) {
    auto line = std::make_shared<print_line>();
    cli::command command = add_user_command(
        parent, "print", "Print a document on a printer of the server",
        [line](user_session& user) { print(user, *line); }, [line] { check_print(*line); });
    command.alias("lp");
    add_document(command, line->document);
    command.add_option("-d,--printer", line->printer, "The printer (default: the user's own)",
                       "ID");
    command.add_option("-P,--pages", line->pages, "3, 1-3 or 2- (default: all pages)", "RANGE");
    command.add_option("-n,--copies", line->copies, "How many copies (default: 1)", "N")
        .in_range(1, 999);
    command.footer("Example: zerdix doc print in:17 --printer laser1 --pages 1-3");
}

struct scan_line {
    std::string scanner, title, resolution;
    bool halftone = false;
};

std::int32_t features_of(const scan_line& line) {
    std::int32_t features = ZERDIX::clssetHWFScan();
    if (line.resolution == "fine")
        features |= ZERDIX::clssetHWFFine();
    if (line.resolution == "normal")
        features |= ZERDIX::clssetHWFNormal();
    return line.halftone ? features | ZERDIX::clssetHWFHalftone() : features;
}

const a_scanner_rec* find_scanner(const PTRLIST* list, const std::string& id) {
    if (list == nullptr)
        return nullptr;
    for (const a_scanner_rec* scanner : records<a_scanner_rec>(*list)) {
        if (scanner->scannerid == id)
            return scanner;
    }
    return nullptr;
}

std::string why_not_scanned(user_session& user, const std::string& id, std::int32_t wanted) {
    const PTRLIST* all = user.session().getAllScanners(any_scanner);
    const a_scanner_rec* scanner = find_scanner(all, id);
    if (scanner == nullptr)
        return all == nullptr ? "the server refused" : "there is no scanner " + shown(id);
    if (is_busy(*scanner))
        return "the scanner is busy";
    return (features(*scanner) & wanted) != wanted ? "the scanner can't do that"
                                                   : "the server refused";
}

// The desk documents from an id on, itself included.
std::int32_t newest_from(user_session& user, std::int32_t id) {
    const json found = list_pool(user, TOPF_P, select_all, id);
    return found.empty() ? id : found.back()["id"].as_int();
}

void scan(user_session& user, const scan_line& line) {
    const std::string scanner = device(user, line.scanner, "scanner", &a_user_rec::defscanner);
    const std::string title = field_text("the title", line.title, title_width);
    const std::int32_t before = newest_from(user, first_block);
    user.expect(
        "scanning",
        [&] { return user.journal().scanDoc(scanner.c_str(), features_of(line), title.c_str()); },
        [&] { return why_not_scanned(user, scanner, features_of(line)); });
    const std::int32_t scanned = newest_from(user, before);
    const bool there = scanned != before;
    user.out().done("scanned on " + shown(scanner) +
                        (there ? ": " + name_of({TOPF_P, scanned})
                               : "; the document comes to the desk when it is whole"),
                    {{"scanner", shown(scanner)}, {"id", there ? json(scanned) : json()}});
}

void add_scan_command(cli::command parent) {
    auto line = std::make_shared<scan_line>();
    cli::command command = add_user_command(
        parent, "scan", "Make a desk document of what lies on a scanner of the server",
        [line](user_session& user) { scan(user, *line); });
    command.add_option("-s,--scanner", line->scanner, "The scanner (default: the user's own)",
                       "ID");
    command.add_option("-T,--title", line->title, "Title of the document, 30 characters");
    command
        .add_option("--resolution", line->resolution, "fine or normal (default: the scanner's)",
                    "HOW")
        .one_of({"fine", "normal"});
    command.add_flag("--halftone", line->halftone, "Turn greys into patterns of dots");
    command.footer("Example: zerdix doc scan --scanner flatbed --title \"Contract\"");
}

} // namespace

void add_device_commands(cli::command parent) {
    add_print_command(parent);
    add_scan_command(parent);
}

} // namespace zerdix::app
