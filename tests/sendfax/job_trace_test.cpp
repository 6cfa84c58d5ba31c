// SPDX-License-Identifier: MIT
// What whole jobs leave in the trace file: each line with its level, in order.

#include "sendfax/job_trace.h"

namespace zerdix::testing {
namespace {

using ::testing::IsSupersetOf;

// Entry and exit of the reading of one pair of merge data.
lines pair_lines(const std::string& key, const std::string& value) {
    return {"Entry: <-- ExtractKeyAndValue",
            "Exit: --> ExtractKeyAndValue: Key: #" + key + "# Value: <" + value + ">"};
}

lines operator+(lines all, const lines& more) {
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

TEST_F(JobTrace, AFaxJobFromItsOpeningToItsEnd) {
    ASSERT_EQ(TransmissionDlg(nullptr, "Angebot", 1), 0);
    EXPECT_EQ(traced(), (lines{"Entry: <-- TransmissionDlg(): Title: <Angebot> Fax: <1>",
                               "Exit: --> TransmissionDlg(): OK"}));
    EXPECT_EQ(TransmissionDlg(nullptr, "Other", 1), 4);
    EXPECT_EQ(traced(), (lines{"Entry: <-- TransmissionDlg(): Title: <Other> Fax: <1>",
                               "Error: TransmissionDlg(): Another zerDIX print job is still active",
                               "Exit: --> TransmissionDlg():"}));

    ASSERT_EQ(merge("#PHONE 111##PHONE 222#"), 0);
    EXPECT_EQ(traced(), lines{"Entry: <-- SetFaxMergeData: #PHONE 111##PHONE 222#"} +
                            pair_lines("PHONE", "111") + pair_lines("PHONE", "222") +
                            lines{"Exit: --> SetFaxMergeData: rc = 0"});

    ASSERT_EQ(store(driver_block(80, 100)), 0);
    EXPECT_EQ(traced(), (lines{"Entry: <-- StoreFaxPage(): Size of Bitmap: 1008 Page Index: 0",
                               "Info1: StoreFaxPage(): Faxid of created document: " + document(),
                               "Info1: StoreFaxPage(): Width: 80 Height 100",
                               "Entry: <-- MergeBackPaper(): selected paper source (pool document "
                               "id): 0",
                               "Exit: --> MergeBackPaper(): no pool document is defined for "
                               "background paper number 0",
                               "Entry: <-- RotateBitmap:",
                               "Exit: --> RotateBitmap(): Bitmap must not be rotated",
                               "Exit: --> StoreFaxPage():"}));

    const std::string id = document();
    ASSERT_EQ(SendFaxDoc(), 0);
    EXPECT_EQ(
        traced(),
        (lines{"Entry: <-- SendFaxDoc():", "Info1: SendFaxDoc(): Faxid -> " + id,
               "Info1: SendFaxDoc(): Userid -> zerdix", "Info1: SendFaxDoc(): Priorit\xe4t -> 0",
               "Info1: SendFaxDoc(): Status -> 0", "Info1: SendFaxDoc(): Seiten -> 1",
               "Info1: SendFaxDoc(): Kommentar -> Angebot", "Info1: SendFaxDoc(): Nachttarif -> 0",
               "Info1: SendFaxDoc(): Error-Status -> 0",
               "Info1: SendFaxDoc(): Wiederholungen (max.) -> 0",
               "Info1: SendFaxDoc(): Wiederholungen (tats.) -> 0",
               "Info1: SendFaxDoc(): Empf\xe4nger-TSI ->",
               "Info1: SendFaxDoc(): Netztyp (1=FAX/2=TELEX) -> 1",
               "Info1: SendFaxDoc(): Aufl\xf6sung (0=as is/1=fine/2=normal) -> 0",
               "Info1: SendFaxDoc(): Number of receivers: 2", "Info1: SendFaxDoc(): Receiver: 222",
               "Info1: SendFaxDoc(): Receiver: 111",
               "Info1: SendFaxDoc(): Delete temporary fax doc: " + id, "Exit: --> SendFaxDoc()"}));

    EXPECT_EQ(SendFaxDoc(), 0);
    EXPECT_EQ(traced(),
              (lines{"Entry: <-- SendFaxDoc():", "Exit: --> SendFaxDoc(): no initialisation"}));
}

TEST_F(JobTrace, EveryKeyOfMergeData) {
    ASSERT_EQ(TransmissionDlg(nullptr, "Angebot", 1), 0);
    traced();
    EXPECT_EQ(
        merge("#PAPER 3##PRIORITY 50##RESOLUTION FINE##RESOLUTION NORMAL##RETRIES 4##SENDTIME "
              "NOW##TITLE B\xfcro##PAPER##XYZ#"),
        0);
    EXPECT_EQ(
        traced(),
        (lines{"Entry: <-- SetFaxMergeData: #PAPER 3##PRIORITY 50##RESOLUTION FINE##RESOLUTION "
               "NORMAL##RETRIES 4##SENDTIME NOW##TITLE B\xfcro##PAPER##XYZ#"} +
         pair_lines("PAPER", "3") + lines{"Info1: SetFaxMergeData: Paper source - <3>"} +
         pair_lines("PRIORITY", "50") + lines{"Info1: SetFaxMergeData: Priority - <50>"} +
         pair_lines("RESOLUTION", "FINE") + lines{"Info1: SetFaxMergeData: Resolution - fine"} +
         pair_lines("RESOLUTION", "NORMAL") + lines{"Info1: SetFaxMergeData: Resolution - normal"} +
         pair_lines("RETRIES", "4") + lines{"Info1: SetFaxMergeData: Retries - <4>"} +
         pair_lines("SENDTIME", "NOW") + lines{"Info1: SetFaxMergeData: send time - <NOW>"} +
         pair_lines("TITLE", "B\xfcro") + lines{"Info1: SetFaxMergeData: comment - <B\xfcro>"} +
         pair_lines("PAPER", "") +
         lines{"Entry: <-- ExtractKeyAndValue",
               "Exit: --> ExtractKeyAndValue: No valid key/value pair found",
               "Exit: --> SetFaxMergeData: rc = 0"}));

    add_team(server.store(), {{{"common"}, {"a"}, {}, {}, {}, {}, NETTYPE_FAX},
                              {{"common"}, {"b"}, {}, {}, {}, {}, NETTYPE_TELEX}});
    EXPECT_EQ(merge("#RECEIVERGROUP team##RECEIVERGROUP nobody#"), 0);
    EXPECT_EQ(traced(),
              (lines{"Entry: <-- SetFaxMergeData: #RECEIVERGROUP team##RECEIVERGROUP nobody#"} +
               pair_lines("RECEIVERGROUP", "team") +
               lines{"Info1: SetFaxMergeData: receiver group - <team>",
                     "Info1: SetFaxMergeData: Receiver: common:a",
                     "Error: SetFaxMergeData: telebook book entry is not fax receiver"} +
               pair_lines("RECEIVERGROUP", "nobody") +
               lines{"Info1: SetFaxMergeData: receiver group - <nobody>",
                     "Error: SetFaxMergeData: : group <nobody> doesn't exist on the server",
                     "Exit: --> SetFaxMergeData: rc = 0"}));
    server.fail(64);
    EXPECT_EQ(merge("#RECEIVERGROUP team##LAST_DOCPAGE#"), 8);
    EXPECT_THAT(traced(),
                IsSupersetOf({"Error: SetFaxMergeData: (getTGroup) Problems with RPC connection",
                              "Exit: --> SetFaxMergeData: rc = 8"}));
    server.fail(93);
    EXPECT_EQ(merge("#RECEIVERGROUP team#"), 8);
    EXPECT_THAT(traced(), IsSupersetOf({"Error: SetFaxMergeData: (getTGroupEntries) Problems with "
                                        "RPC connection"}));
}

TEST_F(JobTrace, ADialogCancelledAndAJobGivenUp) {
    sendfax::install_send_dialog([](void*) {
        SendFaxDoc();
        return send_dialog_cancelled;
    });
    open_job_with_pages("");
    const std::string id = document();
    traced();
    server.refuse(6);
    EXPECT_EQ(SendFaxDoc(), 4);
    const lines ended = traced();
    EXPECT_EQ(
        lines(ended.begin() + 14, ended.end()),
        (lines{"Entry: <-- CallSendDialog()",
               "Entry: <-- SendFaxDoc():", "Exit: --> SendFaxDoc(): function already active",
               "Exit: --> CallSendDialog: RC from CDialogSendSelect: 2302",
               "Exit: --> CallSendDialog(): Rc = 4", "Warn: SendFaxDoc(): SendDialog cancelled",
               "Info1: SendFaxDoc(): Delete temporary fax doc: " + id,
               "Error: SendFaxDoc(): Problems with deleting document", "Exit: --> SendFaxDoc()"}));

    ASSERT_EQ(TransmissionDlg(nullptr, "Angebot", 1), 0);
    traced();
    EXPECT_EQ(DeleteFaxDoc(), 0);
    EXPECT_EQ(traced(), (lines{"Entry: <-- DeleteFaxDoc() -  Faxid: 2147483647",
                               "Exit: --> -> DeleteFaxDoc(): OK"}));
    ASSERT_EQ(TransmissionDlg(nullptr, "Angebot", 1), 0);
    traced();
    EXPECT_EQ(SendFaxDoc(), 0);
    EXPECT_EQ(traced().back(), "Exit: --> SendFaxDoc(): for an empty page we make no action");
}

TEST_F(JobTrace, APoolDocumentForAnotherUser) {
    pick_desk("meier");
    open_job_with_pages("");
    const std::string id = document();
    traced();
    server.refuse(42);
    EXPECT_EQ(SendFaxDoc(), 0);
    const lines moved = traced();
    EXPECT_EQ(
        lines(moved.begin() + 17, moved.end()),
        (lines{"Info1: SendFaxDoc(): Selected Userid: <meier>",
               "Info1: SendFaxDoc(): Delete temporary fax doc: " + id,
               "Info1: SendFaxDoc(): Creation of a new pool document for meier on  is requested",
               "Warn: SendFaxDoc(): Problems with setting bif flag", "Exit: --> SendFaxDoc()"}));
}

TEST_F(JobTrace, ATelexJob) {
    ASSERT_EQ(TransmissionDlg(nullptr, "Hello", 0), 0);
    ASSERT_EQ(merge("#PHONE 12345#"), 0);
    traced();
    EXPECT_EQ(SendTelex("HELLO", 5), 0);
    lines printed = traced();
    ASSERT_GT(printed.size(), 1u);
    EXPECT_TRUE(printed[1].starts_with("Info1: SendTelex(): Faxid of created document: "));
    printed.erase(printed.begin() + 1);
    EXPECT_EQ(
        printed,
        (lines{"Entry: <-- SendTelex(): Telex text (size: 5): HELLO",
               "Info1: SendTelex(): lPDCountReceiver: 1", "Info1: SendTelex(): Receiver: <12345>",
               "Info1: SendTelex(): Controlrecord: #TELEX##USER zerdix##ALPHAHOST 127.0.0.1"
               "##TITLE Hello##PHONE 12345##SENDTIME  0##RETRIES 0#",
               "Info1: SendTelex(): Document will be printed", "Exit: --> SendTelex(): OK"}));

    for (const auto& [procedure, line] : {std::pair{3, "Problems with RPC connection"},
                                          {60, "Problems with RPC connection"},
                                          {53, "Document could not be printed"},
                                          {6, "Problems with RPC connection"}}) {
        ASSERT_EQ(TransmissionDlg(nullptr, "Hello", 0), 0);
        ASSERT_EQ(merge("#PHONE 12345#"), 0);
        traced();
        server.refuse(procedure);
        EXPECT_EQ(SendTelex("HELLO", 5), 8);
        EXPECT_THAT(traced(), IsSupersetOf({"Error: SendTelex(): " + std::string{line}}));
        EXPECT_NE(pzerdix, nullptr) << "the job stays open";
        sendfax::close_job();
    }

    sendfax::install_send_dialog([](void*) { return send_dialog_cancelled; });
    ASSERT_EQ(TransmissionDlg(nullptr, "Hello", 0), 0);
    EXPECT_EQ(SendTelex("HELLO", 5), 4);
    EXPECT_THAT(traced(), IsSupersetOf({"Warn: SendTelex(): SendDialog cancelled"}));
}

} // namespace
} // namespace zerdix::testing
