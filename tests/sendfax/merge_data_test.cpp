// SPDX-License-Identifier: MIT
// Merge data: what is taken, what is passed over, and what it does to the job.

#include "sendfax/job_fixture.h"
#include "sendfax/merge_text.h"
#include "sendfax/receivers.h"

namespace zerdix::testing {
namespace {

using namespace ::testing;
using sendfax::ExtractKeyAndValue;

struct pair {
    std::int32_t key;
    std::string value;
    bool operator==(const pair&) const = default;
};

std::vector<pair> pairs_of(std::string_view text) {
    std::vector<pair> found;
    while (text.find('#') != std::string_view::npos) {
        std::int32_t key = -1;
        char value[31];
        const std::size_t before = text.size();
        if (ExtractKeyAndValue(text, key, value, sizeof value) == 0)
            found.push_back({key, value});
        EXPECT_LT(text.size(), before) << "the cursor always moves on";
    }
    return found;
}

TEST(MergeText, AcceptsPairsAnywhere) {
    using sendfax::key_phone, sendfax::key_title, sendfax::key_last_docpage;
    const std::pair<const char*, std::vector<pair>> accepts[] = {
        {"#PHONE 4930123456#", {{key_phone, "4930123456"}}},
        {"abc#PHONE   123#def", {{key_phone, "123"}}},
        {"#PHONE123#", {{key_phone, "123"}}},
        {"#PHONE 1##PHONE 2#", {{key_phone, "1"}, {key_phone, "2"}}},
        {"#PHONE#", {{key_phone, ""}}},
        {"#PHONE    #", {{key_phone, ""}}},
        {"#PHONE 12 34 #", {{key_phone, "12 34 "}}},
        {"#TITLES#", {{key_title, "S"}}},
        {"#LAST_DOCPAGE#", {{key_last_docpage, ""}}},
        {"#XYZ##PHONE 1#", {{key_phone, "1"}}},
        {"##PHONE 1#", {}}, // the empty pair takes the mark, and the rest is free text
        {"#PHONE \tx#", {{key_phone, "\tx"}}},
        {"#PHONE 1234567890123456789012345678901234567890#",
         {{key_phone, "123456789012345678901234567890"}}},
    };
    for (const auto& [text, expected] : accepts)
        EXPECT_EQ(pairs_of(text), expected) << text;
}

TEST(MergeText, PassesOverEverythingElse) {
    const char* rejects[] = {"",           "plain text",   "#",         "##",         "#PHONE 123",
                             "PHONE 123#", "#phone 123#",  "#Phone 1#", "# PHONE 1#", "#PHON#",
                             "#PHON E1#",  "#RECEIVER x#", "#SEND#",    "#8#"};
    for (const char* text : rejects)
        EXPECT_THAT(pairs_of(text), IsEmpty()) << text;
}

class MergeData : public JobTrace {
  protected:
    MergeData() {
        open_job();
        traced();
    }

