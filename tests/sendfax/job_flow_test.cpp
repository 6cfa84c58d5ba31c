// SPDX-License-Identifier: MIT
// Whole jobs by their calls on the server, and what the server holds after each kind of end.

#include <algorithm>
#include <cstring>

#include "platform/scratch.h"
#include "sendfax/job_fixture.h"

namespace zerdix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using calls = std::vector<int>;

TEST_F(PrintJob, OpeningConnectsAndTakesTheTimeZone) {
    ASSERT_EQ(TransmissionDlg(nullptr, "A title of more than thirty characters", 1), 0);
    EXPECT_EQ(server.calls(), calls{89});
    EXPECT_STREQ(ZERDIX::clsGetUserId(), "zerdix");
    EXPECT_EQ(pa_s_rec->userid, "zerdix");
    EXPECT_EQ(pa_s_rec->comment, "A title of more than thirty ch");
    EXPECT_EQ(pa_s_rec->nettype, NETTYPE_FAX);
}

TEST_F(PrintJob, PagesBecomeADocumentWithCommentAndLog) {
    ASSERT_EQ(TransmissionDlg(nullptr, "Angebot", 1), 0);
    server.clear_calls();
    ASSERT_EQ(store(driver_block(80, 100)), 0);
    EXPECT_EQ(server.calls(), (calls{3, 23, 22, 30, 60, 22}));
    server.clear_calls();
    ASSERT_EQ(store(driver_block(80, 100)), 0);
    EXPECT_EQ(server.calls(), (calls{30, 60, 22}));

    const auto desk = server.desk("zerdix");
    ASSERT_THAT(desk, SizeIs(1));
    EXPECT_EQ(desk[0].comment, "Angebot");
    EXPECT_EQ(desk[0].pages, 2);
    const auto log = server.store().logs.all(desk[0].id);
    ASSERT_THAT(log, SizeIs(3));
    EXPECT_EQ(log[0].substr(24), "  $ps.document_created: $f:=" + std::to_string(desk[0].id) +
                                     " $u:=zerdix $a:=127.0.0.1");
    EXPECT_EQ(log[2].substr(24), "  $ps.page_no_completed: $p:=2");
}

TEST_F(PrintJob, FanOutSendsTheOneDocumentLastReceiverFirst) {
    open_job_with_pages("#PHONE 111##PHONE 222##PHONE 333#");
    EXPECT_EQ(SendFaxDoc(), 0);
    EXPECT_EQ(server.calls(), (calls{22, 25, 25, 25, 22, 6}));
    const auto jobs = server.jobs();
    ASSERT_THAT(jobs, SizeIs(3));
    EXPECT_EQ(jobs[0].receiver, "333");
    EXPECT_EQ(jobs[1].receiver, "222");
    EXPECT_EQ(jobs[2].receiver, "111");
    for (const auto& job : jobs) {
        EXPECT_EQ(job.desk, jobs[0].desk);
        EXPECT_EQ(job.record.pages, 2);
        const auto log = server.store().logs.all(job.record.faxid);
        EXPECT_EQ(std::count_if(log.begin(), log.end(),
                                [](const std::string& line) {
                                    return line.find("$ps.document_completed:") !=
                                           std::string::npos;
                                }),
                  1);
    }
    EXPECT_THAT(server.desk("zerdix"), IsEmpty());
    EXPECT_EQ(pzerdix, nullptr);
    EXPECT_EQ(SendFaxDoc(), 0) << "nothing is left to do";
}

TEST_F(PrintJob, AnEmptyEntryEndsTheReceivers) {
    open_job_with_pages("#PHONE 1##PHONE 2##PHONE 3##PHONE 4##PHONE 5#");
    ppReceiver[2][0] = '\0';
    EXPECT_EQ(SendFaxDoc(), 0);
    EXPECT_EQ(server.calls(), (calls{22, 25, 25, 22, 6}));
}

TEST_F(PrintJob, AJobWithoutPagesMakesNoCall) {
    ASSERT_EQ(TransmissionDlg(nullptr, "Angebot", 1), 0);
    ASSERT_EQ(merge("#PHONE 1#"), 0);
    server.clear_calls();
    EXPECT_EQ(SendFaxDoc(), 0);
    EXPECT_EQ(server.calls(), calls{});
    EXPECT_EQ(ppReceiver, nullptr);
    EXPECT_EQ(pzerdix, nullptr);
}

std::int32_t own_desk(void*) {
    std::strcpy(userid, "zerdix");
    return send_dialog_accepted;
}

