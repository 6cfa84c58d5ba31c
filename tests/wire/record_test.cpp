// SPDX-License-Identifier: MIT
// Records against literal bytes, each beside nearly right ones that must fail.

#include <gtest/gtest.h>

#include "rpc/wire/filter.h"
#include "rpc/wire/procedures.h"
#include "wire/wire_bytes.h"

namespace {

using namespace zerdix;
using namespace zerdix::wire;
using zerdix::testing::encode;
using zerdix::testing::wire_bytes;

// The record, and nothing behind it.
template <class T>
bool decode(const std::vector<unsigned char>& bytes, T& record) {
    std::size_t rest = 0;
    return zerdix::testing::decode(bytes, record, &rest) && rest == 0;
}

// The record comes out of the bytes, goes back into the same bytes, and out of no prefix of them.
template <class T>
void expect_wire_form(T& record, const wire_bytes& expected) {
    EXPECT_EQ(encode(record), expected.bytes());
    for (std::size_t cut = 0; cut < expected.size(); ++cut) {
        T partial{};
        const auto& all = expected.bytes();
        EXPECT_FALSE(decode({all.begin(), all.begin() + static_cast<std::ptrdiff_t>(cut)}, partial))
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
    ASSERT_TRUE(decode(expected.bytes(), record));
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
    ASSERT_TRUE(decode(wire_bytes{}.text("\xe4", 10).bytes(), back));
    EXPECT_EQ(back, "\xe4");
}

TEST(Record, NumbersKeepTheirSignAndTruthIsOneOrNull) {
    std::int32_t number = 0;
    ASSERT_TRUE(decode(wire_bytes{}.word(0xFFFFFFFF).bytes(), number));
    EXPECT_EQ(number, -1);
    std::int16_t small = 0;
    ASSERT_TRUE(decode(wire_bytes{}.word(0xFFFF8000).bytes(), small));
    EXPECT_EQ(small, -32768);
    boolean truth{};
    ASSERT_TRUE(decode(wire_bytes{}.word(0x00000100).bytes(), truth));
    EXPECT_EQ(truth.value, 1);
}

TEST(Record, AFieldFilledToTheBrimIsNotReadPast) {
    o_tgroupl member{};
    wire_bytes bytes;
    bytes.text("ABCDEFGHIJKLMNOP", 10).text("BOOK", 10).text("ENTRY", 10);
    ASSERT_TRUE(decode(bytes.bytes(), member));
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
    ASSERT_TRUE(decode(expected.bytes(), book));
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
    ASSERT_TRUE(decode(expected.bytes(), back));
    ASSERT_EQ(back.data.length, 5u);
    EXPECT_EQ(back.data.data[4], 5);
    release(back);
    EXPECT_EQ(back.data.data, nullptr);
    release(back); // once more does no harm
}

TEST(Record, ALengthThatNeverArrivesIsNotAllocated) {
    for (std::uint32_t length : {0x80000000u, 0xFFFFFFFFu, max_field_bytes + 1, max_field_bytes}) {
        bytes field{};
        EXPECT_FALSE(decode(wire_bytes{}.word(length).raw("abcd").bytes(), field));
        EXPECT_LE(field.length, 4u);
        release(field);
    }
    bounded_bytes<80> small{};
    EXPECT_FALSE(decode(wire_bytes{}.word(81).raw(std::string(84, 'x')).bytes(), small));
    release(small);
}

TEST(Record, OtherSizesAreAsThePeerHasThem) {
    EXPECT_EQ(fixed<o_tebul>::size, 428u);
    EXPECT_EQ(fixed<a_get_inf_o>::size, 4004u);
    EXPECT_EQ(fixed<a_get_login_i>::size, 128u);
    EXPECT_EQ(fixed<a_logout_i>::size, 48u);
    EXPECT_EQ(fixed<a_get_compat_o>::size, 8u);
}

} // namespace
