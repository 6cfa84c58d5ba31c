// SPDX-License-Identifier: MIT
// What ZERDIX writes into the trace, line by line.

#include <gmock/gmock.h>

#include "rpc/scripted_handle.h"
#include "rpc/session.h"
#include "rpc/trace_fixture.h"

namespace zerdix::testing {
namespace {

using namespace ::testing;
namespace proc = rpc::proc;

TEST_F(TraceLines, OpeningAndClosingAConnection) {
    lines();
    ASSERT_NE(connect(), nullptr);
    session.CleanupHostConnection();
    const std::string number = std::to_string(server.program());
    EXPECT_THAT(lines(), ElementsAre("Entry: <-- ZERDIX::GetClientAddr(): Alpha Server: 127.0.0.1",
                                     "Info1: ZERDIX::GetClientAddr(): IP address <127.0.0.1>",
                                     "Entry: <-- ZERDIX::rpc_prog_nr: Old number: 16011967",
                                     "Exit: --> ZERDIX::rpc_prog_nr: New number: " + number,
                                     "Exit: --> ZERDIX::GetClientAddr()",
                                     "Entry: <-- ZERDIX::CleanupHostConnection():",
                                     "Exit: --> ZERDIX::CleanupHostConnection():"));
}

TEST_F(TraceLines, AServerThatCantBeReached) {
    server.stop();
    lines();
    EXPECT_EQ(session.GetClientAddr("256.0.0.1"), nullptr);
    EXPECT_EQ(connect(), nullptr);
    const auto all = lines();
    ASSERT_EQ(all.size(), 9u);
    EXPECT_EQ(all[1], "Error: ZERDIX::GetClientAddr(): The host name 256.0.0.1 is not found");
    EXPECT_THAT(all[7], MatchesRegex("Error: ZERDIX::GetClientAddr\\(\\): <clnttcp_create: .*>"));
}

TEST_F(TraceLines, WhatTheSessionIsAskedForAndTold) {
    lines();
    session.setUserId("a name too long");
    session.setAlphaserver("alpha");
    ZERDIX::clsGetClient();
    ZERDIX::clsGetUserId();
    ZERDIX::clsGetAlphaServer();
    ZERDIX::clsGetLanguageString();
    EXPECT_EQ(ZERDIX::clsSetLanguage('X'), 4);
    EXPECT_EQ(ZERDIX::clsSetLanguage('I'), 0);
    EXPECT_EQ(ZERDIX::clsGetLanguage(), 'I');
    EXPECT_EQ(ZERDIX::clsSetLanguage('G'), 0);
    { const ZERDIX other; }
    EXPECT_THAT(
        lines(),
        ElementsAre("GetSet: ZERDIX::setUserId(): a name too",
                    "GetSet: ZERDIX::setAlphaserver(): alpha", "GetSet: ZERDIX::clsGetClient()",
                    "GetSet: ZERDIX::clsGetUserId(): current UserId a name too",
                    "GetSet: ZERDIX::clsGetAlphaServer(): current AlphaServer alpha",
                    "GetSet: ZERDIX::clsGetLanguageString(): <german_germany>",
                    "Entry: <-- ZERDIX::clsSetLanguage(): X",
                    "Error: ZERDIX::clsSetLanguage(): language not supported",
                    "Exit: --> ZERDIX::clsSetLanguage()", "Entry: <-- ZERDIX::clsSetLanguage(): I",
                    "Exit: --> ZERDIX::clsSetLanguage(): [string: english_us]",
                    "Entry: <-- ZERDIX::clsSetLanguage(): G",
                    "Exit: --> ZERDIX::clsSetLanguage(): [string: german_germany]",
                    "C/D: C <-- ZERDIX::ZERDIX()", "C/D: C --> ZERDIX::ZERDIX()",
                    "C/D: D <-- ZERDIX::~ZERDIX()", "C/D: D --> ZERDIX::~ZERDIX()"));
}

TEST_F(TraceLines, ABlockSize) {
    const std::string name = "ZERDIX::clsGetJournalBlockSize()", info = "Info1: " + name;
    const auto expect_traced = [&](std::int32_t size, const std::vector<std::string>& within,
                                   const std::string& exit) {
        lines();
        EXPECT_EQ(ZERDIX::clsGetJournalBlockSize(), size);
        std::vector<std::string> expected{"Entry: <-- " + name};
        expected.insert(expected.end(), within.begin(), within.end());
        expected.push_back("Exit: -->" + exit);
        EXPECT_EQ(lines(), expected);
    };
    rpc::session().lJournalBlockSize = 0;
    expect_traced(12, {"Error: " + name + ": Client structure not set"}, "");
    ASSERT_NE(connect(), nullptr);
    auto& configuration = server.store().configuration;
    configuration.set("JOURNALBLK", "");
    expect_traced(30, {info + ": Journal block size 0"},
                  " " + name + ": No Value for Id: JOURNALBLK, default is 30");
    configuration.set("JOURNALBLK", "999");
    expect_traced(
        200, {info + ": Journal block size 999", info + ": Journal block size 999 reduced to 200"},
        " " + name + ": Journal block size: 200");
}

// The operations on users, lists, signature and board.
class UserTraceLines : public TraceLines {
  protected:
    scripted_handle handle;

