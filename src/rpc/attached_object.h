// An object of ZERDIX for code that works on a connection that somebody else opened: other than
// making one, it forgets neither the connection nor the kept user record, and going it leaves both.
#ifndef ZERDIX_RPC_ATTACHED_OBJECT_H
#define ZERDIX_RPC_ATTACHED_OBJECT_H

#include <optional>
#include <utility>

#include <zerdix/zerdix.h>

#include "rpc/session.h"

namespace zerdix::rpc {

class attached_object {
  public:
    attached_object() {
        const session_state before = session();
        object_.emplace();
        session().pclient = before.pclient;
        session().pauserrec = before.pauserrec;
    }
    ~attached_object() {
        a_user_rec* kept = std::exchange(session().pauserrec, nullptr);
        object_.reset();
        session().pauserrec = kept;
    }
    attached_object(const attached_object&) = delete;
    attached_object& operator=(const attached_object&) = delete;

    ZERDIX& object() { return *object_; }

  private:
    std::optional<ZERDIX> object_;
};

} // namespace zerdix::rpc

#endif
