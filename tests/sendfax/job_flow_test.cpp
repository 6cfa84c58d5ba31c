// SPDX-License-Identifier: MIT
// Whole jobs: their calls on the server, their lines in the trace, and what the server holds after
// each kind of end.

#include <cstring>
#include <functional>

#include "platform/scratch.h"
#include "sendfax/job_fixture.h"

namespace zerdix::testing {
namespace {

using namespace ::testing;
using calls = std::vector<int>;

lines lines_of_the_first_page(const std::string& id) {
    return {"Entry: <-- StoreFaxPage(): Size of Bitmap: 1008 Page Index: 0",
            "Info1: StoreFaxPage(): Faxid of created document: " + id,
            "Info1: StoreFaxPage(): Width: 80 Height 100",
            "Entry: <-- MergeBackPaper(): selected paper source (pool document "
            "id): 0",
            "Exit: --> MergeBackPaper(): no pool document is defined for "
            "background paper number 0",
            "Entry: <-- RotateBitmap:",
            "Exit: --> RotateBitmap(): Bitmap must not be rotated",
            "Exit: --> StoreFaxPage():"};
}

lines lines_of_the_sending(const std::string& id) {
    return {"Entry: <-- SendFaxDoc():",
            "Info1: SendFaxDoc(): Faxid -> " + id,
            "Info1: SendFaxDoc(): Userid -> zerdix",
            "Info1: SendFaxDoc(): Priorit\xe4t -> 0",
            "Info1: SendFaxDoc(): Status -> 0",
            "Info1: SendFaxDoc(): Seiten -> 2",
            "Info1: SendFaxDoc(): Kommentar -> Angebot",
            "Info1: SendFaxDoc(): Nachttarif -> 0",
            "Info1: SendFaxDoc(): Error-Status -> 0",
            "Info1: SendFaxDoc(): Wiederholungen (max.) -> 0",
            "Info1: SendFaxDoc(): Wiederholungen (tats.) -> 0",
            "Info1: SendFaxDoc(): Empf\xe4nger-TSI ->",
            "Info1: SendFaxDoc(): Netztyp (1=FAX/2=TELEX) -> 1",
            "Info1: SendFaxDoc(): Aufl\xf6sung (0=as is/1=fine/2=normal) -> 0",
            "Info1: SendFaxDoc(): Number of receivers: 3",
            "Info1: SendFaxDoc(): Receiver: 333",
            "Info1: SendFaxDoc(): Receiver: 222",
            "Info1: SendFaxDoc(): Receiver: 111",
            "Info1: SendFaxDoc(): Delete temporary fax doc: " + id,
            "Exit: --> SendFaxDoc()"};
}

TEST_F(JobTrace, AFaxJobFromItsOpeningToItsEnd) {
    ASSERT_EQ(TransmissionDlg(nullptr, "Angebot", 1), 0);
    EXPECT_EQ(server.calls(), calls{89});
    EXPECT_EQ(traced(), (lines{"Entry: <-- TransmissionDlg(): Title: <Angebot> Fax: <1>",
                               "Exit: --> TransmissionDlg(): OK"}));
    EXPECT_STREQ(ZERDIX::clsGetUserId(), "zerdix");
    EXPECT_EQ(pa_s_rec->userid, "zerdix");

    ASSERT_EQ(merge("#PHONE 111##PHONE 222##PHONE 333#"), 0);
    server.clear_calls();
    traced();
    ASSERT_EQ(store_page(), 0);
    EXPECT_EQ(server.calls(), (calls{3, 23, 22, 30, 60, 22}));
    const std::string id = std::to_string(pa_s_rec->faxid);
    EXPECT_EQ(traced(), lines_of_the_first_page(id));
    server.clear_calls();
    ASSERT_EQ(store_page(), 0);
    EXPECT_EQ(server.calls(), (calls{30, 60, 22}));
    const auto desk = server.desk("zerdix");
    ASSERT_THAT(desk, SizeIs(1));
    EXPECT_EQ(desk[0].comment, "Angebot");
    EXPECT_EQ(desk[0].pages, 2);
    const auto log = server.store().logs.all(desk[0].id);
    ASSERT_THAT(log, SizeIs(3));
    EXPECT_EQ(log[0].substr(24), "  $ps.document_created: $f:=" + id + " $u:=zerdix $a:=127.0.0.1");
    EXPECT_EQ(log[2].substr(24), "  $ps.page_no_completed: $p:=2");

    server.clear_calls();
    traced();
    ASSERT_EQ(SendFaxDoc(), 0);
    EXPECT_EQ(server.calls(), (calls{22, 25, 25, 25, 22, 6}));
    EXPECT_EQ(traced(), lines_of_the_sending(id));
    lines receivers;
    for (const auto& job : server.jobs()) {
        receivers.push_back(job.receiver);
        EXPECT_EQ(job.desk, desk[0].id);
        EXPECT_EQ(job.record.pages, 2);
        EXPECT_THAT(server.store().logs.all(job.record.faxid),
                    Contains(HasSubstr("$ps.document_completed:")).Times(1));
    }
    EXPECT_THAT(receivers, ElementsAre("333", "222", "111")) << "the last one first";
    EXPECT_THAT(server.desk("zerdix"), IsEmpty());
    EXPECT_EQ(pzerdix, nullptr);

    EXPECT_EQ(SendFaxDoc(), 0);
    EXPECT_EQ(traced(),
              (lines{"Entry: <-- SendFaxDoc():", "Exit: --> SendFaxDoc(): no initialisation"}));
}

TEST_F(PrintJob, AnEmptyEntryEndsTheReceivers) {
    open_job_with_pages("#PHONE 1##PHONE 2##PHONE 3##PHONE 4##PHONE 5#");
    ppReceiver[2][0] = '\0';
    EXPECT_EQ(SendFaxDoc(), 0);
    EXPECT_EQ(server.calls(), (calls{22, 25, 25, 22, 6}));
}

TEST_F(JobTrace, AJobWithoutPagesMakesNoCall) {
    open_job("#PHONE 1#");
    EXPECT_EQ(SendFaxDoc(), 0);
    EXPECT_EQ(server.calls(), calls{});
    EXPECT_EQ(traced().back(), "Exit: --> SendFaxDoc(): for an empty page we make no action");
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

std::int32_t cancelled(void*) {
    return send_dialog_cancelled;
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
        {"cancels", cancelled, 4, {6}, false, false},
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

TEST_F(JobTrace, APoolDocumentForAnotherUserMoves) {
    pick_desk("meier");
    open_job_with_pages("");
    const std::string old = std::to_string(pa_s_rec->faxid);
    traced();
    EXPECT_EQ(SendFaxDoc(), 0);
    EXPECT_EQ(server.calls(), (calls{3, 5, 42, 22, 22, 22, 6}));
    const lines moved = traced();
    EXPECT_EQ(
        lines(moved.begin() + 17, moved.end()),
        (lines{"Info1: SendFaxDoc(): Selected Userid: <meier>",
               "Info1: SendFaxDoc(): Delete temporary fax doc: " + old,
               "Info1: SendFaxDoc(): Creation of a new pool document for meier on  is requested",
               "Exit: --> SendFaxDoc()"}));
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
    EXPECT_THAT(log.back(), HasSubstr("$ps.document_deleted: $f:=" + old + " $u:=zerdix"));
    EXPECT_STREQ(ZERDIX::clsGetUserId(), "zerdix");
}

TEST_F(JobTrace, ASecondJobIsKeptOut) {
    open_job_with_pages("#PHONE 1#");
    const std::int32_t document = sendfax::job().lFaxid;
    const tests::recorded_boxes boxes;
    traced();
    EXPECT_EQ(TransmissionDlg(nullptr, "Other", 1), 4);
    EXPECT_EQ(traced(), (lines{"Entry: <-- TransmissionDlg(): Title: <Other> Fax: <1>",
                               "Error: TransmissionDlg(): Another zerDIX print job is still active",
                               "Exit: --> TransmissionDlg():"}));
    EXPECT_THAT(boxes.shown,
                ElementsAre(Pair("Another FAX print job is still active", "FAX printer driver")));
    EXPECT_EQ(sendfax::job().lFaxid, document);
    EXPECT_EQ(sendfax::job().sPageCount, 2);
    EXPECT_EQ(pa_s_rec->comment, "Angebot");
}

// The document of a job that the user cancels can't be deleted either.
TEST_F(JobTrace, WhileTheDialogRunsTheJobIsNeitherSentNorEndedNorGivenPages) {
    static lines during;
    static std::function<lines()> look;
    look = [this] { return traced(); };
    sendfax::install_send_dialog([](void*) {
        EXPECT_EQ(SendFaxDoc(), 0);
        during = look();
        EXPECT_EQ(DeleteFaxDoc(), 8);
        EXPECT_EQ(AbandonFaxDoc(), -1);
        EXPECT_EQ(store_page(), 8);
        EXPECT_EQ(merge("#TITLE Other#"), 0) << "merge data may come at any time";
        look();
        return send_dialog_cancelled;
    });
    open_job_with_pages("");
    const std::string id = std::to_string(pa_s_rec->faxid);
    server.refuse(6);
    EXPECT_EQ(SendFaxDoc(), 4);
    EXPECT_EQ(server.calls(), calls{6});
    EXPECT_EQ(lines(during.end() - 3, during.end()),
              (lines{"Entry: <-- CallSendDialog()", "Entry: <-- SendFaxDoc():",
                     "Exit: --> SendFaxDoc(): function already active"}));
    EXPECT_EQ(
        traced(),
        (lines{"Exit: --> CallSendDialog: RC from CDialogSendSelect: 2302",
               "Exit: --> CallSendDialog(): Rc = 4", "Warn: SendFaxDoc(): SendDialog cancelled",
               "Info1: SendFaxDoc(): Delete temporary fax doc: " + id,
               "Error: SendFaxDoc(): Problems with deleting document", "Exit: --> SendFaxDoc()"}));
    EXPECT_THAT(error_log(), HasSubstr("StoreFaxPage(): the job is being sent"));
    EXPECT_EQ(pa_s_rec->comment, "Other");
}

TEST_F(PrintJob, ASecondJobKeepsUserAndServer) {
    open_job_with_pages("#PHONE 1#");
    ASSERT_EQ(SendFaxDoc(), 0);
    std::ofstream{server.settings()} << "[Zerdix]\nUser=other\nHost=nowhere.invalid\n";
    open_job();
    EXPECT_STREQ(ZERDIX::clsGetUserId(), "zerdix");
    EXPECT_TRUE(pa_s_rec->userid.empty());
}

TEST_F(PrintJob, APageWithoutAJobOpensTheSessionItself) {
    ASSERT_EQ(store_page(), 0);
    EXPECT_EQ(server.calls(), (calls{3, 23, 22, 30, 60, 22}));
    EXPECT_EQ(DeleteFaxDoc(), 0);
    EXPECT_THAT(server.desk("zerdix"), IsEmpty());
}

TEST_F(JobTrace, GivingUpReleasesReceiversToo) {
    open_job_with_pages("#PHONE 1#");
    EXPECT_EQ(DeleteFaxDoc(), 0);
    EXPECT_EQ(server.calls(), calls{6});
    EXPECT_EQ(ppReceiver, nullptr);
    EXPECT_EQ(lPDCountReceiver, 0);
    traced();
    EXPECT_EQ(DeleteFaxDoc(), 0) << "without a document there is nothing to do";
    EXPECT_EQ(traced(), (lines{"Entry: <-- DeleteFaxDoc() -  Faxid: 2147483647",
                               "Exit: --> -> DeleteFaxDoc(): OK"}));
}

TEST_F(JobTrace, ATelexIsPrintedForEachReceiverFirstToLast) {
    open_job("#PHONE 12345##PHONE x##PHONE 678##RETRIES 3#", false);
    EXPECT_EQ(pa_s_rec->nettype, NETTYPE_TELEX);
    ppReceiver[1][0] = '\0';
    pa_s_rec->sendtime = 851446800;
    traced();
    EXPECT_EQ(SendTelex("HELLO and nothing more", 5), 0);
    EXPECT_EQ(server.calls(), (calls{3, 60, 53, 60, 53, 6}));
    EXPECT_EQ(pzerdix, nullptr);

    std::vector<std::string> telexes;
    for (const auto& file : std::filesystem::directory_iterator{server.spool()})
        telexes.push_back(server.files().read("spool/" + file.path().filename().string()));
    const auto control = [](const char* receiver) {
        return "#TELEX##USER zerdix##ALPHAHOST 127.0.0.1##TITLE Angebot##PHONE " +
               std::string{receiver} + "##SENDTIME 24.12.96 18:00:00##RETRIES 3#";
    };
    EXPECT_THAT(telexes,
                UnorderedElementsAre(control("12345") + "\nHELLO", control("678") + "\nHELLO"));
    lines printed = traced();
    ASSERT_GT(printed.size(), 1u);
    EXPECT_TRUE(printed[1].starts_with("Info1: SendTelex(): Faxid of created document: "));
    printed.erase(printed.begin() + 1);
    EXPECT_EQ(
        printed,
        (lines{"Entry: <-- SendTelex(): Telex text (size: 5): HELLO",
               "Info1: SendTelex(): lPDCountReceiver: 3", "Info1: SendTelex(): Receiver: <12345>",
               "Info1: SendTelex(): Controlrecord: " + control("12345"),
               "Info1: SendTelex(): Document will be printed",
               "Info1: SendTelex(): Receiver: <678>",
               "Info1: SendTelex(): Controlrecord: " + control("678"),
               "Info1: SendTelex(): Document will be printed", "Exit: --> SendTelex(): OK"}));
}

TEST_F(PrintJob, ATelexSpeaksAsThePoolUserUntilTheJobEnds) {
    sendfax::install_send_dialog([](void*) {
        std::strcpy(userid, "meier");
        std::strcpy(ppReceiver[0], "1");
        lPDCountReceiver = 1;
        return send_dialog_accepted;
    });
    for (bool refused : {false, true}) {
        open_job("", false);
        if (refused)
            server.refuse(53);
        EXPECT_EQ(SendTelex("HELLO", 5), refused ? 8 : 0);
        EXPECT_STREQ(ZERDIX::clsGetUserId(), refused ? "meier" : "zerdix");
        sendfax::close_job();
        EXPECT_STREQ(ZERDIX::clsGetUserId(), "zerdix");
    }
}

TEST_F(JobTrace, ATelexThatTheUserCancelsMakesNoCall) {
    sendfax::install_send_dialog(cancelled);
    open_job("", false);
    EXPECT_EQ(SendTelex("HELLO", 5), 4);
    EXPECT_TRUE(server.calls().empty());
    expect_told("Warn: SendTelex(): SendDialog cancelled");
    EXPECT_EQ(SendTelex("HELLO", 5), 8) << "without a job";
    expect_told("Error: SendTelex(): no initialisation");
}

} // namespace
} // namespace zerdix::testing
