// SPDX-License-Identifier: MIT
// Jobs on which the server refuses, fails or goes away at one step.

#include <cstring>

#include "sendfax/job_fixture.h"

namespace zerdix::testing {
namespace {

using namespace ::testing;
using calls = std::vector<int>;

// A server that goes wrong at one call, and what comes of it.
struct step_fault {
    int procedure;
    int nth;
    std::int32_t result;
    calls made;
    const char* line; // among those traced
    std::size_t jobs = 0, desk = 0;
};

TEST_F(JobTrace, RefusalsStopThePageOrAreOnlyWarned) {
    const calls all{3, 23, 22, 30, 60, 22};
    const char* const not_logged = "Warn: StoreFaxPage(): Problems with writing log entry";
    const step_fault faults[] = {
        {3, 1, 8, {3}, "Error: StoreFaxPage(): Problems with RPC connection"},
        {23, 1, 0, all, "Warn: StoreFaxPage(): Problems with setting comment"},
        {22, 1, 0, all, not_logged},
        {60, 1, 8, {3, 23, 22, 30, 60}, "Error: -> StoreFaxPage(): Problems with RPC connection"},
        {22, 2, 0, all, not_logged},
    };
    for (const step_fault& fault : faults) {
        SCOPED_TRACE(std::to_string(fault.procedure) + ", call " + std::to_string(fault.nth));
        open_job();
        server.refuse(fault.procedure, fault.nth);
        EXPECT_EQ(store_page(), fault.result);
        EXPECT_EQ(server.calls(), fault.made);
        EXPECT_EQ(sendfax::job().sPageCount, fault.procedure == 3 ? 0 : 1)
            << "a page that wasn't stored counts all the same";
        expect_told(fault.line);
        server.clear_calls();
        EXPECT_EQ(store_page(), fault.result);
        EXPECT_THAT(server.calls(), Not(Contains(3))) << "there is no second document";
        sendfax::close_job();
        std::filesystem::remove(server.folder() / "FAXERROR.LOG");
    }
}

// The blocks of the second kind cover their rows of width / 8 bytes.
TEST_F(PrintJob, APageThatNobodyCouldReadBackIsRefused) {
    open_job();
    const auto good = driver_block(80, 100);
    for (const std::size_t size : {good.size() - 1, std::size_t{8}, std::size_t{7}, std::size_t{0}})
        EXPECT_EQ(store({good.begin(), good.begin() + static_cast<std::ptrdiff_t>(size)}), 8);
    EXPECT_EQ(StoreFaxPage(good.data(), -5, 0, 0), 8);
    EXPECT_EQ(StoreFaxPage(nullptr, 100, 0, 0), 8);
    auto huge = good; // rows of which the product wraps 32 bits
    std::memset(huge.data(), 0xFF, 8);
    huge[3] = 0xF8;
    EXPECT_EQ(store(huge), 8);
    EXPECT_THAT(error_log(), HasSubstr("doesn't cover its rows"));
    for (const auto& [width, height] :
         {std::pair{1001u, 100u}, {7u, 100u}, {1729u, 1u}, {0u, 100u}, {80u, 0u}, {0u, 0u}}) {
        SCOPED_TRACE(std::to_string(width) + " by " + std::to_string(height));
        EXPECT_EQ(store(driver_block(width, height)), 8);
        EXPECT_THAT(error_log(), HasSubstr("A page of " + std::to_string(width) + " by " +
                                           std::to_string(height) + " pixels can't be stored"));
    }
    EXPECT_THAT(server.calls(), Not(Contains(60)));
    EXPECT_EQ(sendfax::job().sPageCount, 0);
    EXPECT_EQ(store(good), 0);
}

// Pages are counted in 16 bits; the number after 32,767 would be a negative one.
TEST_F(PrintJob, APageBeyondTheCountIsRefused) {
    open_job();
    ASSERT_EQ(store_page(), 0);
    sendfax::job().sPageCount = 32766;
    server.clear_calls();
    store_page();
    EXPECT_EQ(server.calls(), (calls{30, 60})) << "page 32,767 goes to the server";
    server.clear_calls();
    EXPECT_EQ(store_page(), 8);
    EXPECT_EQ(server.calls(), calls{});
    EXPECT_EQ(sendfax::job().sPageCount, 32767);
    EXPECT_THAT(error_log(), HasSubstr("StoreFaxPage(): A document holds 32767 pages at most"));
}

TEST_F(JobTrace, AFanOutStopsAtARefusedSendAndKeepsWhatWentOut) {
    const calls all{22, 25, 25, 25, 22, 6};
    const char* const not_logged = "Warn: SendFaxDoc(): Problems with writing log entry";
    const char* const not_sent = "Error: SendFaxDoc(): Problems with sending document";
    const step_fault faults[] = {
        {22, 1, 0, all, not_logged, 3, 0},
        {25, 1, 8, {22, 25}, not_sent, 0, 1},
        {25, 2, 8, {22, 25, 25}, not_sent, 1, 1},
        {22, 2, 0, all, not_logged, 3, 0},
        {6, 1, 8, all, "Error: ->SendFaxDoc(): Problems with deleting document", 3, 1},
    };
    for (const step_fault& fault : faults) {
        SCOPED_TRACE(std::to_string(fault.procedure) + ", call " + std::to_string(fault.nth));
        const std::size_t jobs = server.jobs().size();
        const std::size_t desk = server.desk("zerdix").size();
        open_job_with_pages("#PHONE 1##PHONE 2##PHONE 3#");
        server.refuse(fault.procedure, fault.nth);
        EXPECT_EQ(SendFaxDoc(), fault.result);
        EXPECT_EQ(server.calls(), fault.made);
        EXPECT_THAT(server.jobs(), SizeIs(jobs + fault.jobs));
        EXPECT_THAT(server.desk("zerdix"), SizeIs(desk + fault.desk));
        EXPECT_EQ(pzerdix, nullptr);
        EXPECT_EQ(ppReceiver, nullptr);
        expect_told(fault.line);
    }
}

TEST_F(JobTrace, APoolDocumentThatCannotMoveStaysAndTheUserIsGivenBack) {
    pick_desk("meier");
    const step_fault faults[] = {
        {3, 1, 8, {}, "Error: SendFaxDoc(): (makedoc) Problems with RPC connection", 0, 1},
        {5, 1, 8, {}, "Error: SendFaxDoc(): (copydoc) Problems with RPC connection", 0, 1},
        {42, 1, 0, {}, "Warn: SendFaxDoc(): Problems with setting bif flag", 0, 0},
    };
    for (const step_fault& fault : faults) {
        SCOPED_TRACE(fault.procedure);
        const std::size_t desk = server.desk("zerdix").size();
        open_job_with_pages("");
        server.refuse(fault.procedure);
        std::strcpy(alphaid, "elsewhere");
        EXPECT_EQ(SendFaxDoc(), fault.result);
        EXPECT_STREQ(ZERDIX::clsGetAlphaServer(), "127.0.0.1");
        expect_told(fault.line);
        EXPECT_THAT(server.desk("zerdix"), SizeIs(desk + fault.desk));
        EXPECT_STREQ(ZERDIX::clsGetUserId(), "zerdix");
        EXPECT_STREQ(userid, "");
    }
}

TEST_F(JobTrace, ATelexThatFailsLeavesTheJobOpen) {
    for (const auto& [procedure, line] : {std::pair{3, "Problems with RPC connection"},
                                          {60, "Problems with RPC connection"},
                                          {53, "Document could not be printed"},
                                          {6, "Problems with RPC connection"}}) {
        open_job("#PHONE 12345#", false);
        server.refuse(procedure);
        EXPECT_EQ(SendTelex("HELLO", 5), 8);
        expect_told("Error: SendTelex(): " + std::string{line});
        EXPECT_NE(pzerdix, nullptr);
        sendfax::close_job();
    }
}

TEST_F(PrintJob, AClosedConnectionIsAFailureNotASignal) {
    open_job_with_pages("#PHONE 1##PHONE 2#");
    server.drop(25, 1);
    EXPECT_EQ(SendFaxDoc(), 8);
    EXPECT_EQ(pzerdix, nullptr);
    ASSERT_EQ(TransmissionDlg(nullptr, "Next", 1), 0) << "the next job connects anew";
    ASSERT_EQ(store_page(), 0);
    server.stop(SIGKILL);
    EXPECT_EQ(store_page(), 8);
    EXPECT_EQ(DeleteFaxDoc(), 8);
    EXPECT_NE(pzerdix, nullptr);
}

TEST_F(PrintJob, AJobWithoutConnectionIsStuckUntilGivenUp) {
    server.stop();
    EXPECT_EQ(TransmissionDlg(nullptr, "Angebot", 1), 8);
    EXPECT_THAT(error_log(), HasSubstr("TransmissionDlg(): Problems with RPC connection"));
    EXPECT_EQ(TransmissionDlg(nullptr, "Angebot", 1), 4);
    EXPECT_EQ(DeleteFaxDoc(), 0);
    EXPECT_EQ(pzerdix, nullptr);
}

// Takes the full 25 seconds.
TEST_F(PrintJob, AServerThatIsSilentAtTheOpeningLeavesAJobWithoutConnection) {
    server.stall(89, 1, 27);
    EXPECT_EQ(TransmissionDlg(nullptr, "Angebot", 1), 0);
    EXPECT_EQ(ZERDIX::clsGetClient(), nullptr);
    EXPECT_THAT(error_log(), HasSubstr("TransmissionDlg(): The Alpha server stayed silent"));
    EXPECT_EQ(store_page(), 8);
    EXPECT_EQ(AbandonFaxDoc(), 0);
}

// A long-lived driver on a job that DeleteFaxDoc can't end: it gives the id of the document that it
// leaves behind, and the next job goes well.
class AbandonedJob : public PrintJob {
  protected:
    AbandonedJob() { TransmissionDlg(nullptr, "Angebot", 1); }

