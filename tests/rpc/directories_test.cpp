// SPDX-License-Identifier: MIT
// Lists of users, groups, printers and scanners.

#include <gmock/gmock.h>

#include <zerdix/journal.h>
#include <zerdix/zerdix.h>

#include "rpc/scripted_handle.h"

namespace zerdix::testing {
namespace {

using ::testing::ElementsAre;
namespace proc = rpc::proc;

o_user_rec user(std::string_view id, std::string_view server) {
    o_user_rec record{};
    record.userid.assign_field(id);
    record.alphaid.assign(server);
    return record;
}

using keys = std::vector<std::pair<std::string_view, std::string_view>>;

keys keys_in(PTRLIST* list) {
    keys all;
    for (std::uint32_t i = 0; list != nullptr && i < list->getSize(); ++i) {
        const auto& each = *static_cast<o_user_rec*>((*list)[i]);
        all.emplace_back(each.userid.view(), each.alphaid.view());
    }
    return all;
}

class Directories : public ::testing::Test {
  protected:
    ZERDIX session;
    scripted_handle server;
    std::vector<o_user_rec> users;
    std::int32_t number = 0; // last asked for

    Directories() {
        server.answer_zero(proc::a_get_config_1{});
        server.on(proc::a_get_users_1{},
                  [this](const auto&, auto& answer) { serve(0, users.size(), answer); });
        server.on(proc::a_get_usersb_1{}, [this](const a_get_usersb_i& wanted, auto& answer) {
            number = wanted.number;
            std::size_t from = 0;
            while (!wanted.userid.empty() && !(users.at(from).userid == wanted.userid &&
                                               users[from].alphaid == wanted.alphaid))
                ++from;
            serve(from, static_cast<std::size_t>(wanted.number), answer);
        });
    }

    void serve(std::size_t from, std::size_t most, a_get_users_o& answer) const {
        for (std::size_t i = from + std::min(most, users.size() - from); i-- > from;)
            push_front(answer, users[i]);
    }

