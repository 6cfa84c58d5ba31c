// SPDX-License-Identifier: MIT
#include "cli/program.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/test_server.h"

namespace zerdix::test {

namespace {

[[noreturn]] void become(const std::vector<std::string>& arguments, const circumstances& around) {
    if (around.without_network && unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0)
        _exit(125);
    std::string program = ZERDIX_PROGRAM;
    std::vector<char*> argv{program.data()};
    std::vector<std::string> copies = arguments;
    for (std::string& argument : copies)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    execv(program.c_str(), argv.data());
    _exit(126);
}

std::string read_output(int fd, pid_t child, const std::optional<disturbance>& disturb) {
    std::string text;
    bool disturbed = false;
    char piece[512];
    for (ssize_t n = 0; (n = read(fd, piece, sizeof piece)) > 0;) {
        text.append(piece, static_cast<std::size_t>(n));
        if (!disturb || disturbed || text.find(disturb->after) == std::string::npos)
            continue;
        kill(child, disturb->signal);
        disturbed = true;
    }
    close(fd);
    return text;
}

} // namespace

outcome run_zerdix(const std::vector<std::string>& arguments, const circumstances& around) {
    const scratch_folder folder;
    const std::string errors = folder.path() / "stderr";
    int out[2];
    if (pipe(out) != 0)
        return {127, "", "no pipe"};
    const pid_t child = fork();
    if (child == 0) {
        dup2(out[1], STDOUT_FILENO);
        close(out[0]);
        close(out[1]);
        if (std::freopen(errors.c_str(), "w", stderr) == nullptr)
            _exit(127);
        become(arguments, around);
    }
    close(out[1]);
    outcome result{};
    result.output = read_output(out[0], child, around.disturb);
    int status = 0;
    waitpid(child, &status, 0);
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    std::ifstream file(errors);
    result.errors.assign(std::istreambuf_iterator<char>(file), {});
    return result;
}

} // namespace zerdix::test
