#include "rpc/wire/call_observer.h"

#include <utility>

namespace zerdix::wire {

namespace {

constinit call_observer* present = nullptr;

} // namespace

call_observer* replace_call_observer(call_observer* observer) {
    return std::exchange(present, observer);
}

call_observer* present_call_observer() {
    return present;
}

} // namespace zerdix::wire