    // Ids that fill their fields to the brim, on two servers each.
    keys make_users(int count) {
        users.clear();
        for (int i = 0; i < count; ++i)
            users.push_back(user("u" + std::to_string(1000000000 + i / 2), i % 2 == 0 ? "a" : "b"));
        keys all;
        for (const o_user_rec& each : users)
            all.emplace_back(each.userid.view(), each.alphaid.view());
        return all;
    }
};

TEST_F(Directories, BlocksAreGatheredInTheServersOrder) {
    const std::tuple<std::int32_t, int, std::size_t> cases[] = {
        {30, 0, 1}, {30, 28, 1}, {30, 29, 2},   {30, 30, 2}, {30, 59, 3},
        {2, 5, 5},  {1, 5, 5},   {200, 398, 2}, {-5, 5, 2}};
    for (const auto& [size, count, blocks] : cases) {
        rpc::session().lTelebookBlockSize = size;
        const keys made = make_users(count);
        PTRLIST* list = session.getUserList();
        ASSERT_NE(list, nullptr) << "empty, but a list";
        EXPECT_EQ(keys_in(list), made) << size;
        EXPECT_EQ(server.calls(), std::vector<std::uint32_t>(blocks, 101)) << size << " " << count;
    }
    EXPECT_EQ(number, -5) << "goes out as it came";
}

TEST_F(Directories, ABlockSizeThatCantBeHadEndsTheList) {
    const keys made = make_users(3);
    EXPECT_EQ(keys_in(session.getUserList()), made);
    EXPECT_THAT(server.calls(), ElementsAre(74, 101, 74)) << "asked for at each use";
    server.fail(74);
    EXPECT_EQ(keys_in(session.getUserList()), made);
    EXPECT_EQ(number, -1);
    server.fail(74, 2, RPC_TIMEDOUT);
    EXPECT_EQ(session.getUserList(), nullptr) << "nobody knows whether more would have come";
    EXPECT_EQ(ZERDIX::clsGetClient(), nullptr);
    EXPECT_EQ(session.getUserList(), nullptr) << "a block size of 12";
}

TEST_F(Directories, BlockSizesAreAskedOnceAndCut) {
    const char* value = "";
    server.on(proc::a_get_config_1{},
              [&value](const auto&, str80& answer) { answer.assign(value); });
    const std::tuple<const char*, std::int32_t, std::size_t> cases[] = {
        {"200", 200, 1},
        {"201", 200, 1},
        {"", 30, 2}, // the default, which isn't kept
        {"many", 30, 2},
        {"1", 1, 1},
        {"4294967298", 200, 1}, // doesn't come round
        {"99999999999999999999", 200, 1},
        {"-4294967297", -2147483647 - 1, 1},
        {"7 and more", 7, 1},
    };
    for (const auto& [text, size, asked] : cases) {
        value = text;
        rpc::session().lTelebookBlockSize = 0;
        server.calls();
        EXPECT_EQ(ZERDIX::clsGetTelebookBlockSize(), size) << text;
        EXPECT_EQ(ZERDIX::clsGetTelebookBlockSize(), size) << text;
        EXPECT_EQ(server.calls(), std::vector<std::uint32_t>(asked, 74)) << text;
    }
    value = "4294967298";
    EXPECT_EQ(JOURNAL{}.getCoverId(), 2147483647) << "not document 2";
}

// Copies are the list's own and are deleted with it; the elements of the other kind aren't.
TEST_F(Directories, TheTwoKindsOfListsTakeTurns) {
    rpc::session().lTelebookBlockSize = 2;
    const keys made = make_users(4);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(keys_in(session.getUserList()), made);
        EXPECT_EQ(keys_in(session._getUserList()), made);
    }
    PTRLIST* gathered = session.getUserList();
    server.fail(32);
    EXPECT_EQ(session._getUserList(), nullptr);
    server.fail(101);
    EXPECT_EQ(session.getUserList(), nullptr);
    EXPECT_EQ(keys_in(gathered), made) << "the old list stays";
    server.fail(101, 2);
    EXPECT_EQ(session.getUserList(), nullptr) << "a later block";
    EXPECT_EQ(keys_in(session.getUserList()), made);
}

TEST_F(Directories, ScannersShareAListButNotTheirAnswers) {
    const auto serve = [](const std::int32_t& selector, a_get_scanners_o& answer) {
        for (std::int32_t i = 0; i < selector; ++i)
            push_front(answer, a_scanner_rec{});
    };
    server.on(proc::a_get_freescanners_1{}, serve);
    server.on(proc::a_get_scanners_1{}, serve);
    EXPECT_EQ(session.getFreeScanners(2)->getSize(), 2u);
    EXPECT_EQ(session.getAllScanners(3)->getSize(), 3u);
    { const ZERDIX other; }
    server.open();
    EXPECT_EQ(wire::result_slot<proc::a_get_freescanners_1>::record.count, 2)
        << "held until the next of its kind";
    EXPECT_EQ(session.getFreeScanners(0)->getSize(), 0u);
}

TEST_F(Directories, AMemberIsTheUserOnTheSessionsServer) {
    session.setUserId("meier");
    session.setAlphaserver("alpha");
    std::vector<o_user_rec> members{user("meier", "beta"), user("Meier", "alpha"),
                                    user("meier", "Alpha"), user("meier", "alpha")};
    std::int32_t told = 3;
    server.on(proc::a_get_members_1{}, [&](const str10& group, auto& answer) {
        EXPECT_EQ(group, "vertrieb");
        for (auto each = members.rbegin(); each != members.rend(); ++each)
            push_front(answer, a_member_rec{each->alphaid, each->userid, {}});
        answer.count = told;
    });
    EXPECT_EQ(ZERDIX::clsSearchUserInGroup("vertrieb"), 4) << "the one behind the count";
    told = 4;
    EXPECT_EQ(ZERDIX::clsSearchUserInGroup("vertrieb"), 0);
}

} // namespace
} // namespace zerdix::testing
