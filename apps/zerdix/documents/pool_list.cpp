#include "documents/pool_list.h"

#include <algorithm>

#include "documents/document_records.h"

namespace zerdix::app {

namespace {

// A block begins with the last document of the one before it.
constexpr std::int32_t smallest_block = 2;

template <class Record>
void append(json& all, const PTRLIST& list) {
    for (const Record* record : records<Record>(list))
        all.push_back(as_json(*record));
}

json loaded(JOURNAL& journal, topftype pool) {
    json all = json::array();
    if (pool == TOPF_E)
        append<a_e_rec>(all, *journal.getEDocPtrList());
    else if (pool == TOPF_S)
        append<a_s_rec>(all, *journal.getSDocPtrList());
    else
        append<a_p_rec>(all, *journal.getPDocPtrList());
    return all;
}

std::int32_t block_size(user_session& user) {
    const call_probe watch;
    const std::int32_t size = ZERDIX::clsGetJournalBlockSize();
    if (size == -1 || (size == 12 && ZERDIX::clsGetClient() == nullptr))
        user.lost("asking for the size of a block", watch);
    return std::max(size, smallest_block);
}

std::int32_t id_of(const json& document) {
    return document["id"].get<std::int32_t>();
}

// What the block adds to the list. A server that goes back adds nothing.
bool append_later(json& all, json& block) {
    const std::int32_t last = all.empty() ? 0 : id_of(all.back());
    const std::size_t before = all.size();
    for (json& document : block) {
        if (id_of(document) > last)
            all.push_back(std::move(document));
    }
    return all.size() > before;
}

} // namespace

json list_block(user_session& user, topftype pool, list_selection which, std::int32_t from,
                int most) {
    JOURNAL& journal = user.journal();
    user.expect(
        std::string("listing the ") + pool_word(pool) + " documents",
        [&] { return journal.loadDocPtrList(pool, which, from, most); },
        "the server no longer knows the login");
    return loaded(journal, pool);
}

json list_pool(user_session& user, topftype pool, list_selection which, std::int32_t from) {
    const std::int32_t size = block_size(user);
    json all = json::array();
    for (;;) {
        json block = list_block(user, pool, which, all.empty() ? from : id_of(all.back()), size);
        const bool full = block.size() >= static_cast<std::size_t>(size);
        if (!append_later(all, block) || !full)
            return all;
    }
}

} // namespace zerdix::app
