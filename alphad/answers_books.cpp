#include "alphad/answers.h"
#include "alphad/heap_result.h"

namespace zerdix::alphad {

namespace {

boolean yes(bool value) {
    return {value ? 1 : 0};
}

// A list result: its chain's nodes take the records in `field`.
template <class Result, class Node, class Record>
Result list_of(const std::vector<Record>& records, Record Node::*field) {
    chain<Node> nodes;
    for (const Record& record : records)
        nodes.append().*field = record;
    return {nodes.count(), nodes.take()};
}

} // namespace

boolean answers::answer(proc::o_put_tbook_1, const o_put_tbook_i& in) {
    return yes(store_.phone_books.put_book(in.record));
}

o_tebu answers::answer(proc::o_get_tbook_1, const o_get_tbook_i& in) {
    return store_.phone_books.book(in.tbookid).value_or(o_tebu{});
}

o_get_tbooks_o answers::answer(proc::o_get_tbooks_1, const o_get_tbooks_i&) {
    return list_of<o_get_tbooks_o>(store_.phone_books.books(), &o_tebu_node::book);
}

o_get_tbooksb_o answers::answer(proc::o_get_tbooksb_1, const o_get_tbooksb_i& in) {
    return list_of<o_get_tbooksb_o>(store_.phone_books.books(in.start, in.blocksize),
                                    &o_tebu_node::book);
}

boolean answers::answer(proc::o_del_tbook_1, const o_del_tbook_i& in) {
    return yes(store_.phone_books.remove_book(in.tbookid));
}

boolean answers::answer(proc::o_put_tbookentry_1, const o_put_tbookentry_i& in) {
    return yes(store_.phone_books.put_entry(in.record));
}

o_tebul answers::answer(proc::o_get_tbookentry_1, const o_get_tbookentry_i& in) {
    return store_.phone_books.entry(in.tbookid, in.teleid).value_or(o_tebul{});
}

o_get_tbookl_o answers::answer(proc::o_get_tbookl_1, const o_get_tbookl_i& in) {
    return list_of<o_get_tbookl_o>(
        store_.phone_books.entries(in.tbookid, in.netmask, in.start, in.blocksize),
        &o_tebul_node::entry);
}

boolean answers::answer(proc::o_del_tbookentry_1, const o_del_tbookentry_i& in) {
    return yes(store_.phone_books.remove_entry(in.tbookid, in.teleid));
}

boolean answers::answer(proc::o_put_tgroup_1, const o_put_tgroup_i& in) {
    return yes(store_.phone_books.put_group(in.record));
}

o_tgroup answers::answer(proc::o_get_tgroup_1, const o_get_tgroup_i& in) {
    return store_.phone_books.group(in.groupid).value_or(o_tgroup{});
}

o_get_tgroups_o answers::answer(proc::o_get_tgroups_1, const o_get_tgroups_i&) {
    return list_of<o_get_tgroups_o>(store_.phone_books.groups(), &o_tgroup_node::tgroup);
}

o_get_tgroupsb_o answers::answer(proc::o_get_tgroupsb_1, const o_get_tgroupsb_i& in) {
    return list_of<o_get_tgroupsb_o>(store_.phone_books.groups(in.start, in.blocksize),
                                     &o_tgroup_node::tgroup);
}

boolean answers::answer(proc::o_del_tgroup_1, const o_del_tgroup_i& in) {
    return yes(store_.phone_books.remove_group(in.groupid));
}

boolean answers::answer(proc::o_put_tgroupentry_1, const o_put_tgroupentry_i& in) {
    return yes(store_.phone_books.put_member(in.record));
}

o_get_tgroupl_o answers::answer(proc::o_get_tgroupl_1, const o_get_tgroupl_i& in) {
    return list_of<o_get_tgroupl_o>(store_.phone_books.members(in.groupid),
                                    &o_tgroupl_node::tmember);
}

o_get_tgrouplb_o answers::answer(proc::o_get_tgrouplb_1, const o_get_tgrouplb_i& in) {
    return list_of<o_get_tgrouplb_o>(
        store_.phone_books.members(in.groupid, in.starttbook, in.starttele, in.blocksize),
        &o_tgroupl_node::tmember);
}

boolean answers::answer(proc::o_del_tgroupentry_1, const o_del_tgroupentry_i& in) {
    return yes(store_.phone_books.remove_member({in.groupid, in.tbookid, in.teleid}));
}

} // namespace zerdix::alphad
