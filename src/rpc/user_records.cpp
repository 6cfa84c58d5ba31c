// SPDX-License-Identifier: MIT
// The user's two records on the server, and the password.
//
// A setter changes the kept record and writes it back whole, so that fields that this client
// doesn't know return as they came.

#include <algorithm>

#include <zerdix/values.h>
#include <zerdix/zerdix.h>

#include "rpc/call.h"
#include "rpc/fields.h"

using namespace zerdix;
using rpc::by_session;
using rpc::or_empty;
using rpc::session;
using rpc::trace_lines;
using rpc::truth;
using rpc::whole_field;
namespace proc = rpc::proc;

namespace {

constexpr std::int32_t closes_a_cycle = 6; // a result of setReplacement's own

// The kept record for a setter to change, or null and the setter's result.
template <class Record>
struct kept {
    Record* record;
    std::int32_t rc;
};

kept<a_user_rec> kept_a_user(ZERDIX& object, const by_session& caller) {
    if (caller.handle() == nullptr)
        return {nullptr, rpc::no_client};
    if (session().pauserrec.get() == nullptr && object.getAUserRecord() == nullptr) {
        trace_lines.error("%s: RPC error, alpha user record not set\n", caller.name());
        return {nullptr, rpc::call_failed};
    }
    return {session().pauserrec.get(), rpc::success};
}

// `present` counts only as long as no other object has fetched a record.
kept<o_user_rec> kept_o_user(ZERDIX& object, const held_result<o_user_rec>& present,
                             const by_session& caller) {
    if (caller.handle() == nullptr)
        return {nullptr, rpc::no_client};
    if (present.is_own())
        return {present.get(), rpc::success};
    o_user_rec* const fetched = object.getOUserRecord();
    if (fetched != nullptr)
        return {fetched, rpc::success};
    trace_lines.error("%s: RPC error, omega user record not set\n", caller.name());
    return {nullptr, rpc::call_failed};
}

template <class P>
std::int32_t put_record(const char* name, const typename P::argument& record) {
    const by_session caller{name};
    const std::int32_t rc = rpc::request<P>(caller, record);
    if (rc == rpc::refused)
        trace_lines.error("Error returned from a_put_user_1()\n");
    return rc;
}

std::int32_t password_result(std::int32_t told) {
    if (told == login_unknown_user)
        trace_lines.error("ZERDIX::chgPassword(): user unknown");
    if (told != login_wrong_password)
        return told;
    trace_lines.error("ZERDIX::chgPassword(): wrong password");
    return result_wrong_password;
}

} // namespace

a_user_rec* ZERDIX::getAUserRecord() {
    const by_session caller{"ZERDIX::getAUserRecord()"};
    if (rpc::fetch<proc::a_get_user_1>(caller, session().str10UserId, session().pauserrec) ==
        nullptr)
        return nullptr;
    return session().pauserrec.get();
}

a_user_rec* ZERDIX::clsGetAUserRecord() {
    const by_session caller{"ZERDIX::clsGetAUserRecord()"};
    if (caller.handle() == nullptr)
        return nullptr;
    if (session().pauserrec.get() == nullptr &&
        rpc::fetch<proc::a_get_user_1>(caller, session().str10UserId, session().pauserrec) ==
            nullptr)
        return nullptr;
    return session().pauserrec.get();
}

std::int32_t ZERDIX::putAUserRecord(const a_user_rec* record) {
    return put_record<proc::a_put_user_1>("ZERDIX::putAUserRecord()", *record);
}

std::int32_t ZERDIX::setDefPrinter(const char* printer) {
    const by_session caller{"ZERDIX::setDefPrinter()", "<-- ZERDIX::setDefPrinter(): Printer: <%s>",
                            or_empty(printer)};
    const auto [record, rc] = kept_a_user(*this, caller);
    if (record == nullptr)
        return rc;
    record->defprinter = whole_field<10>(printer);
    return putAUserRecord(record);
}

std::int32_t ZERDIX::setDefScanner(const char* scanner, std::int32_t hwfeatures) {
    const by_session caller{"ZERDIX::setDefScanner()",
                            "<-- ZERDIX::setDefScanner(): Scanner: <%s> Hardware Features <0x%x>",
                            or_empty(scanner), hwfeatures};
    const auto [record, rc] = kept_a_user(*this, caller);
    if (record == nullptr)
        return rc;
    record->defscanner = whole_field<10>(scanner);
    record->hwfeatures = static_cast<std::int16_t>(hwfeatures);
    return putAUserRecord(record);
}

