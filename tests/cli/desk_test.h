// SPDX-License-Identifier: MIT
// A user with a password file at a server with the demo data, and the real program.
#ifndef ZERDIX_TESTS_CLI_DESK_TEST_H
#define ZERDIX_TESTS_CLI_DESK_TEST_H

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include "cli/program.h"
#include "support/test_server.h"

namespace zerdix::test {

class desk_test : public testing::Test {
  protected:
    desk_test() {
        write("password", "zerdix\n");
        std::ofstream(server_.settings(), std::ios::app)
            << "\nPasswordFile=" << path("password") << '\n';
    }

    std::string path(const std::string& name) const { return server_.files().path(name); }
    std::string read(const std::string& name) const { return server_.files().read(name); }
    // The path of a new file.
    std::string write(const std::string& name, const std::string& content) const {
        return server_.files().write(name, content);
    }

    // Words with blanks between them, then the arguments as they are.
    static outcome zerdix(const std::string& words, const std::vector<std::string>& more = {}) {
        std::istringstream in(words);
        std::vector<std::string> arguments;
        for (std::string word; in >> word;)
            arguments.push_back(word);
        arguments.insert(arguments.end(), more.begin(), more.end());
        return run_zerdix(arguments);
    }

    // What a command that succeeds prints with --json.
    static nlohmann::json answer(const std::string& words,
                                 const std::vector<std::string>& more = {}) {
        const outcome result = zerdix(words + " --json", more);
        EXPECT_EQ(result.status, 0) << words << ": " << result.errors;
        EXPECT_TRUE(nlohmann::json::accept(result.output)) << words << ": " << result.output;
        return nlohmann::json::parse(result.output, nullptr, false);
    }

    // A command that fails with this code and says this.
    static void expect_failure(const std::string& words, int code, const std::string& part,
                               const std::vector<std::string>& more = {}) {
        const outcome result = zerdix(words, more);
        EXPECT_EQ(result.status, code) << words << ": " << result.errors;
        EXPECT_THAT(result.errors, testing::HasSubstr(part)) << words;
    }

    test_server server_;
};

} // namespace zerdix::test

#endif
