#include "rpc/wire/call_watch.h"

#include <utility>

namespace zerdix::wire {

namespace {

constinit call_watch* present = nullptr;

} // namespace

call_watch* replace_call_watch(call_watch* watch) {
    return std::exchange(present, watch);
}

call_watch* present_call_watch() {
    return present;
}

} // namespace zerdix::wire
