// SPDX-License-Identifier: MIT
// The connection: opening it, what ends it, and what the session knows.

#include <chrono>
#include <ctime>
#include <rpc/rpc.h>

#include <zerdix/journal.h>
#include <zerdix/timetext.h>

#include "support/session_test.h"

namespace zerdix::testing {
namespace {

using Connection = session_test;

TEST_F(Connection, OpensAndCloses) {
    EXPECT_EQ(ZERDIX::clsGetClient(), nullptr);
    ASSERT_NE(connect(), nullptr);
    client* forgotten = ZERDIX::clsGetClient();
    ASSERT_NE(forgotten, nullptr);
    EXPECT_EQ(setTZ(), 0);
    ZERDIX second;
    EXPECT_EQ(ZERDIX::clsGetClient(), nullptr) << "a new object forgets the handle";
    clnt_destroy(forgotten); // without closing it
    ASSERT_NE(session.GetClientAddr("localhost"), nullptr);
    session.CleanupHostConnection();
    EXPECT_EQ(ZERDIX::clsGetClient(), nullptr);
    EXPECT_EQ(setTZ(), 8);
}

TEST_F(Connection, NoConnectionIsMadeToWhatIsNoServer) {
    for (const char* name : {"nowhere.invalid", "256.1.1.1", "3com", ""})
        EXPECT_EQ(session.GetClientAddr(name), nullptr) << name;
    server.stop();
    EXPECT_EQ(connect(), nullptr);
}

TEST_F(Connection, TheProgramNumberFollowsTheEnvironment) {
    const std::pair<const char*, std::uint32_t> cases[] = {{"100", 16012067}, {"-10", 16011957},
                                                           {"0", 16011967},   {"", 16011967},
                                                           {"x1", 16011967},  {"7 up", 16011974}};
    for (const auto& [offset, number] : cases) {
        test::environment_variable value{"ZERDIXRPCOFFSET", offset};
        EXPECT_EQ(session.rpc_prog_nr(0xF452BF), number) << offset;
    }
}

TEST_F(Connection, TheServersTimeZoneBecomesTheProcesss) {
    test::environment_variable zone{"TZ", "EST5EDT"};
    tzset();
    ASSERT_NE(connect(), nullptr);
    ASSERT_EQ(setTZ(), 0);
    const std::time_t summer = 867758400; // 1997-07-01 12:00 UTC
    EXPECT_EQ(std::localtime(&summer)->tm_hour, 14);
    server.fail(89);
    EXPECT_EQ(setTZ(), 8);
    EXPECT_EQ(std::localtime(&summer)->tm_hour, 14) << "a failure changes nothing";
}

// Takes the full 25 seconds, once, for real.
TEST_F(Connection, ACallThatTimesOutEndsTheConnection) {
    ASSERT_NE(connect(), nullptr);
    JOURNAL caller, bystander;
    ASSERT_GT(caller.makeDoc(), 0);
    ASSERT_GT(bystander.makeDoc(), 0);
    server.stall(3, 1, 40);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(caller.makeDoc(), -1);
    const auto took = std::chrono::steady_clock::now() - start;
    EXPECT_GE(took, std::chrono::seconds{24});
    EXPECT_LE(took, std::chrono::seconds{27});
    EXPECT_EQ(ZERDIX::clsGetClient(), nullptr);
    EXPECT_EQ(caller.delDoc(TOPF_P, 1), 12);
    EXPECT_EQ(bystander.delDoc(TOPF_P, 1), 12) << "a copy of the handle counts as none too";
    EXPECT_EQ(bystander.getPDoc(1), nullptr);
    server.stop(SIGKILL);
}

} // namespace
} // namespace zerdix::testing
