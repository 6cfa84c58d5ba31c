// SPDX-License-Identifier: MIT
// Documents, their pages and logs, as a client sees them.
#include <gtest/gtest.h>

#include <sqlite3.h>

#include "desk.h"

namespace zerdix {
namespace {

using namespace test;
using namespace wire::proc;

class Documents : public client_test {
  protected:
    std::int32_t document = create();
};

TEST_F(Documents, BelongToTheirOwner) {
    EXPECT_EQ(create("nobody"), 0);
    EXPECT_EQ(create(""), 0);
    const std::int32_t printed = create(".winpr");
    EXPECT_GT(printed, document);
    ASSERT_TRUE(put_block(document, 1, 0, "page"));

    EXPECT_FALSE(put_block(document, 1, 0, "mine", "meier"));
    EXPECT_FALSE(put_log(document, "x", "meier"));
    EXPECT_EQ(page_size(document, 1, "meier"), 0);
    EXPECT_EQ(page_size(document, 1, "zerdix", TOPF_E), 0);
    EXPECT_EQ(call(a_get_p_1{}, {id("meier"), document}).faxid, 0);
    // What was only made to be printed may go with anybody who is known.
    EXPECT_FALSE(remove(printed, "nobody"));
    EXPECT_TRUE(remove(printed));
    EXPECT_FALSE(remove(document, "meier"));

    EXPECT_TRUE(call(a_set_public_1{}, {me, document, {1}}));
    EXPECT_EQ(page_size(document, 1, "meier"), 4);
    EXPECT_FALSE(put_block(document, 1, 0, "mine", "meier"));

    EXPECT_TRUE(remove(document));
    EXPECT_FALSE(remove(document));
    EXPECT_EQ(page_size(document, 1), 0);
    EXPECT_GT(create(), printed);
}

// How a job becomes a document on somebody else's desk.
TEST_F(Documents, MoveUnderTheAdministrativeUser) {
    ASSERT_TRUE(put_block(document, 1, 0, "page"));
    ASSERT_TRUE(call(a_put_comment_1{}, {me, TOPF_P, document, field<str30>("Gr\xfc\xdf")}));
    const std::int32_t target = create("meier");
    EXPECT_FALSE(call(a_copy_doc_1{}, {me, TOPF_P, document, target}));
    EXPECT_FALSE(call(a_copy_doc_1{}, {id("FAXADM"), TOPF_P, document, document}));
    EXPECT_TRUE(call(a_copy_doc_1{}, {id("FAXADM"), TOPF_P, document, target}));
    EXPECT_FALSE(call(a_is_bif_1{}, {id("meier"), TOPF_P}));
    EXPECT_TRUE(call(a_set_bif_1{}, {id("FAXADM"), TOPF_P, target, {1}}));
    EXPECT_TRUE(put_log(target, "moved", "FAXADM"));

    EXPECT_EQ(page_size(target, 1, "meier"), 4);
    EXPECT_TRUE(call(a_is_bif_1{}, {id("meier"), TOPF_P}));
    EXPECT_FALSE(call(a_is_bif_1{}, {id("meier"), TOPF_E}));
    const a_p_rec& record = call(a_get_p_1{}, {id("meier"), target});
    EXPECT_EQ(record.p_text, "Gr\xfc\xdf");
}

TEST_F(Documents, TakePagesInBlocks) {
    const std::string full(512, 'a');
    // A multiple of the block length ends with an empty block, and isn't there before it.
    EXPECT_TRUE(put_block(document, 1, 0, full));
    EXPECT_TRUE(put_block(document, 1, 512, full));
    EXPECT_EQ(page_size(document, 1), 0);
    EXPECT_EQ(masks(document), std::vector<std::int32_t>{0});
    EXPECT_TRUE(put_block(document, 1, 1024, ""));
    EXPECT_EQ(page_size(document, 1), 1024);
    EXPECT_EQ(masks(document), std::vector<std::int32_t>{1});
    EXPECT_FALSE(put_block(document, 1, 1024, "more"));

    // Offset 0 begins anew; any other must continue exactly, with no larger block.
    EXPECT_TRUE(put_block(document, 1, 0, std::string(512, 'b')));
    for (const std::int32_t wrong : {-1, 1, 511, 513, 1024})
        EXPECT_FALSE(put_block(document, 1, wrong, "c")) << wrong;
    EXPECT_FALSE(put_block(document, 1, 512, full + "a"));
    EXPECT_TRUE(put_block(document, 1, 512, std::string("c\0d", 3)));
    EXPECT_EQ(page_part(document, 1, 510, 16384), std::string("bbc\0d", 5));
    EXPECT_EQ(page_part(document, 1, 515, 16384), "");
    EXPECT_EQ(page_part(document, 1, -1, 16384), "");

    // A block whose length and bytes differ; a page that would leave a gap; a type without a bit.
    EXPECT_FALSE(call(a_put_pageb_1{}, {me, document, 2, 0, 0, 5, lent("four")}));
    EXPECT_FALSE(put_block(document, 3, 0, "x"));
    EXPECT_FALSE(put_block(document, 0, 0, "x"));
    EXPECT_FALSE(put_block(document, 2, 0, "x", "zerdix", 32));
    EXPECT_TRUE(put_block(document, 2, 0, "x", "zerdix", 6));
    EXPECT_EQ(masks(document), (std::vector<std::int32_t>{1, 64}));
}

// Rows of the store hold 32,768 bytes of a picture each.
TEST_F(Documents, TakeAndGiveLargePagesWhole) {
    std::string page;
    for (int i = 0; page.size() < 200'000; ++i)
        page += std::to_string(i);
    for (const std::size_t block : {page.size(), std::size_t{33'000}, std::size_t{20'000}}) {
        SCOPED_TRACE(block);
        std::size_t at = 0;
        do {
            ASSERT_TRUE(
                put_block(document, 1, static_cast<std::int32_t>(at), page.substr(at, block)));
            at += block;
        } while (at <= page.size());
        ASSERT_EQ(page_size(document, 1), static_cast<std::int32_t>(page.size()));
        for (const auto& [offset, length] :
             {std::pair{0, 200'000}, {32'767, 2}, {32'768, 32'768}, {100'000, 90'000}})
            EXPECT_EQ(
                page_part(document, 1, offset, length),
                page.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(length)));
        const std::int32_t copy = create();
        EXPECT_TRUE(call(a_copy_doc_1{}, {me, TOPF_P, document, copy}));
        EXPECT_EQ(page_part(copy, 1, 0, 1 << 20), page);
        EXPECT_EQ(server.store().pages.picture({copy, 1, 0}), page);
    }
}

// A block costs what it holds, however much of the page came before it.
TEST_F(Documents, AreWrittenOnce) {
    alphad::database& db = server.store().database();
    const auto pages_written = [&] {
        int written = 0, unused = 0;
        sqlite3_db_status(db.handle(), SQLITE_DBSTATUS_CACHE_WRITE, &written, &unused, 0);
        return written;
    };
    const std::string block(16'384, 'x');
    const int before = pages_written();
    for (std::int32_t i = 0; i < 64; ++i) {
        alphad::transaction each(db);
        ASSERT_TRUE(server.store().pages.put_block({document, 1, 0}, i * 16'384, block));
        each.commit();
    }
    EXPECT_LT(pages_written() - before, 3 * 64 * 16'384 / 4096);
}

TEST_F(Documents, MovePagesAround) {
    for (std::int16_t page = 1; page <= 3; ++page)
        ASSERT_TRUE(put_block(document, page, 0, std::string(10, char('0' + page))));
    const auto order = [&] {
        std::string text;
        for (std::size_t page = 1; page <= masks(document).size(); ++page) {
            const std::string part = page_part(document, static_cast<std::int16_t>(page), 0, 1);
            text += part.empty() ? "-" : part;
        }
        return text;
    };
    EXPECT_TRUE(call(a_insert_page_1{}, {me, document, 1}));
    EXPECT_EQ(order(), "-123");
    EXPECT_TRUE(put_block(document, 1, 0, "c"));
    EXPECT_TRUE(call(a_insert_page_1{}, {me, document, 5}));
    EXPECT_FALSE(call(a_insert_page_1{}, {me, document, 7}));
    EXPECT_EQ(order(), "c123-");
    EXPECT_TRUE(call(a_copy_page_1{}, {me, TOPF_P, document, 3, document, 5}));
    EXPECT_TRUE(call(a_copy_page_1{}, {me, TOPF_P, document, 1, document, 6}));
    EXPECT_FALSE(call(a_copy_page_1{}, {me, TOPF_P, document, 7, document, 1}));
    EXPECT_FALSE(call(a_copy_page_1{}, {me, TOPF_P, document, 1, document, 8}));
    EXPECT_EQ(order(), "c1232c");
    EXPECT_TRUE(call(a_del_page_1{}, {me, document, 2}));
    EXPECT_FALSE(call(a_del_page_1{}, {me, document, 6}));
    EXPECT_FALSE(call(a_del_page_1{}, {me, document, 0}));
    EXPECT_EQ(order(), "c232c");
}

TEST_F(Documents, GiveTheirLogByPosition) {
    for (int i = 0; i < 85; ++i)
        ASSERT_TRUE(put_log(document, std::string("line ") + std::to_string(i) + '\0'));
    const log_answer first = get_log(document, 0);
    EXPECT_TRUE(first.more);
    EXPECT_EQ(first.position, 80);
    ASSERT_EQ(first.lines.size(), 80u);
    EXPECT_EQ(first.lines[79], "line 79");
    const log_answer second = get_log(document, first.position);
    EXPECT_TRUE(second.more);
    EXPECT_EQ(second.lines.size(), 5u);
    EXPECT_EQ(second.position, 85);
    const log_answer none = get_log(document, 85);
    EXPECT_FALSE(none.more);
    EXPECT_TRUE(none.lines.empty());
    EXPECT_FALSE(get_log(document, -1).more);
    EXPECT_FALSE(get_log(document + 1, 0).more);
}

TEST_F(Documents, TellTheirLogInWords) {
    const std::string time = "Tue Nov 07 09:05:03 1995  ";
    for (const char* event :
         {"$ps.document_created: $f:=17 $u:=zerdix $a:=alpha", "$ps.page_no_completed: $p:=3",
          "$ps.document_deleted:", "$ps.document_deleted: $f:=4 $u:=meier",
          "$ps.document_created: $f:=17", "$xx.unknown: $f:=1"})
        ASSERT_TRUE(put_log(document, time + event));
    ASSERT_TRUE(put_log(document, std::string(150, 'x')));
    EXPECT_EQ(get_log(document, 0, "german_germany").lines,
              (std::vector<std::string>{time + "Dokument 17 f\xfcr zerdix auf alpha angelegt",
                                        time + "Seite 3 gespeichert", time + "Dokument gel\xf6scht",
                                        time + "Dokument 4 von meier gel\xf6scht",
                                        time + "$ps.document_created: $f:=17",
                                        time + "$xx.unknown: $f:=1", std::string(100, 'x')}));
    EXPECT_EQ(get_log(document, 1, "french_france").lines[0], time + "page 3 enregistr\351e");
    EXPECT_EQ(get_log(document, 1, "klingon").lines[0], time + "page 3 stored");
}

} // namespace
} // namespace zerdix
