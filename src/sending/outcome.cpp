// SPDX-License-Identifier: MIT
#include "sending/outcome.h"

#include <algorithm>

#include "rpc/call.h"

namespace zerdix::sending {

namespace {

// A driver that hands the text of all its pages over may bring any number.
constexpr std::size_t most_remarks = 1000;

// A call whose request may have reached the server although no result came back.
bool reply_was_lost(clnt_stat status) {
    switch (status) {
    case RPC_CANTENCODEARGS:
    case RPC_CANTSEND:
    case RPC_VERSMISMATCH:
    case RPC_AUTHERROR:
    case RPC_PROGUNAVAIL:
    case RPC_PROGVERSMISMATCH:
    case RPC_PROCUNAVAIL:
    case RPC_CANTDECODEARGS:
        return false;
    default:
        return true;
    }
}

bool was_never_sent(clnt_stat status) {
    return status == RPC_CANTENCODEARGS || status == RPC_CANTSEND;
}

zx_delivery undelivered(std::int32_t result) {
    if (result == rpc::refused)
        return ZX_REFUSED;
    if (result == rpc::no_client)
        return ZX_NOT_TRIED;
    const clnt_stat status = rpc::last_failed_call().status;
    if (reply_was_lost(status))
        return ZX_UNKNOWN;
    return was_never_sent(status) ? ZX_NOT_TRIED : ZX_REFUSED;
}

} // namespace

void outcome::begin() {
    if (!ended_)
        return;
    *this = outcome{};
    ended_ = false;
}

std::size_t outcome::name_receivers(const std::vector<std::string>& receivers) {
    std::erase_if(receivers_, [](const receiver_state& each) {
        return each.delivery == ZX_NOT_TRIED || each.delivery == ZX_REFUSED;
    });
    const std::size_t first = receivers_.size();
    for (const std::string& each : receivers)
        name_receiver(each);
    return first;
}

std::size_t outcome::name_receiver(std::string_view receiver) {
    receivers_.push_back({std::string{receiver}, ZX_NOT_TRIED, 0, 0});
    return receivers_.size() - 1;
}

void outcome::delivered(std::size_t receiver, std::int32_t document, std::int32_t outgoing) {
    receiver_state& state = receivers_.at(receiver);
    state.delivery = ZX_HANDED_OVER;
    state.document = document;
    state.outgoing = outgoing;
}

void outcome::not_delivered(std::size_t receiver, std::int32_t document, std::int32_t result) {
    receiver_state& state = receivers_.at(receiver);
    state.delivery = undelivered(result);
    state.document = document;
}

void outcome::failed(zx_step step, std::int32_t result) {
    if (step_ != ZX_STEP_NONE)
        return;
    step_ = step;
    answer_ = result;
    if (result != rpc::call_failed)
        return;
    const rpc::call_error call = rpc::last_failed_call();
    rpc_status_ = call.status;
    system_error_ = call.socket_rc;
}

void outcome::left_behind(std::int32_t document) {
    if (std::find(left_.begin(), left_.end(), document) == left_.end())
        left_.push_back(document);
}

void outcome::gone(std::int32_t document) {
    std::erase(left_, document);
}

void outcome::meant_for_desk(std::string_view user) {
    desk_user_ = user;
}

void outcome::put_on_desk(std::int32_t document) {
    gone(document);
    on_desk_ = document;
}

void outcome::remark(zx_remark_kind kind, std::string_view key, std::string_view value) {
    if (remarks_.size() < most_remarks)
        remarks_.push_back({kind, std::string{key}, std::string{value}});
}

void outcome::ended(std::int32_t result) {
    result_ = result;
    ended_ = true;
}

const zx_outcome& outcome::view() {
    receiver_views_.clear();
    for (const receiver_state& each : receivers_)
        receiver_views_.push_back({each.name.c_str(), each.delivery, each.document, each.outgoing});
    remark_views_.clear();
    for (const remark_state& each : remarks_)
        remark_views_.push_back({each.kind, each.key.c_str(), each.value.c_str()});
    view_ = {result_,
             step_,
             answer_,
             rpc_status_,
             system_error_,
             receiver_views_.data(),
             static_cast<std::int32_t>(receiver_views_.size()),
             left_.data(),
             static_cast<std::int32_t>(left_.size()),
             desk_user_.c_str(),
             on_desk_,
             remark_views_.data(),
             static_cast<std::int32_t>(remark_views_.size())};
    return view_;
}

outcome& job_outcome() {
    static outcome last;
    return last;
}

outcome& stored_outcome() {
    static outcome last;
    return last;
}

} // namespace zerdix::sending

extern "C" const zx_outcome* LastJobOutcome() {
    return &zerdix::sending::job_outcome().view();
}

extern "C" const zx_outcome* LastStoredOutcome() {
    return &zerdix::sending::stored_outcome().view();
}
