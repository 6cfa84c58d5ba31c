// SPDX-License-Identifier: MIT
#include "platform/append_file.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/port_slot.h"

namespace zerdix::platform {
namespace {

// Moves a descriptor out of the way of the standard streams: a process that runs without them must
// not find its output in the trace file.
append_file_port::opened above_standard_streams(int descriptor) {
    if (descriptor < 0)
        return {append_file_port::invalid, errno};
    if (descriptor > STDERR_FILENO)
        return {descriptor, 0};
    const int moved = ::fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int error = moved < 0 ? errno : 0;
    ::close(descriptor);
    return {moved < 0 ? append_file_port::invalid : moved, error};
}

// A pipe in place of a file isn't waited for.
constexpr int to_append = O_WRONLY | O_APPEND | O_CLOEXEC | O_NONBLOCK;

class system_files final : public append_file_port {
  public:
    bool exists(const char* path) override {
        struct stat found = {};
        return ::stat(path, &found) == 0;
    }

    opened create(const char* path) override {
        return above_standard_streams(::open(path, to_append | O_CREAT | O_TRUNC, 0644));
    }

    opened open_at_end(const char* path) override {
        return above_standard_streams(::open(path, to_append));
    }

    void write(int handle, std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t written = ::write(handle, bytes.data(), bytes.size());
            if (written < 0 && errno != EINTR)
                return;
            bytes.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
        }
    }

    void close(int handle) override { ::close(handle); }
};

// Trivially destroyed, so that it serves the tracer to its very end.
constinit system_files default_port;
constinit port_slot<append_file_port> slot{&default_port};

} // namespace

append_file_port& append_files() {
    return *slot.current();
}

append_file_port* replace_append_files(append_file_port* port) {
    return slot.replace(port);
}

} // namespace zerdix::platform
