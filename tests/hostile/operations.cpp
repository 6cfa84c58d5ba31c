// SPDX-License-Identifier: MIT
#include "hostile/operations.h"

#include <zerdix/timetext.h>

#include "hostile/shapes.h"
#include "platform/scratch.h"
#include "rpc/wire/procedures.h"

namespace zerdix::testing {

namespace {

// What is read must not be optimized away.
volatile std::size_t read_so_far;

template <class Record>
std::int64_t held(const Record* record) {
    if (record == nullptr)
        return 0;
    read_so_far = walk(*record);
    return 1;
}

template <class Record>
std::int64_t listed(PTRLIST* list) {
    if (list == nullptr)
        return 0;
    read_so_far = walk_list<Record>(*list);
    return 1 + std::int64_t{list->getSize()};
}

std::int64_t page(const page_dat* data) {
    if (data == nullptr)
        return 0;
    std::size_t sum = 0;
    for (std::uint32_t i = 0; i < data->size; ++i)
        sum += data->data[i];
    read_so_far = sum;
    return 1 + std::int64_t{data->size};
}

std::int64_t log_text(const char* text) {
    return text == nullptr ? 0 : 1 + static_cast<std::int64_t>(std::strlen(text));
}

std::int64_t load(JOURNAL& journal, topftype pool, bool block) {
    const std::int64_t rc =
        block ? journal.loadDocPtrList(pool, 0, 0, 30) : journal.loadDocPtrList(pool, 0);
    listed<a_e_rec>(journal.getEDocPtrList());
    listed<a_s_rec>(journal.getSDocPtrList());
    const std::int64_t desk = listed<a_p_rec>(journal.getPDocPtrList());
    return rc == 0 && pool == TOPF_P ? desk : rc;
}

// What a failed query tells is checked elsewhere: here only that it is a failure.
std::int64_t query(TELEBOOK& books) {
    return std::max(-1, books.queryExternTBook("ext", "a", "b", nullptr, nullptr, nullptr, nullptr,
                                               nullptr, nullptr, nullptr, nullptr));
}

std::int64_t import_line(TELEBOOK& books) {
    const tests::scratch_folder folder;
    const std::string file = folder.write("book.csv", "adler;030 1;;E;F;Adler KG;\n");
    return books.importTBook("common", file.c_str());
}

constexpr const char* file = "/dev/null";
unsigned char two_bytes[] = {1, 2};
const page_dat small_page{sizeof two_bytes, two_bytes};
constexpr unsigned char rights[] = {1, 2, 4};
constexpr fax_info source{TOPF_P, 3, 1};
constexpr std::int32_t trays[10] = {};
const a_s_rec send_record{};
const o_tebu book{};
const o_tebul entry{};
const o_tgroup group{};
const o_tgroupl member{};

// One call whose answer is a truth value.
operation asks(const char* name, std::function<std::int64_t(clients&)> run) {
    return {name, std::move(run), 0, {8}, {4}};
}
// One call whose answer is kept.
operation gets(const char* name, std::function<std::int64_t(clients&)> run) {
    return {name, std::move(run), 1, {0}, {1}};
}
// The same for a chain, which sound answers have two nodes of.
operation lists(const char* name, std::function<std::int64_t(clients&)> run) {
    return {name, std::move(run), 3, {0}, {1}};
}
// A record is fetched, changed and written.
operation changes(const char* name, std::function<std::int64_t(clients&)> run) {
    return {name, std::move(run), 0, {8}, {0, 4}};
}
// A block size, then blocks. Without a block size the server is asked for -1 entries. An empty
// first block is a whole list.
operation gathers(const char* name, std::function<std::int64_t(clients&)> run) {
    return {name, std::move(run), 3, {3, 0}, {3, 1}, {0}};
}

#define RUN(expression) [](clients& c) -> std::int64_t { return (void)c, expression; }

} // namespace

std::vector<operation> session_operations() {
    return {
        {"login", RUN(c.session.login("zerdix", "zerdix", "127.0.0.1")), 0, {8, 8, 0}, {10, 0}},
        {"logout", RUN(c.session.logout()), 0, {8}, {0}},
        asks("clsCheckLogin", RUN(ZERDIX::clsCheckLogin())),
        {"journal block size", RUN(ZERDIX::clsGetJournalBlockSize()), 40, {-1}, {30}},
        {"telebook block size", RUN(ZERDIX::clsGetTelebookBlockSize()), 40, {-1}, {30}},
        {"setTZ", RUN(setTZ()), 0, {8}, {0}},
        gets("getAUserRecord", RUN(held(c.session.getAUserRecord()))),
        gets("clsGetAUserRecord", RUN(held(ZERDIX::clsGetAUserRecord()))),
        changes("setDefPrinter", RUN(c.session.setDefPrinter("drucker"))),
        changes("setDefScanner", RUN(c.session.setDefScanner("scanner", 3))),
        changes("setPaperTrays", RUN(c.session.setPaperTrays(trays))),
        changes("setPriority", RUN(c.session.setPriority(7))),
        changes("setActions", RUN(c.session.setActions(7))),
        gets("getOUserRecord", RUN(held(c.session.getOUserRecord()))),
        {"setReplacement", RUN(c.session.setReplacement("meier", "alpha", 1)), 0, {8}, {0, 6, 4}},
        {"chgPassword", RUN(c.session.chgPassword("old", "new")), 5, {8}, {0}},
        gathers("getUserList", RUN(listed<o_user_rec>(c.session.getUserList()))),
        lists("_getUserList", RUN(listed<o_user_rec>(c.session._getUserList()))),
        lists("getUserListB", RUN(listed<o_user_rec>(c.session.getUserListB("", "", 9)))),
        lists("getUserGroups", RUN(listed<a_group_rec>(c.session.getUserGroups()))),
        {"clsSearchUserInGroup", RUN(ZERDIX::clsSearchUserInGroup("vertrieb")), 4, {8}, {4}},
        gathers("getPrinterList", RUN(listed<a_printer_rec>(c.session.getPrinterList()))),
        lists("_getPrinterList", RUN(listed<a_printer_rec>(c.session._getPrinterList()))),
        lists("getPrinterListB", RUN(listed<a_printer_rec>(c.session.getPrinterListB("", 9)))),
        lists("getFreeScanners", RUN(listed<a_scanner_rec>(c.session.getFreeScanners(0)))),
        lists("getAllScanners", RUN(listed<a_scanner_rec>(c.session.getAllScanners(0)))),
        {"getSignature", RUN(page(c.session.getSignature())), 6, {0}, {1}},
        asks("putSignature", RUN(c.session.putSignature(&small_page))),
        {"getBoardEntries", RUN(held(c.session.getBoardEntries(1))), 1, {0}, {0}},
    };
}

std::vector<operation> journal_operations() {
    return {
        {"load outgoing", RUN(load(c.journal, TOPF_S, false)), 0, {4, 8}, {4, 0}},
        {"load incoming", RUN(load(c.journal, TOPF_E, false)), 0, {4, 8}, {4, 0}},
        {"load desk", RUN(load(c.journal, TOPF_P, false)), 3, {4, 8}, {4, 1}},
        {"load outgoing block", RUN(load(c.journal, TOPF_S, true)), 0, {4, 8}, {4, 0}},
        {"load incoming block", RUN(load(c.journal, TOPF_E, true)), 0, {4, 8}, {4, 0}},
        {"load desk block", RUN(load(c.journal, TOPF_P, true)), 3, {4, 8}, {4, 1}},
        {"isBifStatus", RUN(c.journal.isBifStatus(TOPF_E)), 1, {8}, {0}},
        gets("getEDoc", RUN(held(c.journal.getEDoc(5)))),
        gets("getSDoc", RUN(held(c.journal.getSDoc(5)))),
        gets("getPDoc", RUN(held(c.journal.getPDoc(5)))),
        gets("getDocInf", RUN(held(c.journal.getDocInf(TOPF_P, 5, 0)))),
        {"getDocInf, read", RUN(held(c.journal.getDocInf(TOPF_P, 5, 1))), 1, {1, 0}, {1}, {0}},
        {"getDocPage", RUN(page(c.journal.getDocPage(TOPF_P, 5, 1, 0))), 6, {0}, {1, 6}},
        asks("putDocPage", RUN(c.journal.putDocPage(5, 1, 0, &small_page))),
        asks("putPrintDocPage", RUN(c.journal.putPrintDocPage(5, 1, 0, &small_page))),
        asks("insertDocPage", RUN(c.journal.insertDocPage(5, 1))),
        asks("copyDocPage", RUN(c.journal.copyDocPage(TOPF_P, 5, 1, 6, 1))),
        asks("delPoolPage", RUN(c.journal.delPoolPage(5, 1))),
        {"createDoc", RUN(c.journal.createDoc("meier")), 5, {-1}, {0}},
        {"makeDoc", RUN(c.journal.makeDoc()), 5, {-1}, {0}},
        {"makePrintDoc", RUN(c.journal.makePrintDoc()), 5, {-1}, {0}},
        asks("copyDoc", RUN(c.journal.copyDoc(TOPF_P, 5, 6))),
        asks("delDoc", RUN(c.journal.delDoc(TOPF_P, 5))),
        asks("delPrintDoc", RUN(c.journal.delPrintDoc(TOPF_P, 5))),
        asks("forwardDoc", RUN(c.journal.forwardDoc(TOPF_P, 5, "alpha", "meier", "", TOPF_P))),
        asks("printDoc", RUN(c.journal.printDoc(TOPF_P, 5, 1, 1, "drucker", 1))),
        asks("printPrintDoc", RUN(c.journal.printPrintDoc(TOPF_P, 5, 1, 1, "drucker", 1))),
        asks("putComment2Doc", RUN(c.journal.putComment2Doc(TOPF_P, 5, "Angebot"))),
        asks("setPublic", RUN(c.journal.setPublic(5, 1))),
        asks("setbif", RUN(c.journal.setbif(TOPF_P, 5, 1))),
        asks("setReadFlag", RUN(c.journal.setReadFlag(TOPF_P, 5))),
        asks("sendDoc", RUN(c.journal.sendDoc(5, &send_record))),
        asks("chgSRec", RUN(c.journal.chgSRec(5, 1, "Angebot", 0, 0, 3, 1))),
        asks("cancelJob", RUN(c.journal.cancelJob(5))),
        asks("restartSendJob", RUN(c.journal.restartSendJob(5))),
        asks("scanDoc", RUN(c.journal.scanDoc("scanner", 1, "Angebot"))),
        {"getCoverId", RUN(c.journal.getCoverId()), 40, {-1}, {0}},
        {"combineDocs", RUN(c.journal.combineDocs(&source, 1)), 5, {-1, 5}, {0, -1, 5}},
        asks("putLog", RUN(c.journal.putLog(TOPF_P, 5, "a line"))),
        {"getLog", RUN(log_text(c.journal.getLog(TOPF_P, 5, 0, nullptr))), 1, {0}, {1}},
    };
}

std::vector<operation> book_operations() {
    return {
        lists("getTBooks", RUN(listed<o_tebu>(c.books.getTBooks()))),
        gets("getTBook", RUN(held(c.books.getTBook("common")))),
        asks("putTBook", RUN(c.books.putTBook(&book))),
        asks("delTBook", RUN(c.books.delTBook("common"))),
        lists("getTBookEntries",
              RUN(listed<o_tebul>(c.books.getTBookEntries("common", NETTYPE_FAX, "", 9)))),
        gets("getTBookEntry", RUN(held(c.books.getTBookEntry("common", "adler", 1)))),
        asks("putTBookEntry", RUN(c.books.putTBookEntry(&entry))),
        asks("delTBookEntry", RUN(c.books.delTBookEntry("common", "adler"))),
        gathers("getTGroups", RUN(listed<o_tgroup>(c.books.getTGroups()))),
        lists("_getTGroups", RUN(listed<o_tgroup>(c.books._getTGroups()))),
        lists("getTGroupsB", RUN(listed<o_tgroup>(c.books.getTGroupsB("", 9)))),
        gets("getTGroup", RUN(held(c.books.getTGroup("kunden")))),
        asks("putTGroup", RUN(c.books.putTGroup(&group))),
        asks("delTGroup", RUN(c.books.delTGroup("kunden"))),
        gathers("getTGroupEntries", RUN(listed<o_tgroupl>(c.books.getTGroupEntries("kunden", 1)))),
        lists("_getTGroupEntries", RUN(listed<o_tgroupl>(c.books._getTGroupEntries("kunden", 1)))),
        lists("getTGroupEntriesB",
              RUN(listed<o_tgroupl>(c.books.getTGroupEntriesB("kunden", 1, "", "", 9)))),
        asks("putTGroupEntry", RUN(c.books.putTGroupEntry(&member))),
        asks("delTGroupEntry", RUN(c.books.delTGroupEntry("kunden", "common", "adler"))),
        {"getPermissions", RUN(c.books.getPermissions(rights, "nobody", "vertrieb")), 4, {4}, {4}},
        {"exportTBook", RUN(c.books.exportTBook("common", NETTYPE_FAX, file)), 4, {4}, {4, 0}},
        asks("importTBook", RUN(import_line(c.books))),
        {"queryExternTBook", RUN(query(c.books)), 5, {-1}, {0}},
        gets("fetchExternTBookResult", RUN(held(c.books.fetchExternTBookResult(5)))),
    };
}

} // namespace zerdix::testing
