// SPDX-License-Identifier: MIT
// zerdix send: documents of the desk go out, to named receivers or as a dialog asks.

#include <algorithm>
#include <cstring>
#include <memory>
#include <optional>

#include <zerdix/dialogs.h>
#include <zerdix/outcome.h>
#include <zerdix/values.h>

#include "arguments/commands.h"
#include "documents/arguments.h"
#include "documents/document_name.h"
#include "documents/sending_to_receivers.h"
#include "output/progress.h"
#include "output/value_text.h"
#include "print/job_options.h"
#include "print/lost_reply.h"
#include "print/outcome_words.h"
#include "session/user_command.h"

namespace zerdix::app {

namespace {

constexpr std::size_t comment_size = 31;

// As the dialog takes them.
struct stored_documents {
    std::vector<std::int32_t> ids; // ends with 0
    std::vector<char> comments;    // 31 bytes a document
};

std::int32_t desk_document(user_session& user, const std::string& typed) {
    return find_document(user, typed, TOPF_P, "only a document of the desk can be sent").id;
}

void add_comment(user_session& user, std::int32_t id, std::vector<char>& comments) {
    const a_p_rec& record = user.fetch("reading document " + std::to_string(id),
                                       [&] { return user.journal().getPDoc(id); });
    const std::size_t at = comments.size();
    comments.resize(at + comment_size);
    const std::string_view title = record.p_text.view();
    std::memcpy(&comments[at], title.data(), std::min(title.size(), comment_size - 1));
}

stored_documents read_documents(user_session& user, const std::vector<std::string>& typed) {
    stored_documents documents;
    for (const std::string& one : typed) {
        documents.ids.push_back(desk_document(user, one));
        add_comment(user, documents.ids.back(), documents.comments);
    }
    documents.ids.push_back(0);
    return documents;
}

// Receivers of all documents; those that have none are counted by the dialog's own messages.
void tell_end(user_session& user, const zx_outcome& outcome, std::optional<std::int32_t> before) {
    const reached_receivers reached = reached_by(outcome, before, user.host());
    const std::string made = counted(static_cast<int>(reached.handed_over.size()), "send job");
    std::string unknown;
    for (const zx_receiver* each : reached.unknown)
        unknown += (unknown.empty() ? "" : ", ") + shown_receiver(*each);
    if (!unknown.empty())
        throw failure(exit_unavailable,
                      made + " made; no answer came to the sending to " + unknown +
                          ", and whether that was taken isn't known: \"zerdix doc list outgoing\" "
                          "shows it");
    if (reached.handed_over.empty())
        throw failure(exit_refused, "nothing was sent; the messages of the dialog say why");
    if (outcome.step != ZX_STEP_NONE)
        throw failure(cause_of(outcome).code,
                      made + " of " + std::to_string(outcome.receiver_count) +
                          " made; the messages of the dialog say why the others weren't");
    user.out().done(made + " made", {{"jobs", reached.handed_over.size()}});
}

void ask_and_send(user_session& user, const std::vector<std::string>& typed) {
    stored_documents documents = read_documents(user, typed);
    const auto before = id_given_now(user.journal());
    const std::int32_t ended = SendStoredDocuments(nullptr, &user.journal(), documents.ids.data(),
                                                   documents.comments.data());
    if (ended == send_dialog_cancelled)
        throw failure(exit_interrupted, "cancelled; nothing was sent");
    if (ended != send_dialog_accepted)
        throw failure(exit_no_dialog, "the send dialog can't be shown here; it asks for the "
                                      "receivers");
    tell_end(user, *LastStoredOutcome(), before);
}

struct send_line {
    std::vector<std::string> documents;
    print_options options;
    std::optional<std::string> at;
};

void check(send_line& line) {
    check_document_names(line.documents);
    check_receivers(line.options);
    const bool names_receivers = !line.options.to.empty() || !line.options.groups.empty();
    if (names_receivers && line.documents.size() != 1)
        throw failure(exit_usage, "with --to and --group one document is sent at a time");
    const print_options& options = line.options;
    if (!names_receivers && (line.at || options.retries || options.priority || options.resolution))
        throw failure(exit_usage, "the dialog asks for these settings; they go with --to and "
                                  "--group");
    if (line.at)
        line.options.at = required_send_time(*line.at);
}

void send(user_session& user, const send_line& line) {
    if (line.options.to.empty() && line.options.groups.empty())
        return ask_and_send(user, line.documents);
    send_to_receivers(user, desk_document(user, line.documents[0]), line.options);
}

} // namespace

void add_send_command(cli::command parent) {
    auto line = std::make_shared<send_line>();
    cli::command command = add_user_command(
        parent, "send", "Send documents of the desk: to named receivers, or a dialog asks to whom",
        [line](user_session& user) { send(user, *line); }, [line] { check(*line); });
    add_documents(command, line->documents);
    add_receiver_options(command, line->options, "fax");
    add_retries_and_time(command, line->options, line->at, fax_times);
    add_quality(command, line->options);
    command.footer("Examples: zerdix send 17 18\n          zerdix send 17 --to \"030 123456\"");
}

} // namespace zerdix::app
