// SPDX-License-Identifier: MIT
// The composer's state from one cover page to the next, process-wide.
//
// The template's id and the phone book object are kept as long as the process runs, all else as
// long as the session: whoever ends a session calls forget_session first.
#ifndef ZERDIX_COVER_STATE_H
#define ZERDIX_COVER_STATE_H

#include <optional>

#include <zerdix/telebook.h>
#include <zerdix/zerdix.h>

#include "cover/kept_picture.h"

namespace zerdix::cover {

// A user's record, with the session and the user that it belongs to. It is a copy, since the
// fetched record is the session's.
struct kept_user {
    const ZERDIX* session;
    str10 userid;
    o_user_rec record;
};

struct cover_state {
    std::int32_t lCoverDocId = 0; // 0 until known
    std::optional<kept_user> pCoverUser;
    std::optional<TELEBOOK> coverBook; // made at the first look-up
    kept_picture form;
    kept_picture signature;
};

cover_state& state();

void forget_session();

} // namespace zerdix::cover

#endif
