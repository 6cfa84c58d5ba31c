// SPDX-License-Identifier: MIT
// Whole print jobs of the real program, and jobs that go wrong: nothing may stay on the desk.

#include <chrono>
#include <fstream>
#include <gmock/gmock.h>

#include "cli/program.h"
#include "cli/tiny_pdf.h"
#include "output/failure.h"
#include "support/test_server.h"

namespace zerdix::test {
namespace {

using testing::HasSubstr;

// Procedures of the protocol.
constexpr int make_document = 3;
constexpr int delete_document = 6;
constexpr int send_document = 25;
constexpr int put_page = 60;

class Print : public testing::Test {
  protected:
    outcome print(std::vector<std::string> options, const circumstances& around = {}) {
        options.insert(options.begin(), {"print", SAMPLE_PDF});
        return run_zerdix(options, around);
    }

    void expect_cleared(const outcome& result, int code, const std::string& part,
                        std::size_t jobs_left = 0) {
        EXPECT_EQ(result.status, code) << result.errors;
        EXPECT_THAT(result.errors, HasSubstr(part));
        EXPECT_THAT(server_.desk("zerdix"), testing::IsEmpty());
        EXPECT_EQ(server_.jobs().size(), jobs_left);
    }

    test_server server_;
};

TEST_F(Print, ReachesEveryReceiverWithItsSettings) {
    const outcome result =
        print({"--to", "+49 30 123456", "--to", "common:kanzlei", "--group", "kunden", "--title",
               "Angebot \xc3\xbc"
               "ber #1",
               "--priority", "100", "--retries", "5", "--resolution", "normal", "--at",
               "2037-12-31 20:15"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.output, "page 1 of 3 stored\npage 2 of 3 stored\npage 3 of 3 stored\n"
                             "sending to 6 receivers\n" SAMPLE_PDF ": 3 pages, 6 send jobs made\n");
    EXPECT_EQ(result.errors, "");
    EXPECT_THAT(server_.desk("zerdix"), testing::IsEmpty());
    const auto jobs = server_.jobs();
    ASSERT_EQ(jobs.size(), 6U);
    std::vector<std::string> receivers;
    for (const auto& job : jobs) {
        receivers.push_back(job.receiver);
        EXPECT_EQ(job.record.comment.view(), "Angebot \xfc"
                                             "ber #1");
        EXPECT_EQ(job.record.priority, 32767);
        EXPECT_EQ(job.record.maxretries, 5);
        EXPECT_EQ(job.record.resolution, 2);
        EXPECT_EQ(job.record.sendtime, 2145899700); // 19:15 UTC
        EXPECT_EQ(job.record.pages, 3);
    }
    EXPECT_THAT(receivers, testing::UnorderedElementsAre("+49 30 123456", "common:kanzlei",
                                                         "common:druckerei", "common:spedition",
                                                         "private:kunde1", "private:kunde2"));
}

TEST_F(Print, SaysNothingWhenQuiet) {
    const outcome result = print({"--to", "1", "--quiet"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output + result.errors, "");
    EXPECT_EQ(server_.jobs().size(), 1U);
}

TEST_F(Print, TellsReceiversThatCantBeReachedBeforeAPageGoes) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"--to", "common:nobody"}, "no entry common:nobody"},
        {{"--to", "common:hansen"}, "telex"},
        {{"--to", "1", "--group", "nobody"}, "the group nobody"},
    };
    for (const auto& [options, part] : cases) {
        const outcome result = print(options);
        expect_cleared(result, app::exit_no_receiver, part);
        EXPECT_EQ(result.output, "");
    }
    expect_cleared(print({"--to", "1", "--at", "2020-01-01 12:00"}), app::exit_usage, "is over");
    EXPECT_THAT(server_.calls(), testing::Not(testing::Contains(make_document)));
}

TEST_F(Print, NeedsAReceiver) {
    expect_cleared(print({}), app::exit_no_dialog, "no receiver is named");
}

TEST_F(Print, NamesTheStepThatTheServerRefused) {
    server_.refuse(make_document);
    expect_cleared(print({"--to", "1"}), app::exit_refused,
                   "creating the document failed: the server refused it");
    server_.refuse(put_page, 2);
    expect_cleared(print({"--to", "1"}), app::exit_refused, "storing page ");
    server_.refuse(delete_document);
    expect_cleared(print({"--to", "1"}), app::exit_refused,
                   "deleting the document after sending failed: the server refused it; "
                   "1 of 1 send jobs had been made",
                   1);
}

