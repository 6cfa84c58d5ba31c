// SPDX-License-Identifier: MIT
// The send dialog for print jobs: what it shows, what it refuses, and what the server holds
// afterwards.

#include "dialogs/send_dialog_fixture.h"
#include "dialogs/send_select.h"

namespace zerdix::testing {
namespace {

using namespace ::testing;
using texts = std::vector<std::string>;

step checks(std::vector<std::int32_t> expected) {
    return [expected](dialog_view& shown) {
        for (const auto& one : shown.controls())
            EXPECT_EQ(one.checked, std::count(expected.begin(), expected.end(), one.id()))
                << one.id();
    };
}

// The mark on the field for a typed recipient, and the line beneath it.
step note_shows(bool expected) {
    return [expected](dialog_view& shown) {
        SCOPED_TRACE(text_in(shown, 2327));
        shows({2385}, expected)(shown);
        EXPECT_EQ(shown.find(2327)->mark, expected ? shown.find(2385)->caption : "");
    };
}

TEST_F(SendDialog, OpensForAFaxAndForATelexWithoutFetchingAList) {
    const steps both{
        shows({2310, 2331, 2304, 2305, 2329, 2330, 2320}, false), enables({2303, 2322}, false),
        reads(2317, "Angebot"), reads(2319, "9"), [this](dialog_view& shown) {
            EXPECT_TRUE(shown.find(2348)->read_only);
            EXPECT_THAT(user.log,
                        IsSupersetOf({"2300 centered", "2300 topmost", "2300 focus 2327"}));
            EXPECT_THAT(server.calls(), AnyOf(IsEmpty(), ElementsAre(74)));
        }};
    EXPECT_EQ(send_fax(both + steps{checks({2307, 2313, 2325}), shows({2321, 2325}),
                                    shows({2328}, false), enables({2350}), click(2302)}),
              4);
    EXPECT_EQ(server.calls().back(), 6) << "a cancelled document is deleted";
    EXPECT_EQ(send_telex(both + steps{checks({2307, 2313, 2328}), shows({2325}, false),
                                      enables({2350}, false), closes()}),
              4);
    EXPECT_THAT(user.messages, IsEmpty());
}

// Refused again and again, with everything kept, until at last the input is good.
TEST_F(SendDialog, OkChecksTheInputInOrderAndReplacesTheRecord) {
    const auto refused = [this](std::int32_t number) {
        return [this, number](dialog_view& shown) {
            EXPECT_THAT(user.messages, ElementsAre(told(number)));
            user.messages.clear();
            EXPECT_FALSE(shown.has_ended());
            EXPECT_EQ(user.open(9599), nullptr) << "the wait dialog";
        };
    };
    const auto ok_is_refused = [&](std::int32_t number) {
        return steps{click(2301), refused(number)};
    };
    open_job_with_pages("#TITLE 123456789 123456789 1234567890#");
    pa_s_rec->s_aux1 = 77;
    user.script(form, steps{[](dialog_view& shown) { EXPECT_EQ(text_in(shown, 2317).size(), 30u); },
                            click(2333), refused(1268)} +
                          ok_is_refused(1267) +
                          steps{type(2327, "0301234"), type(2332, "31.12.37")} +
                          ok_is_refused(1265) + steps{type(2311, "25:00")} + ok_is_refused(1265) +
                          steps{type(2311, "20:15"), type(2319, "0")} + ok_is_refused(1280) +
                          steps{type(2319, "")} + ok_is_refused(1280) +
                          steps{reads(2348, "0301234 "), reads(2327, "0301234"), note_shows(false),
                                type(2327, "0301235"), note_shows(true), type(2319, "37"),
                                click(2308), click(2315), click(2350), click(2301),
                                [](dialog_view&) { ADD_FAILURE() << "accepted"; }});
    EXPECT_EQ(sendfax::run_send_dialog(), 0);
    EXPECT_THAT(user.log, Contains("9599 destroyed").Times(6));
    const a_s_rec& record = *pa_s_rec;
    EXPECT_EQ(record.comment, "123456789 123456789 123456789") << "29 of its 30 characters";
    EXPECT_EQ(fCoverpage, 1);
    EXPECT_TRUE(record.nighttariff);
    EXPECT_EQ(record.nettype, NETTYPE_FAX);
    EXPECT_EQ(record.resolution, 1);
    EXPECT_EQ(record.maxretries, 3);
    EXPECT_EQ(record.priority, 16384) << "half of 32767, rounded";
    EXPECT_EQ(record.sendtime, 2145899700) << "20:15 in Berlin";
    EXPECT_EQ(record.s_aux1, 0);
    EXPECT_TRUE(record.userid.empty());
    EXPECT_EQ(lPDCountReceiver, 1);
    EXPECT_STREQ(ppReceiver[0], "0301234");
}

TEST_F(SendDialog, ReceiversAreTypedPickedAndOfGroups) {
    // Entries of "common" for faxes: baecker, buchhalt, druckerei, empfang, ...
    const steps pick{click(2333), click(2324), double_click(2331, 2), click(2326),
                     double_click(2304, 1)};
    const steps forget{click(2347), reads(2348, ""), note_shows(false)};
    const auto typed = [](const char* recipient, bool marked) {
        return steps{type(2327, recipient), note_shows(marked)};
    };
    EXPECT_EQ(send_fax(typed("111", false) + pick +
                       steps{note_shows(false), reads(2348, "111 common:druckerei kunden "),
                             reads(2327, "")} +
                       typed("kunden", true) + typed("common:druckerei", false) +
                       typed("222", true) + forget + steps{click(2333), double_click(2304, 1)} +
                       typed("333", true) + steps{click(2350), click(2350), click(2301)}),
              0);
    EXPECT_THAT(receivers(), ElementsAre("private:kunde2", "private:kunde1", "common:spedition",
                                         "common:druckerei", "222"))
        << "the last one first, and what was typed behind the picks doesn't count";
    EXPECT_THAT(server.desk("zerdix"), IsEmpty());

    // Without a pick the selected row is taken, and a telex job takes the telex members alone.
    EXPECT_EQ(send_fax({click(2324), select(2331, 1), click(2301)}), 0);
    EXPECT_EQ(receivers().back(), "common:buchhalt");
    const step priority_unknown = [this](dialog_view&) { server.fail(30); };
    EXPECT_EQ(send_telex({click(2324), lists(2331, ElementsAre("Telex"), 5), click(2326),
                          select(2304, 0), priority_unknown, click(2301)}),
              0);
    EXPECT_THAT(user.messages, ElementsAre(told(1203)));
    EXPECT_EQ(receivers().back(), "common:hansen");
    EXPECT_THAT(receivers(), SizeIs(7));
    EXPECT_EQ(user.left_over(), 0u);
}

TEST_F(SendDialog, AGroupThatCantBeReadIsToldAndTheOthersGoOn) {
    const auto trouble = [this](dialog_view&) {
        server.fail(64);    // the first group
        server.fail(93);    // the members of the second
        server.fail(82, 2); // one member of the third
    };
    EXPECT_EQ(send_fax({click(2326), double_click(2304, 1), double_click(2304, 1),
                        double_click(2304, 1), trouble, click(2301)}),
              0);
    EXPECT_EQ(user.messages, (texts{told(1458), told(1295)}));
    EXPECT_THAT(receivers(), ElementsAre("private:kunde2", "private:kunde1", "common:druckerei"));
}

// Each way the user gets through the dialog, and the document stays. Of the jobs, those before the
// loss are out.
TEST_F(SendDialog, AConnectionThatIsLostFailsTheJobAndKeepsTheDocument) {
    const struct {
        int procedure, nth;
        std::size_t messages, sent;
    } losses[] = {{79, 1, 2, 0}, {83, 1, 2, 0}, {104, 1, 1, 0}, {64, 1, 1, 0},
                  {93, 1, 1, 0}, {82, 2, 0, 0}, {25, 1, 0, 0},  {25, 3, 0, 2}};
    for (const auto& loss : losses) {
        SCOPED_TRACE(loss.procedure);
        const std::size_t jobs = server.jobs().size(), desk = server.desk("zerdix").size();
        user.messages.clear();
        server.drop(loss.procedure, loss.nth);
        EXPECT_EQ(send_fax({click(2324), click(2326), double_click(2304, 1), type(2327, "5"),
                            click(2333), click(2301)}),
                  8);
        EXPECT_EQ(user.messages, texts(loss.messages, told(1293)));
        EXPECT_EQ(server.jobs().size() - jobs, loss.sent);
        EXPECT_EQ(server.desk("zerdix").size() - desk, 1u);
        EXPECT_EQ(pzerdix, nullptr);
    }
}

TEST_F(SendDialog, MoreThanAThousandReceiversGrowTheArray) {
    for (const std::int32_t count : {1000, 1001}) {
        open_job_with_pages("");
        const char* first = nullptr;
        steps done{[&first](dialog_view&) { first = ppReceiver[0]; }};
        for (std::int32_t i = 0; i < count; ++i)
            done = std::move(done) + steps{type(2327, std::to_string(i)), click(2333)};
        user.script(form, std::move(done) + steps{click(2301)});
        ASSERT_EQ(sendfax::run_send_dialog(), 0);
        EXPECT_EQ(lPDCountReceiver, count);
        EXPECT_EQ(sendfax::job().receiver_room, count);
        EXPECT_EQ(ppReceiver[0], first) << "the block that the caller made";
        EXPECT_EQ(ppReceiver[count - 1], std::to_string(count - 1));
        ASSERT_EQ(DeleteFaxDoc(), 0);
    }
}

TEST_F(SendDialog, ADocumentIsLaidOnADesk) {
    const auto desk_size = [this](const char* whose) { return server.desk(whose).size(); };
    const std::size_t meiers = desk_size("meier");
    user.script(2450, {click(2452)});
    EXPECT_EQ(send_fax({click(2321),
                        [](dialog_view&) {
                            EXPECT_EQ(lPDCountReceiver, 1);
                            EXPECT_STREQ(ppReceiver[0], " ");
                        },
                        type(2327, "5"), click(2333), click(2301)}),
              0);
    EXPECT_THAT(receivers(), ElementsAre("5")) << "OK replaces the blank receiver";
    for (const std::int32_t row : {0, 1}) {
        user.script(2450, {select(2453, row), click(2451)});
        EXPECT_EQ(send_fax({type(2317, "Umlauf"), click(2321)}), 0);
    }
    EXPECT_EQ(desk_size("zerdix"), 1u) << "its own stays where it is";
    EXPECT_EQ(desk_size("meier"), meiers + 1);
    EXPECT_TRUE(server.desk("meier").back().bif);
    EXPECT_THAT(receivers(), SizeIs(1));
    EXPECT_EQ(userid[0], '\0');
}

// A foreign message loop may let the driver call while the dialog runs.
TEST_F(SendDialog, NothingEndsAJobWhileItsDialogRuns) {
    const auto call_all = [](dialog_view&) {
        EXPECT_EQ(DeleteFaxDoc(), 8);
        EXPECT_EQ(SendFaxDoc(), 0);
        EXPECT_EQ(SendTelex("x", 1), 8);
        EXPECT_EQ(TransmissionDlg(nullptr, "", 1), 4);
        EXPECT_EQ(merge("#PHONE 999##PHONE 998#"), 0);
    };
    EXPECT_EQ(send_fax({call_all, type(2327, "5"), click(2301)}), 0);
    EXPECT_THAT(receivers(), ElementsAre("5")) << "the user's choice counts";
    EXPECT_EQ(send_telex({call_all, click(2302)}), 4);
    EXPECT_EQ(pzerdix, nullptr);
}

TEST_F(SendDialog, ADialogThatCantRunIsAFailure) {
    user.cannot_create = {form};
    EXPECT_EQ(send_fax({}), 8);
    EXPECT_THAT(server.desk("zerdix"), SizeIs(1));
    user.cannot_create.clear();
    user.quitting = true;
    EXPECT_EQ(send_fax({}), 8);
    user.quitting = false;

    forms::window_handle none = nullptr;
    a_s_rec record{};
    std::int32_t cover = 0;
    dialogs::CDialogSendSelect without_receivers(none, &record, nullptr, &cover);
    EXPECT_THAT(user.messages, Contains("Invalid Pointer"));
    EXPECT_EQ(without_receivers.DoModal(), -1);
}

} // namespace
} // namespace zerdix::testing
