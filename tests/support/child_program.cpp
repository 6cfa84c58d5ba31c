// SPDX-License-Identifier: MIT
#include "support/child_program.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zerdix::test {

child_program::child_program(const std::string& path, const std::vector<std::string>& arguments,
                             const std::function<void()>& prepare) {
    std::vector<char*> words{const_cast<char*>(path.c_str())};
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    const std::string errors = folder_.path("errors");
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0 || (child_ = fork()) < 0)
        throw std::runtime_error(path + " can't be started");
    if (child_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(ends[1], STDOUT_FILENO);
        dup2(open(errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
        if (prepare)
            prepare();
        execv(words[0], words.data());
        _exit(126);
    }
    close(ends[1]);
    output_ = ends[0];
}

child_program::~child_program() {
    stop(SIGKILL);
    close(output_);
}

std::string child_program::read_some(std::size_t most) {
    std::string piece(most, '\0');
    const ssize_t got = read(output_, piece.data(), most);
    piece.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return piece;
}

program_result child_program::run(const std::function<void(const std::string&)>& watch) {
    program_result result{};
    for (std::string piece; !(piece = read_some()).empty();) {
        result.output += piece;
        if (watch)
            watch(result.output);
    }
    result.status = wait();
    result.errors = errors();
    return result;
}

int child_program::wait() {
    if (child_ <= 0)
        return 0;
    int status = 0;
    waitpid(child_, &status, 0);
    child_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

int child_program::stop(int signal) {
    if (child_ > 0)
        send(signal);
    return wait();
}

} // namespace zerdix::test
