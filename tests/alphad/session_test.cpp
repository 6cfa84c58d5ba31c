// SPDX-License-Identifier: MIT
// Logins, passwords, users' records, and the lists that name a login.
#include <gtest/gtest.h>

#include "alphad/store/stored_record.h"
#include "desk.h"

namespace zerdix {
namespace {

using namespace test;
using namespace wire::proc;

constexpr std::int32_t good = 0, present = 4, unknown = 6, wrong = 8;

class Session : public client_test {
  protected:
    std::int32_t change_password(std::string_view user, std::string_view from,
                                 std::string_view to) {
        return call(a_chg_pw_1{}, {id(user), {0}, field<str20>(from), field<str20>(to)});
    }
    bool is_login(std::int32_t number) { return call(a_check_login_1{}, number); }
};

TEST_F(Session, LogsInWithTheRightPassword) {
    EXPECT_EQ(login("nobody", "zerdix").status, unknown);
    EXPECT_EQ(login("zerdix", "Zerdix").status, wrong);
    EXPECT_EQ(login("zerdix", "").status, wrong);
    server.store().users.add("new", "without a password");
    EXPECT_EQ(login("new", "").status, wrong);
    EXPECT_EQ(login("FAXADM", "").status, unknown);
    const a_get_login_o first = login("zerdix", "zerdix");
    const a_get_login_o second = login("zerdix", "zerdix");
    EXPECT_EQ(first.status, good);
    EXPECT_EQ(first.loginid, 1);
    EXPECT_EQ(second.loginid, 2);
    call(a_logout_1{}, {id("meier"), first.loginid});
    EXPECT_TRUE(is_login(first.loginid)) << "somebody else's";
    call(a_logout_1{}, {me, first.loginid});
    EXPECT_FALSE(is_login(first.loginid));
    EXPECT_TRUE(is_login(second.loginid));
    EXPECT_FALSE(is_login(0));

    EXPECT_EQ(change_password("nobody", "", "x"), unknown);
    EXPECT_EQ(change_password("meier", "zerdix", "x"), wrong);
    EXPECT_EQ(change_password("meier", "meier", "Stra\337e 12345678901234"), good);
    EXPECT_EQ(login("meier", "meier").status, wrong);
    EXPECT_EQ(login("meier", "Stra\337e 1234567890123").status, good) << "both cut to the field";
    const std::string hash = server.store().users.password_hash("meier");
    EXPECT_EQ(hash.find("Stra"), hash.npos);
}

TEST_F(Session, CanBeTheOnlyOne) {
    server.set_config("SINGLELOGIN", "1");
    const auto first = std::make_unique<desk_client>(server.program());
    const std::int32_t number = first->login("zerdix", "zerdix").loginid;
    EXPECT_EQ(login("zerdix", "zerdix").status, present);
    EXPECT_EQ(login("zerdix", "wrong").status, wrong);
    EXPECT_EQ(login("meier", "meier").status, good);
    call(a_logout_1{}, {me, number});
    EXPECT_EQ(first->login("zerdix", "zerdix").status, good);
    // A program that died didn't log out.
    int socket = -1;
    clnt_control(first->handle(), CLGET_FD, reinterpret_cast<char*>(&socket));
    shutdown(socket, SHUT_RDWR);
    EXPECT_EQ(login("zerdix", "zerdix").status, good);
}

TEST_F(Session, TellsTheVersionsThatFit) {
    const auto range = [&] { return call(a_get_compat_1{}, {}); };
    EXPECT_EQ(range().compat_low, 1);
    EXPECT_EQ(range().compat_high, 8);
    server.set_config("COMPATLOW", "2");
    server.set_config("COMPATHIGH", "text");
    EXPECT_EQ(range().compat_low, 2);
    EXPECT_EQ(range().compat_high, 8);
}

TEST_F(Session, KeepsRecordsOfUsersWhole) {
    a_user_rec wanted{};
    wanted.userid = id("meier");
    wanted.papertrays[9] = -7;
    wanted.aux3 = 123456789;
    wanted.auxtext2.assign_field(std::string(81, '\xe4'));
    wanted.auxtext3.bytes[20] = '\xff';
    EXPECT_TRUE(call(a_put_user_1{}, wanted));
    const auto kept = call(a_get_user_1{}, id("meier"));
    EXPECT_EQ(alphad::to_stored(kept), alphad::to_stored(wanted));
    wanted.userid = id("nobody");
    EXPECT_FALSE(call(a_put_user_1{}, wanted));
    EXPECT_TRUE(call(a_get_user_1{}, id("nobody")).userid.empty());

    o_user_rec user = call(o_get_user_1{}, {{}, id("meier")});
    EXPECT_EQ(user.alphaid, "alpha");
    EXPECT_EQ(user.comment, "Jonas Meier");
    user.comment.assign("J. Meier");
    user.barcode.assign("123");
    EXPECT_TRUE(call(o_put_user_1{}, user));
    user = call(o_get_user_1{}, {field<str35>("alpha"), id("meier")});
    EXPECT_EQ(user.comment, "J. Meier");
    EXPECT_TRUE(user.barcode.empty()) << "not the user's to change";
    EXPECT_TRUE(call(o_get_user_1{}, {field<str35>("beta"), id("meier")}).userid.empty());

    user.repl_userid = me;
    user.repl_alphaid.assign("alpha");
    user.repl_active = true;
    EXPECT_TRUE(call(o_put_user_1{}, user));
    o_user_rec far{field<str35>("beta"), id("far"), {}, field<str35>("gamma"),
                   id("meier"),          {1},       {}, 0};
    server.store().users.put(far);
    server.set_config("ALPHAID", "omega");
    EXPECT_EQ(call(o_get_user_1{}, {{}, id("meier")}).alphaid, "omega");
    EXPECT_EQ(call(o_get_user_1{}, {{}, id("meier")}).repl_alphaid, "omega");
    EXPECT_EQ(call(o_get_user_1{}, {field<str35>("beta"), id("far")}).repl_alphaid, "gamma");
    EXPECT_FALSE(call(a_check_cycle_1{}, {me, {}, id("meier")}));
    const auto book = call(o_get_tbook_1{}, {{}, me, id("common")});
    EXPECT_EQ(book.alphaid, "omega");
}

TEST_F(Session, RefusesCyclesOfReplacements) {
    for (const char* user : {"a", "b", "c"})
        server.store().users.add(user, "");
    const auto check = [&](const char* user, const char* replacement, const char* alpha = "") {
        return bool{call(a_check_cycle_1{}, {id(user), field<str35>(alpha), id(replacement)})};
    };
    const auto put = [&](const char* user, const char* replacement, bool active = true) {
        o_user_rec record = call(o_get_user_1{}, {{}, id(user)});
        record.repl_userid = id(replacement);
        record.repl_active = active;
        return bool{call(o_put_user_1{}, record)};
    };
    EXPECT_FALSE(check("a", "a"));
    EXPECT_FALSE(check("a", "nobody"));
    EXPECT_FALSE(check("nobody", "a"));
    EXPECT_TRUE(check("a", "nobody", "beta"));
    EXPECT_TRUE(check("a", ""));
    EXPECT_FALSE(put("a", "nobody"));
    EXPECT_TRUE(put("a", "nobody", false));
    EXPECT_TRUE(put("a", "b"));
    EXPECT_TRUE(put("b", "c", false));
    EXPECT_TRUE(check("c", "a"));
    EXPECT_TRUE(put("b", "c"));
    EXPECT_FALSE(check("c", "a"));
    EXPECT_FALSE(check("c", "a", "alpha"));
    EXPECT_FALSE(put("c", "a"));
    EXPECT_TRUE(put("c", "a", false));
    EXPECT_TRUE(put("b", "c", false));
    EXPECT_TRUE(put("c", "a"));
}

// The three lists, as ids.
class Lists : public Session {
  protected:
    using ids = std::vector<std::int32_t>;

