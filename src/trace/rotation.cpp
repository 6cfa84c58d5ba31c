#include "trace/rotation.h"

#include <array>
#include <cstdio>
#include <string>

#include <unistd.h>

#include "platform/encoding.h"
#include "platform/trace_file.h"
#include "trace/state.h"

namespace zerdix::trace {

namespace {

using platform::trace_file;

// The older generation's name is the path up to its first ".", folders included, and ".OLD".
std::string name_of_old_generation(const std::string& path) {
    return path.substr(0, path.find('.')) + ".OLD";
}

void rotate() {
    const char* path = the_trace_file.path.data();
    const std::string old = name_of_old_generation(path);
    ::unlink(old.c_str()); // takes files only: std::remove takes an empty folder, too
    std::rename(path, old.c_str());
}

} // namespace

void open_trace_file() {
    const char* path = the_trace_file.path.data();
    if (trace_file().exists(path))
        rotate();
    const auto opened =
        trace_file().exists(path) ? trace_file().open_at_end(path) : trace_file().create(path);
    the_trace_file.handle = opened.handle;
    if (opened.handle != platform::trace_file_port::invalid)
        return;
    std::array<char, 80> text;
    std::snprintf(text.data(), text.size(), "Tracesetname: Error open trace file\nerror code: %d",
                  opened.error);
    tell_user(text.data(), platform::utf8_to_cp1252(path));
}

} // namespace zerdix::trace
