// SPDX-License-Identifier: MIT
#include "print/leftover.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include <zerdix/journal.h>
#include <zerdix/values.h>
#include <zerdix/zerdix.h>

#include "platform/encoding.h"

namespace zerdix::app {

namespace {

// More documents than this that were made meanwhile aren't looked through.
constexpr std::int32_t most_looked_at = 5000;

class new_connection {
  public:
    explicit new_connection(const std::string& host)
        : stands_(session_.GetClientAddr(host.c_str()) != nullptr) {}
    ~new_connection() {
        if (stands_)
            session_.CleanupHostConnection();
    }
    new_connection(const new_connection&) = delete;
    new_connection& operator=(const new_connection&) = delete;

    bool stands() const { return stands_; }
    ZERDIX& session() { return session_; }

  private:
    ZERDIX session_;
    bool stands_;
};

enum class removal { gone, refused, unknown };

removal remove(JOURNAL& journal, std::int32_t document) {
    if (journal.delDoc(TOPF_P, document) == 0)
        return removal::gone;
    const a_p_rec* record = journal.getPDoc(document);
    if (record == nullptr)
        return removal::unknown;
    return record->faxid == 0 ? removal::gone : removal::refused;
}

void tell_what_stays(std::int32_t document, removal removed) {
    if (removed == removal::gone)
        return;
    const std::string sentence =
        "zerdix: document " + std::to_string(document) +
        (removed == removal::refused ? " couldn't be deleted and stays" : " may still lie") +
        " on the desk of " + platform::cp1252_to_utf8(ZERDIX::clsGetUserId()) + '\n';
    std::fputs(sentence.c_str(), stderr);
}

// It names the document. Lines behind it may have come after a send job was made.
std::string first_line_of_log(JOURNAL& journal, topftype pool, std::int32_t document) {
    const char* log = journal.getLog(pool, document, 0, nullptr);
    const std::string_view text = log != nullptr ? log : "";
    return std::string{text.substr(0, text.find('\n') + 1)};
}

// Ids ascend, so one that is given now lies behind all that were given before.
std::optional<std::int32_t> id_given_now(JOURNAL& journal, std::int32_t after) {
    const std::int32_t id = journal.makeDoc();
    if (id <= 0)
        return std::nullopt;
    tell_what_stays(id, remove(journal, id));
    if (id <= after || id - after > most_looked_at)
        return std::nullopt;
    return id;
}

// Nothing when the server couldn't be asked.
std::optional<bool> is_job_of(JOURNAL& journal, std::int32_t id, const std::string& line) {
    const a_s_rec* record = journal.getSDoc(id);
    if (record == nullptr)
        return std::nullopt;
    return record->faxid == id && first_line_of_log(journal, TOPF_S, id) == line;
}

} // namespace

void clear_leftovers(const std::vector<std::int32_t>& documents, const std::string& host) {
    if (documents.empty())
        return;
    const new_connection connection(host);
    JOURNAL journal;
    for (const std::int32_t document : documents)
        tell_what_stays(document,
                        connection.stands() ? remove(journal, document) : removal::unknown);
}

void clear_leftovers_anywhere(const std::vector<std::int32_t>& documents, const std::string& host) {
    new_connection connection(host);
    JOURNAL journal;
    const std::string user = ZERDIX::clsGetUserId();
    for (const std::int32_t document : documents) {
        connection.session().setUserId(administrator);
        const removal removed = connection.stands() ? remove(journal, document) : removal::unknown;
        connection.session().setUserId(user.c_str());
        tell_what_stays(document, removed);
    }
}

std::optional<bool> has_further_job(std::int32_t document, const std::vector<std::int32_t>& known,
                                    const std::string& host) {
    const new_connection connection(host);
    if (!connection.stands())
        return std::nullopt;
    JOURNAL journal;
    const std::string line = first_line_of_log(journal, TOPF_P, document);
    const auto end = line.empty() ? std::nullopt : id_given_now(journal, document);
    if (!end)
        return std::nullopt;
    for (std::int32_t id = document + 1; id < *end; ++id) {
        if (std::find(known.begin(), known.end(), id) != known.end())
            continue;
        const std::optional<bool> found = is_job_of(journal, id, line);
        if (!found || *found)
            return found;
    }
    return false;
}

bool clear_print_document(std::int32_t document, const std::string& host) {
    const new_connection connection(host);
    if (!connection.stands())
        return false;
    JOURNAL journal;
    return journal.delPrintDoc(TOPF_P, document) == 0;
}

} // namespace zerdix::app
