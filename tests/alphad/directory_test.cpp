// SPDX-License-Identifier: MIT
// Lists of users, groups and devices, signature, bulletin board, external phone book.
#include <gtest/gtest.h>

#include "desk.h"
#include "pages/page_codec.h"
#include "support/test_server.h"

namespace zerdix {
namespace {

using namespace test;

using Directory = client_test;

using ids = std::vector<std::string>;

template <class Result, class Node, class Record, class Field>
ids ids_of(const Result& list, Record Node::*record, Field Record::*field) {
    ids found;
    for (auto* node = list.first; node != nullptr; node = node->next)
        found.emplace_back((node->*record.*field).view());
    EXPECT_EQ(list.count, static_cast<std::int32_t>(found.size()));
    return found;
}

TEST_F(Directory, ListsUsersByBothKeys) {
    for (const char* alpha : {"beta", "", "a"}) {
        o_user_rec record{};
        record.alphaid.assign(alpha);
        record.userid.assign("m");
        server.store().users.put(record);
    }
    server.store().users.add("\xe4", "");
    const auto block = [&](const char* user, const char* alpha, std::int32_t most) {
        const auto& got =
            client.call(proc::a_get_usersb_1{}, {id(user), field<str35>(alpha), most});
        ids keys;
        for (auto* node = got.first; node != nullptr; node = node->next)
            keys.push_back(std::string{node->user.userid.view()} + "@" +
                           std::string{node->user.alphaid.view()});
        return keys;
    };
    const ids all{"m@a", "m@alpha", "m@beta", "meier@alpha", "zerdix@alpha", "\xe4@alpha"};
    EXPECT_EQ(block("", "", 99), all);
    EXPECT_EQ(block("", "", 2), (ids{all[0], all[1]}));
    EXPECT_EQ(block("m", "alpha", 3), (ids{all[1], all[2], all[3]}));
    EXPECT_EQ(block("n", "", 1), (ids{all[4]}));
    EXPECT_EQ(block("", "", 0), ids{});
    EXPECT_EQ(block("", "", -1), ids{});
    EXPECT_EQ(client.call(proc::a_get_users_1{}, {}).count, 6);
}

TEST_F(Directory, HasTheDemoGroupsAndDevices) {
    EXPECT_EQ(ids_of(client.call(proc::a_get_groups_1{}, {}), &a_group_node::group,
                     &a_group_rec::groupid),
              ids{"vertrieb"});
    const auto& members = client.call(proc::a_get_members_1{}, id("vertrieb"));
    EXPECT_EQ(members.first->member.alphaid, "alpha");
    EXPECT_EQ(ids_of(members, &a_member_node::member, &a_member_rec::userid),
              (ids{"meier", "zerdix"}));
    EXPECT_EQ(client.call(proc::a_get_members_1{}, id("none")).count, 0);

    const auto printers = [&](const char* start, std::int32_t most) {
        return ids_of(client.call(proc::a_get_printersb_1{}, {id(start), most}),
                      &a_printer_node::printer, &a_printer_rec::printerid);
    };
    EXPECT_EQ(printers("", 9), (ids{"laser1", "laser2", "matrix"}));
    EXPECT_EQ(printers("laser2", 1), ids{"laser2"});
    EXPECT_EQ(client.call(proc::a_get_printers_1{}, {}).count, 3);
    EXPECT_EQ(client.call(proc::a_get_printer_1{}, id("matrix")).pr_val1, 1);

    const auto scanners = [&](std::int32_t selector) {
        return ids_of(client.call(proc::a_get_scanners_1{}, selector), &a_scanner_node::scanner,
                      &a_scanner_rec::scannerid);
    };
    EXPECT_EQ(scanners(0), (ids{"empfang", "vertrieb"}));
    EXPECT_EQ(scanners(0x010 | 0x020), ids{"vertrieb"});
    EXPECT_EQ(scanners(0x200), ids{});
    EXPECT_EQ(client.call(proc::a_get_freescanners_1{}, 0).count, 1);
    EXPECT_EQ(client.call(proc::a_get_freescanners_1{}, 0x020).count, 0);
}

TEST_F(Directory, ScansATestPage) {
    const auto scan = [&](const char* scanner, const char* user) {
        return bool{
            client.call(proc::a_scan_doc_1{}, {id(scanner), id(user), 0, field<str30>("scan")})};
    };
    EXPECT_FALSE(scan("none", "zerdix"));
    EXPECT_FALSE(scan("vertrieb", "zerdix")) << "busy";
    EXPECT_FALSE(scan("empfang", "nobody"));
    ASSERT_TRUE(scan("empfang", "zerdix"));
    const auto desk = server.desk("zerdix");
    ASSERT_EQ(desk.size(), 1u);
    EXPECT_EQ(desk[0].comment, "scan");
    EXPECT_EQ(masks(client, desk[0].id), std::vector<std::int32_t>{1});
    // Somebody can send it.
    EXPECT_GT(send_fax(client, desk[0].id, "1"), 0);
}

TEST_F(Directory, TakesSignaturesInBlocks) {
    const auto put = [&](std::int32_t offset, const std::string& block,
                         const char* user = "zerdix") {
        return bool{
            client.call(proc::a_put_sigb_1{},
                        {id(user), offset, static_cast<std::int32_t>(block.size()), lent(block)})};
    };
    const auto get = [&](std::int32_t offset, std::int32_t length) {
        const auto& got = client.call(proc::a_get_sigb_1{}, {id("zerdix"), offset, length});
        return std::pair{
            got.size, std::string(reinterpret_cast<const char*>(got.data.data), got.data.length)};
    };
    const std::string full(16384, 's');
    EXPECT_EQ(get(0, 0).first, 0);
    EXPECT_FALSE(put(0, "x", "nobody"));
    EXPECT_TRUE(put(0, std::string("ol\0d", 4)));
    EXPECT_TRUE(put(0, full));
    EXPECT_FALSE(put(100, "wrong place"));
    EXPECT_FALSE(put(-1, "wrong place"));
    EXPECT_EQ(get(0, 16384).second, std::string("ol\0d", 4)) << "until the new one is whole";
    EXPECT_TRUE(put(16384, ""));
    EXPECT_EQ(get(0, 0).first, 16384);
    EXPECT_EQ(get(16383, 16384), (std::pair{1, std::string{"s"}}));
    EXPECT_EQ(get(16384, 16384).first, 0);
    EXPECT_EQ(get(-1, 16384).first, 0);
    EXPECT_TRUE(put(0, ""));
    EXPECT_EQ(get(0, 0).first, 0);
    EXPECT_TRUE(client.call(proc::a_put_sig_1{}, {id("zerdix"), lent("whole")}));
    EXPECT_EQ(client.call(proc::a_get_sig_1{}, id("zerdix")).length, 5u);
}

TEST_F(Directory, GivesNewMessagesOnly) {
    const auto fetch = [&](std::int32_t stamp) {
        return client.call(proc::a_get_board_1{}, {0, stamp, {}});
    };
    const a_get_board_o all = fetch(0);
    ASSERT_NE(all.first, nullptr);
    EXPECT_NE(all.first->text.view().find("Willkommen"), std::string_view::npos);
    const std::int32_t stamp = all.stamp;
    EXPECT_EQ(fetch(stamp).first, nullptr);
    EXPECT_EQ(fetch(stamp).stamp, stamp);
    EXPECT_TRUE(client.call(proc::a_put_board_1{}, {0, id("me"), field<str80>("new \xe4")}));
    EXPECT_TRUE(client.call(proc::a_put_board_1{}, {1, id("me"), field<str80>("other kind")}));
    EXPECT_FALSE(client.call(proc::a_put_board_1{}, {0, id("me"), {}}));
    const a_get_board_o more = fetch(stamp);
    ASSERT_NE(more.first, nullptr);
    EXPECT_EQ(more.first->text, "new \xe4");
    EXPECT_EQ(more.first->boardid, "me");
    EXPECT_EQ(more.first->next, nullptr);
    EXPECT_EQ(more.stamp, stamp + 1);
}

TEST_F(Directory, AnswersExternalQueriesOnce) {
    const auto query = [&](const char* book, const char* name, const char* place) {
        o_query_ext_i in{{}, id("zerdix"), id(book), {}};
        in.params[0].assign(name);
        in.params[2].assign(place);
        return client.call(proc::a_query_ext_1{}, in);
    };
    EXPECT_EQ(query("common", "", ""), 0);
    EXPECT_EQ(query("none", "", ""), 0);
    const std::int32_t first = query("extern", "", "");
    const std::int32_t second = query("extern", "K\xdc", "berlin");
    EXPECT_EQ(first, 1001);
    EXPECT_EQ(second, 1002);
    const auto& got = client.call(proc::a_fetch_result_1{}, second);
    EXPECT_EQ(got.fetchstate, 0);
    ASSERT_NE(got.first, nullptr);
    EXPECT_STREQ(reinterpret_cast<const char*>(got.first->line.bytes),
                 "K\xfc"
                 "chenstudio Arndt;03023125096;Berlin");
    EXPECT_EQ(got.first->next, nullptr);
    EXPECT_EQ(client.call(proc::a_fetch_result_1{}, second).fetchstate, 2);
    EXPECT_EQ(client.call(proc::a_fetch_result_1{}, first).fetchstate, 0);
    EXPECT_EQ(client.call(proc::a_fetch_result_1{}, 7).fetchstate, 2);
}

} // namespace
} // namespace zerdix
