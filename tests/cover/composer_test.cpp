// SPDX-License-Identifier: MIT
// Cover pages on a server: which calls are made, what the document holds, what the user is told.

#include "common/string_table.h"
#include "cover/composer.h"
#include "cover/state.h"
#include "cover/template_document.h"
#include "imaging/pictures.h"
#include "platform/scratch.h"
#include "support/session_test.h"

namespace zerdix::testing {
namespace {

using common::string_text;
using namespace ::testing;
using calls = std::vector<int>;

class Composer : public connected_test {
  protected:
    Composer() {
        L_InitBitmap(&bitmap, 0, 0, 0);
        document = server.store().documents.create(TOPF_P, "zerdix");
        server.store().pages.put_block({document, 1, 0}, 0, "page");
        record.phone.assign("common:empfang");
        server.clear_calls();
    }

    int insert() {
        boxes.shown.clear();
        server.clear_calls();
        return cover::InsertCoverPage(&session, &journal, &bitmap, &record, document);
    }

    auto told(int number) { return ElementsAre(Pair(string_text(number), string_text(525))); }

    // The document's only page, when no cover page came or stayed in front of it.
    bool is_as_it_was() {
        return server.store().pages.count(document) == 1 &&
               server.store().pages.picture({document, 1, 0}) == "page";
    }

