// SPDX-License-Identifier: MIT
#include "platform/message_box.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <string>
#include <type_traits>

#include <poll.h>
#include <unistd.h>

#include <zerdix/messages.h>

#include "platform/encoding.h"
#include "platform/port_slot.h"

namespace zerdix::platform {
namespace {

constinit port_slot<std::remove_pointer_t<message_log>> log;

// Who takes the place of standard error.
struct host_program {
    zx_message_handler take;
    void* context;
};
constinit host_program host{nullptr, nullptr};

void tell_log(const char* line) {
    const message_log teller = log.replace(nullptr);
    if (teller == nullptr)
        return;
    teller(line);
    log.replace(teller);
}

// The library may be loaded into any process: a reader who has gone must not end it, and one who
// doesn't read must not hold it up. A pipe that is ready takes PIPE_BUF bytes at once.
void write_line(std::string line) {
    pollfd target = {STDERR_FILENO, POLLOUT, 0};
    if (::poll(&target, 1, 0) != 1 || target.revents != POLLOUT)
        return;
    line.resize(std::min<std::size_t>(line.size(), PIPE_BUF - 1));
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

class standard_error final : public message_box_port {
  public:
    void show(std::string_view text, std::string_view caption) override {
        std::string line = std::string(caption) + ": " + std::string(text);
        for (char& c : line) {
            if (c == '\n' || c == '\r')
                c = ' ';
        }
        if (host.take != nullptr)
            host.take(host.context, std::string(text).c_str(), std::string(caption).c_str());
        else
            write_line(cp1252_to_utf8(line));
        tell_log(line.c_str());
    }
};

// Trivially destroyed, so that it serves the tracer to its very end.
constinit standard_error default_port;
constinit port_slot<message_box_port> slot{&default_port};

} // namespace

message_box_port& message_box() {
    return *slot.current();
}

message_log set_message_log(message_log new_log) {
    return log.replace(new_log);
}

message_box_port* replace_message_box(message_box_port* port) {
    return slot.replace(port);
}

} // namespace zerdix::platform

extern "C" void SetMessageHandler(zx_message_handler handler, void* context) {
    zerdix::platform::host = {handler, context};
}
