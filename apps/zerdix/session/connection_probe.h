// SPDX-License-Identifier: MIT
// Finds out why there is no connection, or why a call failed: the library says only that it did.
//
// The probes go the way that a connection goes, one step at a time: name, port mapper,
// registration, port, an empty call. Each gives up after a few seconds.
#ifndef ZERDIX_APP_SESSION_CONNECTION_PROBE_H
#define ZERDIX_APP_SESSION_CONNECTION_PROBE_H

#include <chrono>
#include <string>

#include "output/failure.h"

namespace zerdix::app {

struct failure_cause {
    exit_code code;
    std::string cause; // UTF-8, a clause: "no port mapper answers on alpha"
};

// Probes a server, named in Windows-1252 as the settings have it. A server that answers well has
// refused whatever failed.
failure_cause probe_server(const std::string& host);

// Takes the time of a call to the server.
class call_probe {
  public:
    call_probe() : start_(std::chrono::steady_clock::now()) {}

    // What was wrong with the call that has just failed. With a connection still open that very
    // connection is probed, else the server anew.
    failure_cause explain(const std::string& host) const;

    // Whether a call that ends now has taken all its time.
    bool timed_out() const;

  private:
    std::chrono::steady_clock::time_point start_;
};

} // namespace zerdix::app

#endif
