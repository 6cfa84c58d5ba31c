// SPDX-License-Identifier: MIT
// The one way of making a remote call: client check, release of the old result, the call, and what
// follows a call that failed.
//
// A policy tells who calls. `by_session` is ZERDIX: it uses the session's handle and writes the
// operation's entry and exit lines.
// `by_object` is JOURNAL and TELEBOOK: each object keeps a copy of the handle, which counts as none
// once it isn't the session's present one, and there are no trace lines.
#ifndef ZERDIX_RPC_CALL_H
#define ZERDIX_RPC_CALL_H

#include <utility>

#include <zerdix/held_result.h>
#include <zerdix/values.h>

#include "rpc/session.h"
#include "rpc/trace_lines.h"
#include "rpc/wire/stub.h"

namespace zerdix::rpc {

using wire::none;
namespace proc = wire::proc;

enum result : std::int32_t {
    success = call_succeeded,
    refused = call_refused,
    call_failed = zerdix::call_failed,
    no_client = call_without_connection,
};

// Takes the error of the call that has just failed. When it timed out the handle is destroyed and
// the session has none from then on.
call_error settle_failed_call(client* handle);

// The error of the last call that failed in this process.
call_error last_failed_call();

// Whether a remote call has failed since it was made, for operations that don't say so themselves.
class failed_call_mark {
  public:
    failed_call_mark() : before_(session().failed_calls) {}
    bool any_failed() const { return session().failed_calls != before_; }

  private:
    std::uint32_t before_;
};

class by_session : public trace::operation {
  public:
    // `name` is the operation's qualified name with its parentheses.
    explicit by_session(const char* name) : operation(trace_lines, name, "<-- %s", name) {}

    // With an entry line that tells more.
    template <trace::traceable... Arguments>
    by_session(const char* name, trace::tracer::format<Arguments...> entry, Arguments... arguments)
        : operation(trace_lines, name, entry, arguments...) {}

    client* handle() const;
    void failed(client* handle) const { failed(handle, name()); }

    // `call` is what the lines of the failure name.
    void failed(client* handle, const char* call) const;
};

// A further call of an operation, which has a name of its own in the lines of a failure.
class by_session_step {
  public:
    by_session_step(const by_session& operation, const char* name)
        : operation_(operation), name_(name) {}

    client* handle() const { return operation_.handle(); }
    void failed(client* handle) const { operation_.failed(handle, name_); }

  private:
    const by_session& operation_;
    const char* name_;
};

class by_object {
  public:
    explicit by_object(client*& copy) : copy_(&copy) {}

    client* handle() const;
    void failed(client* handle) const;

  private:
    client** copy_;
};

// As by_object, for the operations that don't ask why a call failed: the handle stays, also when
// the call timed out.
class by_object_keeping_handle {
  public:
    explicit by_object_keeping_handle(client*& copy) : object_(copy) {}

    client* handle() const { return object_.handle(); }
    void failed(client*) const {}

  private:
    by_object object_;
};

// Calls without a client check; null when the call failed.
template <class P, class Policy>
typename P::result* call(const Policy& policy, client* handle, typename P::argument argument) {
    auto* answer = wire::stub<P>(argument, handle);
    if (answer == nullptr)
        policy.failed(handle);
    return answer;
}

// An operation whose answer is a truth value: 0, 4, 8 or 12.
template <class P, class Policy>
std::int32_t request(const Policy& policy, const typename P::argument& argument) {
    client* handle = policy.handle();
    if (handle == nullptr)
        return no_client;
    const auto* answer = call<P>(policy, handle, argument);
    if (answer == nullptr)
        return call_failed;
    return *answer ? success : refused;
}

// Releases a result, whoever holds it.
template <class P>
void forget() {
    wire::release(wire::result_slot<P>::record);
    wire::result_slot<P>::place.holder = nullptr;
}

// An operation that keeps its answer: null without a handle, with the kept one untouched, and null
// when the call failed, with nothing kept.
template <class P, class Policy>
typename P::result* fetch(const Policy& policy, const typename P::argument& argument,
                          held_result<typename P::result>& kept) {
    client* handle = policy.handle();
    if (handle == nullptr)
        return nullptr;
    kept.reset();
    const bool succeeded = call<P>(policy, handle, argument) != nullptr;
    kept.take_call(wire::result_slot<P>::place, succeeded);
    return kept.get();
}

} // namespace zerdix::rpc

namespace zerdix {

template <class Record>
Record* held_result<Record>::get() const {
    return place_ != nullptr ? &place_->record : nullptr;
}

template <class Record>
bool held_result<Record>::is_own() const {
    return place_ != nullptr && place_->holder == this;
}

template <class Record>
void held_result<Record>::reset() {
    if (is_own())
        wire::release(place_->record);
    place_ = nullptr;
}

template <class Record>
void held_result<Record>::take_call(wire::result_place<Record>& place, bool succeeded) {
    place.holder = this;
    place_ = succeeded ? &place : nullptr;
}

template <class Record>
wire::result_place<Record>* held_result<Record>::detach() {
    return std::exchange(place_, nullptr);
}

} // namespace zerdix

#endif
