// SPDX-License-Identifier: MIT
// A record that a user may not read is hidden from that user: lists leave it out, and looking it up
// gives an empty record.
#include "alphad/answers/answers.h"
#include "alphad/answers/heap_result.h"

namespace zerdix::alphad {

namespace {

// The record with the owner it is meant to have: the one that it names, else the present one, and
// for a new record whoever writes it. One that comes with neither owner nor rights says nothing of
// them, so the present ones stay, and those of the group with them.
template <class Record>
Record owned(Record record, const std::optional<Record>& present, const str10& user) {
    if (!record.owner.empty())
        return record;
    record.owner = present ? present->owner : clean_key(user);
    if (present && record.perms == opaque<3>{}) {
        record.perms = present->perms;
        if (record.group.empty())
            record.group = present->group;
    }
    return record;
}

} // namespace

template <class Record>
bool answers::may(const str10& user, book_right wanted, const std::optional<Record>& record) const {
    return record && rights_.may(user, wanted, *record);
}

// Of the rows those that the user may read, at most so many.
template <class Result, class Node, class Record>
Result answers::readable_list(const str10& user, record_rows<Record>&& rows, Record Node::*field,
                              std::int32_t most) const {
    chain<Node> nodes;
    for (Record record; nodes.count() < most && rows.next(record);)
        if (rights_.may(user, right_read, record))
            nodes.append().*field = record;
    return {nodes.count(), nodes.take()};
}

boolean answers::answer(proc::o_put_tbook_1, const o_put_tbook_i& in) {
    const auto present = store_.phone_books.book(in.record.tbookid);
    const o_tebu wanted = owned(in.record, present, in.userid);
    return yes((!present || rights_.may_replace(in.userid, *present, wanted)) &&
               store_.phone_books.put_book(wanted));
}

o_tebu answers::answer(proc::o_get_tbook_1, const o_get_tbook_i& in) {
    const auto book = store_.phone_books.book(in.tbookid);
    return may(in.userid, right_read, book) ? *book : o_tebu{};
}

o_get_tbooks_o answers::answer(proc::o_get_tbooks_1, const o_get_tbooks_i& in) {
    return readable_list<o_get_tbooks_o>(in.userid, store_.phone_books.books(), &o_tebu_node::book,
                                         no_limit);
}

o_get_tbooksb_o answers::answer(proc::o_get_tbooksb_1, const o_get_tbooksb_i& in) {
    return readable_list<o_get_tbooksb_o>(in.userid, store_.phone_books.books(in.start),
                                          &o_tebu_node::book, in.blocksize);
}

boolean answers::answer(proc::o_del_tbook_1, const o_del_tbook_i& in) {
    return yes(may(in.userid, right_remove, store_.phone_books.book(in.tbookid)) &&
               store_.phone_books.remove_book(in.tbookid));
}

boolean answers::answer(proc::o_put_tbookentry_1, const o_put_tbookentry_i& in) {
    const bool present = store_.phone_books.has_entry(in.record.tbookid, in.record.teleid);
    return yes(may(in.userid, present ? right_change : right_add,
                   store_.phone_books.book(in.record.tbookid)) &&
               store_.phone_books.put_entry(in.record));
}

o_tebul answers::answer(proc::o_get_tbookentry_1, const o_get_tbookentry_i& in) {
    if (!may(in.userid, right_read, store_.phone_books.book(in.tbookid)))
        return {};
    return store_.phone_books.entry(in.tbookid, in.teleid).value_or(o_tebul{});
}

o_get_tbookl_o answers::answer(proc::o_get_tbookl_1, const o_get_tbookl_i& in) {
    if (!may(in.userid, right_read, store_.phone_books.book(in.tbookid)))
        return {};
    return list_of_rows<o_get_tbookl_o>(
        store_.phone_books.entries(in.tbookid, in.netmask, in.start, in.blocksize),
        &o_tebul_node::entry);
}

boolean answers::answer(proc::o_del_tbookentry_1, const o_del_tbookentry_i& in) {
    return yes(may(in.userid, right_remove, store_.phone_books.book(in.tbookid)) &&
               store_.phone_books.remove_entry(in.tbookid, in.teleid));
}

boolean answers::answer(proc::o_put_tgroup_1, const o_put_tgroup_i& in) {
    const auto present = store_.phone_books.group(in.record.groupid);
    const o_tgroup wanted = owned(in.record, present, in.userid);
    return yes((!present || rights_.may_replace(in.userid, *present, wanted)) &&
               store_.phone_books.put_group(wanted));
}

o_tgroup answers::answer(proc::o_get_tgroup_1, const o_get_tgroup_i& in) {
    const auto group = store_.phone_books.group(in.groupid);
    return may(in.userid, right_read, group) ? *group : o_tgroup{};
}

o_get_tgroups_o answers::answer(proc::o_get_tgroups_1, const o_get_tgroups_i& in) {
    return readable_list<o_get_tgroups_o>(in.userid, store_.phone_books.groups(),
                                          &o_tgroup_node::tgroup, no_limit);
}

o_get_tgroupsb_o answers::answer(proc::o_get_tgroupsb_1, const o_get_tgroupsb_i& in) {
    return readable_list<o_get_tgroupsb_o>(in.userid, store_.phone_books.groups(in.start),
                                           &o_tgroup_node::tgroup, in.blocksize);
}

boolean answers::answer(proc::o_del_tgroup_1, const o_del_tgroup_i& in) {
    return yes(may(in.userid, right_remove, store_.phone_books.group(in.groupid)) &&
               store_.phone_books.remove_group(in.groupid));
}

boolean answers::answer(proc::o_put_tgroupentry_1, const o_put_tgroupentry_i& in) {
    return yes(may(in.userid, right_add, store_.phone_books.group(in.record.groupid)) &&
               store_.phone_books.put_member(in.record));
}

o_get_tgroupl_o answers::answer(proc::o_get_tgroupl_1, const o_get_tgroupl_i& in) {
    if (!may(in.userid, right_read, store_.phone_books.group(in.groupid)))
        return {};
    return list_of<o_get_tgroupl_o>(store_.phone_books.members(in.groupid),
                                    &o_tgroupl_node::tmember);
}

o_get_tgrouplb_o answers::answer(proc::o_get_tgrouplb_1, const o_get_tgrouplb_i& in) {
    if (!may(in.userid, right_read, store_.phone_books.group(in.groupid)))
        return {};
    return list_of<o_get_tgrouplb_o>(
        store_.phone_books.members(in.groupid, in.starttbook, in.starttele, in.blocksize),
        &o_tgroupl_node::tmember);
}

boolean answers::answer(proc::o_del_tgroupentry_1, const o_del_tgroupentry_i& in) {
    return yes(may(in.userid, right_remove, store_.phone_books.group(in.groupid)) &&
               store_.phone_books.remove_member({in.groupid, in.tbookid, in.teleid}));
}

} // namespace zerdix::alphad
