// SPDX-License-Identifier: MIT
// Users, groups and devices as they are listed, a scan, signatures, the bulletin board and the
// external phone book.
#include <gtest/gtest.h>

#include "desk.h"

namespace zerdix {
namespace {

using namespace test;
using namespace wire::proc;

using UsersAndDevices = client_test;

using ids = std::vector<std::string>;

template <class List, class Node, class Record, class Field>
ids ids_of(const List& list, Record Node::*record, Field Record::*field) {
    return each_of(list,
                   [=](const Node& node) { return std::string{(node.*record.*field).view()}; });
}

TEST_F(UsersAndDevices, AreListedByBothKeysOfAUser) {
    for (const char* alpha : {"beta", "", "a"}) {
        o_user_rec record{};
        record.alphaid.assign(alpha);
        record.userid.assign("m");
        server.store().users.put(record);
    }
    server.store().users.add("\xe4", "");
    const auto block = [&](const char* user, const char* alpha, std::int32_t most) {
        return each_of(call(a_get_usersb_1{}, {id(user), field<str35>(alpha), most}),
                       [](const o_user_node& node) {
                           return std::string{node.user.userid.view()} + "@" +
                                  std::string{node.user.alphaid.view()};
                       });
    };
    const ids all{"m@a", "m@alpha", "m@beta", "meier@alpha", "zerdix@alpha", "\xe4@alpha"};
    EXPECT_EQ(block("", "", 99), all);
    EXPECT_EQ(block("", "", 2), (ids{all[0], all[1]}));
    EXPECT_EQ(block("m", "alpha", 3), (ids{all[1], all[2], all[3]}));
    EXPECT_EQ(block("n", "", 1), ids{all[4]});
    EXPECT_EQ(block("", "", 0), ids{});
    EXPECT_EQ(block("", "", -1), ids{});
    EXPECT_EQ(call(a_get_users_1{}, {}).count, 6);
}

TEST_F(UsersAndDevices, AreThoseOfTheDemo) {
    EXPECT_EQ(ids_of(call(a_get_groups_1{}, {}), &a_group_node::group, &a_group_rec::groupid),
              ids{"vertrieb"});
    const auto& members = call(a_get_members_1{}, id("vertrieb"));
    EXPECT_EQ(members.first->member.alphaid, "alpha");
    EXPECT_EQ(ids_of(members, &a_member_node::member, &a_member_rec::userid),
              (ids{"meier", "zerdix"}));
    EXPECT_EQ(call(a_get_members_1{}, id("none")).count, 0);

    const auto printers = [&](const char* start, std::int32_t most) {
        return ids_of(call(a_get_printersb_1{}, {id(start), most}), &a_printer_node::printer,
                      &a_printer_rec::printerid);
    };
    EXPECT_EQ(printers("", 9), (ids{"laser1", "laser2", "matrix"}));
    EXPECT_EQ(printers("laser2", 1), ids{"laser2"});
    EXPECT_EQ(call(a_get_printers_1{}, {}).count, 3);
    EXPECT_EQ(call(a_get_printer_1{}, id("matrix")).pr_val1, 1);

    const auto scanners = [&](std::int32_t selector) {
        return ids_of(call(a_get_scanners_1{}, selector), &a_scanner_node::scanner,
                      &a_scanner_rec::scannerid);
    };
    EXPECT_EQ(scanners(0), (ids{"empfang", "vertrieb"}));
    EXPECT_EQ(scanners(0x010 | 0x020), ids{"vertrieb"});
    EXPECT_EQ(scanners(0x200), ids{});
    EXPECT_EQ(call(a_get_freescanners_1{}, 0).count, 1);
    EXPECT_EQ(call(a_get_freescanners_1{}, 0x020).count, 0);
}

TEST_F(UsersAndDevices, ScanATestPage) {
    const auto scan = [&](const char* scanner, const char* user) {
        return bool{call(a_scan_doc_1{}, {id(scanner), id(user), 0, field<str30>("scan")})};
    };
    EXPECT_FALSE(scan("none", "zerdix"));
    EXPECT_FALSE(scan("vertrieb", "zerdix")) << "busy";
    EXPECT_FALSE(scan("empfang", "nobody"));
    ASSERT_TRUE(scan("empfang", "zerdix"));
    const auto desk = server.desk("zerdix");
    ASSERT_EQ(desk.size(), 1u);
    EXPECT_EQ(desk[0].comment, "scan");
    EXPECT_EQ(masks(desk[0].id), std::vector<std::int32_t>{1});
    EXPECT_GT(send_fax(desk[0].id, "1"), 0) << "somebody can send it";
}

TEST_F(UsersAndDevices, TakeSignaturesInBlocks) {
    const auto put = [&](std::int32_t offset, const std::string& block,
                         const char* user = "zerdix") {
        const auto size = static_cast<std::int32_t>(block.size());
        return bool{call(a_put_sigb_1{}, {id(user), offset, size, lent(block)})};
    };
    const auto get = [&](std::int32_t offset, std::int32_t length) {
        const auto& got = call(a_get_sigb_1{}, {me, offset, length});
        return std::pair{
            got.size, std::string(reinterpret_cast<const char*>(got.data.data), got.data.length)};
    };
    const std::string full(16384, 's'), old("ol\0d", 4);
    EXPECT_EQ(get(0, 0).first, 0);
    EXPECT_FALSE(put(0, "x", "nobody"));
    EXPECT_TRUE(put(0, old));
    EXPECT_TRUE(put(0, full));
    EXPECT_FALSE(put(100, "wrong place"));
    EXPECT_FALSE(put(-1, "wrong place"));
    EXPECT_EQ(get(0, 16384).second, old) << "until the new one is whole";
    EXPECT_TRUE(put(16384, ""));
    EXPECT_EQ(get(0, 0).first, 16384);
    EXPECT_EQ(get(16383, 16384), (std::pair{1, std::string{"s"}}));
    EXPECT_EQ(get(16384, 16384).first, 0);
    EXPECT_EQ(get(-1, 16384).first, 0);
    EXPECT_TRUE(put(0, ""));
    EXPECT_EQ(get(0, 0).first, 0);
    EXPECT_TRUE(call(a_put_sig_1{}, {me, lent("whole")}));
    EXPECT_EQ(call(a_get_sig_1{}, me).length, 5u);
}

TEST_F(UsersAndDevices, GetNewMessagesOnly) {
    const auto fetch = [&](std::int32_t stamp) { return call(a_get_board_1{}, {0, stamp, {}}); };
    const auto put = [&](std::int16_t kind, const char* text) {
        return bool{call(a_put_board_1{}, {kind, id("me"), field<str80>(text)})};
    };
    const a_get_board_o all = fetch(0);
    ASSERT_NE(all.first, nullptr);
    EXPECT_THAT(std::string{all.first->text.view()}, ::testing::HasSubstr("Willkommen"));
    EXPECT_EQ(fetch(all.stamp).first, nullptr);
    EXPECT_EQ(fetch(all.stamp).stamp, all.stamp);
    EXPECT_TRUE(put(0, "new \xe4"));
    EXPECT_TRUE(put(1, "other kind"));
    EXPECT_FALSE(put(0, ""));
    const a_get_board_o more = fetch(all.stamp);
    ASSERT_NE(more.first, nullptr);
    EXPECT_EQ(more.first->text, "new \xe4");
    EXPECT_EQ(more.first->boardid, "me");
    EXPECT_EQ(more.first->next, nullptr);
    EXPECT_EQ(more.stamp, all.stamp + 1);
}

TEST_F(UsersAndDevices, AnswerExternalQueriesOnce) {
    const auto query = [&](const char* book, const char* name, const char* place) {
        o_query_ext_i in{{}, me, id(book), {}};
        in.params[0].assign(name);
        in.params[2].assign(place);
        return call(a_query_ext_1{}, in);
    };
    EXPECT_EQ(query("common", "", ""), 0);
    EXPECT_EQ(query("none", "", ""), 0);
    EXPECT_EQ(query("extern", "", ""), 1001);
    EXPECT_EQ(query("extern", "K\xdc", "berlin"), 1002);
    const auto& got = call(a_fetch_result_1{}, 1002);
    EXPECT_EQ(got.fetchstate, 0);
    ASSERT_NE(got.first, nullptr);
    EXPECT_STREQ(reinterpret_cast<const char*>(got.first->line.bytes),
                 "K\374chenstudio Arndt;03023125096;Berlin");
    EXPECT_EQ(got.first->next, nullptr);
    EXPECT_EQ(call(a_fetch_result_1{}, 1002).fetchstate, 2);
    EXPECT_EQ(call(a_fetch_result_1{}, 1001).fetchstate, 0);
    EXPECT_EQ(call(a_fetch_result_1{}, 7).fetchstate, 2);
}

} // namespace
} // namespace zerdix
