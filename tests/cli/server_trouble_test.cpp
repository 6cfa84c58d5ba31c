// SPDX-License-Identifier: MIT
// No way to the server: each kind has a sentence and a code of its own.

#include <arpa/inet.h>
#include <gmock/gmock.h>

#include "alphad/net/port_mapper.h"
#include "cli/program.h"
#include "cli/tiny_pdf.h"
#include "output/failure.h"
#include "support/test_server.h"

namespace zerdix::test {
namespace {

using testing::HasSubstr;

outcome print_sample(const circumstances& around = {}) {
    return run_zerdix({"print", SAMPLE_PDF, "--to", "1"}, around);
}

void expect_failure(const outcome& result, int code, const std::string& part) {
    EXPECT_EQ(result.status, code) << result.errors;
    EXPECT_THAT(result.errors, HasSubstr(part));
}

class NoServer : public testing::Test {
  protected:
    scratch_folder folder;
    client_environment environment{folder.path()};
};

TEST_F(NoServer, AHostThatIsntKnown) {
    // Two dots in a row make a name that no name server needs to be asked for.
    const std::string settings = folder.write(
        "other.ini", "[Zerdix]\nHost=no..host\nLogDir=" + folder.path().string() + "\n");
    expect_failure(run_zerdix({"print", SAMPLE_PDF, "--to", "1", "--settings", settings}),
                   app::exit_no_host,
                   "opening the print job failed: the host \"no..host\" can't be found");
    expect_failure(run_zerdix({"page", "1", "1", "-o", "x.png", "--settings", settings}),
                   app::exit_no_host, "\"no..host\" can't be found");
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "FAXERROR.LOG"));
}

TEST_F(NoServer, NoServerAtThePortMapper) {
    expect_failure(print_sample(), app::exit_unavailable, "no Alpha server is registered");
}

TEST_F(NoServer, NoPortMapper) {
    const outcome result = print_sample({.disturb = {}, .without_network = true});
    if (result.status == 125)
        GTEST_SKIP() << "no network of its own can be made here";
    expect_failure(result, app::exit_unavailable, "no port mapper answers on \"127.0.0.1\"");
}

TEST(ServerTrouble, ThatDied) {
    test_server server;
    server.stop(SIGKILL);
    expect_failure(print_sample(), app::exit_unavailable, "is registered but doesn't answer");
    // Its entry at the port mapper has to go: this one takes it over and leaves in good order.
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(server.port());
    const alphad::registration tidy(server.program(), 1, address);
}

} // namespace
} // namespace zerdix::test
