// Watches over the connection that stands while a function of the library makes calls over it and
// closes it: the reason of the last call's failure is gone with the handle.
#ifndef ZERDIX_APP_PRINT_CONNECTION_WATCH_H
#define ZERDIX_APP_PRINT_CONNECTION_WATCH_H

#include <chrono>
#include <string>

#include "link_probe.h"

namespace zerdix::app {

class connection_watch {
  public:
    // Holds the connection's socket, which shows whether the server closed it.
    connection_watch();
    ~connection_watch();
    connection_watch(const connection_watch&) = delete;
    connection_watch& operator=(const connection_watch&) = delete;

    // What was wrong with the last call. `host` is Windows-1252.
    trouble explain(const std::string& host) const;

  private:
    bool is_broken() const;

    std::chrono::steady_clock::time_point start_;
    int fd_ = -1; // none without a connection
};

} // namespace zerdix::app

#endif
