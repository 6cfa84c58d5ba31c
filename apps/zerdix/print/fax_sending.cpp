// SPDX-License-Identifier: MIT
#include "print/fax_sending.h"

#include <algorithm>
#include <vector>

#include <zerdix/sendfax.h>
#include <zerdix/zerdix.h>

#include "output/progress.h"
#include "output/value_text.h"
#include "print/leftover.h"
#include "print/lost_reply.h"
#include "print/outcome_words.h"
#include "print/step_failure.h"

namespace zerdix::app {

namespace {

constexpr std::int32_t success = 0;
constexpr std::int32_t declined = 4;
constexpr const char* how_to_look = "\"zerdix doc list outgoing\" shows them";

// What a job that didn't reach all of its receivers has done.
class stopped_job {
  public:
    stopped_job(const zx_outcome& outcome, std::int32_t document, std::string host)
        : outcome_(outcome), document_(document), host_(std::move(host)),
          reached_(reached_by(outcome, document, host_)) {}

    // Takes away what can't be sent any more. The failure to throw.
    failure settle();

  private:
    bool is_settled(const zx_receiver& receiver) const;
    std::string step() const;
    std::string count() const;
    std::string what_is_left();
    bool has_covers() const;

    const zx_outcome& outcome_;
    std::int32_t document_;
    std::string host_;
    reached_receivers reached_;
};

// Whether it has its send job, or may have it.
bool stopped_job::is_settled(const zx_receiver& receiver) const {
    return std::find(reached_.handed_over.begin(), reached_.handed_over.end(), &receiver) !=
               reached_.handed_over.end() ||
           std::find(reached_.unknown.begin(), reached_.unknown.end(), &receiver) !=
               reached_.unknown.end();
}

std::string stopped_job::step() const {
    const zx_receiver* at = stopped_at(outcome_);
    const bool is_open =
        at != nullptr && std::find(reached_.handed_over.begin(), reached_.handed_over.end(), at) ==
                             reached_.handed_over.end();
    if (is_open && outcome_.step != ZX_STEP_DELETE)
        return "sending to " + shown_receiver(*at);
    return outcome_.step == ZX_STEP_DELETE ? "deleting the document after sending" : "sending";
}

std::string stopped_job::count() const {
    const std::string of_all = " of " + std::to_string(outcome_.receiver_count) + " send jobs ";
    const std::size_t made = reached_.handed_over.size();
    if (reached_.unknown.empty())
        return std::to_string(made) + of_all + "had been made";
    return "at least " + std::to_string(made) + " and at most " +
           std::to_string(made + reached_.unknown.size()) + of_all + "were made, " + how_to_look;
}

// The document of a job without cover pages stays as long as somebody is to get it; one with cover
// pages can be given to the rest by the dialog. Copies for single receivers go.
std::string stopped_job::what_is_left() {
    std::vector<std::int32_t> left = left_documents(outcome_);
    std::string rest;
    for (std::int32_t i = 0; i < outcome_.receiver_count; ++i)
        if (!is_settled(outcome_.receivers[i]))
            rest += " --to \"" + shown_receiver(outcome_.receivers[i]) + '"';
    const bool stays =
        !rest.empty() && std::find(left.begin(), left.end(), document_) != left.end();
    if (stays)
        std::erase(left, document_);
    clear_leftovers(left, host_);
    if (!stays)
        return "";
    const std::string id = std::to_string(document_);
    return "; document " + id + " stays on the desk, zerdix send " + id + rest +
           " sends it to the rest" + (has_covers() ? ", without a cover page" : "");
}

// Then each receiver but the first gets a document of their own.
bool stopped_job::has_covers() const {
    return outcome_.step == ZX_STEP_COVER ||
           std::any_of(outcome_.receivers, outcome_.receivers + outcome_.receiver_count,
                       [this](const zx_receiver& each) {
                           return each.document != 0 && each.document != document_;
                       });
}

failure stopped_job::settle() {
    const failure_cause why = cause_of(outcome_);
    return failed_step(step(), {why.code, why.cause + "; " + count() + what_is_left()});
}

failure not_on_desk(const zx_outcome& outcome, const std::string& host) {
    clear_leftovers_anywhere(left_documents(outcome), host);
    return failed_step("laying the document on the desk of " + shown(outcome.desk_user),
                       cause_of(outcome));
}

// Nobody was named on the command line, and the dialog didn't come to name anybody.
failure without_receivers(const zx_outcome& outcome, const std::string& host) {
    clear_leftovers(left_documents(outcome), host);
    if (outcome.step == ZX_STEP_DIALOG)
        return nobody_named();
    if (outcome.step != ZX_STEP_NONE)
        return failed_step("ending the job", cause_of(outcome));
    return {exit_no_receiver, "the dialog named nobody who can be reached; nothing was sent"};
}

std::string what_was_done(const zx_outcome& outcome) {
    if (outcome.on_desk != 0)
        return "left on the desk of " + shown(outcome.desk_user) + " as document " +
               std::to_string(outcome.on_desk);
    return counted(outcome.receiver_count, "send job") + " made";
}

} // namespace

std::string send_fax(const std::string& host) {
    const std::int32_t document = pa_s_rec->faxid;
    const std::int32_t rc = SendFaxDoc();
    const zx_outcome& outcome = *LastJobOutcome();
    if (rc == declined) {
        clear_leftovers(left_documents(outcome), host);
        throw failure(exit_interrupted, "cancelled; nothing was sent");
    }
    if (outcome.receiver_count > 0 && (rc != success || stopped_at(outcome) != nullptr))
        throw stopped_job(outcome, document, host).settle();
    if (outcome.desk_user[0] != '\0' && (rc != success || outcome.on_desk == 0))
        throw not_on_desk(outcome, host);
    if (outcome.receiver_count == 0 && outcome.on_desk == 0)
        throw without_receivers(outcome, host);
    return what_was_done(outcome);
}

} // namespace zerdix::app
