// Whole print jobs of the real program, and jobs that go wrong: nothing may stay on the desk.

#include <gmock/gmock.h>

#include "cli/program.h"
#include "failure.h"
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
    // The last receiver goes first.
    server_.refuse(send_document, 2);
    expect_cleared(print({"--to", "1", "--to", "2", "--to", "3"}), app::exit_refused,
                   "sending to 2 failed: the server refused it; 1 of 3 send jobs had been made", 1);
    server_.refuse(delete_document);
    expect_cleared(print({"--to", "1"}), app::exit_refused,
                   "deleting the document after sending failed: the server refused it; "
                   "1 of 1 send jobs had been made",
                   2);
    // A number that stands twice doesn't say how far it came; what the server holds does.
    server_.refuse(send_document, 3);
    expect_cleared(print({"--to", "1", "--to", "2", "--to", "1"}), app::exit_refused,
                   "sending to 1 failed: the server refused it; 2 of 3 send jobs had been made", 4);
    server_.drop(send_document, 1);
    expect_cleared(print({"--to", "1", "--to", "2", "--to", "1"}), app::exit_unavailable,
                   "sending to 1 failed: the connection to the server broke; 0 of 3 send jobs", 4);
}

TEST_F(Print, SaysWhenADocumentStays) {
    server_.refuse(send_document);
    server_.refuse(delete_document);
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
    expect_cleared(
        print({"--to", "1", "--to", "2", "--to", "1"}), app::exit_unavailable,
        "sending failed: the connection to the server broke; at least 1 and at most 2 of "
        "3 send jobs were made, \"zerdix doc list outgoing\" shows them",
        1);
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

} // namespace
} // namespace zerdix::test
