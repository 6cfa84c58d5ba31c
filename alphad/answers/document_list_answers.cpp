// SPDX-License-Identifier: MIT
#include "alphad/answers/answers.h"
#include "alphad/answers/document_records.h"
#include "alphad/answers/heap_result.h"

namespace zerdix::alphad {

namespace {

bool is_shown(const a_e_rec&, const document& from, selectiontype selection) {
    return selection != select_new || from.bif;
}

bool is_shown(const a_p_rec&, const document& from, selectiontype selection) {
    return selection != select_new || from.bif;
}

bool is_shown(const a_s_rec& record, const document&, selectiontype selection) {
    return selection != select_errors || record.errorstatus != send_error_none;
}

document_rows rows_of(const documents& documents, topftype pool, const std::string& user,
                      const a_get_elistb_i& in) {
    if (pool == TOPF_P && in.selection == select_public)
        return documents.public_rows(in.firstvalue);
    return documents.rows(pool, user, in.firstvalue);
}

// `firstvalue` is the id at which the block begins, `secondvalue` the most records.
template <class Result, class Node>
Result list_pool(const store& store, topftype pool, const std::optional<std::string>& user,
                 const a_get_elistb_i& in) {
    chain<Node> nodes;
    if (!user || in.secondvalue <= 0)
        return {0, nullptr};
    document_rows rows = rows_of(store.documents, pool, *user, in);
    while (const auto each = rows.next()) {
        const auto record = record_of<decltype(Node::record)>(store, *each);
        if (!is_shown(record, *each, in.selection))
            continue;
        nodes.append().record = record;
        if (nodes.count() == in.secondvalue)
            break;
    }
    return {nodes.count(), nodes.take()};
}

a_get_elistb_i whole(const a_get_elist_i& in) {
    return {in.loginid, in.selection, first_block, std::numeric_limits<std::int32_t>::max()};
}

} // namespace

a_get_elist_o answers::answer(proc::a_get_elistb_1, const a_get_elistb_i& in) {
    return list_pool<a_get_elist_o, a_e_node>(store_, TOPF_E, sessions_.user_of(in.loginid), in);
}

a_get_plist_o answers::answer(proc::a_get_plistb_1, const a_get_plistb_i& in) {
    return list_pool<a_get_plist_o, a_p_node>(store_, TOPF_P, sessions_.user_of(in.loginid), in);
}

a_get_slist_o answers::answer(proc::a_get_slistb_1, const a_get_slistb_i& in) {
    return list_pool<a_get_slist_o, a_s_node>(store_, TOPF_S, sessions_.user_of(in.loginid), in);
}

a_get_elist_o answers::answer(proc::a_get_elist_1, const a_get_elist_i& in) {
    return answer(proc::a_get_elistb_1{}, whole(in));
}

a_get_plist_o answers::answer(proc::a_get_plist_1, const a_get_plist_i& in) {
    return answer(proc::a_get_plistb_1{}, whole(in));
}

a_get_slist_o answers::answer(proc::a_get_slist_1, const a_get_slist_i& in) {
    return answer(proc::a_get_slistb_1{}, whole(in));
}

} // namespace zerdix::alphad
