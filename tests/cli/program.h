// SPDX-License-Identifier: MIT
// The real program, run by a test.
#ifndef ZERDIX_TESTS_CLI_PROGRAM_H
#define ZERDIX_TESTS_CLI_PROGRAM_H

#include <optional>
#include <string>
#include <vector>

namespace zerdix::test {

struct outcome {
    int status; // exit status, or minus the signal that ended it
    std::string output;
    std::string errors;
};

struct disturbance {
    std::string after; // once this stands on standard output,
    int signal;        // this signal is sent
};

struct circumstances {
    std::optional<disturbance> disturb;
    bool without_network = false; // in a network of its own where nothing answers
};

// Runs it to its end. Status 125: the circumstances can't be had on this machine.
outcome run_zerdix(const std::vector<std::string>& arguments, const circumstances& = {});

} // namespace zerdix::test

#endif
