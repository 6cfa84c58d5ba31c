// SPDX-License-Identifier: MIT
// The send dialog on documents that are on the desk already.

#include <zerdix/dialogs.h>
#include <zerdix/outcome.h>

#include "cover/template_document.h"
#include "dialogs/send_dialog_fixture.h"

namespace zerdix::testing {
namespace {

using namespace ::testing;

class StoredDocuments : public SendDialog {
  protected:
    StoredDocuments() {
        session.setUserId("zerdix");
        session.setAlphaserver("127.0.0.1");
        EXPECT_NE(session.GetClientAddr("127.0.0.1"), nullptr);
        fax = make(0, as_text(page_of(80, 100)));
        second = make(0, as_text(page_of(80, 100)));
        text = make(4, "hello");
    }
    ~StoredDocuments() override { session.CleanupHostConnection(); }

    std::int32_t make(std::int16_t type, const std::string& page) {
        const std::int32_t id = server.store().documents.create(TOPF_P, "zerdix");
        server.store().pages.put_block({id, 1, type}, 0, page);
        return id;
    }

    std::int32_t send(std::vector<std::int32_t>& ids, const steps& done) {
        ids.push_back(0);
        user.script(form, done);
        const std::int32_t ended = SendStoredDocuments(nullptr, &journal, ids.data(), comments);
        ids.pop_back();
        return ended;
    }
    std::int32_t send_one(std::int32_t id, const steps& done) {
        std::vector<std::int32_t> ids{id};
        return send(ids, done);
    }

    bool has_cover(std::int32_t document) {
        const auto page = server.store().pages.picture({document, 1, 0});
        return page && codec::expand({page->begin(), page->end()})->size() == 8 + 50 * 500;
    }

