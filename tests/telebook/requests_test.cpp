// Rights on books and groups, and queries of an external directory: what is asked, and what an
// answer or a failure comes to.

#include <gtest/gtest.h>

#include <zerdix/telebook.h>
#include <zerdix/zerdix.h>

#include "rpc/scripted_handle.h"

namespace zerdix::testing {
namespace {

namespace proc = rpc::proc;
using calls = std::vector<std::uint32_t>;
using perms = std::array<unsigned char, 3>;

class Requests : public ::testing::Test {
  protected:
    Requests() {
        session.setUserId("zerdix");
        session.setAlphaserver("alpha");
        server.open();
    }

    ZERDIX session;
    scripted_handle server;
    TELEBOOK books;
};

TEST_F(Requests, RightsAreTheUnionOfWhatApplies) {
    server.on(proc::a_get_members_1{}, [](const str10& group, a_get_members_o& answer) {
        if (group == "mine")
            push_front(answer, a_member_rec{{"alpha"}, {"zerdix"}, {}});
        push_front(answer, a_member_rec{{"elsewhere"}, {"zerdix"}, {}});
    });
    const std::tuple<perms, const char*, const char*, int> cases[] = {
        {{0, 0, 0}, "zerdix", "mine", 0},       {{1, 0, 16}, "zerdix", "other", 17},
        {{1, 2, 4}, "zerdix", "mine", 7},       {{1, 2, 4}, "meier", "mine", 6},
        {{1, 2, 4}, "Zerdix", "other", 4},      {{1, 2, 0xff}, "meier", "other", 63},
        {{0xff, 0, 0}, "zerdix", "", 63},       {{1, 2, 4}, nullptr, nullptr, 4},
        {{1, 2, 4}, "zerdixzerdix", "mine", 6},
    };
    for (const auto& [bytes, owner, group, rights] : cases) {
        SCOPED_TRACE(::testing::PrintToString(bytes) + (owner != nullptr ? owner : "null"));
        EXPECT_EQ(books.getPermissions(bytes.data(), owner, group), rights);
        EXPECT_EQ(server.calls(), calls{34});
    }
    const perms all{1, 2, 4};
    server.fail(34);
    EXPECT_EQ(books.getPermissions(all.data(), "zerdix", "mine"), 5) << "no member then";
    EXPECT_EQ(TELEBOOK::clssetPRead() + TELEBOOK::clssetPExecute() + TELEBOOK::clssetPAdd() +
                  TELEBOOK::clssetPModify() + TELEBOOK::clssetPDelete() + TELEBOOK::clssetPPerm(),
              63);
}

// A book's record comes from a server that may fill its fields to the brim.
TEST_F(Requests, FieldsWithoutANulAreNotReadPast) {
    server.on(proc::a_get_members_1{}, [](const str10& group, a_get_members_o& answer) {
        if (group == "gggggggggg")
            push_front(answer, a_member_rec{{"alpha"}, {"zerdix"}, {}});
    });
    auto record = std::make_unique<o_tgroup>();
    std::memset(record->owner.bytes, 'o', sizeof record->owner.bytes);
    std::memset(record->group.bytes, 'g', sizeof record->group.bytes);
    record->perms = {{1, 2, 4}};
    const auto group = std::make_unique<str10>(record->group);
    EXPECT_EQ(books.getPermissions(record->perms.bytes, record->owner.bytes, group->bytes), 6);
}

TEST_F(Requests, AQueryCarriesItsParameters) {
    const std::string longest(100, 'p');
    o_query_ext_i asked{};
    server.on(proc::a_query_ext_1{}, [&](const o_query_ext_i& request, std::int32_t& query) {
        asked = request;
        query = 1001;
    });
    EXPECT_EQ(books.queryExternTBook("external-book", "first", nullptr, "", longest.c_str(),
                                     nullptr, nullptr, nullptr, nullptr, nullptr, "last"),
              1001);
    EXPECT_EQ(asked.alphaid, "alpha");
    EXPECT_EQ(asked.userid, "zerdix");
    EXPECT_EQ(asked.tbookid, "external-b");
    EXPECT_EQ(asked.params[0], "first");
    EXPECT_TRUE(asked.params[1].empty() && asked.params[2].empty());
    EXPECT_EQ(asked.params[3], longest.substr(0, 81)) << "all of the field, without a NUL";
    EXPECT_EQ(asked.params[9], "last");
}

TEST_F(Requests, AQueryThatFailsGivesTheStatus) {
    const auto query = [&] {
        return books.queryExternTBook("b", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                      nullptr, nullptr, nullptr, nullptr);
    };
    EXPECT_EQ(query(), -RPC_PROCUNAVAIL);
    server.fail(90, 1, RPC_CANTSEND);
    EXPECT_EQ(query(), -3);
    EXPECT_NE(ZERDIX::clsGetClient(), nullptr);
    server.fail(90, 1, RPC_TIMEDOUT);
    EXPECT_EQ(query(), -5);
    EXPECT_EQ(ZERDIX::clsGetClient(), nullptr);
    EXPECT_EQ(query(), 12);
    EXPECT_EQ(server.calls(), calls(3, 90));
}

TEST_F(Requests, AFetchReleasesTheOneBeforeInAnyCase) {
    server.on(proc::a_fetch_result_1{}, [](const std::int32_t& query, a_fetch_result_o& answer) {
        answer.fetchstate = query;
        for (int i = 0; i < 3; ++i)
            answer.first = new (wire::new_node<a_log_line>()) a_log_line{answer.first, {"row"}};
    });
    a_fetch_result_o* found = books.fetchExternTBookResult(7);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->fetchstate, 7);
    EXPECT_STREQ(reinterpret_cast<char*>(found->first->next->next->line.bytes), "row");
    rpc::session().pclient = nullptr;
    EXPECT_EQ(books.fetchExternTBookResult(7), nullptr);
    EXPECT_EQ(found->first, nullptr) << "released, though there was no handle";
    EXPECT_EQ(books.fetchExternTBookResult(7), nullptr);
    server.open();
    EXPECT_NE(books.fetchExternTBookResult(8), nullptr);
    server.fail(88, 1, RPC_TIMEDOUT);
    EXPECT_EQ(books.fetchExternTBookResult(8), nullptr);
    EXPECT_EQ(books.fetchExternTBookResult(8), nullptr);
    EXPECT_EQ(server.calls(), (calls{88, 88, 88}));
}

} // namespace
} // namespace zerdix::testing
