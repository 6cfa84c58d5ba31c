#include "print/print_job.h"

#include <algorithm>
#include <cstdio>
#include <limits>

#include <zerdix/journal.h>
#include <zerdix/sendfax.h>
#include <zerdix/telebook.h>
#include <zerdix/zerdix.h>

#include "platform/encoding.h"
#include "platform/windows_plugin.h"
#include "print/fax_sending.h"
#include "print/leftover.h"
#include "print/step_failure.h"
#include "shell/value_text.h"

namespace zerdix::app {

namespace {

constexpr std::int32_t success = 0;
constexpr std::int32_t declined = 4;

void tell(const std::string& sentence) {
    std::fprintf(stderr, "zerdix: %s\n", sentence.c_str());
}

// Those of the dialog, when none were named before it.
std::vector<std::string> job_receivers_now(const std::vector<std::string>& named) {
    return named.empty() ? job_receivers() : named;
}

// None can be told when the dialog asked for them: the job, which knew them, is over.
std::optional<std::int32_t> number_made(const std::vector<std::string>& named) {
    if (named.empty())
        return std::nullopt;
    return static_cast<std::int32_t>(named.size());
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
        else
            why.cause +=
                "; an empty document may lie on the desk, \"zerdix doc list desk\" shows it";
        throw failed_step("creating the document", why);
    }
    ++pages_;
}

std::int32_t print_job::receivers() const {
    return lPDCountReceiver;
}

void print_job::require_receivers_or_dialog() const {
    if (receivers() == 0 && !platform::windows_are_wanted())
        nobody_named();
}

std::string print_job::send() {
    fax_sending sending(host_, pages_);
    open_ = false;
    return sending.run();
}

std::optional<std::int32_t> print_job::send_telex(const std::string& text) {
    const std::vector<std::string> receivers = job_receivers();
    const call_watch watch;
    const std::int32_t rc = SendTelex(text.data(), static_cast<std::int32_t>(text.size()));
    open_ = pzerdix != nullptr; // a step behind the dialog leaves the job open
    if (rc == success)
        return number_made(receivers);
    if (rc == declined)
        throw failure(exit_interrupted, "cancelled; nothing was sent");
    if (!open_)
        nobody_named();
    telex_failed(job_receivers_now(receivers), watch.explain(host_));
}

void print_job::telex_failed(const std::vector<std::string>& receivers, const trouble& why) {
    const std::size_t served = served_by_now(receivers.size());
    const std::string step = pa_s_rec->faxid == 0 ? "making the document of the telex"
                             : served == receivers.size()
                                 ? "deleting the document of the telex"
                                 : "the telex to " + platform::cp1252_to_utf8(receivers[served]);
    const bool is_open =
        pa_s_rec->faxid != 0 && why.code != exit_refused && served < receivers.size();
    throw failed_step(
        step, {why.code, why.cause + "; " + std::to_string(served) + " of " +
                             std::to_string(receivers.size()) + " telexes had been handed over" +
                             (is_open ? ", and whether this one was isn't known" : "")});
}

// The connection may be what failed, so the second try has one of its own. The document of a telex
// belongs to the print user, under whom alone it can be deleted.
void print_job::give_up() {
    open_ = false;
    if (net_ == NETTYPE_TELEX) {
        if (pa_s_rec->faxid != 0 && !clear_print_document(pa_s_rec->faxid, host_))
            tell("the print document " + std::to_string(pa_s_rec->faxid) +
                 " couldn't be deleted and may still lie on the server");
        return;
    }
    if (DeleteFaxDoc() == success || pa_s_rec->faxid == 0)
        return;
    clear_leftover(pa_s_rec->faxid, host_);
}

} // namespace zerdix::app
