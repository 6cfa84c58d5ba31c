// SPDX-License-Identifier: MIT
#include "print/print_job.h"

#include <algorithm>
#include <cstdio>
#include <limits>

#include <zerdix/dialogs.h>
#include <zerdix/journal.h>
#include <zerdix/sendfax.h>
#include <zerdix/telebook.h>
#include <zerdix/zerdix.h>

#include "output/value_text.h"
#include "platform/encoding.h"
#include "print/fax_sending.h"
#include "print/leftover.h"
#include "print/outcome_words.h"
#include "print/step_failure.h"

namespace zerdix::app {

namespace {

constexpr std::int32_t success = 0;
constexpr std::int32_t declined = 4;

void tell(const std::string& sentence) {
    std::fprintf(stderr, "zerdix: %s\n", sentence.c_str());
}

const char* net_word(int net) {
    return net == NETTYPE_TELEX ? "telex" : "fax";
}

std::string telex_step(const zx_outcome& outcome) {
    if (outcome.step == ZX_STEP_CREATE)
        return "making the document of the telex";
    if (outcome.step == ZX_STEP_DELETE)
        return "deleting the document of the telex";
    for (std::int32_t i = 0; i < outcome.receiver_count; ++i)
        if (outcome.receivers[i].delivery != ZX_HANDED_OVER)
            return "the telex to " + shown_receiver(outcome.receivers[i]);
    return "the telex";
}

// A print document tells nobody what became of it, so that an unknown receiver stays unknown.
failure telex_failure(const zx_outcome& outcome) {
    const failure_cause why = cause_of(outcome);
    const std::size_t handed_over = receivers_that_are(outcome, ZX_HANDED_OVER).size();
    const bool is_open = !receivers_that_are(outcome, ZX_UNKNOWN).empty();
    return failed_step(telex_step(outcome),
                       {why.code, why.cause + "; " + std::to_string(handed_over) + " of " +
                                      std::to_string(outcome.receiver_count) +
                                      " telexes had been handed over" +
                                      (is_open ? ", and whether this one was isn't known" : "")});
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
    failure_cause why = probe_server(host_);
    if (why.code == exit_refused)
        why = {exit_unavailable, "the server answers, but took no connection"};
    throw failed_step("opening the print job", why);
}

print_job::~print_job() {
    if (open_)
        give_up();
}

void print_job::apply(const std::string& merge_text) {
    const call_probe watch;
    const auto length = static_cast<std::int32_t>(merge_text.size());
    if (SetFaxMergeData(merge_text.data(), length) != success)
        throw failed_step("reading the receivers", watch.explain(host_));
}

void print_job::require_entry(const book_entry& wanted) {
    const call_probe watch;
    TELEBOOK books;
    const o_tebul* entry = books.getTBookEntry(wanted.book.c_str(), wanted.entry.c_str(), 1);
    const std::string name = platform::cp1252_to_utf8(wanted.text());
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
    const call_probe watch;
    const auto size = static_cast<std::int32_t>(block.size());
    if (StoreFaxPage(block.data(), size, pages_, 0) != success) {
        failure_cause why = watch.explain(host_);
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
    if (receivers() == 0 && !DialogsMayOpen())
        throw nobody_named();
}

std::string print_job::send() {
    open_ = false;
    return send_fax(host_);
}

std::int32_t print_job::send_telex(const std::string& text) {
    const std::int32_t rc = SendTelex(text.data(), static_cast<std::int32_t>(text.size()));
    open_ = pzerdix != nullptr; // a step behind the dialog leaves the job open
    const zx_outcome& outcome = *LastJobOutcome();
    if (rc == success)
        return outcome.receiver_count;
    if (rc == declined)
        throw failure(exit_interrupted, "cancelled; nothing was sent");
    if (outcome.step == ZX_STEP_DIALOG)
        throw nobody_named();
    throw telex_failure(outcome);
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
    clear_leftovers({pa_s_rec->faxid}, host_);
}

} // namespace zerdix::app
