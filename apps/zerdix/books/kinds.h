// SPDX-License-Identifier: MIT
// Phone books and recipient groups as two kinds of one thing: a record with an id, an owner and
// rights, that is looked up, put and deleted.
#ifndef ZERDIX_APP_BOOKS_KINDS_H
#define ZERDIX_APP_BOOKS_KINDS_H

#include <cstdint>
#include <optional>
#include <string>

#include <zerdix/telebook.h>

#include "books/rights_text.h"
#include "output/value_text.h"
#include "session/user_session.h"

namespace zerdix::app {

struct book_kind {
    using record = o_tebu;
    static constexpr const char* word = "phone book";
    static constexpr const char* key = "book";
    static constexpr const char* heading = "Book";
    static str10& id(o_tebu& book) { return book.tbookid; }
    static PTRLIST* all(TELEBOOK& books) { return books.getTBooks(); }
    static o_tebu* get(TELEBOOK& books, const char* id) { return books.getTBook(id); }
    static std::int32_t put(TELEBOOK& books, const o_tebu& book) { return books.putTBook(&book); }
    static std::int32_t remove(TELEBOOK& books, const char* id) { return books.delTBook(id); }
};

struct group_kind {
    using record = o_tgroup;
    static constexpr const char* word = "group";
    static constexpr const char* key = "group";
    static constexpr const char* heading = "Group";
    static str10& id(o_tgroup& group) { return group.groupid; }
    static PTRLIST* all(TELEBOOK& books) { return books.getTGroups(); }
    static o_tgroup* get(TELEBOOK& books, const char* id) { return books.getTGroup(id); }
    static std::int32_t put(TELEBOOK& books, const o_tgroup& group) {
        return books.putTGroup(&group);
    }
    static std::int32_t remove(TELEBOOK& books, const char* id) { return books.delTGroup(id); }
};

template <class Kind>
std::string named(const std::string& id) {
    return std::string(Kind::word) + ' ' + shown(id);
}

// A copy of the record, if the server knows it and the user may see it.
template <class Kind>
std::optional<typename Kind::record> find(user_session& user, const std::string& id) {
    auto& record = user.fetch("looking up the " + named<Kind>(id),
                              [&] { return Kind::get(user.books(), id.c_str()); });
    if (Kind::id(record).empty())
        return std::nullopt;
    return record;
}

// The same; throws failure when there is none.
template <class Kind>
typename Kind::record known(user_session& user, const std::string& id) {
    if (const auto record = find<Kind>(user, id))
        return *record;
    throw failure(exit_no_receiver, "there is no " + named<Kind>(id) + ", or you may not read it");
}

// What the session's user may do: one remote call.
template <class Record>
unsigned char rights_on(user_session& user, const Record& record) {
    const std::string owner(record.owner.view());
    const std::string group(record.group.view());
    return static_cast<unsigned char>(
        user.books().getPermissions(record.perms.bytes, owner.c_str(), group.c_str()));
}

// Why a write may have been refused: a clause that names the right that is missing, where one is.
// `verb` is what that right allows, "add entries". Throws failure when the record isn't there.
template <class Kind>
std::string why_refused(user_session& user, const std::string& id, char needed,
                        const std::string& verb) {
    const unsigned char rights = rights_on(user, known<Kind>(user, id));
    if ((rights & static_cast<unsigned char>(needed)) != 0)
        return "the server refused";
    return "you may not " + verb + " (your rights on the " + named<Kind>(id) + ": " +
           rights_letters(rights) + ")";
}

} // namespace zerdix::app

#endif
