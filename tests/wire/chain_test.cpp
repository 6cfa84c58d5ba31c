// SPDX-License-Identifier: MIT
// Chains on the wire: their two orders, and peers that lie about them.

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
