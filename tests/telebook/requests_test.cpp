// Rights on books and groups, and queries of an external directory: what is asked, and what an
// answer or a failure comes to.

#include <gtest/gtest.h>

#include <zerdix/telebook.h>
#include <zerdix/zerdix.h>

#include "rpc/scripted_handle.h"

namespace zerdix::testing {
namespace {

namespace proc = rpc::proc;

class Requests : public ::testing::Test {
  protected:
    Requests() {
        session.setUserId("zerdix");
        session.setAlphaserver("alpha");
        server.open();
    }

    std::int32_t query(const char* first = nullptr, const char* last = nullptr) {
        return books.queryExternTBook("external-book", first, nullptr, nullptr, nullptr, nullptr,
                                      nullptr, nullptr, nullptr, nullptr, last);
    }

    ZERDIX session;
    scripted_handle server;
    TELEBOOK books;
};

TEST_F(Requests, RightsAreTheUnionOfWhatApplies) {
    server.on(proc::a_get_members_1{}, [](const str10& group, a_get_members_o& answer) {
        if (group == "gggggggggg")
            push_front(answer, a_member_rec{{"alpha"}, {"zerdix"}, {}});
        push_front(answer, a_member_rec{{"elsewhere"}, {"zerdix"}, {}});
    });
    // The longest fields that a server can send have no NUL.
    o_tgroup full{};
    std::memset(full.owner.bytes, 'o', sizeof full.owner.bytes);
    const auto group = std::make_unique<std::array<char, 11>>();
    group->fill('g');
    const char* const mine = group->data();
    const struct {
        unsigned char perms[3];
        const char* owner;
        const char* group;
        int rights;
    } cases[] = {
        {{0, 0, 0}, "zerdix", mine, 0},       {{1, 0, 16}, "zerdix", "other", 17},
        {{1, 2, 4}, "zerdix", mine, 7},       {{1, 2, 4}, full.owner.bytes, mine, 6},
        {{1, 2, 4}, "Zerdix", "other", 4},    {{1, 2, 0xff}, "meier", "other", 63},
        {{1, 2, 4}, "zerdixzerdix", mine, 6}, {{1, 2, 4}, nullptr, nullptr, 4},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(books.getPermissions(each.perms, each.owner, each.group), each.rights);
        EXPECT_EQ(server.calls().size(), 1u);
    }
    server.fail(34);
    EXPECT_EQ(books.getPermissions(cases[2].perms, "zerdix", mine), 5) << "no member then";
}

TEST_F(Requests, AQueryCarriesItsParametersAndGivesTheStatusOfAFailure) {
    const std::string longest(100, 'p');
    o_query_ext_i asked{};
    server.on(proc::a_query_ext_1{}, [&](const o_query_ext_i& request, std::int32_t& number) {
        asked = request;
        number = 1001;
    });
    EXPECT_EQ(query("first", longest.c_str()), 1001);
    EXPECT_EQ(asked.alphaid, "alpha");
    EXPECT_EQ(asked.userid, "zerdix");
    EXPECT_EQ(asked.tbookid, "external-b");
    EXPECT_EQ(asked.params[0], "first");
    EXPECT_TRUE(asked.params[1].empty() && asked.params[8].empty());
    EXPECT_EQ(asked.params[9], longest.substr(0, 81)) << "all of the field, without a NUL";

    server.fail(90, 1, RPC_CANTSEND);
    EXPECT_EQ(query(), -3);
    EXPECT_NE(ZERDIX::clsGetClient(), nullptr);
    server.fail(90, 1, RPC_TIMEDOUT);
    EXPECT_EQ(query(), -5);
    EXPECT_EQ(ZERDIX::clsGetClient(), nullptr);
    EXPECT_EQ(query(), 12);
    EXPECT_EQ(server.calls().size(), 3u);
}

TEST_F(Requests, AFetchReleasesTheOneBeforeInAnyCase) {
    server.on(proc::a_fetch_result_1{}, [](const std::int32_t& number, a_fetch_result_o& answer) {
        answer.fetchstate = number;
        for (int i = 0; i < 3; ++i)
            answer.first = new (wire::new_node<a_log_line>()) a_log_line{answer.first, {"row"}};
    });
    const a_fetch_result_o* found = books.fetchExternTBookResult(7);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->fetchstate, 7);
    EXPECT_EQ(found->first->next->next->next, nullptr);
    for (int again = 0; again < 2; ++again) {
        rpc::session().pclient = nullptr;
        EXPECT_EQ(books.fetchExternTBookResult(7), nullptr);
        EXPECT_EQ(found->first, nullptr) << "released, though there was no handle";
    }
    server.open();
    EXPECT_NE(books.fetchExternTBookResult(8), nullptr);
    server.fail(88, 1, RPC_TIMEDOUT);
    EXPECT_EQ(books.fetchExternTBookResult(8), nullptr);
    EXPECT_EQ(books.fetchExternTBookResult(8), nullptr);
    EXPECT_EQ(server.calls().size(), 3u);
}

} // namespace
} // namespace zerdix::testing
