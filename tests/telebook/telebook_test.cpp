// SPDX-License-Identifier: MIT
// Phone books and recipient groups on the server, and the lists that are gathered from blocks.

#include <zerdix/telebook.h>

#include "rpc/session.h"
#include "support/session_test.h"

namespace zerdix::testing {
namespace {

using ::testing::ElementsAre;

class Telebook : public connected_test {
  protected:
    Telebook() : connected_test(false) {}

    void set_block_size(const char* size) {
        rpc::session().lTelebookBlockSize = 0;
        server.store().configuration.set("PHONEBOOKB", size);
    }

    void put_groups(int count) {
        for (int i = 0; i < count; ++i) {
            o_tgroup group{};
            group.groupid.assign("g" + std::to_string(1000 + i));
            ASSERT_TRUE(server.store().phone_books.put_group(group));
        }
    }

    void put_entry(const char* book, const char* id, nettypetype nettype) {
        o_tebul entry{{}, {}, {}, {}, {}, {}, nettype};
        entry.tbookid.assign(book);
        entry.teleid.assign(id);
        ASSERT_EQ(books.putTBookEntry(&entry), 0);
    }

    template <class Record>
    static std::vector<std::string> ids(PTRLIST* list, str10 Record::*id) {
        std::vector<std::string> found;
        for (std::uint32_t i = 0; list != nullptr && i < list->getSize(); ++i)
            found.emplace_back((static_cast<Record*>((*list)[i])->*id).view());
        return found;
    }

    TELEBOOK books;
};

TEST_F(Telebook, BooksAreWrittenReadAndDeleted) {
    EXPECT_EQ(books.getTBooks()->getSize(), 0u);
    const o_tebu book{{"common"}, {"Alle"}, {}, {}, {}, {{0x11, 2, 3}}, 5, {}, {}, {"text"}};
    ASSERT_EQ(books.putTBook(&book), 0);
    const o_tebu* back = books.getTBook("common");
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->comment, "Alle");
    EXPECT_EQ(back->perms, book.perms);
    EXPECT_EQ(back->t_text2, "text");
    EXPECT_THAT(ids(books.getTBooks(), &o_tebu::tbookid), ElementsAre("common"));
    EXPECT_EQ(books.delTBook("common"), 0);
    EXPECT_EQ(books.delTBook("common"), 4);
    EXPECT_TRUE(books.getTBook("common")->tbookid.empty());
    EXPECT_TRUE(books.getTBook("commonwealth")->tbookid.empty());
}

TEST_F(Telebook, EntriesComeByNetTypeAndBlock) {
    const o_tebu book{{"b"}, {}, {}, {}, {}, {}, {}, {}, {}, {}};
    books.putTBook(&book);
    EXPECT_EQ(books.getTBookEntries("b", NETTYPE_FAX, "", 10)->getSize(), 0u);
    put_entry("b", "anna", NETTYPE_FAX);
    put_entry("b", "berta", NETTYPE_TELEX);
    put_entry("b", "clara", NETTYPE_FAX);
    const auto entries = [&](int nettype, const char* start, std::int32_t size) {
        return ids(books.getTBookEntries("b", static_cast<nettypetype>(nettype), start, size),
                   &o_tebul::teleid);
    };
    EXPECT_THAT(entries(1, "", 10), ElementsAre("anna", "clara"));
    EXPECT_THAT(entries(2, "", 10), ElementsAre("berta"));
    EXPECT_THAT(entries(0, "", 10), ElementsAre("anna", "berta", "clara"));
    EXPECT_THAT(entries(3, "", 2), ElementsAre("anna", "berta"));
    EXPECT_THAT(entries(3, "berta", 2), ElementsAre("berta", "clara"));
    EXPECT_EQ(books.getTBookEntry("b", "anna", 1)->teleid, "anna");
    EXPECT_TRUE(books.getTBookEntry("b", "dora", 1)->tbookid.empty());
    put_entry("b", "a234567890", NETTYPE_FAX);
    EXPECT_THAT(entries(3, "a234567890", 1), ElementsAre("a234567890"));
    EXPECT_THAT(entries(3, "a234567890\xff", 1), ElementsAre("anna")) << "directly behind an id";
    EXPECT_EQ(books.delTBookEntry("b", "anna"), 0);
}

TEST_F(Telebook, MembersAreGatheredByBookAndEntry) {
    set_block_size("3");
    const o_tgroup group{{"team"}, {}, {}, {}, {}, {}};
    ASSERT_EQ(books.putTGroup(&group), 0);
    EXPECT_EQ(books.getTGroupEntries("team", 1)->getSize(), 0u);
    for (const o_tgroupl& member : {o_tgroupl{{"team"}, {"a"}, {"1"}},
                                    {{"team"}, {"a"}, {"2"}},
                                    {{"team"}, {"b"}, {"1"}},
                                    {{"team"}, {"b"}, {"2"}},
                                    {{"team"}, {"c"}, {"1"}}})
        ASSERT_EQ(books.putTGroupEntry(&member), 0);
    EXPECT_THAT(ids(books.getTGroupEntries("team", 1), &o_tgroupl::tbookid),
                ElementsAre("a", "a", "b", "b", "c"));
    EXPECT_THAT(ids(books._getTGroupEntries("team", 1), &o_tgroupl::teleid),
                ElementsAre("1", "2", "1", "2", "1"));
    EXPECT_EQ(books.delTGroupEntry("team", "b", "1"), 0);
    EXPECT_EQ(books.getTGroupEntries("team", 1)->getSize(), 4u);
    EXPECT_EQ(books.delTGroup("team"), 0);
    EXPECT_TRUE(books.getTGroup("team")->groupid.empty());
}

// A list of copies and a list into an answer share a member and are released in different ways.
TEST_F(Telebook, TheTwoKindsOfListsTakeTurns) {
    put_groups(3);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(books.getTGroups()->getSize(), 3u);
        EXPECT_EQ(books._getTGroups()->getSize(), 3u);
    }
    PTRLIST* gathered = books.getTGroups();
    server.fail(65);
    EXPECT_EQ(books._getTGroups(), nullptr);
    EXPECT_EQ(ids(gathered, &o_tgroup::groupid).front(), "g1000") << "the old list stays";
}

} // namespace
} // namespace zerdix::testing
