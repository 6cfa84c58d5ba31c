// SPDX-License-Identifier: MIT
// What is told of a job afterwards: it must agree with what the server holds.

#include <map>

#include <zerdix/messages.h>
#include <zerdix/outcome.h>

#include "sendfax/job_fixture.h"

namespace zerdix::testing {
namespace {

using namespace ::testing;

enum procedure {
    create_document = 3,
    delete_document = 6,
    send_document = 25,
    print_document = 53
};

using deliveries = std::vector<std::pair<std::string, int>>;

deliveries told() {
    deliveries all;
    const zx_outcome& outcome = *LastJobOutcome();
    for (std::int32_t i = 0; i < outcome.receiver_count; ++i)
        all.emplace_back(outcome.receivers[i].receiver, outcome.receivers[i].delivery);
    return all;
}

std::vector<std::int32_t> left() {
    const zx_outcome& outcome = *LastJobOutcome();
    return {outcome.left, outcome.left + outcome.left_count};
}

class JobOutcome : public PrintJob {
  protected:
    // Three receivers; those at the end go out first.
    void open_for_three() {
        open_job_with_pages("#PHONE 111##PHONE 222##PHONE 333#");
        document = pa_s_rec->faxid;
    }

    std::int32_t document = 0;
};

TEST_F(JobOutcome, NamesTheOutgoingDocumentOfEachReceiver) {
    open_for_three();
    ASSERT_EQ(SendFaxDoc(), 0);
    EXPECT_EQ(
        told(),
        (deliveries{{"111", ZX_HANDED_OVER}, {"222", ZX_HANDED_OVER}, {"333", ZX_HANDED_OVER}}));
    std::map<std::string, std::int32_t> held;
    for (const auto& job : server.jobs())
        held[job.receiver] = job.record.faxid;
    const zx_outcome& outcome = *LastJobOutcome();
    for (std::int32_t i = 0; i < outcome.receiver_count; ++i) {
        EXPECT_EQ(outcome.receivers[i].outgoing, held[outcome.receivers[i].receiver]);
        EXPECT_EQ(outcome.receivers[i].document, document);
    }
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.step, ZX_STEP_NONE);
    EXPECT_THAT(left(), IsEmpty());
}

TEST_F(JobOutcome, ALostReplyIsUnknownAndTheRestIsntTried) {
    open_for_three();
    server.drop(send_document, 2);
    ASSERT_EQ(SendFaxDoc(), 8);
    EXPECT_EQ(told(),
              (deliveries{{"111", ZX_NOT_TRIED}, {"222", ZX_UNKNOWN}, {"333", ZX_HANDED_OVER}}));
    const zx_outcome& outcome = *LastJobOutcome();
    EXPECT_EQ(outcome.step, ZX_STEP_SEND);
    EXPECT_EQ(outcome.answer, 8);
    EXPECT_EQ(outcome.rpc_status, 4) << "the connection broke while the reply was awaited";
    EXPECT_THAT(left(), ElementsAre(document));
    EXPECT_THAT(OutcomeText(&outcome),
                AllOf(HasSubstr("1 von 3"), HasSubstr("222"), HasSubstr(std::to_string(document))));
}

TEST_F(JobOutcome, ARefusalIsCertain) {
    open_for_three();
    server.refuse(send_document, 3);
    ASSERT_EQ(SendFaxDoc(), 8);
    EXPECT_EQ(told(),
              (deliveries{{"111", ZX_REFUSED}, {"222", ZX_HANDED_OVER}, {"333", ZX_HANDED_OVER}}));
    EXPECT_EQ(LastJobOutcome()->answer, 4);
    EXPECT_EQ(LastJobOutcome()->rpc_status, 0);
}

TEST_F(JobOutcome, ADocumentWhoseDeletionFailedIsLeftAlthoughAllWereServed) {
    open_for_three();
    server.drop(delete_document);
    ASSERT_EQ(SendFaxDoc(), 8);
    EXPECT_THAT(told(), Each(Pair(_, +ZX_HANDED_OVER)));
    EXPECT_EQ(LastJobOutcome()->step, ZX_STEP_DELETE);
    EXPECT_THAT(left(), ElementsAre(document));
}

TEST_F(JobOutcome, AFailingPageIsToldWhileTheJobIsOpen) {
    open_job();
    EXPECT_EQ(LastJobOutcome()->result, -1);
    server.fail(create_document);
    EXPECT_EQ(store_page(), 8);
    EXPECT_EQ(store_page(), 8) << "nor can a second one be stored; the first fault is told";
    EXPECT_EQ(LastJobOutcome()->result, 8);
    EXPECT_EQ(LastJobOutcome()->step, ZX_STEP_CREATE);
    EXPECT_EQ(LastJobOutcome()->answer, 8);
}

TEST_F(JobOutcome, StaysUntilTheNextJobBegins) {
    open_for_three();
    server.refuse(send_document);
    ASSERT_EQ(SendFaxDoc(), 8);
    EXPECT_EQ(SendFaxDoc(), 0) << "there is no job";
    EXPECT_EQ(LastJobOutcome()->result, 8);
    ASSERT_EQ(merge("#FAX 1#"), 0);
    EXPECT_EQ(LastJobOutcome()->result, -1);
    open_job();
    EXPECT_EQ(LastJobOutcome()->remark_count, 1) << "merge data ahead of a job belongs to it";
}

TEST_F(JobOutcome, ATelexIsToldReceiverByReceiver) {
    open_job("#PHONE 1##PHONE 2##PHONE 3##PHONE 4#", false);
    server.drop(print_document, 3);
    ASSERT_EQ(SendTelex("text", 4), 8);
    EXPECT_EQ(
        told(),
        (deliveries{
            {"1", ZX_HANDED_OVER}, {"2", ZX_HANDED_OVER}, {"3", ZX_UNKNOWN}, {"4", ZX_NOT_TRIED}}));
    EXPECT_THAT(left(), ElementsAre(pa_s_rec->faxid));
}

TEST_F(JobOutcome, TellsWhatOfTheMergeDataWasntTaken) {
    open_job("#FAX 1##SENDTIME 25:00##PRIORITY 101##RETRIES 65545##PAPER x##RESOLUTION fine#"
             "#PHONE 1234567890123456789012345678901##RECEIVERGROUP none##PHONE 5#");
    std::vector<std::pair<int, std::string>> remarks;
    const zx_outcome& outcome = *LastJobOutcome();
    for (std::int32_t i = 0; i < outcome.remark_count; ++i)
        remarks.emplace_back(outcome.remarks[i].kind, outcome.remarks[i].key);
    EXPECT_THAT(
        remarks,
        ElementsAre(Pair(ZX_REMARK_UNKNOWN_KEY, "FAX 1"), Pair(ZX_REMARK_BAD_TIME, "SENDTIME"),
                    Pair(ZX_REMARK_BAD_VALUE, "PRIORITY"), Pair(ZX_REMARK_CUT, "RETRIES"),
                    Pair(ZX_REMARK_NO_NUMBER, "PAPER"), Pair(ZX_REMARK_BAD_VALUE, "RESOLUTION"),
                    Pair(ZX_REMARK_CUT, "PHONE"), Pair(ZX_REMARK_NO_GROUP, "RECEIVERGROUP")));
    EXPECT_THAT(RemarkText(&outcome.remarks[1]), HasSubstr("25:00"));
}

TEST_F(JobOutcome, TheSendRecordCanBeReadFromC) {
    open_job("#PRIORITY 50##RETRIES 3##SENDTIME DELAYED##RESOLUTION FINE#");
    zx_job_settings settings;
    ReadJobSettings(&settings);
    EXPECT_STREQ(settings.title, "Angebot");
    EXPECT_STREQ(settings.receiver, "");
    EXPECT_EQ(settings.priority, 16384);
    EXPECT_EQ(settings.retries, 3);
    EXPECT_EQ(settings.night_tariff, 1);
    EXPECT_EQ(settings.net_type, 1);
    EXPECT_EQ(settings.resolution, 1);
}

TEST_F(JobOutcome, AHostTakesTheMessages) {
    std::vector<std::string> taken;
    SetMessageHandler(
        [](void* context, const char* text, const char*) {
            static_cast<std::vector<std::string>*>(context)->emplace_back(text);
        },
        &taken);
    open_job();
    EXPECT_EQ(TransmissionDlg(nullptr, "Angebot", 1), 4);
    SetMessageHandler(nullptr, nullptr);
    EXPECT_EQ(TransmissionDlg(nullptr, "Angebot", 1), 4);
    EXPECT_THAT(taken, ElementsAre("Another FAX print job is still active"));
}

} // namespace
} // namespace zerdix::testing
