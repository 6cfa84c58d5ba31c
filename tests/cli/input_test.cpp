// SPDX-License-Identifier: MIT
// Command lines and files that can't be used: a sentence and a code, and no call to a server.

#include <gmock/gmock.h>

#include "cli/program.h"
#include "cli/tiny_pdf.h"
#include "output/failure.h"
#include "support/test_server.h"

namespace zerdix::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

// One line: "zerdix: ...".
void expect_sentence(const outcome& result, int code, const std::string& part) {
    EXPECT_EQ(result.status, code) << result.errors;
    EXPECT_THAT(result.errors, testing::AllOf(StartsWith("zerdix: "), HasSubstr(part)));
    EXPECT_EQ(result.output, "");
}

class Input : public testing::Test {
  protected:
    void expect_refused(const std::string& path, int code, const std::string& part) {
        const outcome result = run_zerdix({"print", path, "--to", "1"});
        expect_sentence(result, code, part);
        EXPECT_THAT(result.errors, HasSubstr(path));
        EXPECT_EQ(result.errors.find('\n') + 1, result.errors.size()) << result.errors;
    }

    scratch_folder folder_;
    client_environment environment_{folder_.path()}; // there is no server under its number
};

TEST_F(Input, TellsFilesThatCantBeRead) {
    expect_refused((folder_.path() / "none.pdf").string(), app::exit_no_input, "No such file");
    expect_refused(folder_.path().string(), app::exit_no_input, "is a folder");
}

TEST_F(Input, TellsPdfsThatCantBeUsed) {
    const std::string whole = tiny_pdf({{100, 200, "0 g 0 0 9 9 re f"}, {100, 200, ""}});
    expect_refused(folder_.write("empty.pdf", ""), app::exit_bad_data, "is empty");
    expect_refused(folder_.write("text.pdf", "Dear Sir or Madam"), app::exit_bad_data, "not a PDF");
    expect_refused(folder_.write("locked.pdf", locked_pdf()), app::exit_bad_data, "encrypted");
    expect_refused(folder_.write("bare.pdf", tiny_pdf({})), app::exit_bad_data, "no pages");
    for (const std::size_t kept : {whole.size() / 4, whole.size() / 2, whole.size() - 60})
        expect_refused(folder_.write("cut.pdf", whole.substr(0, kept)), app::exit_bad_data,
                       "damaged");
}

TEST_F(Input, RefusesWrongCommandLines) {
    const std::string pdf = folder_.write("a.pdf", tiny_pdf({{100, 100, ""}}));
    const std::vector<std::vector<std::string>> lines = {
        {"prnt"},
        {"print"},
        {"print", pdf, "--to"},
        {"print", pdf, "--priority", "101"},
        {"print", pdf, "--paper", "10"},
        {"print", pdf, "--retries", "-1"},
        {"print", pdf, "--resolution", "superfine"},
        {"print", pdf, "--at", "tomorrow"},
        {"print", pdf, "--to", "1#2"},
        {"print", pdf, "--group", "averylongname"},
        {"page", "1", "1"},
        {"page", "0", "1", "-o", "x.png"},
        {"page", "1", "one", "-o", "x.png"},
        {"page", "1", "1", "-o", "x.png", "--pool", "attic"},
    };
    for (const auto& line : lines)
        expect_sentence(run_zerdix(line), app::exit_usage, "");
    expect_sentence(run_zerdix({"print", pdf, "--to", "1", "--settings", pdf + ".ini"}),
                    app::exit_no_input, "--settings");
}

TEST_F(Input, HelpAndVersionAreNoFailures) {
    EXPECT_EQ(run_zerdix({"--version"}).status, 0);
    const outcome help = run_zerdix({"print", "--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.output, HasSubstr("--group"));
}

} // namespace
} // namespace zerdix::test
