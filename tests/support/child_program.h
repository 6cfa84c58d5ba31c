// SPDX-License-Identifier: MIT
// A program in a process of its own, with its standard output in a pipe and its errors in a file.
#ifndef ZERDIX_TESTS_CHILD_PROGRAM_H
#define ZERDIX_TESTS_CHILD_PROGRAM_H

#include <csignal>
#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

#include "platform/scratch.h"

namespace zerdix::test {

struct program_result {
    int status; // exit status, or minus the signal that ended it
    std::string output;
    std::string errors;
};

class child_program {
  public:
    // `prepare` runs in the child, just before the program. Throws std::runtime_error when there
    // can't be a child; status 126 when it isn't a program.
    child_program(const std::string& path, const std::vector<std::string>& arguments,
                  const std::function<void()>& prepare = {});
    // Kills it when it is still there.
    ~child_program();
    child_program(const child_program&) = delete;
    child_program& operator=(const child_program&) = delete;

    // The next piece of its standard output, empty at the end.
    std::string read_some(std::size_t most = 4096);
    // Reads it to its end. `watch` sees the output so far, after each piece.
    program_result run(const std::function<void(const std::string&)>& watch = {});
    // All that it wrote to standard error.
    std::string errors() const { return folder_.read("errors"); }

    void send(int signal) const { kill(child_, signal); }
    // Waits for its end and gives the status; 0 when that has been done before.
    int wait();
    int stop(int signal = SIGTERM);

  private:
    tests::scratch_folder folder_;
    pid_t child_ = -1;
    int output_ = -1;
};

} // namespace zerdix::test

#endif
