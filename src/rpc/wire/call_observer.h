// SPDX-License-Identifier: MIT
// An observer of remote calls: a window, for example, that shows that the thread waits for the
// server.
#ifndef ZERDIX_WIRE_CALL_OBSERVER_H
#define ZERDIX_WIRE_CALL_OBSERVER_H

#include <chrono>

namespace zerdix::wire {

// No member may make a remote call, since one is under way.
class call_observer {
  public:
    virtual void begins() = 0;
    // Every `call_observer_interval` while the call waits for the server.
    virtual void goes_on() = 0;
    virtual void ended() = 0;

  protected:
    ~call_observer() = default;
};

constexpr std::chrono::milliseconds call_observer_interval{40};

// Puts the observer of the process in place, null for none, and returns the one before. The caller
// keeps it, and must put another one in its place before it is destroyed.
call_observer* replace_call_observer(call_observer* observer);
call_observer* present_call_observer();

} // namespace zerdix::wire

#endif