// The last receiver goes first. A number that stands twice is two receivers.
TEST_F(Print, NamesTheCommandThatSendsTheRest) {
    server_.refuse(send_document, 2);
    const outcome refused = print({"--to", "1", "--to", "2", "--to", "1"});
    EXPECT_EQ(refused.status, app::exit_refused);
    ASSERT_EQ(server_.desk("zerdix").size(), 1U);
    const std::string id = std::to_string(server_.desk("zerdix")[0].id);
    EXPECT_THAT(refused.errors,
                HasSubstr("sending to 2 failed: the server refused it; 1 of 3 send jobs had been "
                          "made; document " +
                          id + " stays on the desk, zerdix send " + id +
                          " --to \"1\" --to \"2\" sends it to the rest"));
    // The reply is lost, the send job is made or not: the server knows.
    server_.drop(send_document, 1);
    const outcome lost = print({"--to", "1", "--to", "2"});
    EXPECT_EQ(lost.status, app::exit_unavailable);
    EXPECT_THAT(lost.errors, HasSubstr("sending to 2 failed: the connection to the server broke; "
                                       "0 of 2 send jobs had been made"));
    EXPECT_EQ(server_.jobs().size(), 1U);

    const std::string password = server_.folder() / "password";
    std::ofstream(password) << "zerdix\n";
    const auto send = [&](std::vector<std::string> options) {
        options.insert(options.begin(), {"send", "desk:" + id, "--password-file", password});
        return run_zerdix(options);
    };
    const outcome sent =
        send({"--to", "1", "--to", "2", "--group", "kunden", "--at", "night", "--priority", "100"});
    EXPECT_EQ(sent.status, 0) << sent.errors;
    const auto jobs = server_.jobs();
    EXPECT_THAT(sent.output, HasSubstr(std::to_string(jobs.size() - 1) + " send jobs made"));
    ASSERT_GT(jobs.size(), 3U);
    EXPECT_EQ(jobs[1].receiver, "1");
    EXPECT_EQ(jobs[1].record.priority, 32767);
    EXPECT_TRUE(jobs[1].record.nighttariff);
    EXPECT_EQ(jobs[1].record.pages, 3);
    server_.refuse(send_document, 2);
    EXPECT_THAT(send({"--to", "7", "--to", "8", "--to", "9"}).errors,
                HasSubstr("sending to 8 failed: the server refused it; 1 of 3 send jobs had been "
                          "made; zerdix send " +
                          id + " --to \"8\" --to \"9\" sends it to the rest"));
}

TEST_F(Print, SaysWhenADocumentStays) {
    server_.refuse(delete_document, 1);
    server_.refuse(delete_document, 2);
    const outcome result = print({"--to", "1"});
    EXPECT_EQ(result.status, app::exit_refused);
    const auto desk = server_.desk("zerdix");
    ASSERT_EQ(desk.size(), 1U);
    EXPECT_THAT(result.errors, HasSubstr("couldn't be deleted and stays on the desk of zerdix"));
}

// The server can't be asked: no document can be made that tells how far its ids have come.
TEST_F(Print, SaysWhatItCantKnow) {
    server_.drop(send_document, 2);
    server_.fail(make_document, 2);
    const outcome result = print({"--to", "1", "--to", "2", "--to", "1"});
    EXPECT_EQ(result.status, app::exit_unavailable);
    EXPECT_THAT(result.errors,
                HasSubstr("sending to 2 failed: the connection to the server broke; at least 1 and "
                          "at most 2 of 3 send jobs were made, \"zerdix doc list outgoing\" shows "
                          "them"));
    EXPECT_EQ(server_.jobs().size(), 1U);
}

TEST_F(Print, GetsOverABrokenConnection) {
    server_.drop(put_page, 2);
    expect_cleared(print({"--to", "1"}), app::exit_unavailable,
                   "the connection to the server broke");
}

TEST_F(Print, TakesTheDocumentBackWhenInterrupted) {
    for (const int signal : {SIGINT, SIGTERM}) {
        server_.stall(put_page, 4, 1);
        const outcome result =
            print({"--to", "1"},
                  {.disturb = disturbance{"page 1 of 3 stored", signal}, .without_network = false});
        expect_cleared(result, app::exit_interrupted, "interrupted; nothing was sent");
        EXPECT_THAT(result.output, testing::Not(HasSubstr("page 3 of 3")));
    }
}

// Other pages are being made when it is the damaged one's turn.
TEST_F(Print, NamesTheDamagedPageAmongManyOfThem) {
    std::vector<tiny_page> pages(40, {100, 100, "0 g 0 0 10 10 re f"});
    pages[24] = {10, 100000, ""};
    const std::string path = server_.files().write("a.pdf", tiny_pdf(pages));
    const outcome result = run_zerdix({"print", path, "--to", "1"});
    expect_cleared(result, app::exit_bad_data,
                   "page 25 of " + path + ": it is too long for a fax page");
    EXPECT_THAT(result.output, HasSubstr("page 24 of 40 stored"));
    EXPECT_THAT(result.output, testing::Not(HasSubstr("page 25 of 40 stored")));
}

// Each of the last two pages takes minutes.
TEST_F(Print, IsInterruptedWhilePagesAreMade) {
    std::string endless;
    for (int i = 0; i < 50000; ++i)
        endless += "0 0 600 800 re f\n";
    const std::string path = server_.files().write(
        "a.pdf", tiny_pdf({{100, 100, ""}, {600, 800, endless}, {600, 800, endless}}));
    const auto begin = std::chrono::steady_clock::now();
    const outcome result = run_zerdix(
        {"print", path, "--to", "1"},
        {.disturb = disturbance{"page 1 of 3 stored", SIGINT}, .without_network = false});
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
    expect_cleared(result, app::exit_interrupted, "interrupted; nothing was sent");
}

} // namespace
} // namespace zerdix::test
