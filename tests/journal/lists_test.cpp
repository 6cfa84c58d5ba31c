// SPDX-License-Identifier: MIT
// The lists of the three pools, which need a login, and the flag of documents not looked at yet.

#include <zerdix/journal.h>

#include "support/session_test.h"

namespace zerdix::testing {
namespace {

using namespace ::testing;
using calls = std::vector<int>;
using ids = std::vector<std::int32_t>;

// What is known of a pool: its getter and its two procedures.
struct pool_case {
    topftype pool;
    PTRLIST* (JOURNAL::*list)();
    int whole;
    int block;
};

const pool_case pools[] = {
    {TOPF_S, &JOURNAL::getSDocPtrList, 9, 87},
    {TOPF_E, &JOURNAL::getEDocPtrList, 7, 85},
    {TOPF_P, &JOURNAL::getPDocPtrList, 8, 86},
};

class JournalLists : public session_test {
  protected:
    JournalLists() {
        EXPECT_EQ(session.login("zerdix", "zerdix", "127.0.0.1"), 0);
        server.clear_calls();
    }

    // Three documents more in a pool; the ids of all that are in it now.
    ids fill(topftype pool) {
        for (int i = 0; i < 3; ++i)
            server.store().documents.create(pool, "zerdix");
        ids all;
        for (const alphad::document& each : server.store().documents.list(pool, "zerdix"))
            all.push_back(each.id);
        return all;
    }

    // All three records begin with their id.
    static ids ids_of(PTRLIST* list) {
        ids found;
        for (std::uint32_t i = 0; list != nullptr && i < list->getSize(); ++i)
            found.push_back(*static_cast<std::int32_t*>((*list)[i]));
        return found;
    }

    JOURNAL journal;
};

TEST_F(JournalLists, EveryPoolComesWholeAndByBlocks) {
    for (const pool_case& each : pools) {
        SCOPED_TRACE(each.pool);
        const ids all = fill(each.pool);
        server.clear_calls();
        EXPECT_EQ((journal.*each.list)(), nullptr) << "before the first load";
        ASSERT_EQ(journal.loadDocPtrList(each.pool, 0), 0);
        EXPECT_EQ(ids_of((journal.*each.list)()), all);
        ASSERT_EQ(journal.loadDocPtrList(each.pool, 0, all[1], 2), 0);
        EXPECT_THAT(ids_of((journal.*each.list)()), ElementsAre(all[1], all[2]));
        EXPECT_EQ(server.calls(), (calls{55, each.whole, 55, each.block}));

        server.fail(each.block);
        EXPECT_EQ(journal.loadDocPtrList(each.pool, 0, 0, 2), 8);
        ASSERT_NE((journal.*each.list)(), nullptr);
        EXPECT_THAT(ids_of((journal.*each.list)()), IsEmpty()) << "its answer is gone";
        EXPECT_EQ(journal.loadDocPtrList(each.pool, 0), 0);
        EXPECT_EQ(ids_of((journal.*each.list)()), all);
        server.refuse(each.whole);
        EXPECT_EQ(journal.loadDocPtrList(each.pool, 0), 0);
        ASSERT_NE((journal.*each.list)(), nullptr);
        EXPECT_THAT(ids_of((journal.*each.list)()), IsEmpty()) << "an empty pool";
    }
}

TEST_F(JournalLists, WithoutALoginTheOldListStays) {
    const ids all = fill(TOPF_P);
    ASSERT_EQ(journal.loadDocPtrList(TOPF_P, 0), 0);
    server.refuse(55);
    EXPECT_EQ(journal.loadDocPtrList(TOPF_P, 0), 4);
    server.fail(55);
    EXPECT_EQ(journal.loadDocPtrList(TOPF_P, 0, 0, 1), 4) << "a failed check is no login either";
    EXPECT_EQ(ids_of(journal.getPDocPtrList()), all);
    server.clear_calls();
    EXPECT_EQ(journal.loadDocPtrList(static_cast<topftype>(3), 0), 0) << "there is no such pool";
    EXPECT_EQ(journal.loadDocPtrList(static_cast<topftype>(-1), 0, 0, 1), 0);
    EXPECT_EQ(server.calls(), (calls{55, 55}));

    session.CleanupHostConnection();
    EXPECT_EQ(journal.loadDocPtrList(TOPF_P, 0), 4);
    EXPECT_EQ(ids_of(journal.getPDocPtrList()), all);
}

// The two procedures of a pool share a member, and each answer belongs to whoever called last.
TEST_F(JournalLists, AnObjectReleasesOnlyItsOwnAnswer) {
    const ids all = fill(TOPF_E);
    for (const bool by_block : {false, true}) {
        auto other = std::make_unique<JOURNAL>();
        const auto load = [&](JOURNAL& into) {
            return by_block ? into.loadDocPtrList(TOPF_E, 0, 0, 200)
                            : into.loadDocPtrList(TOPF_E, 0);
        };
        EXPECT_EQ(load(*other), 0);
        EXPECT_EQ(load(journal), 0);
        other.reset();
        EXPECT_EQ(ids_of(journal.getEDocPtrList()), all);
    }
}

TEST_F(JournalLists, ABifFlagIsFoundInItsPool) {
    const ids all = fill(TOPF_P);
    for (const ids::value_type id : all)
        journal.setReadFlag(TOPF_P, id);
    EXPECT_EQ(journal.isBifStatus(TOPF_P), 0);
    ASSERT_EQ(journal.setbif(TOPF_P, all[1], 1), 0);
    EXPECT_EQ(journal.isBifStatus(TOPF_P), 1);
    session.CleanupHostConnection();
    EXPECT_EQ(journal.isBifStatus(TOPF_P), 12);
}

} // namespace
} // namespace zerdix::testing
