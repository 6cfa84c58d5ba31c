// Somebody who wants to know that the thread waits for the server: a window that has to say so.
#ifndef ZERDIX_WIRE_CALL_WATCH_H
#define ZERDIX_WIRE_CALL_WATCH_H

#include <chrono>

namespace zerdix::wire {

// Nothing in here may make a remote call: one is under way.
class call_watch {
  public:
    virtual void begins() = 0;
    // Every `call_watch_interval` while the call waits for the server.
    virtual void goes_on() = 0;
    virtual void ended() = 0;

  protected:
    ~call_watch() = default;
};

constexpr std::chrono::milliseconds call_watch_interval{40};

// As platform/port_slot.h says; null for nobody.
call_watch* replace_call_watch(call_watch* watch);
call_watch* present_call_watch();

} // namespace zerdix::wire

#endif
