// SPDX-License-Identifier: MIT
// A user with a password file at a server with the demo data, and the real program.
#ifndef ZERDIX_TESTS_CLI_DESK_TEST_H
#define ZERDIX_TESTS_CLI_DESK_TEST_H

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

    // Behind a command: another user's.
    std::string as_meier() const {
        return " -U meier --password-file " + write("meier", "meier\r\n");
    }

    // What a command that succeeds prints with --json.
    static nlohmann::json answer(const std::string& words,
                                 const std::vector<std::string>& more = {}) {
        const auto json = nlohmann::json::parse(done(words + " --json", more), nullptr, false);
        EXPECT_FALSE(json.is_discarded()) << words;
        return json;
    }

    // A command that succeeds and gives an object, or a list that begins with one, with these
    // fields and maybe others.
    static void shows(const std::string& words, const nlohmann::json& fields) {
        const nlohmann::json found = answer(words);
        const nlohmann::json& object = found.is_array() ? found.at(0) : found;
        for (const auto& [name, value] : fields.items())
            EXPECT_EQ(object.at(name), value) << words << ": " << name;
    }

    // What a command that succeeds prints.
    static std::string done(const std::string& words, const std::vector<std::string>& more = {}) {
        const auto result = zerdix(words, more);
        EXPECT_EQ(result.status, 0) << words << ": " << result.errors;
        return result.output;
    }

    test_server server_;
};

} // namespace zerdix::test

#endif