    std::int32_t abandon() {
        EXPECT_EQ(DeleteFaxDoc(), 8);
        EXPECT_EQ(DeleteFaxDoc(), 8) << "it can be repeated, to no avail";
        EXPECT_EQ(TransmissionDlg(nullptr, "Next", 1), 4);
        server.clear_calls();
        const std::int32_t left = AbandonFaxDoc();
        EXPECT_EQ(server.calls(), calls{}) << "the server isn't asked";
        EXPECT_EQ(AbandonFaxDoc(), 0) << "there is no job any more";
        return left;
    }

    void expect_next_job_to_go_well() {
        open_job_with_pages("#PHONE 1#");
        EXPECT_EQ(SendFaxDoc(), 0);
        EXPECT_THAT(server.jobs(), SizeIs(1));
    }
};

TEST_F(AbandonedJob, WhoseServerWasGoneForAMoment) {
    ASSERT_EQ(store_page(), 0);
    ASSERT_EQ(merge("#PHONE 2#"), 0);
    const auto desk = server.desk("zerdix");
    ASSERT_THAT(desk, SizeIs(1));
    server.drop(60);
    EXPECT_EQ(store_page(), 8);
    EXPECT_EQ(abandon(), desk[0].id);
    EXPECT_THAT(error_log(), HasSubstr("AbandonFaxDoc(): Document " + std::to_string(desk[0].id) +
                                       " stays on the server"));
    expect_next_job_to_go_well();
    EXPECT_THAT(server.desk("zerdix"), SizeIs(1));
}

TEST_F(AbandonedJob, WhoseDocumentWasNeverMade) {
    server.fail(3);
    EXPECT_EQ(store_page(), 8);
    EXPECT_EQ(abandon(), 0);
    expect_next_job_to_go_well();
}

// Takes the full 25 seconds.
TEST_F(AbandonedJob, ThatMetOneTimeOut) {
    server.stall(60, 1, 27);
    EXPECT_EQ(store_page(), 8);
    EXPECT_EQ(abandon(), server.desk("zerdix").at(0).id);
    expect_next_job_to_go_well();
}

} // namespace
} // namespace zerdix::testing
