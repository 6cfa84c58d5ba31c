#include "rpc/wire/deadline.h"

namespace zerdix::wire {

namespace {

using clock = std::chrono::steady_clock;

// Calls never overlap, so one deadline serves the process.
clock::time_point deadline = clock::time_point::max();

} // namespace

bool call_expired() {
    return deadline != clock::time_point::max() && clock::now() > deadline;
}

call_time::call_time(clock::duration time) {
    deadline = clock::now() + time;
}

call_time::~call_time() {
    deadline = clock::time_point::max();
}

} // namespace zerdix::wire
