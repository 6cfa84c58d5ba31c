// SPDX-License-Identifier: MIT
// Documents on the server: pages in blocks, operations, logs.

#include <fstream>
#include <numeric>

#include <zerdix/journal.h>

#include "rpc/scripted_handle.h"
#include "support/session_test.h"

namespace zerdix::testing {
namespace {

using ::testing::SizeIs;
using calls = std::vector<int>;

class Journal : public connected_test {
  protected:
    Journal() {
        document = journal.makeDoc();
        server.clear_calls();
    }

    void set_block_length(const char* value) {
        std::ofstream{server.settings()} << "[Zerdix]\nMaxPageBlockLen=" << value << '\n';
    }

    std::int32_t put(std::vector<unsigned char> content, std::int16_t page = 1) {
        const page_dat data{static_cast<std::uint32_t>(content.size()), content.data()};
        return journal.putDocPage(document, page, 0, &data);
    }

    std::vector<unsigned char> get(std::int16_t page = 1) {
        const page_dat* data = journal.getDocPage(TOPF_P, document, page, 0);
        return data == nullptr ? std::vector<unsigned char>{0xEE}
                               : std::vector<unsigned char>(data->data, data->data + data->size);
    }

    static std::vector<unsigned char> content(std::size_t size) {
        std::vector<unsigned char> bytes(size);
        std::iota(bytes.begin(), bytes.end(), static_cast<unsigned char>(size));
        return bytes;
    }

