// SPDX-License-Identifier: MIT
// A connection of its own, for whoever can't rely on the present one; that one is closed. The
// session's user and server stay.
#ifndef ZERDIX_APP_SESSION_NEW_CONNECTION_H
#define ZERDIX_APP_SESSION_NEW_CONNECTION_H

#include <string>

#include <zerdix/zerdix.h>

namespace zerdix::app {

class new_connection {
  public:
    // The host is Windows-1252.
    explicit new_connection(const std::string& host)
        : new_connection(ZERDIX::clsGetClient(), host) {}
    ~new_connection() {
        if (stands_)
            session_.CleanupHostConnection();
    }
    new_connection(const new_connection&) = delete;
    new_connection& operator=(const new_connection&) = delete;

    bool stands() const { return stands_; }
    ZERDIX& session() { return session_; }

  private:
    new_connection(client* present, const std::string& host);

    ZERDIX session_;
    bool stands_;
};

} // namespace zerdix::app

#endif
