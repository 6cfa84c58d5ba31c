// SPDX-License-Identifier: MIT
// Command lines, files and hosts that can't be used: a sentence and a code of its own for each.

#include <gmock/gmock.h>

#include "alphad/net/port_mapper.h"
#include "cli/program.h"
#include "cli/tiny_pdf.h"
#include "output/failure.h"
#include "support/raw_client.h"
#include "support/test_server.h"

namespace zerdix::test {
namespace {

using namespace app;
using testing::HasSubstr;

class WithoutServer : public testing::Test {
  protected:
    // On standard error: "zerdix: ...".
    static program_result tells(const std::vector<std::string>& line, int code,
                                const std::string& part) {
        SCOPED_TRACE(testing::PrintToString(line));
        auto result = fails("", code, part, line);
        EXPECT_THAT(result.errors, testing::StartsWith("zerdix: "));
        EXPECT_EQ(result.output, "");
        return result;
    }

    // One line, with the path in it.
    static void refuses_file(const std::string& path, int code, const std::string& part) {
        const auto result = tells({"print", path, "--to", "1"}, code, part);
        EXPECT_THAT(result.errors, HasSubstr(path));
        EXPECT_EQ(result.errors.find('\n') + 1, result.errors.size()) << result.errors;
    }

    std::string write(const std::string& name, const std::string& content) const {
        return folder_.write(name, content);
    }

    scratch_folder folder_;
    client_environment environment_{folder_.path()}; // there is no server under its number
};

TEST_F(WithoutServer, TellsFilesThatCantBeUsed) {
    const std::string whole = tiny_pdf({{100, 200, "0 g 0 0 9 9 re f"}, {100, 200, ""}});
    refuses_file(folder_.path("none.pdf"), exit_no_input, "No such file");
    refuses_file(folder_.path(), exit_no_input, "is a folder");
    refuses_file(write("empty.pdf", ""), exit_bad_data, "is empty");
    refuses_file(write("text.pdf", "Dear Sir or Madam"), exit_bad_data, "not a PDF");
    refuses_file(write("locked.pdf", locked_pdf()), exit_bad_data, "encrypted");
    refuses_file(write("bare.pdf", tiny_pdf({})), exit_bad_data, "no pages");
    for (const std::size_t kept : {whole.size() / 4, whole.size() / 2, whole.size() - 60})
        refuses_file(write("cut.pdf", whole.substr(0, kept)), exit_bad_data, "damaged");
}

TEST_F(WithoutServer, RefusesWrongCommandLines) {
    const std::string pdf = write("a.pdf", tiny_pdf({{100, 100, ""}}));
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
        tells(line, exit_usage, "");
    tells({"print", pdf, "--to", "1", "--settings", pdf + ".ini"}, exit_no_input, "--settings");
}

TEST_F(WithoutServer, NamesAHostThatIsntKnown) {
    // Two dots in a row make a name that no name server needs to be asked for.
    const std::string settings =
        write("other.ini", "[Zerdix]\nHost=no..host\nLogDir=" + folder_.path().string() + "\n");
    fails("print --to 1 --settings " + settings, exit_no_host,
          "opening the print job failed: the host \"no..host\" can't be found", {SAMPLE_PDF});
    fails("page 1 1 -o x.png --settings " + settings, exit_no_host, "\"no..host\" can't be found");
    EXPECT_TRUE(folder_.exists("FAXERROR.LOG"));
}

TEST_F(WithoutServer, TellsWhoDoesntAnswer) {
    fails("print --to 1", exit_unavailable, "no Alpha server is registered", {SAMPLE_PDF});
    const auto result = zerdix("print --to 1", {SAMPLE_PDF}, {.without_network = true});
    if (result.status == 125)
        GTEST_SKIP() << "no network of its own can be made here";
    EXPECT_EQ(result.status, exit_unavailable);
    EXPECT_THAT(result.errors, HasSubstr("no port mapper answers on \"127.0.0.1\""));
}

TEST(DeadServer, IsRegisteredAndSilent) {
    test_server server;
    server.stop(SIGKILL);
    fails("print --to 1", exit_unavailable, "is registered but doesn't answer", {SAMPLE_PDF});
    // Its entry at the port mapper has to go: this one takes it over and leaves in good order.
    const alphad::registration tidy(server.program(), 1, loopback(server.port()));
}

} // namespace
} // namespace zerdix::test