    UserTraceLines() { lines(); }
};

// What an operation gives: a result, or 0 for a pointer and -1 for null.
using caller = std::function<std::int32_t(ZERDIX&)>;
std::int32_t given(const void* pointer) {
    return pointer != nullptr ? 0 : -1;
}

struct traced_operation {
    std::string name;
    std::string entry; // behind the name
    std::string exit;  // of a success
    caller call;
};

std::string unavailable(const std::string& name) {
    return "Error: " + name + ": Error RPC call, status: <10> Socket rc: <n>";
}

TEST_F(UserTraceLines, OfEachSimpleOperation) {
    const traced_operation operations[] = {
        {"getAUserRecord()", "", "", [](ZERDIX& z) { return given(z.getAUserRecord()); }},
        {"getOUserRecord()", "", "", [](ZERDIX& z) { return given(z.getOUserRecord()); }},
        {"chgPassword()", "", ": rc: 0", [](ZERDIX& z) { return z.chgPassword("o", "n"); }},
        {"getUserGroups()", "", ": Number of User Groups: 0",
         [](ZERDIX& z) { return given(z.getUserGroups()); }},
        {"getUserListB()", ": userid: <u> alphaid: <a> number: (5)", ": Number of Users: 0",
         [](ZERDIX& z) { return given(z.getUserListB("u", "a", 5)); }},
        {"_getUserList()", "", ": Number of Users: 0",
         [](ZERDIX& z) { return given(z._getUserList()); }},
        {"getPrinterListB()", ": Printer: <p> number: (5)", ": Number of Printers: 0",
         [](ZERDIX& z) { return given(z.getPrinterListB("p", 5)); }},
        {"_getPrinterList()", "", ": Number of Printers: 0",
         [](ZERDIX& z) { return given(z._getPrinterList()); }},
        {"getFreeScanners()", "", ": Number of free scanners: 0",
         [](ZERDIX& z) { return given(z.getFreeScanners(0)); }},
        {"getAllScanners()", "", ": Number of scanners: 0",
         [](ZERDIX& z) { return given(z.getAllScanners(0)); }},
        {"clsSearchUserInGroup()", "", ": User in Group: rc = 4",
         [](ZERDIX&) { return ZERDIX::clsSearchUserInGroup("g"); }},
        {"clsGetAUserRecord()", "", "", [](ZERDIX&) { return given(ZERDIX::clsGetAUserRecord()); }},
    };
    for (const auto& [operation, entry, exit, call] : operations) {
        const std::string name = "ZERDIX::" + operation;
        rpc::session().pclient = nullptr;
        EXPECT_THAT(call(session), AnyOf(12, -1)) << name;
        EXPECT_THAT(lines(),
                    ElementsAre("Entry: <-- " + name + entry,
                                "Error: " + name + ": Client structure not set", "Exit: -->"));
        handle.open();
        EXPECT_THAT(call(session), AnyOf(8, -1)) << name;
        EXPECT_THAT(lines(), ElementsAre("Entry: <-- " + name + entry, unavailable(name),
                                         "Exit: --> " + name));
    }
    handle.answer_zero(proc::a_get_user_1{}, proc::o_get_user_1{}, proc::a_chg_pw_1{},
                       proc::a_get_groups_1{}, proc::a_get_usersb_1{}, proc::a_get_users_1{},
                       proc::a_get_printersb_1{}, proc::a_get_printers_1{},
                       proc::a_get_freescanners_1{}, proc::a_get_scanners_1{},
                       proc::a_get_members_1{});
    for (const auto& [name, entry, exit, call] : operations) {
        EXPECT_THAT(call(session), AnyOf(0, 4)) << name;
        EXPECT_THAT(lines(), ElementsAre("Entry: <-- ZERDIX::" + name + entry,
                                         "Exit: --> ZERDIX::" + name + exit));
    }
}

TEST_F(UserTraceLines, OfTheSetters) {
    const std::int32_t trays[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    const traced_operation setters[] = {
        {"setDefPrinter()", ": Printer: <p>", "", [](ZERDIX& z) { return z.setDefPrinter("p"); }},
        {"setDefScanner()", ": Scanner: <s> Hardware Features <0x12>", "",
         [](ZERDIX& z) { return z.setDefScanner("s", 0x12); }},
        {"setPaperTrays()", ": 1:<1> 2:<2> 3:<3> 4:<4> 5:<5> 6:<6> 7:<7> 8:<8> 9:<9> 10:<10>", "",
         [&](ZERDIX& z) { return z.setPaperTrays(trays); }},
        {"setPriority()", ": <3>", "", [](ZERDIX& z) { return z.setPriority(3); }},
        {"setActions()", ": <70000>", "", [](ZERDIX& z) { return z.setActions(70000); }},
    };
    const std::string get = "ZERDIX::getAUserRecord()", put = "ZERDIX::putAUserRecord()";
    for (const auto& [operation, entry, exit, call] : setters) {
        const std::string name = "ZERDIX::" + operation;
        EXPECT_EQ(call(session), 8);
        EXPECT_THAT(lines(),
                    ElementsAre("Entry: <-- " + name + entry, "Entry: <-- " + get, unavailable(get),
                                "Exit: --> " + get,
                                "Error: " + name + ": RPC error, alpha user record not set",
                                "Exit: --> " + name));
    }
    handle.answer_zero(proc::a_get_user_1{}, proc::a_put_user_1{});
    session.getAUserRecord();
    lines();
    for (const auto& [operation, entry, exit, call] : setters) {
        const std::string name = "ZERDIX::" + operation;
        EXPECT_EQ(call(session), 4);
        EXPECT_THAT(lines(), ElementsAre("Entry: <-- " + name + entry, "Entry: <-- " + put,
                                         "Error: Error returned from a_put_user_1()",
                                         "Exit: --> " + put, "Exit: --> " + name));
    }
    EXPECT_EQ(session.setPriority(-3), 4);
    EXPECT_THAT(lines(), ElementsAre("Entry: <-- ZERDIX::setPriority(): <-3>",
                                     "Error: ZERDIX::setPriority(): a user's priority is 0 to 100, "
                                     "not -3",
                                     "Exit: --> ZERDIX::setPriority()"));
}

TEST_F(UserTraceLines, OfAReplacementAndAPassword) {
    const std::string name = "ZERDIX::setReplacement()", check = name + " <a_check_cycle_i>";
    EXPECT_EQ(session.setReplacement("u", "a", 1), 8);
    EXPECT_EQ(lines()[4], "Error: " + name + ": RPC error, omega user record not set");
    handle.answer_zero(proc::o_get_user_1{});
    session.getOUserRecord();
    lines();
    EXPECT_EQ(session.setReplacement("u", "a", 1), 8);
    EXPECT_THAT(lines(),
                ElementsAre("Entry: <-- " + name, unavailable(check), "Exit: --> " + check));
    handle.answer_zero(proc::a_check_cycle_1{});
    EXPECT_EQ(session.setReplacement("u", "a", 1), 6);
    EXPECT_THAT(lines(), ElementsAre("Entry: <-- " + name, "Error: Replacement must not be set",
                                     "Exit: --> " + name));
    for (const auto& [told, line] : {std::pair{6, "Error: ZERDIX::chgPassword(): user unknown"},
                                     {8, "Error: ZERDIX::chgPassword(): wrong password"}}) {
        handle.on(proc::a_chg_pw_1{}, [told = told](const auto&, auto& status) { status = told; });
        session.chgPassword("old", "new");
        EXPECT_EQ(lines()[1], line);
    }
}

// Two printers in blocks of two; users are gathered by the same function.
TEST_F(UserTraceLines, OfAGatheredList) {
    const std::string size = "ZERDIX::clsGetTelebookBlockSize()", name = "ZERDIX::getPrinterList()",
                      block = "ZERDIX::getPrinterListB()", asks = "Entry: <-- " + size,
                      told = "Exit: --> " + size + ": Telebook block size: 2";
    rpc::session().lTelebookBlockSize = 2;
    handle.on(proc::a_get_printersb_1{}, [](const a_get_printersb_i& wanted, auto& answer) {
        push_front(answer, a_printer_rec{{"q"}, {}, 0, {}, {}, 0, 0});
        if (wanted.printerid.empty())
            push_front(answer, a_printer_rec{{"p"}, {}, 0, {}, {}, 0, 0});
    });
    session.getPrinterList();
    EXPECT_THAT(lines(),
                ElementsAre("Entry: <-- " + name, asks, told,
                            "Entry: <-- " + block + ": Printer: <> number: (2)",
                            "Exit: --> " + block + ": Number of Printers: 2", asks, told, asks,
                            told, "Info1: " + name + ": get next 2 printer list entries from q",
                            asks, told, "Entry: <-- " + block + ": Printer: <q> number: (2)",
                            "Exit: --> " + block + ": Number of Printers: 1",
                            "Info1: " + name + ": Number of loaded printer list entries 1", asks,
                            told,
                            "Exit: --> " + name + ": Number of all loaded printer list entries 2"));
    handle.on(proc::a_get_usersb_1{}, [](const a_get_usersb_i& wanted, auto& answer) {
        for (int i = wanted.userid.empty() ? 0 : 1; i < 2; ++i)
            push_front(answer, o_user_rec{{"x"}, {"u"}, {}, {}, {}, {}, {}, 0});
    });
    session.getUserList();
    const auto users = lines();
    EXPECT_EQ(users[9], "Info1: ZERDIX::getUserList(): get next 2 user list entries from u:x");
    EXPECT_EQ(users[14], "Info1: ZERDIX::getUserList(): Number of loaded user list entries 1");
    EXPECT_EQ(users.back(),
              "Exit: --> ZERDIX::getUserList(): Number of all loaded user list entries 2");
    handle.fail(101);
    EXPECT_EQ(session.getUserList(), nullptr);
    EXPECT_EQ(lines()[6], "Error: ZERDIX::getUserList(): Error returned from getUserListB()");
    handle.fail(103);
    EXPECT_EQ(session.getPrinterList(), nullptr);
    EXPECT_EQ(lines()[6], "Error: " + name + ": Error returned from getPrinterListB()");
}

TEST_F(UserTraceLines, OfSignatureAndBoard) {
    const std::string user = "GetSet: ZERDIX::clsGetUserId(): current UserId meier";
    const page_dat empty{};
    rpc::session().pclient = nullptr;
    EXPECT_EQ(session.putSignature(&empty), 12);
    EXPECT_EQ(session.getSignature(), nullptr);
    EXPECT_EQ(session.getBoardEntries(0), nullptr);
    handle.open();
    handle.answer_zero(proc::a_get_sigb_1{}, proc::a_put_sigb_1{}, proc::a_get_board_1{});
    lines();
    EXPECT_EQ(session.getSignature()->size, 0u);
    EXPECT_THAT(lines(), ElementsAre("Entry: <-- ZERDIX::getSignature()", user,
                                     "Info1: ZERDIX::getSignature(): Size of signature: 0 Bytes",
                                     "Exit: --> ZERDIX::getSignature(): 0 Bytes loaded"));
    EXPECT_EQ(session.putSignature(&empty), 4);
    EXPECT_THAT(lines(), ElementsAre("Entry: <-- ZERDIX::putSignature()", user,
                                     "Error: Error returned from a_put_sigb_1()",
                                     "Exit: --> ZERDIX::putSignature()"));
    session.getBoardEntries(1);
    EXPECT_THAT(lines(), ElementsAre("Entry: <-- ZERDIX::getBoardEntries(): Force: 1",
                                     "GetSet: ZERDIX::clsGetLanguageString(): <german_germany>",
                                     "Exit: --> ZERDIX::getBoardEntries()"));
}

TEST_F(UserTraceLines, OfACheckAndALogout) {
    const std::string check = "Entry: <-- ZERDIX::clsCheckLogin(): LoginId: 0";
    ZERDIX::clsGetLoginId();
    EXPECT_EQ(ZERDIX::clsCheckLogin(), 8);
    EXPECT_EQ(session.logout(), 8);
    EXPECT_THAT(lines(),
                ElementsAre("GetSet: ZERDIX::clsGetLoginId():", check,
                            "Error: ZERDIX::clsCheckLogin(): Error RPC call",
                            "Exit: --> ZERDIX::clsCheckLogin()", "Entry: <-- ZERDIX::logout()",
                            "Error: ZERDIX::logout(): Error RPC call",
                            "Exit: --> ZERDIX::logout()"));
    handle.answer_zero(proc::a_check_login_1{}, proc::a_logout_1{});
    EXPECT_EQ(ZERDIX::clsCheckLogin(), 4);
    EXPECT_EQ(session.logout(), 0);
    EXPECT_THAT(
        lines(),
        ElementsAre(check, "Error: ZERDIX::clsCheckLogin(): No login for id: 0",
                    "Exit: --> ZERDIX::clsCheckLogin()", "Entry: <-- ZERDIX::logout()",
                    "Entry: <-- ZERDIX::CleanupHostConnection():",
                    "Exit: --> ZERDIX::CleanupHostConnection():", "Exit: --> ZERDIX::logout()"));
    EXPECT_EQ(ZERDIX::clsCheckLogin(), 12);
    EXPECT_EQ(session.logout(), 12);
}

} // namespace
} // namespace zerdix::testing
