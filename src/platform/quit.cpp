// SPDX-License-Identifier: MIT
#include "platform/quit.h"

#include "platform/port_slot.h"

namespace zerdix::platform {
namespace {

class no_loop final : public quit_port {
  public:
    void post(int) override {}
};

constinit no_loop default_port;
constinit port_slot<quit_port> slot{&default_port};

} // namespace

quit_port& quit_request() {
    return *slot.current();
}

quit_port* replace_quit_request(quit_port* port) {
    return slot.replace(port);
}

} // namespace zerdix::platform