    template <class P>
    ids list(P procedure, typename P::argument in) {
        return each_of(call(procedure, in), [](const auto& node) { return node.record.faxid; });
    }
    std::int32_t user = login("zerdix", "zerdix").loginid;
    alphad::documents& documents = server.store().documents;
};

TEST_F(Lists, ShowWhatWasAskedFor) {
    ids desk;
    for (const char* owner : {"zerdix", "meier", "zerdix", "meier", "zerdix"})
        desk.push_back(documents.create(TOPF_P, owner, "title"));
    documents.set_public(desk[1], true);
    documents.set_bif(desk[2], true);
    const auto plist = [&](selectiontype selection) {
        return list(a_get_plist_1{}, {user, selection});
    };
    EXPECT_EQ(plist(0), (ids{desk[0], desk[2], desk[4]}));
    EXPECT_EQ(plist(1), (ids{desk[2]}));
    EXPECT_EQ(plist(2), (ids{desk[1]}));
    EXPECT_EQ(plist(99), plist(0));
    EXPECT_EQ(list(a_get_plist_1{}, {user + 1, 0}), ids{}) << "no such login";
    const auto block = [&](std::int32_t from, std::int32_t most) {
        return list(a_get_plistb_1{}, {user, 0, from, most});
    };
    EXPECT_EQ(block(0, 2), (ids{desk[0], desk[2]}));
    EXPECT_EQ(block(desk[2], 2), (ids{desk[2], desk[4]}));
    EXPECT_EQ(block(desk[4] + 1, 2), ids{});
    EXPECT_EQ(block(0, 0), ids{});
    EXPECT_EQ(block(0, -1), ids{});

    alphad::send_job job{desk[0], "1", {}, false, {}};
    const std::int32_t first = job.record.faxid = documents.create(TOPF_S, "zerdix");
    server.store().jobs.put(job);
    const std::int32_t failed = job.record.faxid = documents.create(TOPF_S, "zerdix");
    job.record.errorstatus = 5;
    server.store().jobs.put(job);
    EXPECT_EQ(list(a_get_slist_1{}, {user, 0}), (ids{first, failed}));
    EXPECT_EQ(list(a_get_slist_1{}, {user, 3}), ids{failed});
    EXPECT_EQ(list(a_get_slistb_1{}, {user, 0, first, 1}), ids{first});
}

TEST_F(Lists, TellHowADocumentCameIn) {
    const std::int32_t source = documents.create(TOPF_E, "zerdix", "order");
    documents.set_origin(
        source, {0, TOPF_E, "", "", false, false, 0, 0, NETTYPE_TELEX, "0301", "+49 30 1", 7, ""});
    EXPECT_TRUE(call(a_forward_doc_1{}, {me, TOPF_E, source, {}, id("meier"), {}, TOPF_E}));
    const auto copy = documents.list(TOPF_E, "meier").at(0).id;
    const a_e_rec record = call(a_get_e_1{}, {id("meier"), copy});
    EXPECT_EQ(record.e_text1, "order");
    EXPECT_EQ(record.e_text2, "+49 30 1");
    EXPECT_EQ(record.e_text3, "zerdix");
    EXPECT_EQ(record.e_text4, "0301");
    EXPECT_EQ(record.e_value3, NETTYPE_TELEX);
    EXPECT_EQ(record.e_value4, 1);
    EXPECT_EQ(record.e_value5, 7);
    EXPECT_EQ(list(a_get_elist_1{}, {user, 1}), ids{});
    const std::int32_t meier = login("meier", "meier").loginid;
    EXPECT_EQ(list(a_get_elistb_1{}, {meier, 1, 0, 9}), ids{copy});
}

} // namespace
} // namespace zerdix
