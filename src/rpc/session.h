// SPDX-License-Identifier: MIT
// The state of the connection, process-wide: what ZERDIX, JOURNAL and TELEBOOK share.
//
// It comes up with its first use and is never destroyed, since a program's own objects may go last.
// `pclient` is null while the connection is closed: GetClientAddr opens it, CleanupHostConnection
// and a call that timed out close it. User, server and language survive the connection and every
// object.
#ifndef ZERDIX_RPC_SESSION_H
#define ZERDIX_RPC_SESSION_H

#include <rpc/rpc.h>

#include <zerdix/held_result.h>
#include <zerdix/records.h>

namespace zerdix::rpc {

// What is known of a failed call.
struct call_error {
    clnt_stat status;
    std::int32_t socket_rc; // errno
};

// The record of the session's user. A session that is assigned brings its own and forgets the other
// one, which isn't released.
class kept_user_record : public held_result<a_user_rec> {
  public:
    kept_user_record() = default;
    kept_user_record& operator=(kept_user_record&& other) noexcept {
        attach(other.detach());
        return *this;
    }
};

struct session_state {
    std::int32_t lLoginId = 0; // 0: not logged on
    client* pclient = nullptr;
    char cLanguage = 'G';
    str30 str30LanguageString{"german_germany"};
    str10 str10UserId{};
    str35 str35AlphaServer{};
    std::int32_t lJournalBlockSize = 0; // 0: not asked for yet
    std::int32_t lTelebookBlockSize = 0;
    kept_user_record pauserrec; // the user's defaults as last fetched, null: not yet
    call_error last_failed_call{RPC_SUCCESS, 0};
    std::uint32_t failed_calls = 0;
};

session_state& session();

} // namespace zerdix::rpc

#endif
