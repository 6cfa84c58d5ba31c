// SPDX-License-Identifier: MIT
#include "alphad/store/phone_books.h"

namespace zerdix::alphad {

namespace {

std::string_view key_of(const str10& clean) {
    return whole_key(clean);
}

template <class Record>
void give_rights(Record& fresh) {
    if (fresh.perms == opaque<3>{})
        fresh.perms = default_rights;
}

// A negative limit would mean none at all.
std::int32_t at_most(std::int32_t most) {
    return most > 0 ? most : 0;
}

} // namespace

record_rows<o_tebu> phone_books::books(const str10& start) const {
    return {db_, "SELECT record FROM books WHERE id >= ? ORDER BY id", whole_key(start)};
}

std::optional<o_tebu> phone_books::book(const str10& id) const {
    return record_rows<o_tebu>(db_, "SELECT record FROM books WHERE id = ?", key_of(clean_key(id)))
        .first();
}

bool phone_books::put_book(o_tebu book) {
    book.tbookid = clean_key(book.tbookid);
    if (book.tbookid.empty())
        return false;
    if (!this->book(book.tbookid))
        give_rights(book);
    execute(db_,
            "INSERT INTO books (id, record) VALUES (?, ?) "
            "ON CONFLICT (id) DO UPDATE SET record = excluded.record",
            key_of(book.tbookid), to_stored(book));
    return true;
}

bool phone_books::remove_book(const str10& id) {
    return execute(db_, "DELETE FROM books WHERE id = ?", key_of(clean_key(id))) == 1;
}

record_rows<o_tebul> phone_books::entries(const str10& book, std::int32_t netmask,
                                          const str10& start, std::int32_t most) const {
    return {db_,
            "SELECT record FROM entries WHERE book = ? AND id >= ? "
            "AND (? >> nettype) & 1 ORDER BY id LIMIT ?",
            key_of(clean_key(book)),
            whole_key(start),
            netmask,
            at_most(most)};
}

std::optional<o_tebul> phone_books::entry(const str10& book, const str10& id) const {
    return record_rows<o_tebul>(db_, "SELECT record FROM entries WHERE book = ? AND id = ?",
                                key_of(clean_key(book)), key_of(clean_key(id)))
        .first();
}

bool phone_books::has_entry(const str10& book, const str10& id) const {
    return statement(db_, "SELECT 1 FROM entries WHERE book = ? AND id = ?",
                     key_of(clean_key(book)), key_of(clean_key(id)))
        .step();
}

bool phone_books::put_entry(o_tebul entry) {
    entry.tbookid = clean_key(entry.tbookid);
    entry.teleid = clean_key(entry.teleid);
    if (entry.teleid.empty() || !book(entry.tbookid))
        return false;
    execute(db_, "INSERT OR REPLACE INTO entries (book, id, nettype, record) VALUES (?, ?, ?, ?)",
            key_of(entry.tbookid), key_of(entry.teleid), entry.nettype, to_stored(entry));
    return true;
}

bool phone_books::remove_entry(const str10& book, const str10& id) {
    return execute(db_, "DELETE FROM entries WHERE book = ? AND id = ?", key_of(clean_key(book)),
                   key_of(clean_key(id))) == 1;
}

record_rows<o_tgroup> phone_books::groups(const str10& start) const {
    return {db_, "SELECT record FROM groups WHERE id >= ? ORDER BY id", whole_key(start)};
}

std::optional<o_tgroup> phone_books::group(const str10& id) const {
    return record_rows<o_tgroup>(db_, "SELECT record FROM groups WHERE id = ?",
                                 key_of(clean_key(id)))
        .first();
}

bool phone_books::put_group(o_tgroup group) {
    group.groupid = clean_key(group.groupid);
    if (group.groupid.empty())
        return false;
    if (!this->group(group.groupid))
        give_rights(group);
    execute(db_,
            "INSERT INTO groups (id, record) VALUES (?, ?) "
            "ON CONFLICT (id) DO UPDATE SET record = excluded.record",
            key_of(group.groupid), to_stored(group));
    return true;
}

bool phone_books::remove_group(const str10& id) {
    return execute(db_, "DELETE FROM groups WHERE id = ?", key_of(clean_key(id))) == 1;
}

std::vector<o_tgroupl> phone_books::members(const str10& group, const str10& start_book,
                                            const str10& start_entry, std::int32_t most) const {
    const str10 id = clean_key(group);
    statement row(db_,
                  "SELECT book, id FROM members WHERE groupid = ? AND (book, id) >= (?, ?) "
                  "ORDER BY book, id LIMIT ?",
                  key_of(id), whole_key(start_book), whole_key(start_entry), at_most(most));
    std::vector<o_tgroupl> found;
    while (row.step()) {
        o_tgroupl& member = found.emplace_back(o_tgroupl{id, {}, {}});
        member.tbookid.assign_field(row.bytes(0));
        member.teleid.assign_field(row.bytes(1));
    }
    return found;
}

bool phone_books::put_member(const o_tgroupl& member) {
    if (!group(member.groupid) || member.tbookid.empty() || member.teleid.empty())
        return false;
    execute(db_, "INSERT OR REPLACE INTO members (groupid, book, id) VALUES (?, ?, ?)",
            key_of(clean_key(member.groupid)), key_of(clean_key(member.tbookid)),
            key_of(clean_key(member.teleid)));
    return true;
}

bool phone_books::remove_member(const o_tgroupl& member) {
    return execute(db_, "DELETE FROM members WHERE groupid = ? AND book = ? AND id = ?",
                   key_of(clean_key(member.groupid)), key_of(clean_key(member.tbookid)),
                   key_of(clean_key(member.teleid))) == 1;
}

} // namespace zerdix::alphad
