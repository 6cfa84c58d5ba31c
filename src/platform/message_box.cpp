#include "platform/message_box.h"

#include <cstdio>
#include <string>
#include <utility>

#include "platform/encoding.h"

namespace zerdix::platform {
namespace {

constinit message_log log = nullptr;

void tell_log(const char* line) {
    const message_log teller = std::exchange(log, nullptr);
    if (teller == nullptr)
        return;
    teller(line);
    log = teller;
}

class standard_error final : public message_box_port {
  public:
    void show(std::string_view text, std::string_view caption) override {
        std::string line(caption);
        line += ": ";
        line += text;
        for (char& c : line) {
            if (c == '\n' || c == '\r')
                c = ' ';
        }
        std::fprintf(stderr, "%s\n", cp1252_to_utf8(line).c_str());
        tell_log(line.c_str());
    }
};

// Trivially destroyed, so that it serves the tracer to its very end.
constinit standard_error default_port;
constinit message_box_port* current = &default_port;

} // namespace

message_box_port& message_box() {
    return *current;
}

void set_message_log(message_log new_log) {
    log = new_log;
}

message_box_port* replace_message_box(message_box_port* port) {
    message_box_port* before = current;
    current = port == nullptr ? &default_port : port;
    return before;
}

} // namespace zerdix::platform