std::int32_t ZERDIX::setPaperTrays(const std::int32_t* trays) {
    const by_session caller("ZERDIX::setPaperTrays()",
                            "<-- ZERDIX::setPaperTrays(): 1:<%ld> 2:<%ld> 3:<%ld> 4:<%ld> 5:<%ld> "
                            "6:<%ld> 7:<%ld> 8:<%ld> 9:<%ld> 10:<%ld>",
                            trays[0], trays[1], trays[2], trays[3], trays[4], trays[5], trays[6],
                            trays[7], trays[8], trays[9]);
    const auto [record, rc] = kept_a_user(*this, caller);
    if (record == nullptr)
        return rc;
    std::copy_n(trays, record->papertrays.size(), record->papertrays.begin());
    return putAUserRecord(record);
}

std::int32_t ZERDIX::setPriority(std::int16_t priority) {
    const by_session caller{"ZERDIX::setPriority()", "<-- ZERDIX::setPriority(): <%hd>", priority};
    const bool in_range = priority >= 0 && priority <= highest_user_priority;
    if (!in_range && session().pclient != nullptr) {
        trace_lines.error("%s: a user's priority is 0 to 100, not %hd", caller.name(), priority);
        return rpc::refused;
    }
    const auto [record, rc] = kept_a_user(*this, caller);
    if (record == nullptr)
        return rc;
    record->priority = priority;
    return putAUserRecord(record);
}

std::int32_t ZERDIX::setActions(std::int32_t actions) {
    const by_session caller{"ZERDIX::setActions()", "<-- ZERDIX::setActions(): <%ld>", actions};
    const auto [record, rc] = kept_a_user(*this, caller);
    if (record == nullptr)
        return rc;
    record->actions = actions;
    return putAUserRecord(record);
}

o_user_rec* ZERDIX::getOUserRecord() {
    const by_session caller{"ZERDIX::getOUserRecord()"};
    if (rpc::fetch<proc::o_get_user_1>(caller, {{}, session().str10UserId}, pouserrec) == nullptr)
        return nullptr;
    return pouserrec.get();
}

std::int32_t ZERDIX::putOUserRecord(const o_user_rec* record) {
    return put_record<proc::o_put_user_1>("ZERDIX::putOUserRecord()", *record);
}

std::int32_t ZERDIX::setReplacement(const char* userid, const char* alphaid, int active) {
    const by_session caller{"ZERDIX::setReplacement()"};
    const auto [record, rc] = kept_o_user(*this, pouserrec, caller);
    if (record == nullptr)
        return rc;
    const a_check_cycle_i request{session().str10UserId, whole_field<35>(alphaid),
                                  whole_field<10>(userid)};
    const std::int32_t checked = rpc::request<proc::a_check_cycle_1>(
        rpc::by_session_step{caller, "ZERDIX::setReplacement() <a_check_cycle_i>"}, request);
    if (checked == rpc::refused) {
        trace_lines.error("Replacement must not be set\n");
        return closes_a_cycle;
    }
    if (checked != rpc::success)
        return checked;
    record->repl_userid = request.repl_userid;
    record->repl_alphaid = request.repl_alphaid;
    record->repl_active = truth(active);
    return putOUserRecord(record);
}

// A login takes no more than 20 characters of a password, so no more are stored.
std::int32_t ZERDIX::chgPassword(const char* oldpassword, const char* newpassword) {
    const by_session caller{"ZERDIX::chgPassword()"};
    client* handle = caller.handle();
    if (handle == nullptr)
        return rpc::no_client;
    const auto* told = rpc::call<proc::a_chg_pw_1>(
        caller, handle,
        {session().str10UserId, {}, rpc::field<20>(oldpassword), rpc::field<20>(newpassword)});
    if (told == nullptr)
        return rpc::call_failed;
    const std::int32_t rc = password_result(*told);
    caller.exit("--> ZERDIX::chgPassword(): rc: %ld", rc);
    return rc;
}