    std::vector<std::string> receivers() const {
        return {ppReceiver, ppReceiver + lPDCountReceiver};
    }
};

TEST_F(MergeData, NumbersAreTakenWithinTheirRangeOnly) {
    const std::tuple<const char*, int, int> priorities[] = {
        {"100", 0, 32767}, {"50", 0, 16384}, {"0", 7, 0}, {"101", 7, 7},        {"-1", 7, 7},
        {"", 7, 7},        {"12x", 0, 3932}, {"x", 7, 0}, {"4294967346", 7, 7},
    };
    for (const auto& [value, before, after] : priorities) {
        pa_s_rec->priority = static_cast<std::int16_t>(before);
        EXPECT_EQ(merge(std::string{"#PRIORITY "} + value + '#'), 0);
        EXPECT_EQ(pa_s_rec->priority, after) << value;
    }
    const std::tuple<const char*, int, int> papers[] = {
        {"9", 0, 9}, {"10", 3, 3}, {"-1", 3, 3}, {"", 3, 3}, {"0", 3, 0}, {"4294967301", 3, 3}};
    for (const auto& [value, before, after] : papers) {
        sendfax::job().sPaperSource = static_cast<std::int16_t>(before);
        EXPECT_EQ(merge(std::string{"#PAPER "} + value + '#'), 0);
        EXPECT_EQ(sendfax::job().sPaperSource, after) << value;
    }
    for (const auto& [value, after] :
         {std::pair{"7", 7}, {"", 7}, {"65545", 9}, {"40000", -25536}, {"x", 0}}) {
        merge(std::string{"#RETRIES "} + value + '#');
        EXPECT_EQ(pa_s_rec->maxretries, after) << value << ": any range, 16 bits";
    }
}

TEST_F(MergeData, WordsAreComparedAsTheyStand) {
    merge("#RESOLUTION fine#");
    EXPECT_EQ(pa_s_rec->resolution, 0);
    merge("#RESOLUTION NORMAL#");
    EXPECT_EQ(pa_s_rec->resolution, 2);
    merge("#RESOLUTION FINEST#");
    EXPECT_EQ(pa_s_rec->resolution, 2);
    merge("#RESOLUTION FINE##TITLE A title of more than thirty characters#");
    EXPECT_EQ(pa_s_rec->resolution, 1);
    EXPECT_EQ(pa_s_rec->comment, "A title of more than thirty ch");
    merge("#TITLE#");
    EXPECT_TRUE(pa_s_rec->comment.empty());
}

TEST_F(MergeData, ASendTimeIsATimeOrATariff) {
    merge("#SENDTIME 31.12.30 20:15#");
    EXPECT_EQ(pa_s_rec->sendtime, 1924974900) << "in the server's zone, one hour ahead of UTC";
    merge("#SENDTIME DELAYED#");
    EXPECT_TRUE(pa_s_rec->nighttariff);
    EXPECT_EQ(pa_s_rec->sendtime, 1924974900);
    merge("#SENDTIME NOW#");
    EXPECT_FALSE(pa_s_rec->nighttariff);
    merge("#SENDTIME DELAYED##SENDTIME tomorrow#");
    EXPECT_EQ(pa_s_rec->sendtime, 0);
    EXPECT_TRUE(pa_s_rec->nighttariff);
}

TEST_F(MergeData, TheLastPageIsTold) {
    EXPECT_EQ(merge("#LAST_DOCPAGE#"), 4);
    EXPECT_EQ(merge("#LAST_DOCPAGE##PHONE 1#"), 4);
    EXPECT_THAT(receivers(), ElementsAre("1"));
    EXPECT_EQ(merge("#PHONE 2#"), 0);
    EXPECT_EQ(SetFaxMergeData("#PHONE 3#garbage", 9), 0) << "the length ends the text";
    EXPECT_EQ(SetFaxMergeData(nullptr, 10), 0);
    EXPECT_EQ(SetFaxMergeData("#PHONE 4#", -1), 0);
    EXPECT_THAT(receivers(), ElementsAre("1", "2", "3"));
}

TEST_F(MergeData, TheReceiverArrayGrowsByAThousand) {
    std::string text;
    for (int i = 0; i < 1001; ++i)
        text += "#PHONE " + std::to_string(i) + '#';
    EXPECT_EQ(merge(text), 0);
    ASSERT_EQ(lPDCountReceiver, 1001);
    EXPECT_STREQ(ppReceiver[0], "0");
    EXPECT_STREQ(ppReceiver[1000], "1000");
    EXPECT_EQ(sendfax::job().receiver_room, 2000);
}

TEST_F(MergeData, TheDialogsReceiversLeaveNoOldOneBehindThem) {
    EXPECT_EQ(merge("#PHONE 1##PHONE 2##PHONE 3#"), 0);
    ASSERT_TRUE(sendfax::replace_receivers({"4", "5"}));
    EXPECT_THAT(receivers(), ElementsAre("4", "5"));
    EXPECT_EQ(ppReceiver[2], nullptr);
    ASSERT_TRUE(sendfax::replace_receivers({}));
    EXPECT_THAT(receivers(), IsEmpty());
    EXPECT_EQ(ppReceiver[1], nullptr);
}

// Entry and exit of the reading of one pair of merge data, and what is told of it.
lines pair_lines(const std::string& key, const std::string& value, const lines& told = {}) {
    lines all{"Entry: <-- ExtractKeyAndValue",
              "Exit: --> ExtractKeyAndValue: Key: #" + key + "# Value: <" + value + ">"};
    for (const std::string& each : told)
        all.push_back("Info1: SetFaxMergeData: " + each);
    return all;
}

lines operator+(lines all, const lines& more) {
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

TEST_F(MergeData, EveryKeyIsTraced) {
    const std::string text = "#PAPER 3##PRIORITY 50##RESOLUTION FINE##RESOLUTION NORMAL##RETRIES "
                             "4##SENDTIME NOW##TITLE B\xfcro##PAPER##PHONE 111##XYZ#";
    EXPECT_EQ(merge(text), 0);
    EXPECT_EQ(traced(), (lines{"Entry: <-- SetFaxMergeData: " + text} +
                         pair_lines("PAPER", "3", {"Paper source - <3>"}) +
                         pair_lines("PRIORITY", "50", {"Priority - <50>"}) +
                         pair_lines("RESOLUTION", "FINE", {"Resolution - fine"}) +
                         pair_lines("RESOLUTION", "NORMAL", {"Resolution - normal"}) +
                         pair_lines("RETRIES", "4", {"Retries - <4>"}) +
                         pair_lines("SENDTIME", "NOW", {"send time - <NOW>"}) +
                         pair_lines("TITLE", "B\xfcro", {"comment - <B\xfcro>"}) +
                         pair_lines("PAPER", "") + pair_lines("PHONE", "111") +
                         lines{"Entry: <-- ExtractKeyAndValue",
                               "Exit: --> ExtractKeyAndValue: No valid key/value pair found",
                               "Exit: --> SetFaxMergeData: rc = 0"}));
}

class MergeGroup : public MergeData {
  protected:
    MergeGroup() {
        add_team(server.store(), {{{"common"}, {"a"}, {}, {}, {"123"}, {}, NETTYPE_FAX},
                                  {{"common"}, {"b"}, {}, {}, {"123"}, {}, NETTYPE_TELEX},
                                  {{"common"}, {"gone"}, {}, {}, {}, {}, 0},
                                  {{"private"}, {"c"}, {}, {}, {"123"}, {}, NETTYPE_FAX}});
        server.clear_calls();
    }
};

TEST_F(MergeGroup, MembersOfTheJobsNetTypeBecomeReceivers) {
    const std::string text =
        "#PHONE 1##RECEIVERGROUP team##RECEIVERGROUP nobody##RECEIVERGROUP##PHONE 2#";
    EXPECT_EQ(merge(text), 0);
    EXPECT_THAT(receivers(), ElementsAre("1", "common:a", "private:c", "2"));
    EXPECT_EQ(server.calls(), (std::vector<int>{64, 74, 93, 82, 82, 82, 82, 64}));
    EXPECT_EQ(
        traced(),
        (lines{"Entry: <-- SetFaxMergeData: " + text} + pair_lines("PHONE", "1") +
         pair_lines("RECEIVERGROUP", "team", {"receiver group - <team>", "Receiver: common:a"}) +
         lines{"Error: SetFaxMergeData: telebook book entry is not fax receiver",
               "Error: SetFaxMergeData: telebook book entry does not exist",
               "Info1: SetFaxMergeData: Receiver: private:c"} +
         pair_lines("RECEIVERGROUP", "nobody", {"receiver group - <nobody>"}) +
         lines{"Error: SetFaxMergeData: : group <nobody> doesn't exist on the server"} +
         pair_lines("RECEIVERGROUP", "", {"receiver group - <>"}) + pair_lines("PHONE", "2") +
         lines{"Exit: --> SetFaxMergeData: rc = 0"}));
}

TEST_F(MergeGroup, AFailedCallEndsTheTextAndKeepsWhatWasDone) {
    for (const auto& [procedure, call] : {std::pair{64, "getTGroup"}, {93, "getTGroupEntries"}}) {
        server.fail(procedure);
        EXPECT_EQ(merge("#PHONE 1##RECEIVERGROUP team##PHONE 2#"), 8);
        EXPECT_THAT(receivers(), Each("1"));
        EXPECT_THAT(traced(), IsSupersetOf({"Error: SetFaxMergeData: (" + std::string{call} +
                                                ") Problems with RPC connection",
                                            std::string{"Exit: --> SetFaxMergeData: rc = 8"}}));
    }
    EXPECT_EQ(lPDCountReceiver, 2);
    server.fail(82, 1); // one member can't be looked up: the others are taken
    EXPECT_EQ(merge("#RECEIVERGROUP team#"), 0);
    EXPECT_THAT(receivers(), ElementsAre("1", "1", "private:c"));
}

// The phone books of merge data outlive the job that they were made in.
TEST_F(MergeGroup, TheNextJobsConnectionIsUsed) {
    ASSERT_EQ(merge("#RECEIVERGROUP team#"), 0);
    ASSERT_EQ(SendFaxDoc(), 0);
    EXPECT_EQ(merge("#RECEIVERGROUP team#"), 8) << "no job, no connection";
    sendfax::release_receivers();
    ASSERT_EQ(TransmissionDlg(nullptr, "Second", 1), 0);
    EXPECT_EQ(merge("#RECEIVERGROUP team#"), 0);
    EXPECT_THAT(receivers(), ElementsAre("common:a", "private:c"));
}

} // namespace
} // namespace zerdix::testing
