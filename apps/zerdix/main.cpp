// SPDX-License-Identifier: MIT
// zerdix, the command-line client.

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <exception>
#include <poll.h>
#include <unistd.h>

#include "output/failure.h"
#include "program/command_list.h"
#include "session/user_command.h"

namespace {

using namespace zerdix::app;

int run(int argc, char** argv) {
    try {
        return zerdix_command_line(argv).run(argc, argv);
    } catch (const failure& error) {
        std::fprintf(stderr, "zerdix: %s\n", error.what());
        return error.code();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "zerdix: internal error: %s\n", error.what());
        return exit_internal;
    }
}

bool nobody_reads() {
    pollfd out{STDOUT_FILENO, 0, 0};
    return ::poll(&out, 1, 0) == 1 && (out.revents & (POLLERR | POLLNVAL)) != 0;
}

// What was printed must have left whole, unless its reader wants no more of it.
int printed(int code) {
    errno = 0;
    const bool whole = std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
    if (whole || code != exit_ok || nobody_reads())
        return code;
    std::fprintf(stderr, "zerdix: standard output can't be written%s%s\n", errno != 0 ? ": " : "",
                 errno != 0 ? std::strerror(errno) : "");
    return exit_no_output;
}

} // namespace

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN); // a server that goes away is a failed call
    set_program_arguments(argv);
    return printed(run(argc, argv));
}
