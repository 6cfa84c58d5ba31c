// What ZERDIX writes into the trace, line by line.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "rpc/session.h"
#include "rpc/trace_fixture.h"

namespace zerdix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::MatchesRegex;

TEST_F(TraceLines, OpeningAndClosingAConnection) {
    lines();
    ASSERT_NE(session().GetClientAddr("127.0.0.1"), nullptr);
    session().CleanupHostConnection();
    const std::string number = std::to_string(server.program());
    EXPECT_THAT(lines(), ElementsAre("Entry:<-- ZERDIX::GetClientAddr(): Alpha Server: 127.0.0.1",
                                     "Info1:ZERDIX::GetClientAddr(): IP address <127.0.0.1>",
                                     "Entry:<-- ZERDIX::rpc_prog_nr: Old number: 16011967",
                                     "Exit: --> ZERDIX::rpc_prog_nr: New number: " + number,
                                     "Exit: --> ZERDIX::GetClientAddr()",
                                     "Entry:<-- ZERDIX::CleanupHostConnection():",
                                     "Exit: --> ZERDIX::CleanupHostConnection():"));
}

TEST_F(TraceLines, AServerThatCantBeReached) {
    server.stop();
    lines();
    EXPECT_EQ(session().GetClientAddr("256.0.0.1"), nullptr);
    EXPECT_EQ(session().GetClientAddr("127.0.0.1"), nullptr);
    const auto all = lines();
    ASSERT_EQ(all.size(), 9u);
    EXPECT_EQ(all[1], "Error:ZERDIX::GetClientAddr(): The host name 256.0.0.1 is not found");
    EXPECT_THAT(all[7], MatchesRegex("Error:ZERDIX::GetClientAddr\\(\\): <clnttcp_create: .*>"));
}

TEST_F(TraceLines, WhatTheSessionIsAskedForAndTold) {
    lines();
    session().setUserId("a name too long");
    session().setAlphaserver("alpha");
    ZERDIX::clsGetClient();
    ZERDIX::clsGetUserId();
    ZERDIX::clsGetAlphaServer();
    ZERDIX::clsGetLanguageString();
    ZERDIX::clsSetLanguage('X');
    ZERDIX::clsSetLanguage('G');
    { const ZERDIX other; }
    EXPECT_THAT(lines(),
                ElementsAre("GetSetZERDIX::setUserId(): a name too",
                            "GetSetZERDIX::setAlphaserver(): alpha", "GetSetZERDIX::clsGetClient()",
                            "GetSetZERDIX::clsGetUserId(): current UserId a name too",
                            "GetSetZERDIX::clsGetAlphaServer(): current AlphaServer alpha",
                            "GetSetZERDIX::clsGetLanguageString(): <german_germany>",
                            "Entry:<-- ZERDIX::clsSetLanguage(): X",
                            "Error:ZERDIX::clsSetLanguage(): language not supported",
                            "Exit: --> ZERDIX::clsSetLanguage()",
                            "Entry:<-- ZERDIX::clsSetLanguage(): G",
                            "Exit: --> ZERDIX::clsSetLanguage(): [string: german_germany]",
                            "C/D:  C <-- ZERDIX::ZERDIX()", "C/D:  C --> ZERDIX::ZERDIX()",
                            "C/D:  D <-- ZERDIX::~ZERDIX()", "C/D:  D --> ZERDIX::~ZERDIX()"));
}

TEST_F(TraceLines, ABlockSize) {
    auto& configuration = server.store().configuration;
    const std::string name = "ZERDIX::clsGetJournalBlockSize()";
    rpc::session().lJournalBlockSize = 0;
    lines();
    EXPECT_EQ(ZERDIX::clsGetJournalBlockSize(), 12);
    EXPECT_THAT(lines(), ElementsAre("Entry:<-- " + name,
                                     "Error:" + name + ": Client structure not set", "Exit: -->"));
    ASSERT_NE(session().GetClientAddr("127.0.0.1"), nullptr);
    server.fail(74);
    lines();
    EXPECT_EQ(ZERDIX::clsGetJournalBlockSize(), -1);
    EXPECT_THAT(lines(),
                ElementsAre("Entry:<-- " + name,
                            MatchesRegex("Error:.*: Error RPC call, status: <.*> Socket rc: <n>"),
                            "Exit: --> " + name));
    configuration.set("JOURNALBLK", "");
    EXPECT_EQ(ZERDIX::clsGetJournalBlockSize(), 30);
    EXPECT_THAT(lines(),
                ElementsAre("Entry:<-- " + name, "Info1:" + name + ": Journal block size 0",
                            "Exit: --> " + name + ": No Value for Id: JOURNALBLK, default is 30"));
    configuration.set("JOURNALBLK", "999");
    EXPECT_EQ(ZERDIX::clsGetJournalBlockSize(), 200);
    EXPECT_THAT(lines(),
                ElementsAre("Entry:<-- " + name, "Info1:" + name + ": Journal block size 999",
                            "Info1:" + name + ": Journal block size 999 reduced to 200",
                            "Exit: --> " + name + ": Journal block size: 200"));
}

} // namespace
} // namespace zerdix::testing
