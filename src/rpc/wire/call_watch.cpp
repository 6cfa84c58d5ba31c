#include "rpc/wire/call_watch.h"

#include "platform/port_slot.h"

namespace zerdix::wire {

namespace {

constinit platform::port_slot<call_watch> slot;

} // namespace

call_watch* replace_call_watch(call_watch* watch) {
    return slot.replace(watch);
}

call_watch* present_call_watch() {
    return slot.current();
}

} // namespace zerdix::wire
