// SPDX-License-Identifier: MIT
// The command line as a whole: every part of it stands in a man page, and shells complete it.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>

#include <gmock/gmock.h>

#include "cli/program.h"
#include "output/failure.h"
#include "program/command_list.h"
#include "support/test_server.h"

namespace zerdix::test {
namespace {

using testing::HasSubstr;

std::string content(const std::filesystem::path& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Sources of the man pages.
class ManPages : public testing::Test {
  protected:
    ManPages() {
        for (const auto& entry : std::filesystem::directory_iterator(MAN_FOLDER))
            if (entry.path().extension() == ".1")
                pages_.push_back(content(entry.path()));
    }

    // The page whose synopsis has the command, "doc list" without the program's name.
    std::string page_of(const std::string& command) const {
        for (const std::string& page : pages_) {
            const std::string synopsis = page.substr(0, page.find(".Sh DESCRIPTION"));
            if (synopsis.find("\n.Cm " + command + "\n") != std::string::npos)
                return page;
        }
        return {};
    }

    // "--block" as an argument of the macro Fl.
    static bool has_option(const std::string& page, const std::string& option) {
        return std::regex_search(page, std::regex("Fl ([^\n]* )?" + option.substr(1) + "( |\n)"));
    }

    std::vector<std::string> pages_;
};

TEST_F(ManPages, NameEveryCommandAndOption) {
    const app::command_shape program = app::whole_command_line();
    const std::string main_page = content(MAN_FOLDER "/zerdix.1");
    for (const auto& [name, shape] : app::all_commands(program)) {
        if (!shape->commands.empty())
            continue;
        const std::string page = page_of(name.substr(name.find(' ') + 1));
        EXPECT_FALSE(page.empty()) << name << " stands in no synopsis";
        for (const app::option_shape& option : shape->options) {
            for (const std::string& spelling : option.names)
                EXPECT_TRUE(has_option(page, spelling) || has_option(main_page, spelling))
                    << name << ' ' << spelling << " stands in no page";
        }
    }
    for (const app::command_shape& command : program.commands)
        EXPECT_THAT(main_page, testing::ContainsRegex("\n.It Cm .*" + command.names.front()));
}

TEST(StandardOutput, ThatTakesNothingIsAFailureUnlessItsReaderLeft) {
    const auto status = [](const std::string& rest) {
        return std::system(
            ("bash -c \"'" ZERDIX_PROGRAM "' completion zsh 2>/dev/null" + rest + '"').c_str());
    };
    EXPECT_EQ(WEXITSTATUS(status(" >/dev/full")), app::exit_no_output);
    EXPECT_EQ(WEXITSTATUS(status(" | :; exit \\${PIPESTATUS[0]}")), 0);
    EXPECT_EQ(WEXITSTATUS(status(" >&-")), 0);
}

class Completion : public testing::Test {
  protected:
    // What bash offers for the last of the words, one line each.
    std::string offered(const std::string& words) const {
        const std::string script =
            "source <('" ZERDIX_PROGRAM "' completion bash); COMP_WORDS=(" + words +
            "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _zerdix; printf '%s\\n' \"${COMPREPLY[@]}\"";
        const std::string command = "cd '" + folder_.path().string() + "' && bash -c '" +
                                    std::regex_replace(script, std::regex("'"), "'\\''") + "' 2>&1";
        std::string text;
        std::FILE* pipe = popen(command.c_str(), "r");
        for (int c = 0; (c = std::fgetc(pipe)) != EOF;)
            text += static_cast<char>(c);
        pclose(pipe);
        return text;
    }

    const scratch_folder folder_;
};

TEST_F(Completion, OffersCommandsOptionsValuesAndFiles) {
    std::ofstream(folder_.path() / "some file.pdf") << "x";
    const std::pair<const char*, const char*> cases[] = {
        {"zerdix tel", "telex\n"},
        {"zerdix doc re", "read\nrestart\n"},
        {"zerdix documents list ou", "outgoing\nout\n"}, // below an alias
        {"zerdix doc list --bl", "--block\n"},
        {"zerdix doc list --user list ou", "outgoing\nout\n"}, // "list" is a value here
        {"zerdix doc public in : 17 \"\"", "on\noff\n"},       // bash splits at the colon
        {"zerdix print --resolution = n", "normal\n"},
        {"zerdix book import common x.csv --encoding u", "utf-8\n"},
        {"zerdix print --title \"\"", "\n"}, // a text of one's own
        {"zerdix print so", "some file.pdf\n"},
        {"zerdix doc page 17 -o so", "some file.pdf\n"},
        {"zerdix completion z", "zsh\n"},
    };
    for (const auto& [words, expected] : cases)
        EXPECT_EQ(offered(words), expected) << words;
}

TEST(CommandLine, TellsWrongUsageOfTheCommandThatWasMeant) {
    EXPECT_EQ(fails("doc frob", app::exit_usage, "").errors,
              "zerdix: \"frob\" is no command of zerdix doc\nTry \"zerdix doc --help\".\n");
    fails("doc", app::exit_usage, "Usage: zerdix doc ");
    fails("completion tcsh", app::exit_usage, "");
    EXPECT_THAT(zerdix("completion zsh").output, testing::StartsWith("#compdef zerdix"));
    EXPECT_THAT(zerdix("completion fish").output, HasSubstr("complete -c zerdix"));
    const auto help = zerdix("print --help");
    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.output, HasSubstr("--group"));
    EXPECT_EQ(zerdix("--version").status, 0);
}

} // namespace
} // namespace zerdix::test
