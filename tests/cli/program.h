// SPDX-License-Identifier: MIT
// The real program, run by a test.
#ifndef ZERDIX_TESTS_CLI_PROGRAM_H
#define ZERDIX_TESTS_CLI_PROGRAM_H

#include <optional>
#include <string>
#include <vector>

#include "support/child_program.h"

namespace zerdix::test {

struct disturbance {
    std::string after; // once this stands on standard output,
    int signal;        // this signal is sent
};

struct circumstances {
    std::optional<disturbance> disturb = {};
    bool without_network = false; // in a network of its own where nothing answers
    int input = -1;               // a file to be its standard input
};

// Runs it to its end, with the words that have blanks between them, then the arguments as they
// are. Status 125: the circumstances can't be had on this machine.
program_result zerdix(const std::string& words, const std::vector<std::string>& more = {},
                      const circumstances& around = {});

// A command that fails with this code and says this.
program_result fails(const std::string& words, int code, const std::string& part,
                     const std::vector<std::string>& more = {}, const circumstances& around = {});

} // namespace zerdix::test

#endif
