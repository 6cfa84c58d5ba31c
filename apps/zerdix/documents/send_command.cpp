// zerdix send: the send dialog on documents of the desk.

#include <cstring>
#include <memory>
#include <set>

#include <CLI/CLI.hpp>

#include <zerdix/dialogs.h>

#include "documents/arguments.h"
#include "documents/commands.h"
#include "documents/document_name.h"
#include "documents/pool_list.h"
#include "progress.h"
#include "shell/user_command.h"
#include "shell/value_text.h"

namespace zerdix::app {

namespace {

constexpr std::size_t comment_size = 31;
constexpr std::int32_t accepted = 2301;
constexpr std::int32_t cancelled = 2302;

// As the dialog takes them.
struct stored_documents {
    std::vector<std::int32_t> ids; // ends with 0
    std::vector<char> comments;    // 31 bytes a document
};

std::int32_t desk_document(desk& user, const std::string& typed) {
    return find_document(user, typed, TOPF_P, "only a document of the desk can be sent").id;
}

void add_comment(desk& user, std::int32_t id, std::vector<char>& comments) {
    const a_p_rec& record = user.fetch("reading document " + std::to_string(id),
                                       [&] { return user.journal().getPDoc(id); });
    const std::size_t at = comments.size();
    comments.resize(at + comment_size);
    const std::string_view title = record.p_text.view();
    std::memcpy(&comments[at], title.data(), std::min(title.size(), comment_size - 1));
}

stored_documents read_documents(desk& user, const std::vector<std::string>& typed) {
    stored_documents documents;
    for (const std::string& one : typed) {
        documents.ids.push_back(desk_document(user, one));
        add_comment(user, documents.ids.back(), documents.comments);
    }
    documents.ids.push_back(0);
    return documents;
}

std::set<std::int32_t> outgoing_ids(desk& user) {
    std::set<std::int32_t> ids;
    for (const json& one : list_pool(user, TOPF_S, select_all))
        ids.insert(one["id"].get<std::int32_t>());
    return ids;
}

int new_jobs(desk& user, const std::set<std::int32_t>& before) try {
    int made = 0;
    for (const std::int32_t id : outgoing_ids(user))
        made += before.contains(id) ? 0 : 1;
    return made;
} catch (const failure& error) {
    throw failure(error.code(), std::string(error.what()) +
                                    "; how many send jobs were made isn't known, \"zerdix doc list "
                                    "outgoing\" shows them");
}

void send(desk& user, const std::vector<std::string>& typed) {
    stored_documents documents = read_documents(user, typed);
    const std::set<std::int32_t> before = outgoing_ids(user);
    const std::int32_t ended = SendStoredDocuments(nullptr, &user.journal(), documents.ids.data(),
                                                   documents.comments.data());
    if (ended == cancelled)
        throw failure(exit_interrupted, "cancelled; nothing was sent");
    if (ended != accepted)
        throw failure(exit_no_dialog, "the send dialog can't be shown here; it asks for the "
                                      "receivers");
    const int made = new_jobs(user, before);
    if (made == 0)
        throw failure(exit_refused, "nothing was sent; the messages of the dialog say why");
    user.out().done(counted(made, "send job") + " made", {{"jobs", made}});
}

} // namespace

void add_send_command(CLI::App& parent) {
    auto documents = std::make_shared<std::vector<std::string>>();
    CLI::App* command = add_user_command(
        parent, "send", "Send documents of the desk: a dialog asks to whom",
        [documents](desk& user) { send(user, *documents); },
        [documents] { check_document_names(*documents); });
    add_documents(*command, *documents);
    command->footer("Example: zerdix send 17 18");
}

} // namespace zerdix::app