// Only a pass composes a cover page: what has no pass needs none.
template <auto Dialog>
std::int32_t with_cover_pages(void* window) {
    fCoverpage = 1;
    return Dialog(window);
}

std::int32_t no_choice(void*) {
    return send_dialog_accepted;
}

TEST_F(PrintJob, WithoutReceiversTheDialogDecides) {
    const struct {
        const char* user;
        sendfax::send_dialog dialog;
        std::int32_t result;
        calls made;
        bool stays, flagged;
    } cases[] = {
        {"has no dialog", nullptr, 8, {}, true, false},
        {"cancels", [](void*) { return send_dialog_cancelled; }, 4, {6}, false, false},
        {"names nobody", no_choice, 0, {22, 6}, false, false},
        {"names nobody, with a cover page", with_cover_pages<no_choice>, 0, {}, true, false},
        {"keeps it", own_desk, 0, {42, 22}, true, true},
        {"keeps it, with a cover page", with_cover_pages<own_desk>, 0, {42, 22}, true, true},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.user);
        const std::size_t before = server.desk("zerdix").size();
        sendfax::install_send_dialog(each.dialog);
        open_job_with_pages("#RESOLUTION FINE#");
        EXPECT_EQ(SendFaxDoc(), each.result);
        EXPECT_EQ(server.calls(), each.made);
        const auto desk = server.desk("zerdix");
        ASSERT_THAT(desk, SizeIs(before + each.stays));
        EXPECT_TRUE(!each.stays || desk.back().bif == each.flagged);
        EXPECT_THAT(server.jobs(), IsEmpty());
        EXPECT_EQ(pzerdix, nullptr);
        EXPECT_STREQ(userid, "");
        EXPECT_EQ(fCoverpage, 0);
    }
    EXPECT_THAT(error_log(), HasSubstr("SendFaxDoc(): RC returned from CallSendDialog(): 8"));
}

TEST_F(PrintJob, APoolDocumentForAnotherUserMoves) {
    pick_desk("meier");
    open_job_with_pages("");
    const std::int32_t old = server.desk("zerdix").at(0).id;
    EXPECT_EQ(SendFaxDoc(), 0);
    EXPECT_EQ(server.calls(), (calls{3, 5, 42, 22, 22, 22, 6}));
    EXPECT_THAT(server.desk("zerdix"), IsEmpty());
    const auto desk = server.desk("meier");
    ASSERT_THAT(desk, SizeIs(1));
    EXPECT_TRUE(desk[0].bif);
    EXPECT_EQ(desk[0].pages, 2);
    const auto log = server.store().logs.all(desk[0].id);
    ASSERT_GE(log.size(), 3u);
    EXPECT_THAT(log[log.size() - 3], HasSubstr("$ps.document_completed:"));
    EXPECT_THAT(log[log.size() - 2],
                HasSubstr("$ps.document_created: $f:=" + std::to_string(desk[0].id) +
                          " $u:=meier $a:=127.0.0.1"));
    EXPECT_THAT(log.back(),
                HasSubstr("$ps.document_deleted: $f:=" + std::to_string(old) + " $u:=zerdix"));
    EXPECT_STREQ(ZERDIX::clsGetUserId(), "zerdix");
}

TEST_F(PrintJob, ASecondJobIsKeptOut) {
    open_job_with_pages("#PHONE 1#");
    const std::int32_t document = sendfax::job().lFaxid;
    const tests::recorded_boxes boxes;
    EXPECT_EQ(TransmissionDlg(nullptr, "Other", 1), 4);
    EXPECT_THAT(boxes.shown, ElementsAre(std::pair<std::string, std::string>{
                                 "Another FAX print job is still active", "FAX printer driver"}));
    EXPECT_EQ(sendfax::job().lFaxid, document);
    EXPECT_EQ(sendfax::job().sPageCount, 2);
    EXPECT_EQ(pa_s_rec->comment, "Angebot");
    EXPECT_THAT(error_log(), HasSubstr("Another zerDIX print job is still active"));
}

TEST_F(PrintJob, WhileTheDialogRunsTheJobIsNeitherSentNorEndedNorGivenPages) {
    sendfax::install_send_dialog([](void*) {
        EXPECT_EQ(SendFaxDoc(), 0);
        EXPECT_EQ(DeleteFaxDoc(), 8);
        EXPECT_EQ(AbandonFaxDoc(), -1);
        EXPECT_EQ(store(driver_block(80, 100)), 8);
        EXPECT_EQ(merge("#TITLE Other#"), 0) << "merge data may come at any time";
        return send_dialog_cancelled;
    });
    open_job_with_pages("");
    EXPECT_EQ(SendFaxDoc(), 4);
    EXPECT_EQ(server.calls(), calls{6});
    EXPECT_THAT(error_log(), HasSubstr("StoreFaxPage(): the job is being sent"));
    EXPECT_EQ(pa_s_rec->comment, "Other");
}

