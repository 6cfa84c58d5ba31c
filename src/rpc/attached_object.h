// SPDX-License-Identifier: MIT
// A ZERDIX object for code that works on a connection which somebody else opened. A plain ZERDIX
// forgets the session's connection and kept user record when it is made, and releases the record
// when it is destroyed; with this one both stay.
#ifndef ZERDIX_RPC_ATTACHED_OBJECT_H
#define ZERDIX_RPC_ATTACHED_OBJECT_H

#include <optional>

#include <zerdix/zerdix.h>

#include "rpc/call.h"

namespace zerdix::rpc {

class attached_object {
  public:
    attached_object() {
        client* const handle = session().pclient;
        auto* const kept = session().pauserrec.detach();
        object_.emplace();
        session().pclient = handle;
        session().pauserrec.attach(kept);
    }
    ~attached_object() {
        auto* const kept = session().pauserrec.detach();
        object_.reset();
        session().pauserrec.attach(kept);
    }
    attached_object(const attached_object&) = delete;
    attached_object& operator=(const attached_object&) = delete;

    ZERDIX& object() { return *object_; }

  private:
    std::optional<ZERDIX> object_;
};

} // namespace zerdix::rpc

#endif
