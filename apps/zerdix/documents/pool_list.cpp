// SPDX-License-Identifier: MIT
#include "documents/pool_list.h"

#include <algorithm>
#include <string>
#include <vector>

#include <zerdix/pager.h>

#include "documents/document_records.h"

namespace zerdix::app {

namespace {

// A block begins with the last document of the one before it.
constexpr std::int32_t smallest_block = 2;

template <class Record>
json& append(json& all, const std::vector<const Record*>& documents) {
    for (const Record* document : documents)
        all.push_back(as_json(*document));
    return all;
}

// Runs `list` with an empty record of the pool, for its type.
template <class List>
json by_record(topftype pool, List list) {
    if (pool == TOPF_E)
        return list(a_e_rec{});
    if (pool == TOPF_S)
        return list(a_s_rec{});
    return list(a_p_rec{});
}

const PTRLIST& load_block(user_session& user, topftype pool, list_selection which,
                          std::int32_t from, int most) {
    JOURNAL& journal = user.journal();
    user.expect(
        std::string("listing the ") + pool_word(pool) + " documents",
        [&] { return journal.loadDocPtrList(pool, which, from, most); },
        "the server no longer knows the login");
    if (pool == TOPF_E)
        return *journal.getEDocPtrList();
    return pool == TOPF_S ? *journal.getSDocPtrList() : *journal.getPDocPtrList();
}

std::int32_t block_size(user_session& user) {
    const call_probe watch;
    const std::int32_t size = ZERDIX::clsGetJournalBlockSize();
    if (size == -1 || (size == call_without_connection && ZERDIX::clsGetClient() == nullptr))
        user.lost("asking for the size of a block", watch);
    return std::max(size, smallest_block);
}

// Ids ascend, so that a document counts only behind the last one of the blocks before.
template <class Record>
struct ascending_ids {
    bool operator()(const PTRLIST& block, const Record* last, std::vector<const Record*>& fresh) {
        const std::int32_t last_id = last != nullptr ? last->faxid : 0;
        for (const Record* document : records<Record>(block))
            if (document->faxid > last_id)
                fresh.push_back(document);
        return true;
    }
};

} // namespace

json list_block(user_session& user, topftype pool, list_selection which, std::int32_t from,
                int most) {
    const PTRLIST& block = load_block(user, pool, which, from, most);
    return by_record(pool, [&]<class Record>(const Record&) {
        json all = json::array();
        return append(all, records<Record>(block));
    });
}

json list_pool(user_session& user, topftype pool, list_selection which, std::int32_t from) {
    const std::int32_t size = block_size(user);
    return by_record(pool, [&]<class Record>(const Record&) {
        json all = json::array();
        pager<Record, ascending_ids<Record>> pages;
        for (;;) {
            const paging step = pages.next([&](const Record* last) {
                return &load_block(user, pool, which, last != nullptr ? last->faxid : from, size);
            });
            append(all, pages.fresh());
            if (step != paging::goes_on || pages.block_size() < static_cast<std::uint32_t>(size))
                return all;
        }
    });
}

} // namespace zerdix::app