    JOURNAL journal;
    std::int32_t document = 0;
};

TEST_F(Journal, APageGoesInBlocksOfWhichTheLastIsShorter) {
    const std::tuple<const char*, std::size_t, std::size_t> cases[] = {
        {"16384", 32768, 3},  {"16384", 100, 1},    {"16384", 0, 1},
        {"16384", 16384, 2},  {"100", 511, 1},      {"100", 512, 2},
        {"100000", 32767, 1}, {"100000", 32768, 2}, {"none", 1024, 3},
    };
    for (const auto& [length, size, blocks] : cases) {
        SCOPED_TRACE(std::string{length} + ", " + std::to_string(size));
        set_block_length(length);
        server.clear_calls();
        EXPECT_EQ(put(content(size)), 0);
        EXPECT_EQ(server.calls(), calls(blocks, 60));
        EXPECT_EQ(get(), content(size));
    }
}

TEST_F(Journal, AFetchAsksForTheSizeThenForBlocks) {
    ASSERT_EQ(put(content(16384)), 0);
    server.clear_calls();
    EXPECT_THAT(get(), SizeIs(16384));
    EXPECT_EQ(server.calls(), calls(3, 59)) << "the size, a full block, an empty one";
    EXPECT_THAT(get(7), SizeIs(0)) << "a page that isn't there";
    server.fail(59, 2);
    EXPECT_EQ(journal.getDocPage(TOPF_P, document, 1, 0), nullptr);
    EXPECT_THAT(get(), SizeIs(16384)) << "the next fetch works again";
}

// A page that isn't as long any more as the first answer said.
TEST(OddPages, AFetchEndsWhereThePageDoes) {
    constexpr std::int32_t block = 16384;
    const struct {
        std::int32_t told, there;
        std::uint32_t fetched;
        std::size_t calls;
    } cases[] = {
        {block, 40000, block, 4},   // grown, so that two blocks find no room
        {100, 2 * block, 100, 4},   // and an empty one behind them
        {20000, block, block, 101}, // shrunk: the rest is asked for up to the limit
        {2 * block, 2 * block, 2 * block, 4},
    };
    for (const auto& each : cases) {
        scripted_handle server;
        server.on(rpc::proc::a_get_pageb_1{}, [&](const auto& wanted, auto& answer) {
            answer.size = std::clamp(each.there - wanted.offset, 0, wanted.length);
            if (wanted.length == 0)
                answer.size = each.told;
            else if (answer.size > 0)
                answer.data = {static_cast<std::uint32_t>(answer.size),
                               static_cast<unsigned char*>(std::calloc(1, block))};
        });
        EXPECT_EQ(JOURNAL{}.getDocPage(TOPF_P, 1, 1, 0)->size, each.fetched);
        EXPECT_EQ(server.calls().size(), each.calls) << each.told << ", " << each.there;
    }
}

TEST_F(Journal, ABlockThatIsRefusedEndsTheTransfer) {
    server.refuse(60, 2);
    EXPECT_EQ(put(content(40000)), 4);
    EXPECT_EQ(server.calls(), (calls{60, 60}));
}

TEST_F(Journal, PagesAreInsertedCopiedAndRemoved) {
    ASSERT_EQ(put(content(10), 1), 0);
    ASSERT_EQ(put(content(20), 2), 0);
    EXPECT_EQ(journal.insertDocPage(document, 1), 0);
    EXPECT_THAT(get(1), SizeIs(0));
    EXPECT_THAT(get(3), SizeIs(20));
    const a_get_inf_o* inf = journal.getDocInf(TOPF_P, document, 0);
    ASSERT_NE(inf, nullptr);
    EXPECT_EQ(inf->pagecount, 3);
    EXPECT_EQ(inf->pagemasks[0], 0);
    EXPECT_EQ(inf->pagemasks[1], 1);
    EXPECT_EQ(journal.delPoolPage(document, 1), 0);
    EXPECT_THAT(get(1), SizeIs(10));

    const fax_info sources[] = {
        {TOPF_P, document, 2}, {TOPF_P, document, 0}, {TOPF_P, document, 1}};
    server.clear_calls();
    const std::int32_t combined = journal.combineDocs(sources, 3);
    EXPECT_EQ(server.calls(), (calls{3, 16, 16, 16, 42}));
    ASSERT_GT(combined, 0);
    document = combined;
    EXPECT_THAT(get(3), SizeIs(10));
    server.refuse(16, 2);
    EXPECT_EQ(journal.combineDocs(sources, 3), -1);
}

TEST_F(Journal, RecordsOfDocumentsThatAreNotThereAreEmpty) {
    const a_p_rec* desk = journal.getPDoc(document);
    ASSERT_NE(desk, nullptr);
    EXPECT_EQ(desk->faxid, document);
    const a_s_rec* sent = journal.getSDoc(4711);
    ASSERT_NE(sent, nullptr);
    EXPECT_EQ(sent->faxid, 0);
    EXPECT_EQ(desk->faxid, document) << "another procedure's result stays";
}

TEST_F(Journal, TheBifFlagIsClearedOnReading) {
    ASSERT_EQ(journal.setbif(TOPF_P, document, 1), 0);
    server.clear_calls();
    EXPECT_NE(journal.getDocInf(TOPF_P, document, 1), nullptr);
    EXPECT_EQ(server.calls(), (calls{42, 20}));
    EXPECT_FALSE(server.desk("zerdix").at(0).bif);
    server.clear_calls();
    journal.getDocInf(TOPF_P, 0, 1);
    EXPECT_EQ(server.calls(), calls{20});
}

TEST_F(Journal, AForwardedDocumentComesIntoThePoolThatIsNamed) {
    auto& documents = server.store().documents;
    const std::size_t before = documents.list(TOPF_E, "meier").size();
    ASSERT_EQ(journal.forwardDoc(TOPF_P, document, "", "meier", "", TOPF_E), 0);
    EXPECT_THAT(documents.list(TOPF_E, "meier"), SizeIs(before + 1));
}

TEST_F(Journal, TextsAreCutToTheirFields) {
    EXPECT_EQ(journal.putComment2Doc(TOPF_P, document, std::string(40, 'c').c_str()), 0);
    EXPECT_EQ(server.desk("zerdix").at(0).comment, std::string(30, 'c'));
    EXPECT_EQ(journal.putComment2Doc(TOPF_P, 4711, "x"), 4);
}

TEST_F(Journal, ANegativePriorityDoesntGoOut) {
    a_s_rec record{};
    record.priority = -1;
    EXPECT_EQ(journal.sendDoc(document, &record), 4);
    EXPECT_EQ(journal.chgSRec(document, -1, "", 0, 0, 0, 0), 4);
    EXPECT_EQ(server.calls(), calls{});
    session.CleanupHostConnection();
    EXPECT_EQ(journal.sendDoc(document, &record), 12);
}

TEST_F(Journal, PrintDocumentsBelongToThePrintUser) {
    const std::int32_t print = journal.makePrintDoc();
    ASSERT_GT(print, 0);
    EXPECT_THAT(server.desk(".winpr"), SizeIs(1));
    EXPECT_EQ(journal.putComment2Doc(TOPF_P, print, "mine"), 4) << "the session's user isn't it";
    EXPECT_EQ(journal.delPrintDoc(TOPF_P, print), 0);
    EXPECT_EQ(journal.delDoc(TOPF_P, journal.makePrintDoc()), 0) << "left over by a failed job";
}

TEST_F(Journal, TheCoverIdIsAskedForUntilThereIsOne) {
    EXPECT_EQ(journal.getCoverId(), 0);
    server.store().configuration.set("COVER", "17");
    EXPECT_EQ(journal.getCoverId(), 17);
    EXPECT_EQ(journal.getCoverId(), 17);
    EXPECT_EQ(server.calls(), (calls{74, 74}));
}

TEST_F(Journal, ALogIsReadWholeAndFromAPosition) {
    char* text = journal.getLog(TOPF_P, document, 0, nullptr);
    ASSERT_NE(text, nullptr);
    EXPECT_STREQ(text, "");
    for (int i = 0; i < 200; ++i)
        ASSERT_EQ(journal.putLog(TOPF_P, document, ("line " + std::to_string(i)).c_str()), 0);
    std::int32_t next = -1;
    std::string log = journal.getLog(TOPF_P, document, 0, &next);
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 200);
    EXPECT_TRUE(log.starts_with("line 0\r\nline 1\r\n"));
    EXPECT_TRUE(log.ends_with("line 199\r\n"));
    journal.putLog(TOPF_P, document, "later");
    EXPECT_EQ(journal.putLog(TOPF_P, document, nullptr), 0);
    EXPECT_STREQ(journal.getLog(TOPF_P, document, next, &next), "later\r\n\r\n");
    server.fail(72);
    const std::int32_t before = next;
    EXPECT_EQ(journal.getLog(TOPF_P, document, 0, &next), nullptr);
    EXPECT_EQ(next, before);
}

// Room is made in steps of 4,096 characters: here the last line and its end take one more.
TEST_F(Journal, ALineThatMissesTheRoomByOneCharacterGetsMore) {
    std::string whole;
    for (int i = 0; i < 41; ++i) {
        const std::string line(i == 39 ? 14 : 100, 'x');
        ASSERT_EQ(journal.putLog(TOPF_P, document, line.c_str()), 0);
        whole += line + "\r\n";
    }
    ASSERT_EQ(whole.size(), 4096u);
    EXPECT_EQ(journal.getLog(TOPF_P, document, 0, nullptr), whole);
}

TEST_F(Journal, ALongLogStopsGrowing) {
    for (int i = 0; i < 800; ++i)
        ASSERT_EQ(journal.putLog(TOPF_P, document, std::string(150, 'x').c_str()), 0);
    const std::string log = journal.getLog(TOPF_P, document, 0, nullptr);
    EXPECT_TRUE(log.starts_with(std::string(100, 'x') + "\r\n"));
    EXPECT_GT(log.size(), 65000u);
    EXPECT_LT(log.size(), 65536u);
}

TEST_F(Journal, WithoutAHandleNothingIsAsked) {
    session.CleanupHostConnection();
    EXPECT_EQ(journal.makeDoc(), -1);
    EXPECT_EQ(journal.getCoverId(), -1);
    EXPECT_EQ(put(content(1)), 12);
    EXPECT_EQ(journal.getDocPage(TOPF_P, document, 1, 0), nullptr);
    EXPECT_EQ(journal.getLog(TOPF_P, document, 0, nullptr), nullptr);
    EXPECT_EQ(journal.setReadFlag(TOPF_P, document), 12);
    ASSERT_NE(connect(), nullptr);
    EXPECT_GT(journal.makeDoc(), 0) << "the object finds the new connection";
}

} // namespace
} // namespace zerdix::testing
