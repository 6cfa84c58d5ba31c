// SPDX-License-Identifier: MIT
// Jobs with cover pages: which calls are made, which lines are traced, and what the server holds
// after each kind of end.

#include <algorithm>

#include "cover/template_document.h"
#include "platform/scratch.h"
#include "sendfax/failing_malloc.h"
#include "sendfax/job_fixture.h"

namespace zerdix::testing {
namespace {

using namespace ::testing;
using calls = std::vector<int>;

calls operator+(calls all, const calls& more) {
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

const calls first_cover{74, 59, 59, 38, 59, 59, 35};
const calls next_cover{59, 59, 38, 59, 59};
const calls copied{3, 23, 22, 5};
const calls sent{60, 22, 25, 22, 6};

// 400 wide, so that the documents' own pages of 80 are told from cover pages.
class CoverJob : public JobTrace {
  protected:
    CoverJob() { install_template(server, page_of(400, 500), "#DRUCK#\nsetfaxnr=10;10;\n"); }

    void open(std::string_view merge_data) {
        open_job_with_pages(merge_data);
        fCoverpage = 1;
        own = sendfax::job().lFaxid;
        traced();
    }

    bool has_cover_page(std::int32_t document) {
        const auto page = server.store().pages.picture({document, 1, 0});
        const auto rows = page ? *codec::expand({page->begin(), page->end()}) : codec::bytes{};
        return rows.size() == 8 + 50 * 500 && rows.back() == 0; // white
    }

    std::vector<std::int32_t> on_desk() {
        std::vector<std::int32_t> ids;
        for (const auto& each : server.desk("zerdix"))
            ids.push_back(each.id);
        return ids;
    }

    std::int32_t own = 0; // the job's document
    tests::recorded_boxes boxes;
};

TEST_F(CoverJob, EachReceiverGetsADocumentAndTheLastOneTheJobsOwn) {
    open("#PHONE 111##PHONE 222##PHONE 333#");
    ASSERT_EQ(SendFaxDoc(), 0);
    EXPECT_EQ(server.calls(),
              copied + first_cover + sent + copied + next_cover + sent + next_cover + sent);
    const auto jobs = server.jobs();
    ASSERT_THAT(jobs, SizeIs(3));
    const char* receivers[] = {"333", "222", "111"};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(jobs[i].receiver, receivers[i]);
        EXPECT_EQ(jobs[i].record.pages, 3);
        EXPECT_EQ(jobs[i].record.comment, "Angebot");
        EXPECT_EQ(jobs[i].desk == own, i == 2);
        EXPECT_TRUE(has_cover_page(jobs[i].record.faxid));
        EXPECT_EQ(server.store().pages.count(jobs[i].record.faxid), 3);
        const auto log = server.store().logs.all(jobs[i].record.faxid);
        EXPECT_THAT(log, Contains(HasSubstr("$ps.document_completed:")).Times(1));
        EXPECT_THAT(log,
                    Contains(HasSubstr("$ps.document_created: $f:=" + std::to_string(jobs[i].desk) +
                                       " $u:=zerdix $a:=127.0.0.1"))
                        .Times(1));
    }
    EXPECT_EQ(pa_s_rec->pages, 3);
    EXPECT_NE(jobs[0].desk, jobs[1].desk);
    EXPECT_THAT(on_desk(), IsEmpty());
    EXPECT_EQ(fCoverpage, 0);

    lines found = traced();
    found.erase(found.begin(), std::find(found.begin(), found.end(),
                                         "Info1: SendFaxDoc(): Number of receivers: 3"));
    lines passes{"Info1: SendFaxDoc(): Number of receivers: 3"};
    for (const auto& job : jobs) {
        passes.push_back("Info1: SendFaxDoc(): Receiver: " + job.receiver);
        passes.push_back("Info1: SendFaxDoc(): Inserting Cover page successfull");
        passes.push_back("Info1: SendFaxDoc(): Delete temporary fax doc: " +
                         std::to_string(job.desk));
    }
    passes.push_back("Exit: --> SendFaxDoc()");
    EXPECT_EQ(found, passes);

    // The next job asks for its user anew, but not for the template's id.
    open("#PHONE 1#");
    ASSERT_EQ(SendFaxDoc(), 0);
    EXPECT_EQ(server.calls(), (next_cover + calls{35} + sent));
}

// A job for two receivers on a server that goes wrong at one call.
struct cover_fault {
    int procedure;
    int nth;
    std::int32_t result;
    std::size_t jobs;
    bool own_stays;
    bool copy_stays;
    const char* line; // among those traced
};

TEST_F(CoverJob, EndsOnAServerThatRefuses) {
    const cover_fault faults[] = {
        {3, 1, 8, 0, true, false, "Error: SendFaxDoc(): (makedoc) Problems with RPC connection"},
        {23, 1, 0, 2, false, false, "Warn: SendFaxDoc(): Problems with setting comment"},
        {22, 1, 0, 2, false, false, "Warn: SendFaxDoc(): Problems with writing log entry"},
        {5, 1, 8, 0, true, true, "Error: SendFaxDoc(): (copydoc) Problems with RPC connection"},
        {38, 1, 0, 0, true, false, "Info1: SendFaxDoc(): Inserting Cover page failed"},
        {38, 2, 0, 1, false, false, "Info1: SendFaxDoc(): Inserting Cover page failed"},
        {60, 1, 8, 0, true, true, "Error: SendFaxDoc(): (putDocPage) Problems with RPC connection"},
        {25, 1, 8, 0, true, true, "Error: SendFaxDoc(): Problems with sending document"},
        {25, 2, 8, 1, true, false, "Error: SendFaxDoc(): Problems with sending document"},
        {6, 1, 8, 1, true, true, "Error: SendFaxDoc(): Problems with deleting document"},
        {6, 2, 8, 2, true, false, "Error: SendFaxDoc(): Problems with deleting document"},
    };
    for (const cover_fault& fault : faults) {
        SCOPED_TRACE(std::to_string(fault.procedure) + ", call " + std::to_string(fault.nth));
        const std::size_t jobs_before = server.jobs().size();
        const std::size_t desk_before = on_desk().size();
        open("#PHONE 111##PHONE 222#");
        server.refuse(fault.procedure, fault.nth);
        EXPECT_EQ(SendFaxDoc(), fault.result);
        EXPECT_EQ(server.jobs().size() - jobs_before, fault.jobs);
        const auto desk = on_desk();
        EXPECT_EQ(std::count(desk.begin(), desk.end(), own), fault.own_stays);
        EXPECT_EQ(desk.size() - desk_before, std::size_t{fault.own_stays} + fault.copy_stays);
        EXPECT_THAT(traced(), Contains(fault.line));
        EXPECT_EQ(pzerdix, nullptr);
        EXPECT_EQ(ppReceiver, nullptr);
    }
}

TEST_F(CoverJob, ACoverPageThatFailedIsTracedAndItsDocumentLogged) {
    server.set_config("COVER", "");
    open("#PHONE 111##PHONE 222#");
    ASSERT_EQ(SendFaxDoc(), 0);
    EXPECT_EQ(server.calls(), (copied + calls{74, 22, 6}));
    EXPECT_THAT(boxes.shown, ElementsAre(Pair("Kein Deckblatt eingestellt", "Benachrichtigung")));
    EXPECT_THAT(traced(), Contains("Info1: SendFaxDoc(): Inserting Cover page failed"));
    EXPECT_EQ(on_desk(), std::vector<std::int32_t>{own});

    open("#PHONE 111#");
    server.refuse(6);
    EXPECT_EQ(SendFaxDoc(), 8) << "nor can its document be deleted";
    EXPECT_THAT(error_log(), HasSubstr("SendFaxDoc(): Problems with deleting document"));
}

TEST_F(CoverJob, ACoverPageThatCantBeCompressedEndsTheJob) {
    open("#PHONE 111##PHONE 222#");
    const failing_malloc no_room_for_its_rows{8 + 50 * 500};
    EXPECT_EQ(SendFaxDoc(), 8);
    EXPECT_EQ(server.calls(), copied + first_cover);
    EXPECT_EQ(*(traced().end() - 2), "Error: SendFaxDoc(): Error ConvertLeadToCompressedFax()");
    EXPECT_THAT(server.jobs(), IsEmpty());
    EXPECT_EQ(on_desk(), (std::vector{own, pa_s_rec->faxid})) << "the copy stays, too";
    EXPECT_EQ(pzerdix, nullptr);
}

TEST_F(CoverJob, ADocumentForAnotherDeskGetsOneToo) {
    pick_desk("meier");
    open("");
    const std::size_t before = server.desk("meier").size();
    ASSERT_EQ(SendFaxDoc(), 0);
    EXPECT_EQ(server.calls(), (first_cover + calls{60, 3, 5, 42, 22, 22, 22, 6}));
    EXPECT_THAT(server.jobs(), IsEmpty());
    EXPECT_THAT(on_desk(), IsEmpty());
    const auto desk = server.desk("meier");
    ASSERT_EQ(desk.size(), before + 1);
    EXPECT_EQ(desk.back().pages, 3);
    EXPECT_TRUE(has_cover_page(desk.back().id));

    open("");
    server.refuse(38);
    EXPECT_EQ(SendFaxDoc(), 8) << "without a cover page there is nothing left to copy";
    EXPECT_THAT(on_desk(), IsEmpty());
    ASSERT_EQ(server.desk("meier").size(), before + 2);
    EXPECT_EQ(server.desk("meier").back().pages, 0);
}

} // namespace
} // namespace zerdix::testing
