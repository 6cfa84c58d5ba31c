// SPDX-License-Identifier: MIT
// Logging on and off: against a server that says what a test wants, and against the stand-in.

#include "hostile/script_server.h"
#include "rpc/session.h"
#include "rpc/trace_fixture.h"
#include "support/raw_client.h"
#include "support/session_test.h"

namespace zerdix::testing {
namespace {

using namespace ::testing;
namespace proc = wire::proc;

class ScriptedLogin : public TraceLines {
  protected:
    script_server scripted;
    wire_bytes compat = wire_bytes{}.words({1, 8});
    wire_bytes status = wire_bytes{}.words({4711, 0});
    wire_bytes user = wire_bytes{}
                          .text("The server's own name", 35)
                          .text("meier", 10)
                          .text("", 30)
                          .text("", 35)
                          .text("", 10)
                          .word(0)
                          .text("", 20)
                          .word(0);
    std::uint32_t closes_at = 0; // a procedure
    std::vector<std::uint32_t> calls;

    ScriptedLogin() {
        scripted.on_call([this](const incoming_call& call, peer& to) {
            calls.push_back(call.procedure);
            if (call.procedure == closes_at)
                return to.close();
            const wire_bytes& result = call.procedure == 75   ? compat
                                       : call.procedure == 11 ? status
                                                              : user;
            to.send(record_of(reply_to(call, result.bytes())));
        });
    }

