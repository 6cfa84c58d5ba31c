// SPDX-License-Identifier: MIT
// Telexes by the real program, and their texts.

#include "cli/desk_test.h"
#include "output/failure.h"
#include "print/telex_text.h"

namespace zerdix::test {
namespace {

using namespace app;
using testing::ElementsAre;
using testing::HasSubstr;

// Procedures of the protocol.
constexpr int make_document = 3;
constexpr int delete_document = 6;
constexpr int print_document = 53;

class Telex : public desk_test {
  protected:
    std::vector<std::string> receivers() {
        std::vector<std::string> all;
        for (const auto& job : server_.jobs())
            all.push_back(job.receiver);
        return all;
    }

    const std::string order_ = write("order.txt", "Grüß\r\n" + std::string(70, 'x') + "\n");
};

TEST_F(Telex, ReachesItsReceiversInTheirOrder) {
    const auto result =
        zerdix("telex --to 402195 --to common:hansen --group alle --title Bestellung --retries 3",
               {order_});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.output, order_ + ": 2 lines, handed over to 3 receivers\n");
    EXPECT_THAT(result.errors, HasSubstr("69 characters of a telex line, and sent as it stands: "
                                         "line 2"));
    EXPECT_THAT(receivers(), ElementsAre("402195", "common:hansen", "common:hansen"));
    const auto job = server_.jobs().at(0);
    EXPECT_EQ(job.record.nettype, NETTYPE_TELEX);
    EXPECT_EQ(job.record.comment.view(), "Bestellung");
    EXPECT_EQ(job.record.maxretries, 3);
    EXPECT_THAT(read("spool/" + job.spool),
                testing::EndsWith("#RETRIES 3#\nGr\xfc\xdf\r\n" + std::string(70, 'x') + "\n"));
}

TEST_F(Telex, IsRefusedBeforeAnythingIsStored) {
    fails("telex", exit_no_dialog, "no receiver is named", {order_});
    fails("telex --to common:kanzlei", exit_no_receiver, "no telex", {order_});
    fails("telex --group kunden", exit_no_receiver, "no telex receiver", {order_});
    fails("telex --to 1 --at night", exit_usage, "cheap tariff", {order_});
    fails("telex --to 1", exit_bad_data, "is empty", {write("empty", "\n \n")});
    fails("telex --to 1", exit_bad_data, "isn't a text", {write("pdf", "%PDF-1.4")});
    fails("telex --to 1", exit_no_input, "nowhere", {path("nowhere")});
    EXPECT_THAT(server_.calls(), testing::Not(testing::Contains(print_document)));
}

TEST_F(Telex, NamesTheStepThatFailedAndLeavesNoDocument) {
    server_.refuse(print_document, 2);
    fails("telex --to 1 --to 2 --to 3", exit_refused,
          "the telex to 2 failed: the server refused it; 1 of 3 telexes had been handed "
          "over",
          {order_});
    EXPECT_THAT(receivers(), ElementsAre("1"));
    EXPECT_THAT(server_.desk(".winpr"), testing::IsEmpty());
    server_.refuse(delete_document);
    fails("telex --to 4", exit_refused, "deleting the document of the telex", {order_});
    EXPECT_THAT(server_.desk(".winpr"), testing::IsEmpty()) << "the second try has it";
    server_.refuse(make_document);
    fails("telex --to 5", exit_refused, "making the document", {order_});
    server_.drop(print_document);
    fails("telex --to 6", exit_unavailable,
          "0 of 1 telexes had been handed over, and whether this one was isn't known", {order_});
}

TEST(TelexText, TellsWhatIsLostAndWhatIsLong) {
    const std::string wide(69, 'w');
    const telex_text good = make_telex("\xEF\xBB\xBF" + wide + "\r\n\nende");
    EXPECT_EQ(good.text, wide + "\r\n\nende");
    EXPECT_EQ(good.lines, 3);
    EXPECT_THAT(good.remarks, ElementsAre());
    const telex_text odd = make_telex("a\n\xe2\x98\x8e\n" + wide + "w\n\xe2\x98\x8e\n");
    EXPECT_EQ(odd.text, "a\n?\n" + wide + "w\n?\n");
    EXPECT_THAT(odd.remarks, ElementsAre(HasSubstr("\"?\": 2 lines from line 2 on"),
                                         HasSubstr("stands: line 3")));
    const telex_text old = make_telex("Gr\xfc\xdf\n");
    EXPECT_EQ(old.text, "Gr\xfc\xdf\n");
    EXPECT_THAT(old.remarks, ElementsAre(HasSubstr("taken for Windows-1252")));
}

} // namespace
} // namespace zerdix::test
