// SPDX-License-Identifier: MIT
// Whole print jobs of the real program, and jobs that go wrong: nothing may stay on the desk.

#include <chrono>
#include <fcntl.h>
#include <unistd.h>

#include "cli/desk_test.h"
#include "cli/tiny_pdf.h"
#include "output/failure.h"
#include "pictures/stored_page.h"

namespace zerdix::test {
namespace {

using namespace app;
using alphad::verdict;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// Procedures of the protocol.
constexpr int make_document = 3;
constexpr int delete_document = 6;
constexpr int send_document = 25;
constexpr int put_page = 60;

class Print : public desk_test {
  protected:
    // A job that fails with this code, says this, and leaves nothing but so many send jobs.
    program_result fails_cleanly(const std::string& words, int code, const std::string& part,
                                 std::size_t jobs_left = 0, const circumstances& around = {}) {
        auto result = fails("print " + words, code, part, {SAMPLE_PDF}, around);
        EXPECT_THAT(server_.desk("zerdix"), IsEmpty()) << part;
        EXPECT_EQ(server_.jobs().size(), jobs_left) << part;
        return result;
    }
};

TEST_F(Print, ReachesEveryReceiverWithItsSettings) {
    const auto result = zerdix(
        "print --to common:kanzlei --group kunden --priority 100 "
        "--retries 5 --resolution normal --to",
        {"+49 30 123456", "--title", "Angebot für #1", "--at", "2037-12-31 20:15", SAMPLE_PDF});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "page 1 of 3 stored\npage 2 of 3 stored\npage 3 of 3 stored\n"
                             "sending to 6 receivers\n" SAMPLE_PDF ": 3 pages, 6 send jobs made\n");
    EXPECT_EQ(result.errors, "");
    EXPECT_THAT(server_.desk("zerdix"), IsEmpty());
    std::vector<std::string> receivers;
    for (const auto& job : server_.jobs()) {
        receivers.push_back(job.receiver);
        EXPECT_EQ(job.record.comment.view(), "Angebot f\xfcr #1");
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

TEST_F(Print, TellsReceiversThatCantBeReachedBeforeAPageGoes) {
    for (const auto& [words, code, part] :
         {std::tuple{"", exit_no_dialog, "no receiver is named"},
          {"--to common:nobody", exit_no_receiver, "no entry common:nobody"},
          {"--to common:hansen", exit_no_receiver, "telex"},
          {"--to 1 --group nobody", exit_no_receiver, "the group nobody"},
          {"--to 1 --at 2020-01-01T12:00", exit_usage, "is over"}})
        EXPECT_EQ(fails_cleanly(words, code, part).output, "") << part;
    EXPECT_THAT(server_.calls(), Not(testing::Contains(make_document)));
}

TEST_F(Print, NamesTheStepThatFailed) {
    const struct {
        int procedure, nth;
        verdict said;
        exit_code code;
        const char* told;
        std::size_t jobs_left = 0;
    } steps[] = {
        {make_document, 1, verdict::refuse, exit_refused,
         "creating the document failed: the server refused it"},
        {put_page, 2, verdict::refuse, exit_refused, "storing page "},
        {put_page, 2, verdict::drop, exit_unavailable, "the connection to the server broke"},
        {delete_document, 1, verdict::refuse, exit_refused,
         "deleting the document after sending failed: the server refused it; "
         "1 of 1 send jobs had been made",
         1},
    };
    for (const auto& step : steps) {
        server_.spoil(step.procedure, step.nth, step.said);
        fails_cleanly("--to 1", step.code, step.told, step.jobs_left);
    }
}

// The last receiver goes first. A number that stands twice is two receivers.
TEST_F(Print, NamesTheCommandThatSendsTheRest) {
    server_.refuse(send_document, 2);
    const auto refused = fails("print --to 1 --to 2 --to 1", exit_refused, "", {SAMPLE_PDF});
    ASSERT_EQ(server_.desk("zerdix").size(), 1U);
    const std::string id = std::to_string(server_.desk("zerdix")[0].id);
    EXPECT_THAT(refused.errors,
                HasSubstr("sending to 2 failed: the server refused it; 1 of 3 send jobs had been "
                          "made; document " +
                          id + " stays on the desk, zerdix send " + id +
                          " --to \"1\" --to \"2\" sends it to the rest"));
    // The reply is lost, the send job is made or not: the server knows.
    server_.drop(send_document, 1);
    fails("print --to 1 --to 2", exit_unavailable,
          "sending to 2 failed: the connection to the server broke; 0 of 2 send jobs had been made",
          {SAMPLE_PDF});
    EXPECT_EQ(server_.jobs().size(), 1U);

    const std::string sent =
        done("send desk:" + id + " --to 1 --to 2 --group kunden --at night --priority 100");
    const auto jobs = server_.jobs();
    EXPECT_THAT(sent, HasSubstr(std::to_string(jobs.size() - 1) + " send jobs made"));
    ASSERT_GT(jobs.size(), 3U);
    EXPECT_EQ(jobs[1].receiver, "1");
    EXPECT_EQ(jobs[1].record.priority, 32767);
    EXPECT_TRUE(jobs[1].record.nighttariff);
    EXPECT_EQ(jobs[1].record.pages, 3);
    server_.refuse(send_document, 2);
    fails("send desk:" + id + " --to 7 --to 8 --to 9", exit_refused,
          "sending to 8 failed: the server refused it; 1 of 3 send jobs had been made; zerdix "
          "send " +
              id + " --to \"8\" --to \"9\" sends it to the rest");
    // Here, too; send jobs that were made of the document before don't count.
    server_.drop(send_document, 2);
    fails(
        "send desk:" + id + " --to 7 --to 8", exit_unavailable,
        "sending to 8 failed: the connection to the server broke; 1 of 2 send jobs had been made; "
        "zerdix send " +
            id + " --to \"8\" sends");
    server_.lose_reply(send_document, 2);
    fails("send desk:" + id + " --to 7 --to 8 --to 9", exit_unavailable,
          "sending failed: the connection to the server broke; 2 of 3 send jobs had been made; "
          "zerdix send " +
              id + " --to \"9\" sends");
    EXPECT_EQ(server_.jobs().size(), jobs.size() + 4);
}

TEST_F(Print, FindsTheSendJobWhoseReplyWasLost) {
    server_.lose_reply(send_document, 2);
    fails("print --to 1 --to 2", exit_unavailable, "2 of 2 send jobs had been made", {SAMPLE_PDF});
    EXPECT_EQ(server_.jobs().size(), 2U);
}

TEST_F(Print, SaysWhenADocumentStays) {
    server_.refuse(delete_document, 1);
    server_.refuse(delete_document, 2);
    fails("print --to 1", exit_refused, "couldn't be deleted and stays on the desk of zerdix",
          {SAMPLE_PDF});
    EXPECT_EQ(server_.desk("zerdix").size(), 1U);
}

// The server can't be asked: no document can be made that tells how far its ids have come.
TEST_F(Print, SaysWhatItCantKnow) {
    server_.drop(send_document, 2);
    server_.fail(make_document, 2);
    fails("print --to 1 --to 2 --to 1", exit_unavailable,
          "sending to 2 failed: the connection to the server broke; at least 1 and at most 2 of 3 "
          "send jobs were made, \"zerdix doc list outgoing\" shows them",
          {SAMPLE_PDF});
    EXPECT_EQ(server_.jobs().size(), 1U);
}

TEST_F(Print, TakesTheDocumentBackWhenInterrupted) {
    for (const int signal : {SIGINT, SIGTERM}) {
        server_.stall(put_page, 4, 1);
        const auto result =
            fails_cleanly("--to 1", exit_interrupted, "interrupted; nothing was sent", 0,
                          {.disturb = disturbance{"page 1 of 3 stored", signal}});
        EXPECT_THAT(result.output, Not(HasSubstr("page 3 of 3")));
    }
}

TEST_F(Print, TakesSomePagesOfSeveralFiles) {
    const std::string small = write("a.pdf", tiny_pdf({{600, 700, ""}, {600, 650, ""}}));
    EXPECT_THAT(done("print --to 1 --pages 2-3,5", {small, SAMPLE_PDF}),
                HasSubstr("page 3 of 3 stored\nsending to 1 receiver\n" + small +
                          " and 1 more: 3 pages, 1 send job made\n"));
    ASSERT_EQ(server_.jobs().size(), 1U);
    const std::int32_t id = server_.jobs().at(0).record.faxid;
    const auto rows = [&](int page) {
        const std::string stored = *server_.store().pages.picture({id, std::int16_t(page), 0});
        return expand_page(reinterpret_cast<const unsigned char*>(stored.data()), stored.size())
            .rows;
    };
    EXPECT_EQ(rows(1), 1770U); // of 650 points
    EXPECT_GT(rows(2), 2000U);
    for (const auto& [pages, code, part] :
         {std::tuple{"6", exit_no_input, "the document has no page 6, only 5 pages"},
          {"0", exit_usage, "\"0\" names no pages"}})
        fails(std::string("print --to 1 --pages ") + pages, code, part, {small, SAMPLE_PDF});
    fails("print --to 1", exit_no_input, "there-is-none.pdf", {small, "there-is-none.pdf"});
    EXPECT_EQ(server_.jobs().size(), 1U);
    EXPECT_THAT(server_.desk("zerdix"), IsEmpty());
}

TEST_F(Print, TakesStandardInput) {
    const auto print_from = [](const std::string& path) {
        const int input = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        auto result = zerdix("print - --to 1", {}, {.input = input});
        ::close(input);
        return result;
    };
    EXPECT_THAT(print_from(SAMPLE_PDF).output, HasSubstr("standard input: 3 pages, 1 send job"));
    EXPECT_THAT(print_from("/dev/null").errors, HasSubstr("standard input is empty"));
    EXPECT_THAT(print_from(write("a.txt", "Sehr geehrte")).errors,
                HasSubstr("standard input is damaged or not a PDF"));
    EXPECT_EQ(server_.jobs().size(), 1U);
}

// Other pages are being made when it is the damaged one's turn.
TEST_F(Print, NamesTheDamagedPageAmongManyOfThem) {
    std::vector<tiny_page> pages(40, {100, 100, "0 g 0 0 10 10 re f"});
    pages[24] = {10, 100000, ""};
    const std::string path = server_.files().write("a.pdf", tiny_pdf(pages));
    const auto result = fails("print --to 1", exit_bad_data,
                              "page 25 of " + path + ": it is too long for a fax page", {path});
    EXPECT_THAT(result.output, HasSubstr("page 24 of 40 stored"));
    EXPECT_THAT(result.output, Not(HasSubstr("page 25 of 40 stored")));
    EXPECT_THAT(server_.desk("zerdix"), IsEmpty());
}

// Each of the last two pages takes minutes.
TEST_F(Print, IsInterruptedWhilePagesAreMade) {
    std::string endless;
    for (int i = 0; i < 50000; ++i)
        endless += "0 0 600 800 re f\n";
    const std::string path = server_.files().write(
        "a.pdf", tiny_pdf({{100, 100, ""}, {600, 800, endless}, {600, 800, endless}}));
    const auto begin = std::chrono::steady_clock::now();
    fails("print --to 1", exit_interrupted, "interrupted; nothing was sent", {path},
          {.disturb = disturbance{"page 1 of 3 stored", SIGINT}});
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
    EXPECT_THAT(server_.desk("zerdix"), IsEmpty());
}

} // namespace
} // namespace zerdix::test
