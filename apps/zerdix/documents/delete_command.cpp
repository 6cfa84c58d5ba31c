// SPDX-License-Identifier: MIT
// zerdix doc delete.

#include <memory>

#include "arguments/commands.h"
#include "arguments/several_names.h"
#include "documents/arguments.h"
#include "documents/document_name.h"
#include "session/user_command.h"

namespace zerdix::app {

namespace {

named_act remove(user_session& user, const std::string& typed) {
    const document which = find_document(user, typed);
    user.expect(
        "deleting " + name_of(which), [&] { return user.journal().delDoc(which.pool, which.id); },
        "the server refused; a document can be deleted by its owner alone");
    return {name_of(which) + " deleted", {{"pool", pool_word(which.pool)}, {"id", which.id}}};
}

} // namespace

void add_delete_command(cli::command parent) {
    auto documents = std::make_shared<std::vector<std::string>>();
    cli::command command = add_user_command(
        parent, "delete", "Delete documents, without asking",
        [documents](user_session& user) {
            for_each_name(user.out(), *documents,
                          [&](const std::string& typed) { return remove(user, typed); });
        },
        [documents] { check_document_names(*documents); });
    command.alias("rm").alias("remove");
    add_documents(command, *documents);
    command.footer("Example: zerdix doc delete 17 in:23");
}

} // namespace zerdix::app
