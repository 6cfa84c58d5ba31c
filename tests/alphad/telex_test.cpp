// SPDX-License-Identifier: MIT
// A telex printed on the telex printer becomes an outgoing document of the user it names.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "alphad/sending/telex_order.h"
#include "desk.h"

namespace zerdix {
namespace {

using namespace test;
using namespace wire::proc;

std::string telex(const std::string& user, const std::string& phone, const std::string& time = " 0",
                  const std::string& title = "Hello") {
    return "#TELEX##USER " + user + "##ALPHAHOST alpha##TITLE " + title + "##PHONE " + phone +
           "##SENDTIME " + time + "##RETRIES 3#\nHELLO #1";
}

class Telex : public client_test {
  protected:
    bool print(const std::string& text) {
        EXPECT_TRUE(put_block(document, 1, 0, text, ".winpr", 6));
        return call(a_print_doc_1{}, {id(".winpr"), TOPF_P, document, 1, 1, id(".zerdixpr"), 1});
    }

    std::int32_t document = create(".winpr");
};

TEST_F(Telex, BecomesAJobOfItsUser) {
    ASSERT_TRUE(print(telex("meier", "common:hansen", " 0", "A # B")));
    EXPECT_TRUE(remove(document, ".winpr"));
    ASSERT_EQ(server.jobs().size(), 1u);
    const alphad::send_job job = server.jobs()[0];
    EXPECT_EQ(job.receiver, "common:hansen");
    const a_s_rec record = call(a_get_s_1{}, {id("meier"), job.record.faxid});
    EXPECT_EQ(record.userid, "meier");
    EXPECT_EQ(record.comment, "A # B");
    EXPECT_EQ(record.phone, "402195");
    EXPECT_EQ(record.nettype, NETTYPE_TELEX);
    EXPECT_EQ(record.status, send_spooled);
    EXPECT_EQ(record.maxretries, 3);
    EXPECT_EQ(server.files().read("spool/" + job.spool),
              telex("meier", "common:hansen", " 0", "A # B"));

    // One for later can be given up.
    ASSERT_EQ(document = create(".winpr"), job.record.faxid + 1);
    ASSERT_TRUE(print(telex("meier", "99", "31.12.37 23:59:00")));
    const std::int32_t later = server.jobs().at(1).record.faxid;
    EXPECT_TRUE(call(a_cancel_job_1{}, {id("meier"), later}));
    EXPECT_TRUE(call(a_restart_job_1{}, {id("meier"), later}));
}

TEST_F(Telex, WithoutANumberLiesOnTheDesk) {
    ASSERT_TRUE(print(telex("meier", "")));
    EXPECT_TRUE(server.jobs().empty());
    ASSERT_EQ(server.desk("meier").size(), 1u);
    EXPECT_EQ(server.desk("meier")[0].comment, "Hello");
    EXPECT_EQ(masks(server.desk("meier")[0].id, "meier"), std::vector<std::int32_t>{64});
}

TEST_F(Telex, IsRefusedWhenItsOrderIsNotSound) {
    for (const std::string& text : {std::string{"HELLO"}, std::string{"#TELEX##USER meier"},
                                    telex("nobody", "1"), telex("meier", "common:nobody")})
        EXPECT_FALSE(print(text)) << text;
    EXPECT_TRUE(server.jobs().empty());
    EXPECT_TRUE(std::filesystem::is_empty(server.spool()));
}

TEST(TelexOrder, ReadsTimesOfAllLanguages) {
    const environment_variable zone("TZ", "UTC");
    tzset();
    for (const char* text :
         {"24.12.96 18:00:01", "24.12.96 18.00.01", "24/12/96 18:00:01", "12/24/96 18:00:01"})
        EXPECT_EQ(alphad::read_telex_order(telex("u", "1", text))->sendtime, 851450401) << text;
    for (const char* text : {" 0", "", "soon", "24.12.96"})
        EXPECT_EQ(alphad::read_telex_order(telex("u", "1", text))->sendtime, 0) << text;
}

} // namespace
} // namespace zerdix