TEST_F(PrintJob, ASecondJobKeepsUserAndServer) {
    open_job_with_pages("#PHONE 1#");
    ASSERT_EQ(SendFaxDoc(), 0);
    std::ofstream{server.settings()} << "[Zerdix]\nUser=other\nHost=nowhere.invalid\n";
    ASSERT_EQ(TransmissionDlg(nullptr, "Second", 1), 0);
    EXPECT_STREQ(ZERDIX::clsGetUserId(), "zerdix");
    EXPECT_TRUE(pa_s_rec->userid.empty());
}

TEST_F(PrintJob, APageWithoutAJobOpensTheSessionItself) {
    ASSERT_EQ(store(driver_block(80, 100)), 0);
    EXPECT_EQ(server.calls(), (calls{3, 23, 22, 30, 60, 22}));
    EXPECT_EQ(DeleteFaxDoc(), 0);
    EXPECT_THAT(server.desk("zerdix"), IsEmpty());
}

TEST_F(PrintJob, GivingUpReleasesReceiversToo) {
    open_job_with_pages("#PHONE 1#");
    EXPECT_EQ(DeleteFaxDoc(), 0);
    EXPECT_EQ(server.calls(), calls{6});
    EXPECT_EQ(ppReceiver, nullptr);
    EXPECT_EQ(lPDCountReceiver, 0);
    EXPECT_EQ(DeleteFaxDoc(), 0) << "without a document there is nothing to do";
}

TEST_F(PrintJob, TelexIsPrintedForEachReceiverFirstToLast) {
    ASSERT_EQ(TransmissionDlg(nullptr, "Hello", 0), 0);
    ASSERT_EQ(merge("#PHONE 12345##PHONE x##PHONE 678##RETRIES 3#"), 0);
    ppReceiver[1][0] = '\0';
    pa_s_rec->sendtime = 851446800;
    server.clear_calls();
    EXPECT_EQ(SendTelex("HELLO and nothing more", 5), 0);
    EXPECT_EQ(server.calls(), (calls{3, 60, 53, 60, 53, 6}));
    EXPECT_EQ(pzerdix, nullptr);

    std::vector<std::string> telexes;
    for (const auto& file : std::filesystem::directory_iterator{server.spool()})
        telexes.push_back(server.files().read("spool/" + file.path().filename().string()));
    const std::string head = "#TELEX##USER zerdix##ALPHAHOST 127.0.0.1##TITLE Hello##PHONE ";
    EXPECT_THAT(telexes, ::testing::UnorderedElementsAre(
                             head + "12345##SENDTIME 24.12.96 18:00:00##RETRIES 3#\nHELLO",
                             head + "678##SENDTIME 24.12.96 18:00:00##RETRIES 3#\nHELLO"));
}

TEST_F(PrintJob, ATelexSpeaksAsThePoolUserUntilTheJobEnds) {
    sendfax::install_send_dialog([](void*) {
        std::strcpy(userid, "meier");
        std::strcpy(ppReceiver[0], "1");
        lPDCountReceiver = 1;
        return send_dialog_accepted;
    });
    for (bool refused : {false, true}) {
        ASSERT_EQ(TransmissionDlg(nullptr, "Hello", 0), 0);
        if (refused)
            server.refuse(53);
        EXPECT_EQ(SendTelex("HELLO", 5), refused ? 8 : 0);
        EXPECT_STREQ(ZERDIX::clsGetUserId(), refused ? "meier" : "zerdix");
        sendfax::close_job();
        EXPECT_STREQ(ZERDIX::clsGetUserId(), "zerdix");
    }
    sendfax::install_send_dialog([](void*) { return send_dialog_cancelled; });
    ASSERT_EQ(TransmissionDlg(nullptr, "Hello", 0), 0);
    server.clear_calls();
    EXPECT_EQ(SendTelex("HELLO", 5), 4);
    EXPECT_TRUE(server.calls().empty());
    EXPECT_EQ(SendTelex("HELLO", 5), 8) << "without a job";
    EXPECT_THAT(error_log(), HasSubstr("SendTelex(): no initialisation"));
}

} // namespace
} // namespace zerdix::testing
