// SPDX-License-Identifier: MIT
#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/test_server.h"

namespace zerdix::test {

namespace {

std::vector<char*> argument_vector(const std::vector<std::string>& arguments) {
    std::vector<char*> pointers{const_cast<char*>(ALPHAD_PROGRAM)};
    for (const std::string& argument : arguments)
        pointers.push_back(const_cast<char*>(argument.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

// A child that runs the program with its output in a pipe and its errors in a file.
pid_t start(const std::vector<std::string>& arguments, const char* errors, int& output) {
    std::vector<char*> vector = argument_vector(arguments);
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(ends[1], STDOUT_FILENO);
        const int file = open(errors, O_WRONLY | O_CREAT | O_TRUNC, 0600);
        dup2(file, STDERR_FILENO);
        execv(vector[0], vector.data());
        _exit(127);
    }
    close(ends[1]);
    output = ends[0];
    if (child < 0)
        throw std::runtime_error("the program can't be started");
    return child;
}

int status_of(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

} // namespace

alphad_program::alphad_program(const std::filesystem::path& data,
                               const std::vector<std::string>& arguments)
    : errors_(data.string() + ".errors") {
    std::vector<std::string> all{"--data", data.string()};
    all.insert(all.end(), arguments.begin(), arguments.end());
    int output = -1;
    child_ = start(all, errors_.c_str(), output);
    for (char c; read(output, &c, 1) == 1 && c != '\n';)
        ready_line_ += c;
    close(output);
}

alphad_program::~alphad_program() {
    stop(SIGKILL);
}

int alphad_program::stop(int signal) {
    if (child_ <= 0)
        return 0;
    kill(child_, signal);
    return wait();
}

int alphad_program::wait() {
    const int status = status_of(child_);
    child_ = -1;
    return status;
}

std::string alphad_program::errors() const {
    std::stringstream text;
    text << std::ifstream{errors_}.rdbuf();
    return text.str();
}

program_result run_alphad(const std::vector<std::string>& arguments) {
    int output = -1;
    const pid_t child = start(arguments, "/dev/null", output);
    program_result result{0, {}};
    char piece[4096];
    for (ssize_t got; (got = read(output, piece, sizeof piece)) > 0;)
        result.output.append(piece, static_cast<std::size_t>(got));
    close(output);
    result.status = status_of(child);
    return result;
}

} // namespace zerdix::test
