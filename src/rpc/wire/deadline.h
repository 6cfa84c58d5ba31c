// The time by which the call under way has to be over. A reply that drips in keeps every single
// read short; the filters look at the clock between reads, so that it can't stretch the call.
#ifndef ZERDIX_WIRE_DEADLINE_H
#define ZERDIX_WIRE_DEADLINE_H

#include <chrono>

namespace zerdix::wire {

// True when a call is under way and its time is over.
bool call_expired();

// While one stands, a call is under way; it lasts at most `time` from now.
class call_time {
  public:
    explicit call_time(std::chrono::steady_clock::duration time);
    ~call_time();
    call_time(const call_time&) = delete;
    call_time& operator=(const call_time&) = delete;
};

} // namespace zerdix::wire

#endif
