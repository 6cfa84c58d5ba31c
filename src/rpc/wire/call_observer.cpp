// SPDX-License-Identifier: MIT
#include "rpc/wire/call_observer.h"

#include "platform/port_slot.h"

namespace zerdix::wire {

namespace {

constinit platform::port_slot<call_observer> slot;

} // namespace

call_observer* replace_call_observer(call_observer* observer) {
    return slot.replace(observer);
}

call_observer* present_call_observer() {
    return slot.current();
}

} // namespace zerdix::wire
