// SPDX-License-Identifier: MIT
#include "print/outcome_words.h"

#include <zerdix/call_time.h>
#include <zerdix/values.h>

#include "platform/encoding.h"

namespace zerdix::app {

namespace {

// Numbers of the ONC RPC library.
enum rpc_status : std::int32_t { cant_send = 3, cant_receive = 4, no_answer_in_time = 5 };

failure_cause lost_call(std::int32_t status) {
    switch (status) {
    case no_answer_in_time:
        return {exit_unavailable,
                "the server didn't answer within " + std::to_string(call_seconds) + " seconds"};
    case cant_send:
    case cant_receive:
        return {exit_unavailable, "the connection to the server broke"};
    default:
        return {exit_unavailable, "the call failed with RPC status " + std::to_string(status)};
    }
}

} // namespace

std::vector<const zx_receiver*> receivers_that_are(const zx_outcome& outcome, zx_delivery wanted) {
    std::vector<const zx_receiver*> found;
    for (std::int32_t i = 0; i < outcome.receiver_count; ++i)
        if (outcome.receivers[i].delivery == wanted)
            found.push_back(&outcome.receivers[i]);
    return found;
}

const zx_receiver* stopped_at(const zx_outcome& outcome) {
    for (std::int32_t i = outcome.receiver_count; i-- > 0;)
        if (outcome.receivers[i].delivery != ZX_HANDED_OVER)
            return &outcome.receivers[i];
    return nullptr;
}

failure_cause cause_of(const zx_outcome& outcome) {
    switch (outcome.answer) {
    case call_refused:
        return {exit_refused, "the server refused it"};
    case call_failed:
        return lost_call(outcome.rpc_status);
    case call_without_connection:
        return {exit_unavailable, "the connection to the server is gone"};
    default:
        break;
    }
    if (outcome.step == ZX_STEP_COVER)
        return {exit_refused, "there is no cover page for it"};
    if (outcome.step == ZX_STEP_INSPECT)
        return {exit_refused, "the document has no data for this way of sending"};
    return {exit_internal, "the library couldn't carry it out"};
}

bool timed_out(const zx_outcome& outcome) {
    return outcome.rpc_status == no_answer_in_time;
}

std::string shown_receiver(const zx_receiver& receiver) {
    return platform::cp1252_to_utf8(receiver.receiver);
}

std::vector<std::int32_t> left_documents(const zx_outcome& outcome) {
    return {outcome.left, outcome.left + outcome.left_count};
}

} // namespace zerdix::app