    JOURNAL journal;
    imaging::owned_bitmap bitmap;
    a_s_rec record{};
    std::int32_t document = 0;
    tests::recorded_boxes boxes;
};

TEST_F(Composer, APageIsDrawnInFrontOfTheDocument) {
    install_template(server, page_of(160, 200, 0x01),
                     "#DRUCK#\nsettbookentryphone=0;300;\nsettbookentrycomment=0;300;\n"
                     "setfaxsign=40;50;\nsetfaxsign=40;100;\n");
    server.store().signatures.put("zerdix", as_text(page_of(16, 8, 0xFF)));
    ASSERT_EQ(insert(), 1);
    EXPECT_EQ(server.calls(), (calls{74, 59, 59, 38, 59, 59, 35, 82, 61, 61, 61, 61}));
    EXPECT_THAT(boxes.shown, IsEmpty());
    EXPECT_EQ(server.store().pages.count(document), 2);
    EXPECT_EQ(server.store().pages.picture({document, 2, 0}), "page");

    imaging::picture page = pixels_of(bitmap);
    EXPECT_EQ(bitmap.order, imaging::colour_order::white_first);
    for (std::size_t y = 0; y < page.size(); ++y)
        for (std::size_t x = 0; x < page[y].size(); ++x) {
            const bool signed_here = x >= 40 && x < 56 && (y - 50 < 8 || y - 100 < 8);
            ASSERT_EQ(page[y][x], signed_here || x % 8 == 0) << x << ", " << y;
        }

    // The template's id holds for the process, the user's record for the session.
    ASSERT_EQ(insert(), 1);
    EXPECT_EQ(server.calls(), (calls{59, 59, 38, 59, 59, 82, 61, 61, 61, 61}));
    EXPECT_TRUE(page == pixels_of(bitmap));
    session.setUserId("meier");
    document = server.store().documents.create(TOPF_P, "meier");
    ASSERT_EQ(insert(), 1);
    const calls without_signature{59, 59, 38, 59, 59, 35, 82, 61, 61};
    EXPECT_EQ(server.calls(), without_signature);
    cover::forget_session();
    ASSERT_EQ(insert(), 1);
    EXPECT_EQ(server.calls(), without_signature);
    session.CleanupHostConnection(); // a new object forgets the handle
    ZERDIX other;
    ASSERT_NE(other.GetClientAddr("127.0.0.1"), nullptr);
    server.clear_calls();
    ASSERT_EQ(cover::InsertCoverPage(&other, &journal, &bitmap, &record, document), 1);
    EXPECT_EQ(server.calls(), without_signature) << "the record was another session's";
}

TEST_F(Composer, WithoutCommandsTheBareFormGoesOut) {
    install_template(server, page_of(16, 24, 0xFF), "");
    ASSERT_EQ(insert(), 1);
    EXPECT_EQ(server.calls(), (calls{74, 59, 59, 38, 59}));
    EXPECT_EQ(pixels_of(bitmap), imaging::picture(24, std::vector<int>(16, 1)));
    server.fail(59, 3);
    EXPECT_EQ(insert(), 1) << "a text that can't be fetched is none";
}

TEST_F(Composer, ALandscapeFormIsTurnedWithItsTopToTheLeft) {
    codec::bytes block{0, 0, 0, 24, 0, 0, 0, 8};
    block.resize(8 + 3 * 8);
    std::fill_n(block.begin() + 8, 3, static_cast<unsigned char>(0xFF)); // the top row
    install_template(server, *codec::compress(block), "#DRUCK#\nsetfaxnr=3;-500;\n");
    ASSERT_EQ(insert(), 1);
    imaging::picture turned(24, std::vector<int>(8));
    for (auto& row : turned)
        row[0] = 1;
    EXPECT_EQ(pixels_of(bitmap), turned);
    block[3] = 8;
    block.resize(8 + 8);
    cover::state().lCoverDocId = install_template(server, *codec::compress(block), "");
    ASSERT_EQ(insert(), 1);
    EXPECT_EQ(pixels_of(bitmap)[0], std::vector<int>(8, 1)) << "a square one isn't";
}

TEST_F(Composer, WithoutATemplateThereIsNoPage) {
    EXPECT_EQ(insert(), 0) << "none configured";
    EXPECT_EQ(server.calls(), calls{74});
    EXPECT_THAT(boxes.shown, told(1264));
    server.fail(74);
    EXPECT_EQ(insert(), 0);
    EXPECT_THAT(boxes.shown, told(1264));
    EXPECT_EQ(cover::state().lCoverDocId, 0) << "a failed call is no answer";
    server.set_config("COVER", "99999");
    EXPECT_EQ(insert(), 0) << "no such document";
    EXPECT_EQ(server.calls(), (calls{74, 59}));
    EXPECT_THAT(boxes.shown, told(1264));
    EXPECT_TRUE(is_as_it_was());
}

TEST_F(Composer, AFailureTakesTheNewPageOutAgain) {
    install_template(server, page_of(16, 24), "#DRUCK#\nsetfaxnr=1;1;\nsetfaxsign=1;1;\n");
    server.refuse(38);
    EXPECT_EQ(insert(), 0);
    EXPECT_EQ(server.calls(), (calls{74, 59, 59, 38}));
    EXPECT_THAT(boxes.shown, told(1232));
    EXPECT_TRUE(is_as_it_was());

    server.fail(35);
    EXPECT_EQ(insert(), 0);
    EXPECT_EQ(server.calls(), (calls{59, 59, 38, 59, 59, 35, 15}));
    EXPECT_THAT(boxes.shown, told(1204));
    EXPECT_TRUE(is_as_it_was());

    server.fail(61);
    EXPECT_EQ(insert(), 1) << "a signature that can't be fetched is none";
    EXPECT_THAT(boxes.shown, IsEmpty());
}

TEST_F(Composer, ADamagedFormIsTakenOutAgain) {
    tests::recorded_quits quits;
    const std::pair<codec::bytes, std::vector<int>> forms[] = {
        {{1, 2, 3}, {1}},
        {page_of(0xFFFF, 0xFFFF, 0, 1), {}},
        {page_of(80, 50, 0, 49), {}},
    };
    install_template(server, page_of(16, 24), "");
    ASSERT_EQ(insert(), 1) << "a sound one, which mustn't come again";
    for (const auto& [form, codes] : forms) {
        server.store().pages.remove(document, 1);
        cover::state().lCoverDocId = install_template(server, form, "");
        quits.codes.clear();
        EXPECT_EQ(insert(), 0);
        EXPECT_EQ(server.calls(), (calls{59, 59, 38, 15}));
        EXPECT_THAT(boxes.shown, told(1253));
        EXPECT_EQ(quits.codes, codes);
        EXPECT_FALSE(holds_pixels(bitmap));
        server.store().pages.insert(document, 1);
    }
}

TEST_F(Composer, AReceiverIsLookedUpInItsBook) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"common:baecker", "common", "03023125101"},
        {"private:kunde1", "private", "03023125208"},
        {"empfang", "common", "900"},    // in the shared book
        {"common:druckerei...", "", ""}, // cut to ten characters
        {"common:emp:fang", "", ""},     // the first colon counts
        {":empfang", "", ""},
        {"4711", "", ""},
    };
    o_tebul* entry = nullptr;
    for (const auto& [phone, book, number] : cases) {
        record.phone.assign(phone);
        ASSERT_EQ(cover::FindReceiverEntry(&record, &entry), 1) << phone;
        EXPECT_EQ(entry->tbookid, book) << phone;
        EXPECT_EQ(entry->phone, number) << phone;
    }
    server.fail(82);
    EXPECT_EQ(cover::FindReceiverEntry(&record, &entry), 0);
}

} // namespace
} // namespace zerdix::testing
