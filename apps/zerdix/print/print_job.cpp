#include "print/print_job.h"

#include <algorithm>
#include <cstdio>
#include <limits>

#include <zerdix/journal.h>
#include <zerdix/sendfax.h>
#include <zerdix/telebook.h>
#include <zerdix/zerdix.h>

#include "error_log.h"
#include "platform/encoding.h"
#include "print/leftover.h"
#include "shell/value_text.h"

namespace zerdix::app {

namespace {

constexpr std::int32_t success = 0;
constexpr std::int32_t declined = 4;

failure failed_step(const std::string& step, const trouble& why) {
    return {why.code,
            step + " failed: " + why.cause + " (the error log is " + error_log_path() + ")"};
}

void tell(const std::string& sentence) {
    std::fprintf(stderr, "zerdix: %s\n", sentence.c_str());
}

void tell_document_stays(std::int32_t faxid) {
    tell("document " + std::to_string(faxid) + " couldn't be deleted and stays on the desk of " +
         platform::cp1252_to_utf8(ZERDIX::clsGetUserId()));
}

std::vector<std::string> job_receivers() {
    std::vector<std::string> receivers;
    for (std::int32_t i = 0; i < lPDCountReceiver; ++i)
        receivers.emplace_back(ppReceiver[i]);
    return receivers;
}

// Receivers go out from the last to the first, and the record still names the one at hand.
std::size_t sent_before(const std::vector<std::string>& receivers) {
    const auto at = std::find(receivers.rbegin(), receivers.rend(), pa_s_rec->phone.view());
    return static_cast<std::size_t>(at - receivers.rbegin());
}

// The document's log has a line for its creation, one a page, one for its completion; the next one
// says that it is deleted, and is written when every receiver has its send job. What the lines say
// can't be relied on: the server shows them in words of its own.
int lines_before_deletion(int pages) {
    return 1 + pages + 1;
}

const char* net_word(int net) {
    return net == NETTYPE_TELEX ? "telex" : "fax";
}

// Receivers of a telex that have been served are released one by one, the first one first.
std::size_t served_by_now(std::size_t all) {
    if (ppReceiver == nullptr)
        return all;
    const auto served = std::find_if(ppReceiver, ppReceiver + lPDCountReceiver,
                                     [](const char* receiver) { return receiver != nullptr; });
    return static_cast<std::size_t>(served - ppReceiver);
}

[[noreturn]] void nobody_named() {
    throw failure(exit_no_dialog, "no receiver is named and no dialog can ask for one; use --to or "
                                  "--group");
}

std::string count_of_jobs(std::size_t made, std::size_t all) {
    return std::to_string(made) + " of " + std::to_string(all) + " send jobs had been made";
}

} // namespace

print_job::print_job(const std::string& title, nettypetype net) : net_(net) {
    const std::int32_t rc = TransmissionDlg(nullptr, title.c_str(), net == NETTYPE_FAX ? 1 : 0);
    host_ = ZERDIX::clsGetAlphaServer();
    if (rc == success) {
        open_ = true;
        return;
    }
    DeleteFaxDoc();
    trouble why = probe_server(host_);
    if (why.code == exit_refused)
        why = {exit_unavailable, "the server answers, but took no connection"};
    throw failed_step("opening the print job", why);
}

print_job::~print_job() {
    if (open_)
        give_up();
}

void print_job::apply(const std::string& merge_text) {
    const call_watch watch;
    const auto length = static_cast<std::int32_t>(merge_text.size());
    if (SetFaxMergeData(merge_text.data(), length) != success)
        throw failed_step("reading the receivers", watch.explain(host_));
}

void print_job::require_entry(const book_entry& wanted) {
    const call_watch watch;
    TELEBOOK books;
    const o_tebul* entry = books.getTBookEntry(wanted.book.c_str(), wanted.entry.c_str(), 1);
    const std::string name = platform::cp1252_to_utf8(wanted.book + ':' + wanted.entry);
    if (entry == nullptr)
        throw failed_step("looking up " + name, watch.explain(host_));
    if (entry->tbookid.empty())
        throw failure(exit_no_receiver, "the phone books have no entry " + name);
    if (entry->nettype != net_)
        throw failure(exit_no_receiver, name + " has no " + net_word(net_) +
                                            ": it is an entry for " + net_word(entry->nettype));
}

void print_job::add_group(const std::string& group_utf8) {
    const std::int32_t before = lPDCountReceiver;
    apply(group_pair(group_utf8));
    if (lPDCountReceiver == before)
        throw failure(exit_no_receiver, "the group " + group_utf8 + " doesn't exist or has no " +
                                            net_word(net_) + " receiver");
}

void print_job::store_page(const std::vector<unsigned char>& block) {
    if (pages_ == std::numeric_limits<std::int16_t>::max())
        throw failure(exit_bad_data, "a document has at most 32767 pages");
    const call_watch watch;
    const auto size = static_cast<std::int32_t>(block.size());
    if (StoreFaxPage(block.data(), size, pages_, 0) != success) {
        trouble why = watch.explain(host_);
        if (pa_s_rec->faxid != 0)
            throw failed_step("storing page " + std::to_string(pages_ + 1), why);
        if (why.code == exit_refused)
            why.cause += "; it may not know the user " + shown(ZERDIX::clsGetUserId());
        throw failed_step("creating the document", why);
    }
    ++pages_;
}

std::int32_t print_job::receivers() const {
    return lPDCountReceiver;
}

std::int32_t print_job::send() {
    const std::vector<std::string> receivers = job_receivers();
    const call_watch watch;
    open_ = false;
    const std::int32_t rc = SendFaxDoc();
    if (rc == declined)
        throw failure(exit_interrupted, "cancelled; nothing was sent");
    if (rc == success)
        return static_cast<std::int32_t>(receivers.size());
    if (receivers.empty())
        send_failed(receivers, {exit_no_dialog, ""});
    send_failed(receivers, watch.explain(host_));
}

void print_job::send_failed(const std::vector<std::string>& receivers, const trouble& why) {
    const std::int32_t faxid = pa_s_rec->faxid;
    const leftover left = clear_leftover(faxid, host_);
    if (!left.gone)
        tell_document_stays(faxid);
    if (receivers.empty())
        nobody_named();
    const bool all_sent = left.log_lines > lines_before_deletion(pages_);
    const std::size_t made = all_sent ? receivers.size() : sent_before(receivers);
    const std::string step =
        all_sent ? "deleting the document after sending"
                 : "sending to " + platform::cp1252_to_utf8(std::string(pa_s_rec->phone.view()));
    throw failed_step(step, {why.code, why.cause + "; " + count_of_jobs(made, receivers.size())});
}

std::int32_t print_job::send_telex(const std::string& text) {
    const std::vector<std::string> receivers = job_receivers();
    const call_watch watch;
    const std::int32_t rc = SendTelex(text.data(), static_cast<std::int32_t>(text.size()));
    if (rc == success) {
        open_ = false;
        return static_cast<std::int32_t>(receivers.size());
    }
    if (receivers.empty()) { // the library has closed the job
        open_ = false;
        nobody_named();
    }
    telex_failed(receivers, watch.explain(host_));
}

void print_job::telex_failed(const std::vector<std::string>& receivers, const trouble& why) {
    const std::size_t served = served_by_now(receivers.size());
    const std::string step = pa_s_rec->faxid == 0 ? "making the document of the telex"
                             : served == receivers.size()
                                 ? "deleting the document of the telex"
                                 : "the telex to " + platform::cp1252_to_utf8(receivers[served]);
    throw failed_step(step, {why.code, why.cause + "; " + std::to_string(served) + " of " +
                                           std::to_string(receivers.size()) +
                                           " telexes had been handed over"});
}

// The connection may be what failed, so the second try has one of its own. The document of a telex
// belongs to the print user, under whom alone it can be deleted.
void print_job::give_up() {
    open_ = false;
    if (net_ == NETTYPE_TELEX) {
        if (pa_s_rec->faxid != 0 && !clear_print_document(pa_s_rec->faxid, host_))
            tell("the print document " + std::to_string(pa_s_rec->faxid) +
                 " couldn't be deleted and stays on the server");
        return;
    }
    if (DeleteFaxDoc() == success || pa_s_rec->faxid == 0)
        return;
    if (!clear_leftover(pa_s_rec->faxid, host_).gone)
        tell_document_stays(pa_s_rec->faxid);
}

} // namespace zerdix::app