    std::int32_t login() { return session.login("meier", "secret", "127.0.0.1"); }
};

TEST_F(ScriptedLogin, TheServersStatusesBecomeResults) {
    const std::tuple<std::uint32_t, std::int32_t, const char*> cases[] = {
        {3, 11, "Omega server cannot be reached"},
        {4, 4, "The user meier has already logged on"},
        {6, 6, "The user meier is unknown"},
        {8, 9, "Wrong password!"},
        {0xFFFFFFFF, 10, "Error No. -1"}};
    for (const auto& [said, result, line] : cases) {
        status = wire_bytes{}.words({4711, said});
        lines();
        EXPECT_EQ(login(), result);
        const auto traced = lines();
        EXPECT_EQ(traced.front(),
                  "Entry: <-- ZERDIX::login(): UserId: meier Alpha Server: 127.0.0.1");
        EXPECT_EQ(traced[traced.size() - 2], std::string{"Error: ZERDIX::login(): "} + line);
        EXPECT_EQ(ZERDIX::clsGetLoginId(), 0);
        EXPECT_NE(ZERDIX::clsGetClient(), nullptr) << "the connection stays";
        EXPECT_STREQ(ZERDIX::clsGetUserId(), "meier");
    }
    status = wire_bytes{}.words({4711, 0});
    EXPECT_EQ(login(), 0);
    const auto traced = lines();
    EXPECT_EQ(traced.back(), "Exit: --> ZERDIX::login(): LoginId: 4711");
    for (const std::string& line : traced)
        EXPECT_THAT(line, Not(HasSubstr("secret")));
    EXPECT_STREQ(ZERDIX::clsGetAlphaServer(), "The server's own name");
}

TEST_F(ScriptedLogin, TheServerMustSpeakAllThatTheClientDoes) {
    const std::tuple<std::uint32_t, std::uint32_t, std::int32_t> cases[] = {
        {1, 8, 0}, {0, 9, 0}, {2, 8, 10}, {1, 7, 10}};
    for (const auto& [low, high, result] : cases) {
        session.setUserId("before");
        compat = wire_bytes{}.words({low, high});
        EXPECT_EQ(login(), result) << low << " - " << high;
        EXPECT_NE(ZERDIX::clsGetClient(), nullptr);
        EXPECT_STREQ(ZERDIX::clsGetUserId(), result == 0 ? "meier" : "before");
    }
    const auto traced = lines();
    EXPECT_EQ(traced[traced.size() - 4],
              "Error: ZERDIX::login(): compatibility range of client (1 - 8) must be within server "
              "range (1 - 7)");
}

TEST_F(ScriptedLogin, AFailedCallClosesTheConnectionExceptTheLastOne) {
    for (const auto& [procedure, name] :
         {std::pair{75u, "a_get_compat_1"}, {11u, "a_get_login_1"}}) {
        closes_at = procedure;
        lines();
        EXPECT_EQ(login(), 8);
        EXPECT_EQ(ZERDIX::clsGetClient(), nullptr);
        const auto traced = lines();
        EXPECT_THAT(traced[traced.size() - 5],
                    HasSubstr(std::string{"Error: ZERDIX::login() - "} + name +
                              "(): Error RPC call, status: <4> Socket rc: <n>"));
    }
    closes_at = 35;
    EXPECT_EQ(login(), 0);
    EXPECT_STREQ(ZERDIX::clsGetAlphaServer(), "127.0.0.1") << "the name as it was typed";
    EXPECT_THAT(calls, ElementsAre(75, 75, 11, 75, 11, 35));
    EXPECT_EQ(session.logout(), 8) << "nobody there any more";
    EXPECT_EQ(ZERDIX::clsGetLoginId(), 4711);
    EXPECT_NE(ZERDIX::clsGetClient(), nullptr);
    EXPECT_EQ(session.login("meier", "secret", "256.0.0.1"), 8);
    const auto traced = lines();
    EXPECT_EQ(traced[traced.size() - 2], "Error: ZERDIX::login(): GetClientAddrError RPC call");
}

// A desktop client's way through the class, with the demo data of the stand-in.
class DeskSession : public session_test {
  protected:
    std::int32_t login(const char* user, const char* password) {
        return session.login(user, password, "127.0.0.1");
    }
};

TEST_F(DeskSession, TakesUsersWithTheirPasswords) {
    EXPECT_EQ(login("nobody", "x"), 6);
    EXPECT_EQ(login("meier", "Meier"), 9);
    ASSERT_EQ(login("meier", "meier"), 0);
    EXPECT_STREQ(ZERDIX::clsGetAlphaServer(), "alpha");
    EXPECT_EQ(session.chgPassword("wrong", "new"), 9);
    EXPECT_EQ(session.chgPassword("meier", "a password of 25 letters!"), 0);
    EXPECT_EQ(login("meier", "meier"), 9);
    server.clear_calls();
    EXPECT_EQ(login("meier", "a password of 25 lettXXXX"), 0) << "20 count";
    EXPECT_EQ(ZERDIX::clsCheckLogin(), 0);
    EXPECT_EQ(session.logout(), 0);
    EXPECT_EQ(ZERDIX::clsGetLoginId(), 0);
    EXPECT_THAT(server.calls(), ElementsAre(75, 11, 35, 55, 12));
    EXPECT_EQ(login("zerdix and more", "zerdix"), 6);
    EXPECT_STREQ(ZERDIX::clsGetUserId(), "zerdix and");
    server.store().configuration.set("SINGLELOGIN", "1");
    test::raw_client elsewhere{server.program()};
    const a_get_login_i first{test::id("zerdix"), test::field<str20>("zerdix")};
    ASSERT_EQ(elsewhere.call(proc::a_get_login_1{}, first).status, 0);
    EXPECT_EQ(login("zerdix", "zerdix"), 4);
}

// Its user is the session's from then on, and nothing that was kept of the one before is written.
TEST_F(DeskSession, ARefusedLoginForgetsTheRecordsOfTheUserBefore) {
    ZERDIX other;
    ASSERT_EQ(login("meier", "meier"), 0);
    ASSERT_EQ(session.setPriority(33), 0);
    const std::int32_t id = ZERDIX::clsGetLoginId();
    for (ZERDIX* object : {&session, &other}) {
        ASSERT_NE(object->getOUserRecord(), nullptr);
        EXPECT_EQ(session.login("zerdix", "wrong", "127.0.0.1"), 9);
        EXPECT_STREQ(ZERDIX::clsGetUserId(), "zerdix");
        EXPECT_EQ(ZERDIX::clsGetLoginId(), id) << "the login before isn't ended";
        server.clear_calls();
        EXPECT_EQ(session.setPriority(44), 0);
        EXPECT_EQ(object->setReplacement("meier", "alpha", 0), 0);
        EXPECT_THAT(server.calls(), ElementsAre(30, 31, 35, 51, 50));
        session.setUserId("meier");
    }
    EXPECT_EQ(session.getAUserRecord()->priority, 33);
    ASSERT_EQ(login("zerdix", "zerdix"), 0);
    EXPECT_EQ(ZERDIX::clsGetAUserRecord()->userid, "zerdix") << "an accepted one forgets them, too";
    ASSERT_EQ(login("meier", "meier"), 0);
    EXPECT_TRUE(session.getOUserRecord()->repl_userid.empty());
}

} // namespace
} // namespace zerdix::testing
