// SPDX-License-Identifier: MIT
// A connection to the server of the settings as their user, for the length of a command.
#ifndef ZERDIX_APP_SESSION_PLAIN_SESSION_H
#define ZERDIX_APP_SESSION_PLAIN_SESSION_H

#include <string>

#include <zerdix/zerdix.h>

namespace zerdix::app {

class server_session {
  public:
    // Throws failure with the reason when there is no connection.
    server_session();
    ~server_session() { session_.CleanupHostConnection(); }
    server_session(const server_session&) = delete;
    server_session& operator=(const server_session&) = delete;

    const std::string& host() const { return host_; } // Windows-1252

  private:
    ZERDIX session_;
    std::string host_;
};

} // namespace zerdix::app

#endif