    char comments[4 * 31] = "first of the comments\0........\0second";
    ZERDIX session;
    JOURNAL journal;
    std::int32_t fax, second, text;
    steps three{type(2327, "111"), click(2333),       type(2327, "222"),
                click(2333),       type(2327, "333"), click(2333)};
};

TEST_F(StoredDocuments, EachGoesToEachReceiver) {
    std::memcpy(comments + 31, "second", 7);
    std::vector<std::int32_t> ids{fax, second};
    const step begin = [](dialog_view& shown) {
        EXPECT_TRUE(shown.find(2317)->read_only);
        EXPECT_TRUE(shown.find(2325)->checked);
    };
    EXPECT_EQ(
        send(ids, steps{reads(2317, told(1431)), begin, shows({2321}, false), shows({2325, 2328})} +
                      three + steps{click(2301)}),
        2301);
    const auto jobs = server.jobs();
    ASSERT_THAT(jobs, SizeIs(6));
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(jobs[i].receiver, std::string(3, static_cast<char>('1' + i % 3)));
        EXPECT_EQ(jobs[i].desk, i < 3 ? fax : second);
        EXPECT_EQ(jobs[i].record.comment, i < 3 ? "first of the comments" : "second");
        EXPECT_EQ(server.store().pages.count(jobs[i].record.faxid), 1);
    }
    EXPECT_EQ(ids, (std::vector{fax, second}));
    EXPECT_EQ(user.left_over(), 0u);
    EXPECT_EQ(send(ids, {click(2302)}), 2302);
    EXPECT_THAT(server.jobs(), SizeIs(6));
}

TEST_F(StoredDocuments, WhatCameOfEachReceiverIsTold) {
    server.drop(25, 2); // the reply to the second sendDoc
    ASSERT_EQ(send_one(fax, three + steps{click(2301)}), 2301);
    const zx_outcome& outcome = *LastStoredOutcome();
    ASSERT_EQ(outcome.receiver_count, 3);
    EXPECT_STREQ(outcome.receivers[0].receiver, "111");
    EXPECT_EQ(outcome.receivers[0].delivery, ZX_HANDED_OVER);
    EXPECT_EQ(outcome.receivers[0].document, fax);
    EXPECT_EQ(outcome.receivers[0].outgoing, server.jobs().at(0).record.faxid);
    EXPECT_EQ(outcome.receivers[1].delivery, ZX_UNKNOWN);
    EXPECT_EQ(outcome.receivers[2].delivery, ZX_NOT_TRIED);
    EXPECT_EQ(outcome.step, ZX_STEP_SEND);
    EXPECT_EQ(outcome.result, 2301);

    ASSERT_EQ(send_one(fax, {click(2302)}), 2302);
    EXPECT_EQ(LastStoredOutcome()->receiver_count, 0);
}

TEST_F(StoredDocuments, EachReceiverGetsOneCoverPageOfTheirOwn) {
    install_template(server, page_of(400, 500), "#DRUCK#\nsetfaxnr=10;10;\nsetusercomment=9;9;\n");
    a_user_rec* kept_record = session.getAUserRecord();
    std::vector<std::int32_t> ids{fax, second};
    EXPECT_EQ(send(ids, three + steps{click(2350), click(2301)}), 2301);
    const auto jobs = server.jobs();
    ASSERT_THAT(jobs, SizeIs(6));
    for (const auto& job : jobs) {
        EXPECT_EQ(server.store().pages.count(job.record.faxid), 2) << "cover and page";
        EXPECT_TRUE(has_cover(job.record.faxid));
    }
    EXPECT_EQ(ids, (std::vector{jobs[2].desk, jobs[5].desk})) << "the last ones made";
    EXPECT_THAT(server.desk("zerdix"), SizeIs(3 + 6));
    EXPECT_FALSE(has_cover(fax));
    EXPECT_EQ(ZERDIX::clsGetAUserRecord(), kept_record);
    EXPECT_EQ(kept_record->priority, 50) << "the client's own session stays as it is";
    EXPECT_NE(ZERDIX::clsGetClient(), nullptr);
}

struct cover_fault {
    int procedure;
    int nth;
    std::size_t jobs;
    std::size_t copies;
    std::vector<std::int32_t> messages;
};

// Each fault ends the receivers of the first document, and the second one goes on.
TEST_F(StoredDocuments, ACoverPageThatFailsEndsItsDocument) {
    install_template(server, page_of(400, 500), "");
    const cover_fault faults[] = {
        {3, 2, 4, 4, {1235}},  {5, 1, 3, 4, {1223}},  {38, 2, 4, 4, {1232, 1469}},
        {60, 1, 3, 4, {1242}}, {25, 1, 5, 6, {1242}}, {20, 1, 5, 6, {1242}},
    };
    for (const cover_fault& fault : faults) {
        SCOPED_TRACE(fault.procedure);
        const std::size_t jobs = server.jobs().size(), desk = server.desk("zerdix").size();
        user.messages.clear();
        server.fail(fault.procedure, fault.nth);
        std::vector<std::int32_t> ids{fax, second};
        EXPECT_EQ(send(ids, three + steps{click(2350), click(2301)}), 2301);
        EXPECT_EQ(server.jobs().size() - jobs, fault.jobs);
        EXPECT_EQ(server.desk("zerdix").size() - desk, fault.copies);
        std::vector<std::string> expected;
        for (const std::int32_t number : fault.messages)
            expected.push_back(told(number));
        EXPECT_EQ(user.messages, expected);
    }
}

TEST_F(StoredDocuments, WhatThereIsNothingOfIsCountedOnce) {
    std::vector<std::int32_t> ids{text, fax, text};
    EXPECT_EQ(send(ids, three + steps{click(2301)}), 2301);
    EXPECT_THAT(user.messages, ElementsAre(common::string_text_with(512, 6)));
    EXPECT_THAT(server.jobs(), SizeIs(3));

    user.messages.clear();
    EXPECT_EQ(send(ids, three + steps{click(2328), click(2350), click(2301)}), 2301);
    EXPECT_THAT(user.messages, ElementsAre(common::string_text_with(513, 3)));
    const auto jobs = server.jobs();
    ASSERT_THAT(jobs, SizeIs(3 + 6)) << "a telex has no cover page";
    EXPECT_EQ(jobs.back().record.nettype, NETTYPE_TELEX);
    EXPECT_EQ(jobs.back().record.maxretries, 9);
    const auto sent = server.store().pages.picture({jobs.back().record.faxid, 1, 4});
    ASSERT_TRUE(sent);
    EXPECT_EQ(*sent, "#TELEX##USER zerdix##ALPHAHOST 127.0.0.1##TITLE ##PHONE 333##SENDTIME  0"
                     "##RETRIES 9#\nhello");
    user.messages.clear();
    server.refuse(53);
    EXPECT_EQ(send_one(text, {type(2327, "1"), click(2328), click(2301)}), 2301);
    EXPECT_THAT(user.messages, ElementsAre(told(1242)));
}

// A telex entry that was picked behind a group: the group's members must not shift the pick's net
// type to another receiver, and it is that of the entry, whatever its row says of it.
TEST_F(StoredDocuments, TheNetTypeIsThatOfTheReceiversOwnPick) {
    const step called_fax = [](dialog_view& shown) {
        shown.find(2331)->list->rows[0][5] = told(1332);
    };
    const steps telex_behind_group{click(2326), double_click(2304, 1), click(2328), click(2324),
                                   called_fax,  double_click(2331, 0), click(2325), click(2301)};
    EXPECT_EQ(send_one(fax, telex_behind_group), 2301);
    EXPECT_THAT(receivers(), ElementsAre("common:druckerei", "common:spedition", "private:kunde1",
                                         "private:kunde2"));
    EXPECT_THAT(user.messages, ElementsAre(common::string_text_with(513, 1)));
    user.messages.clear();
    server.fail(82, 5); // the first member, when it is looked at again
    EXPECT_EQ(send_one(fax, {click(2326), double_click(2304, 1), click(2301)}), 2301);
    EXPECT_THAT(receivers(), SizeIs(7));
    EXPECT_THAT(user.messages, ElementsAre(common::string_text_with(513, 1)));
}

// "OK" once more, and "Reset", from a loop that runs while "OK" looks at the group's members.
TEST_F(StoredDocuments, OkRunsOnce) {
    server.clear_calls();
    bool meddled = false;
    user.at_remote_call = [&] {
        const auto calls = server.calls();
        if (meddled || std::count(calls.begin(), calls.end(), 93) == 0)
            return;
        meddled = true;
        user.open(form)->user_clicks(2301);
        user.open(form)->user_clicks(2347);
    };
    std::vector<std::int32_t> ids{fax, second};
    EXPECT_EQ(send(ids, three + steps{click(2326), double_click(2304, 1), click(2301)}), 2301);
    EXPECT_TRUE(meddled);
    EXPECT_THAT(server.jobs(), SizeIs(2 * 7));
    EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(StoredDocuments, NothingToSendOrNoWindowIsNoDialog) {
    std::int32_t none = 0, one[] = {fax, 0};
    EXPECT_EQ(SendStoredDocuments(nullptr, &journal, &none, comments), -1);
    EXPECT_EQ(SendStoredDocuments(nullptr, &journal, nullptr, comments), -1);
    EXPECT_EQ(SendStoredDocuments(nullptr, nullptr, one, comments), -1);
    user.cannot_create = {form};
    EXPECT_EQ(SendStoredDocuments(nullptr, &journal, one, nullptr), -1);
    user.cannot_create.clear();
    user.script(form, {reads(2317, ""), type(2317, "new"), type(2327, "1"), click(2301)});
    EXPECT_EQ(SendStoredDocuments(nullptr, &journal, one, nullptr), 2301);
    EXPECT_EQ(server.jobs().back().record.comment, "new");
}

} // namespace
} // namespace zerdix::testing
