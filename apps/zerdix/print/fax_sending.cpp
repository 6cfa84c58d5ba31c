#include "print/fax_sending.h"

#include <algorithm>
#include <utility>

#include <zerdix/journal.h>
#include <zerdix/sendfax.h>
#include <zerdix/zerdix.h>

#include "platform/encoding.h"
#include "print/connection_watch.h"
#include "print/step_failure.h"
#include "progress.h"
#include "shell/value_text.h"

namespace zerdix::app {

namespace {

constexpr std::int32_t success = 0;
constexpr std::int32_t declined = 4;
constexpr const char* how_to_look = "\"zerdix doc list outgoing\" shows them";

// What the dialog names as receiver of a document that is to lie on another user's desk.
constexpr std::string_view desk_receiver = " ";

// Of the pass that came last. Empty when there was none.
std::string_view last_receiver() {
    return pa_s_rec->phone.view();
}

std::string shown_receiver() {
    return platform::cp1252_to_utf8(last_receiver());
}

// A pass counts the pages just before the document goes out.
bool nothing_was_ready_to_go() {
    return pa_s_rec->pages == 0;
}

trouble no_cover_page(const std::string& consequence = "") {
    return {exit_refused, "there is no cover page for it" + consequence};
}

std::string jobs_of_dialog(bool none, const std::optional<std::size_t>& jobs) {
    if (none)
        return "; nothing was sent";
    if (jobs)
        return "; " + counted(static_cast<int>(*jobs), "send job") + " had been made";
    return std::string("; how many send jobs were made isn't known, ") + how_to_look;
}

} // namespace

std::vector<std::string> job_receivers() {
    std::vector<std::string> receivers;
    for (std::int32_t i = 0; i < lPDCountReceiver; ++i)
        receivers.emplace_back(ppReceiver[i] != nullptr ? ppReceiver[i] : "");
    return receivers;
}

fax_sending::fax_sending(std::string host, int pages)
    : host_(std::move(host)), pages_(pages), receivers_(job_receivers()),
      document_(pa_s_rec->faxid), has_covers_(fCoverpage != 0),
      log_(log_of_desk_document(document_)) {}

std::string fax_sending::run() {
    const connection_watch watch;
    const std::int32_t rc = SendFaxDoc();
    if (rc == declined) {
        clear_leftover(document_, host_);
        throw failure(exit_interrupted, "cancelled; nothing was sent");
    }
    if (receivers_.empty() && rc != success)
        dialog_failed(watch.explain(host_));
    if (receivers_.empty())
        return dialog_done();
    if (rc != success)
        stopped(watch.explain(host_));
    if (lacks_cover_page())
        stopped_without_cover_page();
    return counted(static_cast<int>(receivers_.size()), "send job") + " made";
}

// Of a job that ended well, which it also does when a cover page couldn't be made. The first
// receiver comes last and gets the job's own document.
bool fax_sending::lacks_cover_page() const {
    return has_covers_ && (pa_s_rec->faxid != document_ || pa_s_rec->pages != pages_ + 1);
}

// Receivers go out from the last to the first, up to the one that the record names. A number that
// stands there several times leaves open at which of them that was, and a lost answer whether its
// send job was made.
fax_sending::range fax_sending::told_by_record() const {
    if (nothing_was_ready_to_go())
        return {0, 0};
    const std::size_t all = receivers_.size();
    range made{all, 0};
    for (std::size_t before = 0; before < all; ++before) {
        if (receivers_[all - 1 - before] != last_receiver())
            continue;
        made.least = std::min(made.least, before);
        made.most = before + 1;
    }
    return made.most == 0 ? range{0, all} : made;
}

// Each receiver but the first gets a copy, which the pass deletes when it was sent. So a copy that
// is still there is that of the pass that stopped.
fax_sending::range fax_sending::told_with_covers(range made, const sent_leftover& own) const {
    if (made.most == 0)
        return made;
    const std::size_t others = receivers_.size() - 1;
    if (pa_s_rec->faxid == document_)
        return own.jobs ? range{others + *own.jobs, others + *own.jobs} : range{others, others + 1};
    made.most = std::min(made.most, others);
    const sent_leftover copy = clear_sent_leftover(pa_s_rec->faxid, "", host_);
    if (!copy.jobs)
        return made;
    return {made.least + *copy.jobs, std::max(made.least, made.most - 1) + *copy.jobs};
}

void fax_sending::stopped(const trouble& why) const {
    range made = told_by_record();
    const sent_leftover own = clear_sent_leftover(document_, log_, host_);
    if (has_covers_)
        made = told_with_covers(made, own);
    else if (own.jobs && *own.jobs >= made.least && *own.jobs <= made.most)
        made = {*own.jobs, *own.jobs};
    if (has_covers_ && why.code != exit_refused)
        note("a copy of the document may lie on the desk; \"zerdix doc list desk\" shows it");
    tell(made, why);
}

// The pass that stopped made nothing, and its document is gone.
void fax_sending::stopped_without_cover_page() const {
    range made = told_by_record();
    if (made.most > made.least)
        --made.most;
    clear_leftover(document_, host_);
    tell(made, no_cover_page());
}

void fax_sending::tell(range made, const trouble& why) const {
    const std::size_t all = receivers_.size();
    const std::string of_all = " of " + std::to_string(all) + " send jobs ";
    if (made.least != made.most)
        throw failed_step("sending",
                          {why.code, why.cause + "; at least " + std::to_string(made.least) +
                                         " and at most " + std::to_string(made.most) + of_all +
                                         "were made, " + how_to_look});
    const bool all_made = made.least == all;
    const bool is_missing = !all_made && receivers_[all - 1 - made.least] == last_receiver();
    const std::string step = is_missing                 ? "sending to " + shown_receiver()
                             : why.code == exit_refused ? "deleting the document after sending"
                             : all_made                 ? "ending the job"
                                                        : "sending";
    throw failed_step(
        step, {why.code, why.cause + "; " + std::to_string(made.least) + of_all + "had been made"});
}

// The dialog takes the document's id out of the record when it names receivers, and leaves it there
// when it names a desk.
std::string fax_sending::dialog_done() const {
    const bool on_desk = pa_s_rec->faxid == document_;
    if (on_desk && last_receiver().empty())
        return "left on the desk of " + shown(ZERDIX::clsGetUserId()) + " as document " +
               std::to_string(document_);
    if (on_desk && last_receiver() == desk_receiver)
        return "left on the desk that was chosen in the dialog";
    const bool without_covers = pa_s_rec->faxid == 0 && pa_s_rec->pages == pages_;
    const bool with_covers = on_desk && pa_s_rec->pages == pages_ + 1;
    if (without_covers || with_covers)
        return "send jobs made as chosen in the dialog";
    clear_leftover(document_, host_);
    if (last_receiver().empty())
        throw failure(exit_no_receiver, "the dialog named nobody who can be reached; nothing was "
                                        "sent");
    throw failed_step("sending to " + shown_receiver(),
                      no_cover_page(jobs_of_dialog(nothing_was_ready_to_go(), std::nullopt)));
}

void fax_sending::dialog_failed(const trouble& why) const {
    const std::int32_t last = pa_s_rec->faxid;
    if (last == document_ && last_receiver() == desk_receiver)
        not_on_other_desk(why);
    if (last == document_ && last_receiver().empty()) {
        clear_leftover(document_, host_);
        nobody_named();
    }
    const bool has_covers = last != 0;
    const sent_leftover own = clear_sent_leftover(document_, log_, host_);
    if (has_covers && last != document_)
        clear_leftover(last, host_);
    throw failed_step("sending",
                      {why.code, why.cause + jobs_of_dialog(nothing_was_ready_to_go(),
                                                            has_covers ? std::nullopt : own.jobs)});
}

// Without its cover page the document was deleted before it could be copied to the other desk, and
// an empty one lies there.
void fax_sending::not_on_other_desk(const trouble& why) const {
    const std::string step = "laying the document on the other user's desk";
    const bool was_gone = clear_leftover(document_, host_) == removal::needless;
    if (clear_empty_document(document_, host_))
        throw failed_step(step, was_gone ? no_cover_page() : why);
    throw failed_step(step, {why.code, why.cause + "; whether something lies there isn't known"});
}

} // namespace zerdix::app
