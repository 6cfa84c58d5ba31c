// SPDX-License-Identifier: MIT
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
    EXPECT_EQ(
        (std::array{TELEBOOK::clssetPRead(), TELEBOOK::clssetPExecute(), TELEBOOK::clssetPAdd(),
                    TELEBOOK::clssetPModify(), TELEBOOK::clssetPDelete(), TELEBOOK::clssetPPerm()}),
        (std::array<char, 6>{1, 2, 4, 8, 16, 32}));
    server.on(proc::a_get_members_1{}, [](const str10& group, a_get_members_o& answer) {
        if (group == "ggggggggggg")
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

// Notes the ids of an argument, the session's user apart.
template <class Argument>
void note_ids(const Argument& in, std::vector<std::string>& ids) {
    const auto note = [&ids]<class Field>(const Field& field) {
        if constexpr (std::is_same_v<Field, str10>)
            if (field != "zerdix")
                ids.emplace_back(field.view());
    };
    if constexpr (std::is_same_v<Argument, str10>)
        note(in);
    else
        boost::pfr::for_each_field(in, note);
}

template <class... P>
void note_ids_of(scripted_handle& server, std::vector<std::string>& ids, P... procedures) {
    (server.on(procedures, [&ids](const auto& in, auto&) { note_ids(in, ids); }), ...);
}

TEST_F(Requests, IdsGoOutWithAllBytesOfTheirFields) {
    std::vector<std::string> ids;
    note_ids_of(server, ids, proc::o_get_tbook_1{}, proc::o_del_tbook_1{}, proc::o_get_tbookl_1{},
                proc::o_get_tbookentry_1{}, proc::o_del_tbookentry_1{}, proc::o_get_tgroup_1{},
                proc::o_del_tgroup_1{}, proc::o_get_tgroupsb_1{}, proc::o_get_tgroupl_1{},
                proc::o_get_tgrouplb_1{}, proc::o_del_tgroupentry_1{}, proc::a_get_members_1{});
    const char* const id = "twelve bytes";
    books.getTBook(id);
    books.delTBook(id);
    books.getTBookEntries(id, NETTYPE_FAX, id, 5);
    books.getTBookEntry(id, id, 1);
    books.delTBookEntry(id, id);
    books.getTGroup(id);
    books.delTGroup(id);
    books.getTGroupsB(id, 5);
    books._getTGroupEntries(id, 1);
    books.getTGroupEntriesB(id, 1, id, id, 5);
    books.delTGroupEntry(id, id, id);
    ZERDIX::clsSearchUserInGroup(id);
    EXPECT_EQ(ids, std::vector<std::string>(19, "twelve byte"));
}

// The record at which a block begins, and those behind it.
template <class Answer, class Record>
void serve_from(const std::vector<Record>& all, str10 Record::*id, const str10& start,
                std::int32_t most, Answer& answer) {
    auto from = all.begin();
    while (from != all.end() && ((*from).*id).view() < start.view())
        ++from;
    for (auto end = from + std::min<std::ptrdiff_t>(most, all.end() - from); end != from;)
        push_front(answer, *--end);
}

TEST_F(Requests, IdsThatFillTheirFieldsLeadFromBlockToBlock) {
    std::vector<o_tgroup> groups(5);
    std::vector<o_tgroupl> members(5);
    for (std::size_t i = 0; i < 5; ++i) {
        groups[i].groupid.assign_field("1000000000" + std::to_string(i));
        members[i] = {groups[0].groupid, {"b"}, groups[i].groupid};
    }
    server.on(proc::o_get_tgroupsb_1{}, [&](const auto& in, auto& answer) {
        serve_from(groups, &o_tgroup::groupid, in.start, in.blocksize, answer);
    });
    server.on(proc::o_get_tgrouplb_1{}, [&](const auto& in, auto& answer) {
        if (in.groupid == groups[0].groupid)
            serve_from(members, &o_tgroupl::teleid, in.starttele, in.blocksize, answer);
    });
    rpc::session().lTelebookBlockSize = 3;
    EXPECT_EQ(books.getTGroups()->getSize(), 5u);
    EXPECT_EQ(books.getTGroupEntries("10000000000", 1)->getSize(), 5u);
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
    EXPECT_EQ(asked.tbookid, "external-bo");
    EXPECT_EQ(asked.params[0], "first");
    EXPECT_TRUE(asked.params[1].empty() && asked.params[8].empty());
    EXPECT_EQ(asked.params[9], longest.substr(0, 81)) << "all of the field, without a NUL";
    books.queryExternTBook("b", "0", "1", "2", "3", "4", "5", "6", "7", "8", "9");
    for (std::size_t i = 0; i < asked.params.size(); ++i)
        EXPECT_EQ(asked.params[i], std::to_string(i));

    server.fail(90, 1, RPC_CANTSEND);
    EXPECT_EQ(query(), -3);
    EXPECT_NE(ZERDIX::clsGetClient(), nullptr);
    server.fail(90, 1, RPC_TIMEDOUT);
    EXPECT_EQ(query(), -5);
    EXPECT_EQ(ZERDIX::clsGetClient(), nullptr);
    EXPECT_EQ(query(), 12);
    EXPECT_EQ(server.calls().size(), 4u);
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
