// SPDX-License-Identifier: MIT
#include "trace/rotation.h"

#include <array>
#include <cstdio>
#include <string>

#include <unistd.h>

#include "platform/append_file.h"
#include "platform/encoding.h"
#include "trace/state.h"

namespace zerdix::trace {

namespace {

using platform::append_files;

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
    if (append_files().exists(path))
        rotate();
    const auto opened = append_files().exists(path) ? append_files().open_at_end(path)
                                                    : append_files().create(path);
    the_trace_file.handle = opened.handle;
    if (opened.handle != platform::append_file_port::invalid)
        return;
    std::array<char, 80> text;
    std::snprintf(text.data(), text.size(), "Tracesetname: Error open trace file\nerror code: %d",
                  opened.error);
    tell_user(text.data(), platform::utf8_to_cp1252(path));
}

} // namespace zerdix::trace
