// SPDX-License-Identifier: MIT
// The fields that phone books and groups have in common: a comment, an owner, a user group, and
// rights.
#ifndef ZERDIX_APP_BOOKS_OWNED_H
#define ZERDIX_APP_BOOKS_OWNED_H

#include <optional>
#include <string>
#include <vector>

#include "arguments/command.h"
#include "books/names.h"
#include "books/rights_text.h"
#include "output/failure.h"
#include "output/report.h"
#include "output/value_text.h"

namespace zerdix::app {

struct owned_options {
    std::optional<std::string> comment, owner, group;
    std::vector<std::string> rights; // none, or three

    bool any() const { return comment || owner || group || !rights.empty(); }
};

inline void add_owned_options(cli::command command, owned_options& options) {
    command.add_option("-c,--comment", options.comment, "What it is for, 30 characters");
    command.add_option("--owner", options.owner, "The user who owns it", "USER");
    command.add_option("--group", options.group, "The user group that has rights of its own on it",
                       "GROUP");
}

inline void add_rights_argument(cli::command command, owned_options& options) {
    command
        .add_option("RIGHTS", options.rights,
                    "The new rights of the owner, the user group and all others: letters of "
                    "ruacdp, or none",
                    "[OWNER GROUP ALL]")
        .takes(3, 3);
}

inline rights_bytes rights_of(const std::vector<std::string>& letters) {
    rights_bytes perms{};
    for (std::size_t i = 0; i < 3; ++i)
        perms.bytes[i] = rights_bits(letters.at(i));
    return perms;
}

// Changes those fields of a record that were given.
template <class Record>
void apply(const owned_options& options, Record& record) {
    if (options.comment)
        record.comment.assign(field_text("the comment", *options.comment, 30));
    if (options.owner)
        record.owner.assign(field_text("the owner", *options.owner, 10));
    if (options.group)
        record.group.assign(field_text("the user group", *options.group, 10));
    if (!options.rights.empty())
        record.perms = rights_of(options.rights);
}

// The rights of a new one: the owner all, the user group read and use, the others none.
inline rights_bytes first_rights() {
    return rights_of({"ruacdp", "ru", "none"});
}

// Adds the common members to an object.
template <class Record>
void put_owned(json& object, const Record& record) {
    object["comment"] = shown(record.comment);
    object["owner"] = shown(record.owner);
    object["user_group"] = shown(record.group);
    object["rights"] = rights_text(record.perms);
    object["server"] = shown(record.alphaid);
}

} // namespace zerdix::app

#endif
