#include "platform/quit.h"

namespace zerdix::platform {
namespace {

class no_loop final : public quit_port {
  public:
    void post(int) override {}
};

constinit no_loop default_port;
constinit quit_port* current = &default_port;

} // namespace

quit_port& quit_request() {
    return *current;
}

quit_port* replace_quit_request(quit_port* port) {
    quit_port* before = current;
    current = port == nullptr ? &default_port : port;
    return before;
}

} // namespace zerdix::platform
