// Why there is no connection, or why a call failed: the library says only that it did.
//
// The probes go the way that a connection goes, one step at a time: name, port mapper,
// registration, port, an empty call. Each gives up after a few seconds.
#ifndef ZERDIX_APP_LINK_PROBE_H
#define ZERDIX_APP_LINK_PROBE_H

#include <chrono>
#include <string>

#include "failure.h"

namespace zerdix::app {

struct trouble {
    exit_code code;
    std::string cause; // UTF-8, a clause: "no port mapper answers on alpha"
};

// Probes a server, named in Windows-1252 as the settings have it. A server that answers well has
// refused whatever failed.
trouble probe_server(const std::string& host);

// Takes the time of a call to the server.
class call_watch {
  public:
    call_watch() : start_(std::chrono::steady_clock::now()) {}

    // What was wrong with the call that has just failed. With a connection still open that very
    // connection is probed, else the server anew.
    trouble explain(const std::string& host) const;

  private:
    std::chrono::steady_clock::time_point start_;
};

} // namespace zerdix::app

#endif
