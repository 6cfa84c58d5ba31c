// SPDX-License-Identifier: MIT
// The outcome of a job in words, out of the string table.

#include <string>

#include <zerdix/values.h>

#include "common/string_table.h"
#include "rpc/session.h"
#include "sending/outcome.h"

namespace zerdix::sending {

namespace {

using common::string_text;
using common::string_text_with;

enum outcome_string : std::int32_t {
    handed_over_of = 40100, // "Handed over: %ld of %ld receivers."
    refused_are = 40101,
    unknown_are = 40102,
    not_tried_are = 40103,
    nothing_sent = 40104,
    on_desk = 40105, // "Document %ld lies on the desk."
    left_behind = 40106,
    more = 40107,       // "and %ld more"
    first_step = 40110, // and the number of the step
    by_refusal = 40130,
    by_time_out = 40131,
    by_broken_connection = 40132,
    by_lack_of_connection = 40133,
    by_call = 40134,      // "the call failed (%ld)"
    first_remark = 40140, // and the kind of the remark
};

// Names beyond these are counted only.
constexpr int names_told = 10;

std::string counted(std::int32_t text, std::int32_t first, std::int32_t second) {
    std::string sentence = string_text_with(text, first);
    const std::size_t place = sentence.find("%ld");
    return place == std::string::npos ? sentence
                                      : sentence.replace(place, 3, std::to_string(second));
}

std::int32_t count(const zx_outcome& outcome, zx_delivery wanted) {
    std::int32_t found = 0;
    for (std::int32_t i = 0; i < outcome.receiver_count; ++i)
        found += outcome.receivers[i].delivery == wanted ? 1 : 0;
    return found;
}

class sentences {
  public:
    void add(const std::string& sentence) {
        if (!text_.empty())
            text_ += ' ';
        text_ += sentence;
    }
    void add_names(const zx_outcome& outcome, zx_delivery wanted, std::int32_t heading);
    std::string take() { return std::move(text_); }

  private:
    std::string text_;
};

void sentences::add_names(const zx_outcome& outcome, zx_delivery wanted, std::int32_t heading) {
    const std::int32_t found = count(outcome, wanted);
    if (found == 0)
        return;
    std::string sentence = string_text(heading);
    int told = 0;
    for (std::int32_t i = 0; i < outcome.receiver_count && told < names_told; ++i) {
        if (outcome.receivers[i].delivery != wanted)
            continue;
        sentence += told++ == 0 ? " " : ", ";
        sentence += outcome.receivers[i].receiver;
    }
    if (found > told)
        sentence += ' ' + string_text_with(more, found - told);
    add(sentence + '.');
}

std::string reason(const zx_outcome& outcome) {
    switch (outcome.answer) {
    case call_refused:
        return string_text(by_refusal);
    case call_without_connection:
        return string_text(by_lack_of_connection);
    case call_failed:
        break;
    default:
        return {};
    }
    switch (outcome.rpc_status) {
    case RPC_TIMEDOUT:
        return string_text(by_time_out);
    case RPC_CANTSEND:
    case RPC_CANTRECV:
        return string_text(by_broken_connection);
    default:
        return string_text_with(by_call, outcome.rpc_status);
    }
}

std::string failed_step(const zx_outcome& outcome) {
    std::string sentence = string_text(first_step + outcome.step);
    const std::string why = reason(outcome);
    if (!why.empty())
        sentence += ": " + why;
    return sentence + '.';
}

std::string text_of(const zx_outcome& outcome) {
    sentences told;
    if (outcome.receiver_count > 0)
        told.add(counted(handed_over_of, count(outcome, ZX_HANDED_OVER), outcome.receiver_count));
    else if (outcome.on_desk == 0)
        told.add(string_text(nothing_sent));
    told.add_names(outcome, ZX_REFUSED, refused_are);
    told.add_names(outcome, ZX_UNKNOWN, unknown_are);
    told.add_names(outcome, ZX_NOT_TRIED, not_tried_are);
    if (outcome.step != ZX_STEP_NONE)
        told.add(failed_step(outcome));
    if (outcome.on_desk != 0)
        told.add(string_text_with(on_desk, outcome.on_desk));
    for (std::int32_t i = 0; i < outcome.left_count; ++i)
        told.add(string_text_with(left_behind, outcome.left[i]));
    return told.take();
}

std::string text_of(const zx_remark& remark) {
    std::string sentence = remark.key;
    if (remark.value[0] != '\0')
        sentence += (sentence.empty() ? "" : " ") + std::string{remark.value};
    return sentence + ": " + string_text(first_remark + remark.kind) + '.';
}

} // namespace

} // namespace zerdix::sending

extern "C" const char* OutcomeText(const zx_outcome* outcome) {
    static std::string text;
    text = outcome != nullptr ? zerdix::sending::text_of(*outcome) : std::string{};
    return text.c_str();
}

extern "C" const char* RemarkText(const zx_remark* remark) {
    static std::string text;
    text = remark != nullptr ? zerdix::sending::text_of(*remark) : std::string{};
    return text.c_str();
}
