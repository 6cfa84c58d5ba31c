// SPDX-License-Identifier: MIT
// Records and chains against literal bytes, each beside nearly right ones that must fail.

#include <gtest/gtest.h>

#include "rpc/list.h"
#include "rpc/wire/filter.h"
#include "rpc/wire/procedures.h"
#include "wire/wire_bytes.h"

namespace {

using namespace zerdix;
using namespace zerdix::wire;
using zerdix::testing::decode;
using zerdix::testing::encode;
using zerdix::testing::wire_bytes;

// The record, and nothing behind it.
template <class T>
bool decode_whole(const std::vector<unsigned char>& bytes, T& record) {
    std::size_t rest = 0;
    return decode(bytes, record, &rest) && rest == 0;
}

// The record comes out of the bytes, goes back into the same bytes, and out of no prefix of them.
template <class T>
void expect_wire_form(T& record, const wire_bytes& expected) {
    EXPECT_EQ(encode(record), expected.bytes());
    for (std::size_t cut = 0; cut < expected.size(); ++cut) {
        T partial{};
        const auto& all = expected.bytes();
        EXPECT_FALSE(
            decode_whole({all.begin(), all.begin() + static_cast<std::ptrdiff_t>(cut)}, partial))
            << "cut at " << cut;
        release(partial);
    }
}

TEST(Record, SendRecordStandsInItsOrder) {
    wire_bytes expected;
    expected.word(4711).text("meier", 10).words({32767, 0xFFFFFFFF, 3}).text("Angebot", 30);
    expected.words({11, 880000000, 1, 12, 13, 14, 15, 16, 9, 2});
    expected.text("49 30 1", 20).text("PRIVAT:KUNDE1", 30).words({1, 2});
    ASSERT_EQ(expected.size(), 440u);

    a_s_rec record{};
    ASSERT_TRUE(decode_whole(expected.bytes(), record));
    EXPECT_EQ(record.faxid, 4711);
    EXPECT_EQ(record.userid, "meier");
    EXPECT_EQ(record.priority, 32767);
    EXPECT_EQ(record.status, -1);
    EXPECT_EQ(record.pages, 3);
    EXPECT_EQ(record.comment, "Angebot");
    EXPECT_EQ(record.sendtime, 880000000);
    EXPECT_TRUE(record.nighttariff);
    EXPECT_EQ(record.s_aux5, 15);
    EXPECT_EQ(record.errorstatus, 16);
    EXPECT_EQ(record.maxretries, 9);
    EXPECT_EQ(record.retries, 2);
    EXPECT_EQ(record.tsi, "49 30 1");
    EXPECT_EQ(record.phone, "PRIVAT:KUNDE1");
    EXPECT_EQ(record.nettype, NETTYPE_FAX);
    EXPECT_EQ(record.resolution, 2);
    expect_wire_form(record, expected);
}

TEST(Record, CharactersAreSignedOnTheWire) {
    str10 text{};
    text.assign("\xe4");
    wire_bytes expected;
    expected.word(0xFFFFFFE4);
    for (int i = 0; i < 10; ++i)
        expected.word(0);
    expect_wire_form(text, expected);

    // A peer that sends its characters unsigned is understood as well.
    str10 back{};
    ASSERT_TRUE(decode_whole(wire_bytes{}.text("\xe4", 10).bytes(), back));
    EXPECT_EQ(back, "\xe4");
}

TEST(Record, NumbersKeepTheirSignAndTruthIsOneOrNull) {
    std::int32_t number = 0;
    ASSERT_TRUE(decode_whole(wire_bytes{}.word(0xFFFFFFFF).bytes(), number));
    EXPECT_EQ(number, -1);
    std::int16_t small = 0;
    ASSERT_TRUE(decode_whole(wire_bytes{}.word(0xFFFF8000).bytes(), small));
    EXPECT_EQ(small, -32768);
    boolean truth{};
    ASSERT_TRUE(decode_whole(wire_bytes{}.word(0x00000100).bytes(), truth));
    EXPECT_EQ(truth.value, 1);
}

TEST(Record, AFieldFilledToTheBrimIsNotReadPast) {
    o_tgroupl member{};
    wire_bytes bytes;
    bytes.text("ABCDEFGHIJKLMNOP", 10).text("BOOK", 10).text("ENTRY", 10);
    ASSERT_TRUE(decode_whole(bytes.bytes(), member));
    EXPECT_EQ(member.groupid.view(), "ABCDEFGHIJK");
    EXPECT_EQ(member.tbookid, "BOOK");
}

TEST(Record, PhoneBookRightsArePaddedToAWord) {
    wire_bytes expected;
    expected.text("PRIVAT", 10).text("Privates", 30).text("alpha", 35).text("meier", 10);
    expected.text("vertrieb", 10).raw({"\x3f\x03\x01\x00", 4}).word(7);
    for (int i = 0; i < 10; ++i)
        expected.text(std::string{"L"}.append(1, static_cast<char>('0' + i)), 30);
    expected.text("one", 80).text("two", 80);
    ASSERT_EQ(expected.size(), 2296u);
    o_tebu book{};
    ASSERT_TRUE(decode_whole(expected.bytes(), book));
    EXPECT_EQ(book.perms, (opaque<3>{{0x3f, 0x03, 0x01}}));
    EXPECT_EQ(book.t_kind, 7);
    EXPECT_EQ(book.t_labels[9], "L9");
    EXPECT_EQ(book.t_text2, "two");
    expect_wire_form(book, expected);
}

TEST(Record, PageBlockCarriesLengthBytesAndPadding) {
    unsigned char data[] = {1, 2, 3, 4, 5};
    a_put_pageb_i block{{}, 17, 2, 0, 16384, 5, {5, data}};
    block.userid.assign("zerdix");
    wire_bytes expected;
    expected.text("zerdix", 10).words({17, 2, 0, 16384, 5, 5});
    expected.raw({"\x01\x02\x03\x04\x05\x00\x00\x00", 8});
    expect_wire_form(block, expected);

    a_put_pageb_i back{};
    ASSERT_TRUE(decode_whole(expected.bytes(), back));
    ASSERT_EQ(back.data.length, 5u);
    EXPECT_EQ(back.data.data[4], 5);
    release(back);
    EXPECT_EQ(back.data.data, nullptr);
    release(back); // once more does no harm
}

TEST(Record, ALengthThatNeverArrivesIsNotAllocated) {
    for (std::uint32_t length : {0x80000000u, 0xFFFFFFFFu, max_field_bytes + 1, max_field_bytes}) {
        bytes field{};
        EXPECT_FALSE(decode_whole(wire_bytes{}.word(length).raw("abcd").bytes(), field));
        EXPECT_LE(field.length, 4u);
        release(field);
    }
    bounded_bytes<80> small{};
    EXPECT_FALSE(decode_whole(wire_bytes{}.word(81).raw(std::string(84, 'x')).bytes(), small));
    release(small);
}

TEST(Record, OtherSizesAreAsThePeerHasThem) {
    EXPECT_EQ(fixed<o_tebul>::size, 428u);
    EXPECT_EQ(fixed<a_get_inf_o>::size, 4004u);
    EXPECT_EQ(fixed<a_get_login_i>::size, 128u);
    EXPECT_EQ(fixed<a_logout_i>::size, 48u);
    EXPECT_EQ(fixed<a_get_compat_o>::size, 8u);
}

// Chains: their two orders, and peers that lie about them.
wire_bytes member(const char* group, const char* book, const char* entry) {
    return wire_bytes{}.text(group, 10).text(book, 10).text(entry, 10);
}

// All bools, then the data of the last node first.
wire_bytes three_members(std::uint32_t count) {
    wire_bytes bytes;
    bytes.word(count).words({1, 1, 1, 0});
    return bytes.append(member("g", "b", "third"))
        .append(member("g", "b", "second"))
        .append(member("g", "b", "first"));
}

std::vector<std::string> entries_of(const o_get_tgroupl_o& answer) {
    const std::unique_ptr<PTRLIST> list{rpc::list_of(answer)};
    std::vector<std::string> names;
    for (std::uint32_t i = 0; i < list->getSize(); ++i)
        names.emplace_back(static_cast<o_tgroupl*>((*list)[i])->teleid.view());
    return names;
}

TEST(Chain, PointerFirstNodesComeLastToFirst) {
    o_get_tgroupl_o answer{};
    ASSERT_TRUE(decode(three_members(3).bytes(), answer));
    EXPECT_EQ(entries_of(answer), (std::vector<std::string>{"first", "second", "third"}));
    EXPECT_EQ(encode(answer, 4096), three_members(3).bytes());
    release(answer);
    EXPECT_EQ(answer.first, nullptr);
}

TEST(Chain, AListIsAsLongAsTheShorterOfCountAndChain) {
    const std::pair<std::uint32_t, std::size_t> cases[] = {
        {2, 2}, {4, 3}, {0x7FFFFFFF, 3}, {0, 0}, {0xFFFFFFFF, 0}};
    for (const auto& [count, length] : cases) {
        o_get_tgroupl_o answer{};
        ASSERT_TRUE(decode(three_members(count).bytes(), answer));
        EXPECT_EQ(entries_of(answer).size(), length) << count;
        release(answer);
    }
}

TEST(Chain, DocumentNodesComeFirstToLastEachBehindItsBool) {
    const auto record = [](std::uint32_t id) {
        wire_bytes bytes;
        bytes.word(id).text("meier", 10).words({1, 2, 3}).text("text", 30).word(4);
        return bytes;
    };
    wire_bytes expected;
    expected.words({2, 1}).append(record(7)).word(1).append(record(8)).word(0);
    a_get_plist_o answer{};
    ASSERT_TRUE(decode(expected.bytes(), answer));
    ASSERT_NE(answer.first, nullptr);
    EXPECT_EQ(answer.first->record.faxid, 7);
    ASSERT_NE(answer.first->next, nullptr);
    EXPECT_EQ(answer.first->next->record.faxid, 8);
    EXPECT_EQ(answer.first->next->next, nullptr);
    EXPECT_EQ(encode(answer, 4096), expected.bytes());
    release(answer);
}

TEST(Chain, ACutChainFailsAndIsReleasedWhole) {
    const auto all = three_members(3).bytes();
    for (std::size_t cut = 0; cut < all.size(); cut += 4) {
        o_get_tgroupl_o answer{};
        EXPECT_FALSE(decode({all.begin(), all.begin() + static_cast<std::ptrdiff_t>(cut)}, answer));
        release(answer);
    }
}

TEST(Chain, BoolsWithoutDataAllocateNothing) {
    wire_bytes bytes;
    bytes.word(1u << 20);
    for (int i = 0; i < 1 << 20; ++i)
        bytes.word(1);
    bytes.word(0);
    o_get_tbooks_o answer{};
    EXPECT_FALSE(decode(bytes.bytes(), answer));
    ASSERT_NE(answer.first, nullptr); // the one node whose data was looked for
    EXPECT_EQ(answer.first->next, nullptr);
    release(answer);
}

TEST(Chain, AMillionNodesNeitherRecurseNorFail) {
    constexpr std::int32_t length = 1'000'000;
    o_get_tgroupl_o list{length, nullptr};
    for (std::int32_t i = 0; i < length; ++i) {
        auto* node = new_node<o_tgroupl_node>();
        node->next = list.first;
        list.first = node;
    }
    const auto wire = encode(list, std::size_t{length} * 136 + 8);
    release(list);
    o_get_tgroupl_o back{};
    ASSERT_TRUE(decode(wire, back));
    EXPECT_EQ(entries_of(back).size(), std::size_t{length});
    release(back);
}

TEST(Chain, TooManyNodesAreRefused) {
    wire_bytes bytes;
    for (std::uint32_t i = 0; i <= max_chain_nodes; ++i)
        bytes.word(1);
    o_tgroupl_node* first = nullptr;
    EXPECT_FALSE(decode(bytes.bytes(), first));
    EXPECT_EQ(first, nullptr);
}

// A node that is an argument itself: its own chain, then its own data.
TEST(Chain, ANodeByValueIsCodedLikeAChainWithoutItsFirstBool) {
    a_proc1000_node second{nullptr, {"two"}};
    a_proc1000_node first{&second, {"one"}};
    const auto wire = encode(first, 4096);
    EXPECT_EQ(wire, wire_bytes{}.words({1, 0}).text("two", 20).text("one", 20).bytes());
}

} // namespace
