// SPDX-License-Identifier: MIT
#include "cli/program.h"

#include <gmock/gmock.h>
#include <sched.h>
#include <sstream>
#include <unistd.h>
#include <utility>

namespace zerdix::test {

program_result zerdix(const std::string& words, const std::vector<std::string>& more,
                      const circumstances& around) {
    std::istringstream in(words);
    std::vector<std::string> arguments;
    for (std::string word; in >> word;)
        arguments.push_back(word);
    arguments.insert(arguments.end(), more.begin(), more.end());
    child_program program(ZERDIX_PROGRAM, arguments, [&around] {
        if (around.without_network && unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0)
            _exit(125);
        if (around.input >= 0)
            dup2(around.input, STDIN_FILENO);
    });
    auto disturb = around.disturb;
    return program.run([&](const std::string& output) {
        if (disturb && output.find(disturb->after) != std::string::npos)
            program.send(std::exchange(disturb, std::nullopt)->signal);
    });
}

program_result fails(const std::string& words, int code, const std::string& part,
                     const std::vector<std::string>& more, const circumstances& around) {
    SCOPED_TRACE(words + ' ' + testing::PrintToString(more));
    program_result result = zerdix(words, more, around);
    EXPECT_EQ(result.status, code) << result.errors;
    EXPECT_THAT(result.errors, testing::HasSubstr(part));
    return result;
}

} // namespace zerdix::test
