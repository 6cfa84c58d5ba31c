#include "print/leftover.h"

#include <chrono>
#include <cstdio>
#include <string_view>
#include <thread>
#include <vector>

#include <zerdix/journal.h>
#include <zerdix/zerdix.h>

#include "platform/encoding.h"
#include "server_fields.h"

namespace zerdix::app {

namespace {

// More documents than this that were made meanwhile aren't looked through.
constexpr std::int32_t most_looked_at = 5000;
constexpr std::chrono::seconds time_to_fill{2};
constexpr const char* administrator = "FAXADM"; // under whose name all desks can be reached

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

removal remove(JOURNAL& journal, std::int32_t faxid) {
    if (journal.delDoc(TOPF_P, faxid) == 0)
        return removal::done;
    const a_p_rec* record = journal.getPDoc(faxid);
    if (record == nullptr)
        return removal::unknown;
    return record->faxid == 0 ? removal::needless : removal::refused;
}

removal tell_what_stays(std::int32_t faxid, removal removed) {
    const std::string desk =
        " on the desk of " + platform::cp1252_to_utf8(ZERDIX::clsGetUserId()) + '\n';
    const std::string document = "zerdix: document " + std::to_string(faxid);
    if (removed == removal::refused)
        std::fputs((document + " couldn't be deleted and stays" + desk).c_str(), stderr);
    if (removed == removal::unknown)
        std::fputs((document + " may still lie" + desk).c_str(), stderr);
    return removed;
}

std::string log_text(JOURNAL& journal, std::int32_t faxid) {
    const char* text = journal.getLog(TOPF_P, faxid, 0, nullptr);
    return text != nullptr ? text : "";
}

// All that a send job is sure to have: lines that came after it was made aren't in its log.
std::string first_line(const std::string& log) {
    return log.substr(0, log.find('\n') + 1);
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

// There is no list of outgoing documents without a login, and a print job has none.
std::optional<std::size_t> count_jobs(JOURNAL& journal, std::int32_t faxid,
                                      const std::string& log) {
    const auto end = log.empty() ? std::nullopt : id_given_now(journal, faxid);
    if (!end)
        return std::nullopt;
    std::size_t found = 0;
    for (std::int32_t id = faxid + 1; id < *end; ++id) {
        const a_s_rec* record = journal.getSDoc(id);
        if (record == nullptr)
            return std::nullopt;
        if (record->faxid != id)
            continue;
        const char* text = journal.getLog(TOPF_S, id, 0, nullptr);
        if (text == nullptr)
            return std::nullopt;
        found += std::string_view(text).starts_with(log) ? 1 : 0;
    }
    return found;
}

bool is_empty_of_another(JOURNAL& journal, std::int32_t id, const str10& user) {
    const a_p_rec* record = journal.getPDoc(id);
    return record != nullptr && record->faxid == id && !(record->userid == user.view()) &&
           page_count(*record) == 0 && title(*record).empty() && log_text(journal, id).empty();
}

std::vector<std::int32_t> empty_documents(JOURNAL& journal, std::int32_t from, std::int32_t to,
                                          const str10& user) {
    std::vector<std::int32_t> found;
    for (std::int32_t id = from; id < to; ++id)
        if (is_empty_of_another(journal, id, user))
            found.push_back(id);
    return found;
}

// A document that another client is just filling looks the same at first, but not for long.
bool remove_the_empty_one(JOURNAL& journal, std::int32_t faxid, std::int32_t end,
                          const str10& user) {
    const auto found = empty_documents(journal, faxid + 1, end, user);
    if (found.size() != 1)
        return false;
    std::this_thread::sleep_for(time_to_fill);
    return is_empty_of_another(journal, found[0], user) &&
           remove(journal, found[0]) == removal::done;
}

} // namespace

removal clear_leftover(std::int32_t faxid, const std::string& host) {
    const new_connection connection(host);
    if (!connection.stands())
        return tell_what_stays(faxid, removal::unknown);
    JOURNAL journal;
    return tell_what_stays(faxid, remove(journal, faxid));
}

std::string log_of_desk_document(std::int32_t faxid) {
    JOURNAL journal;
    return log_text(journal, faxid);
}

sent_leftover clear_sent_leftover(std::int32_t faxid, std::string log, const std::string& host) {
    const new_connection connection(host);
    if (!connection.stands())
        return {tell_what_stays(faxid, removal::unknown), std::nullopt};
    JOURNAL journal;
    if (log.empty())
        log = first_line(log_text(journal, faxid));
    const removal removed = tell_what_stays(faxid, remove(journal, faxid));
    return {removed, count_jobs(journal, faxid, log)};
}

bool clear_empty_document(std::int32_t faxid, const std::string& host) {
    new_connection connection(host);
    if (!connection.stands())
        return false;
    JOURNAL journal;
    const auto end = id_given_now(journal, faxid);
    if (!end)
        return false;
    str10 user{};
    user.assign(ZERDIX::clsGetUserId());
    connection.session().setUserId(administrator);
    const bool gone = remove_the_empty_one(journal, faxid, *end, user);
    connection.session().setUserId(user.bytes);
    return gone;
}

bool clear_print_document(std::int32_t faxid, const std::string& host) {
    const new_connection connection(host);
    if (!connection.stands())
        return false;
    JOURNAL journal;
    return journal.delPrintDoc(TOPF_P, faxid) == 0;
}

} // namespace zerdix::app
