// SPDX-License-Identifier: MIT
// Phone books and groups: keys, blocks and masks.
#include <gtest/gtest.h>

#include "alphad/sending/drawn_page.h"
#include "alphad/store/stored_record.h"
#include "desk.h"

namespace zerdix {
namespace {

using namespace test;
using namespace wire::proc;

class PhoneBooks : public client_test {
  protected:
    PhoneBooks() : client_test(false) {}

    bool put_entry(std::string_view entry, nettypetype net = NETTYPE_FAX,
                   std::string_view user = "zerdix") {
        const o_tebul record{id("book"), id(entry), {}, {}, {}, {}, net};
        return call(o_put_tbookentry_1{}, {{}, id(user), record});
    }

    std::vector<std::string> entries(std::int32_t mask, str10 start, std::int32_t most) {
        return each_of(call(o_get_tbookl_1{}, {{}, me, id("book"), mask, start, most}),
                       [](const auto& node) { return std::string{node.entry.teleid.view()}; });
    }

    std::vector<std::string> members(str10 book, str10 entry, std::int32_t most) {
        return each_of(call(o_get_tgrouplb_1{}, {{}, me, id("group"), {1}, book, entry, most}),
                       [](const auto& node) {
                           return std::string{node.tmember.tbookid.view()} + ":" +
                                  std::string{node.tmember.teleid.view()};
                       });
    }
};

using ids = std::vector<std::string>;

TEST_F(PhoneBooks, KeepARecordWhole) {
    o_tebu book{};
    book.tbookid.assign("book");
    book.perms = {{1, 0x80, 0xFF}};
    book.t_kind = -3;
    book.t_labels[9].assign_field(std::string(31, '\xe4'));
    EXPECT_EQ(call(o_get_tbook_1{}, {{}, {}, id("book")}).tbookid, "");
    EXPECT_TRUE(call(o_put_tbook_1{}, {{}, {}, book}));
    const o_tebu& back = call(o_get_tbook_1{}, {{}, {}, id("book")});
    EXPECT_EQ(alphad::to_stored(back), alphad::to_stored(book));
    // Changing a book leaves its entries, removing it doesn't.
    EXPECT_TRUE(put_entry("a"));
    EXPECT_TRUE(call(o_put_tbook_1{}, {{}, {}, book}));
    EXPECT_EQ(entries(6, {}, 9), ids{"a"});
    EXPECT_TRUE(call(o_del_tbook_1{}, {{}, {}, id("book")}));
    EXPECT_FALSE(call(o_del_tbook_1{}, {{}, {}, id("book")}));
    EXPECT_EQ(entries(6, {}, 9), ids{});
    EXPECT_FALSE(put_entry("a"));
    EXPECT_FALSE(call(o_put_tbook_1{}, {{}, {}, {}}));
}

TEST_F(PhoneBooks, ListEntriesByBlocksInTheOrderOfBytes) {
    o_tebu book{};
    book.tbookid.assign("book");
    ASSERT_TRUE(call(o_put_tbook_1{}, {{}, me, book}));
    for (const char* entry : {"b", "a", "B", "ab", "\xe4", "zzzzzzzzzz", "zzzzzzzzz"})
        ASSERT_TRUE(put_entry(entry, *entry == 'a' ? NETTYPE_TELEX : NETTYPE_FAX));
    ASSERT_TRUE(put_entry("b"));

    EXPECT_EQ(entries(6, {}, 9), (ids{"B", "a", "ab", "b", "zzzzzzzzz", "zzzzzzzzzz", "\xe4"}));
    EXPECT_EQ(entries(6, {}, 2), (ids{"B", "a"}));
    EXPECT_EQ(entries(6, id("a"), 2), (ids{"a", "ab"}));
    EXPECT_EQ(entries(6, id("aa"), 2), (ids{"ab", "b"}));
    EXPECT_EQ(entries(2, {}, 9), (ids{"B", "b", "zzzzzzzzz", "zzzzzzzzzz", "\xe4"}));
    EXPECT_EQ(entries(4, {}, 9), (ids{"a", "ab"}));
    EXPECT_EQ(entries(0, {}, 9), ids{});
    EXPECT_EQ(entries(6, {}, 0), ids{});
    EXPECT_EQ(entries(6, {}, -5), ids{});
    // A byte behind the NUL makes a start key that skips the id in front of it and nothing else.
    str10 behind = id("a");
    behind.bytes[10] = '\xff';
    EXPECT_EQ(entries(6, behind, 1), ids{"ab"});
    behind = id("zzzzzzzzzz");
    behind.bytes[10] = '\xff';
    EXPECT_EQ(entries(6, behind, 9), ids{"\xe4"});
}

TEST_F(PhoneBooks, ListMembersByBothKeys) {
    o_tgroup group{};
    group.groupid.assign("group");
    const auto put = [&](std::string_view book, std::string_view entry) -> bool {
        return call(o_put_tgroupentry_1{}, {{}, me, {id("group"), id(book), id(entry)}});
    };
    EXPECT_FALSE(put("a", "1"));
    ASSERT_TRUE(call(o_put_tgroup_1{}, {{}, me, group}));
    ASSERT_TRUE(put("b", "1"));
    ASSERT_TRUE(put("a", "9"));
    ASSERT_TRUE(put("a", "1"));
    EXPECT_EQ(members({}, {}, 9), (ids{"a:1", "a:9", "b:1"}));
    EXPECT_EQ(members(id("a"), id("9"), 9), (ids{"a:9", "b:1"}));
    EXPECT_EQ(members(id("a"), id("5"), 1), ids{"a:9"});
    EXPECT_EQ(members({}, {}, 0), ids{});
    const o_del_tgroupentry_i out{{}, me, id("group"), id("a"), id("9")};
    EXPECT_TRUE(call(o_del_tgroupentry_1{}, out));
    EXPECT_FALSE(call(o_del_tgroupentry_1{}, out));
    EXPECT_TRUE(call(o_del_tgroup_1{}, {{}, me, id("group")}));
    EXPECT_EQ(members({}, {}, 9), ids{});
    EXPECT_EQ(call(o_get_tgroup_1{}, {{}, {}, id("group")}).groupid, "");
}

// "owner" owns, "friend" is in the group, "guest" is neither.
class Rights : public PhoneBooks {
  protected:
    Rights() {
        server.store().user_groups.put("team", "");
        server.store().user_groups.put_member("team", {field<str35>("alpha"), id("friend"), {}});
        server.store().user_groups.put_member("team", {field<str35>("beta"), id("guest"), {}});
    }
    static o_tebu book(opaque<3> perms, const char* owner, const char* comment) {
        o_tebu made{};
        made.tbookid = id("book");
        made.owner = id(owner);
        made.group = id("team");
        made.perms = perms;
        made.comment.assign(comment);
        return made;
    }
    bool put_book(const char* user, opaque<3> perms, const char* owner = "owner",
                  const char* comment = "") {
        return call(o_put_tbook_1{}, {{}, id(user), book(perms, owner, comment)});
    }
    // Puts the book without asking anybody.
    void force(opaque<3> perms) { server.store().phone_books.put_book(book(perms, "owner", "")); }
    bool reads(const char* user) { return call(o_get_tbooks_1{}, {{}, id(user)}).count == 1; }
    bool adds(const char* user, const char* entry) { return put_entry(entry, NETTYPE_FAX, user); }
    bool deletes(const char* user, const char* entry) {
        return call(o_del_tbookentry_1{}, {{}, id(user), id("book"), id(entry)});
    }
};

TEST_F(Rights, AreTheUnionOfWhatAppliesToAUser) {
    ASSERT_TRUE(put_book("guest", {{0x3F, 0x05, 0x00}}));
    const struct {
        const char* user;
        bool may[3]; // read, add, delete
    } cases[] = {{"owner", {true, true, true}},
                 {"friend", {true, true, false}},
                 {"guest", {false, false, false}},
                 {"FAXADM", {true, true, true}}};
    server.fill_book("book", 5);
    std::string entry = "e000000";
    for (const auto& [user, may] : cases) {
        SCOPED_TRACE(user);
        EXPECT_EQ(reads(user), may[0]);
        EXPECT_EQ(call(o_get_tbook_1{}, {{}, id(user), id("book")}).tbookid.empty(), !may[0]);
        EXPECT_EQ(adds(user, user), may[1]);
        ++entry.back();
        EXPECT_EQ(
            call(o_get_tbookentry_1{}, {{}, id(user), id("book"), id(entry), {}}).teleid.empty(),
            !may[0]);
        EXPECT_EQ(deletes(user, entry.c_str()), may[2]);
    }
    EXPECT_FALSE(adds("friend", "friend")) << "changes what is there";
    force({{0x01, 0x00, 0x10}});
    EXPECT_TRUE(reads("owner"));
    EXPECT_TRUE(deletes("owner", "friend")) << "by what everybody may";
    EXPECT_FALSE(adds("owner", "new"));
    force({});
    EXPECT_FALSE(reads("owner"));
}

TEST_F(Rights, GuardTheRecordItself) {
    ASSERT_TRUE(put_book("friend", {}, "")) << "creating is free";
    const o_tebu made = call(o_get_tbook_1{}, {{}, id("friend"), id("book")});
    EXPECT_EQ(made.owner, "friend");
    EXPECT_EQ(made.perms, alphad::default_rights);

    // Without owner and rights it says nothing of them.
    ASSERT_TRUE(put_book("friend", {{0x3F, 0x08, 0x01}}, "friend"));
    o_tebu bare{};
    bare.tbookid = id("book");
    bare.comment.assign("bare");
    ASSERT_TRUE(call(o_put_tbook_1{}, {{}, id("FAXADM"), bare}));
    const o_tebu kept = call(o_get_tbook_1{}, {{}, id("friend"), id("book")});
    EXPECT_EQ(kept.comment, "bare");
    EXPECT_EQ(kept.owner, "friend");
    EXPECT_EQ(kept.group, "team");
    EXPECT_EQ(kept.perms, (opaque<3>{{0x3F, 0x08, 0x01}}));

    constexpr opaque<3> all{{0x3F, 0x08, 0x20}}; // the group changes, everybody holds the rights
    force(all);
    EXPECT_TRUE(put_book("friend", all, "owner", "new words"));
    EXPECT_FALSE(put_book("guest", all, "owner", "mine"));
    EXPECT_TRUE(put_book("guest", {{0x3F, 0x08, 0x30}}, "owner", "new words"));
    EXPECT_FALSE(put_book("guest", all, "owner", "both at once"));
    EXPECT_TRUE(put_book("owner", {{0x3F, 0x08, 0x00}}, "owner", "both at once"));
    EXPECT_FALSE(put_book("friend", all, "friend", "both at once"));
    EXPECT_FALSE(call(o_del_tbook_1{}, {{}, id("friend"), id("book")}));
    EXPECT_TRUE(call(o_del_tbook_1{}, {{}, id("owner"), id("book")}));
}

TEST_F(Rights, HoldForGroupsAndForSending) {
    o_tgroup group{};
    group.groupid = id("group");
    group.perms = {{0x3F, 0, 0}};
    ASSERT_TRUE(call(o_put_tgroup_1{}, {{}, id("owner"), group}));
    group.perms = {};
    ASSERT_TRUE(call(o_put_tgroup_1{}, {{}, id("owner"), group}));
    ASSERT_TRUE(call(o_put_tgroup_1{}, {{}, id("owner"), group})) << "still the owner";
    EXPECT_FALSE(call(o_put_tgroup_1{}, {{}, id("guest"), group}));
    const auto add = [&](const char* user) {
        return bool{call(o_put_tgroupentry_1{}, {{}, id(user), {id("group"), id("b"), id("e")}})};
    };
    const auto count = [&](const char* user) {
        return call(o_get_tgroupl_1{}, {{}, id(user), id("group"), {1}}).count;
    };
    EXPECT_FALSE(add("guest"));
    EXPECT_TRUE(add("owner"));
    EXPECT_EQ(count("owner"), 1);
    EXPECT_EQ(count("guest"), 0);
    EXPECT_EQ(call(o_get_tgroupsb_1{}, {{}, id("guest"), {}, 9}).count, 0);
    EXPECT_FALSE(call(o_del_tgroupentry_1{}, {{}, id("guest"), id("group"), id("b"), id("e")}));

    server.store().users.add("guest", "");
    force({{0x3F, 0, 0x01}});
    server.fill_book("book", 1);
    const std::int32_t document = create("guest");
    ASSERT_TRUE(
        call(a_put_page_1{}, {id("guest"), document, 1, 0, lent(alphad::drawn_page("x", {}))}));
    EXPECT_EQ(send_fax(document, "book:e000000", "guest"), 0);
    force({{0x3F, 0, 0x02}});
    EXPECT_GT(send_fax(document, "book:e000000", "guest"), 0);
}

using DemoData = client_test;

TEST_F(DemoData, HasWhatATryNeeds) {
    const auto config = [&](std::string_view name, std::int16_t index) {
        return std::string{call(a_get_config_1{}, {id(name), index}).view()};
    };
    EXPECT_EQ(config("PHONEBOOKB", 1), "30");
    EXPECT_EQ(config("PHONEBOOKB", 2), "");
    EXPECT_EQ(config("COVER", 1), "");
    EXPECT_EQ(call(a_get_tz_1{}, {}).tztexts[2], "CET-1CEST,M3.5.0,M10.5.0/3");
    EXPECT_EQ(call(o_get_tbooks_1{}, {}).count, 3);
    EXPECT_EQ(call(o_get_tgroups_1{}, {}).count, 2);
    const auto& members = call(o_get_tgroupl_1{}, {{}, {}, id("alle"), {1}});
    EXPECT_EQ(members.count, 12);
    int telexes = 0;
    for (auto* node = members.first; node != nullptr; node = node->next) {
        const auto& entry =
            call(o_get_tbookentry_1{}, {{}, {}, node->tmember.tbookid, node->tmember.teleid, {1}});
        EXPECT_EQ(entry.teleid, node->tmember.teleid);
        telexes += entry.nettype == NETTYPE_TELEX;
    }
    EXPECT_EQ(telexes, 1);
}

} // namespace
} // namespace zerdix
