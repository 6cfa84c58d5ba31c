// SPDX-License-Identifier: MIT
// Files that only grow, with no buffer in between, as the tracer writes its own: a port that tests
// can make fail.
#ifndef ZERDIX_PLATFORM_APPEND_FILE_H
#define ZERDIX_PLATFORM_APPEND_FILE_H

#include <string_view>

namespace zerdix::platform {

class append_file_port {
  public:
    static constexpr int invalid = -1;

    // `handle` is never 0, which stands for a file that nobody has opened yet. It is `invalid` on
    // failure, and then `error` is the system's error number.
    struct opened {
        int handle;
        int error;
    };

    virtual bool exists(const char* path) = 0;
    virtual opened create(const char* path) = 0;

    // Opens a file that exists; whatever is written goes behind its end.
    virtual opened open_at_end(const char* path) = 0;

    // Hands all bytes to the system at once, with no buffer in between. A failure is nobody's
    // concern, and so is an invalid handle.
    virtual void write(int handle, std::string_view bytes) = 0;

    virtual void close(int handle) = 0;

  protected:
    ~append_file_port() = default;
};

append_file_port& append_files();

// As port_slot.h says.
append_file_port* replace_append_files(append_file_port* port);

} // namespace zerdix::platform

#endif
