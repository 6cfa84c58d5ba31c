// SPDX-License-Identifier: MIT
// The user's records and password, the signature and the board.

#include <gmock/gmock.h>

#include <zerdix/zerdix.h>

#include "rpc/scripted_handle.h"

namespace zerdix::testing {
namespace {

using ::testing::ElementsAre;
namespace proc = rpc::proc;

class UserRecords : public ::testing::Test {
  protected:
    ZERDIX session;
    scripted_handle server;
    a_user_rec preferences{};
    o_user_rec identity{};
    bool allowed = true;

    UserRecords() {
        session.setUserId("meier");
        server.on(proc::a_get_user_1{}, [this](const str10& id, a_user_rec& record) {
            record = id == "meier" ? preferences : a_user_rec{};
        });
        server.on(proc::a_put_user_1{}, [this](const a_user_rec& record, boolean& done) {
            if ((done = allowed))
                preferences = record;
        });
        server.on(proc::o_get_user_1{}, [this](const o_get_user_i& wanted, o_user_rec& record) {
            record = wanted.userid == "meier" && wanted.alphaid.empty() ? identity : o_user_rec{};
        });
        server.on(proc::o_put_user_1{}, [this](const o_user_rec& record, boolean& done) {
            identity = record;
            done = true;
        });
        server.on(proc::a_check_cycle_1{}, [this](const a_check_cycle_i& asked, boolean& done) {
            done = allowed && asked.userid == "meier" && asked.repl_userid == "schulze" &&
                   asked.repl_alphaid == "beta";
        });
    }
};

TEST_F(UserRecords, ASetterFetchesOnceAndWritesTheWholeRecord) {
    preferences.aux2 = -7;
    preferences.auxtext2.assign_field(std::string(81, '\xe4'));
    const a_user_rec before = preferences;
    EXPECT_EQ(session.setPriority(77), 0);
    EXPECT_THAT(server.calls(), ElementsAre(30, 31));
    const std::int32_t trays[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, -10};
    EXPECT_EQ(session.setPaperTrays(trays), 0);
    EXPECT_EQ(session.setActions(ZERDIX::clssetATVoiceReceive()), 0);
    EXPECT_EQ(session.setDefPrinter("elevenchars!"), 0);
    EXPECT_EQ(session.setDefScanner("s1", ZERDIX::clssetHWFTelex()), 0);
    EXPECT_THAT(server.calls(), ElementsAre(31, 31, 31, 31));
    EXPECT_EQ(preferences.priority, 77);
    EXPECT_THAT(preferences.papertrays, ::testing::ElementsAreArray(trays));
    EXPECT_EQ(preferences.actions, 0x800);
    EXPECT_EQ(preferences.defprinter.view(), "elevenchars");
    EXPECT_EQ(preferences.defscanner, "s1");
    EXPECT_EQ(preferences.hwfeatures, 0x200);
    EXPECT_EQ(preferences.aux2, before.aux2);
    EXPECT_EQ(preferences.auxtext2, before.auxtext2);
}

TEST(DeviceBits, AreTheProtocols) {
    using z = ZERDIX;
    const std::int32_t features[] = {
        z::clssetHWFNormal(), z::clssetHWFFine(),     z::clssetHWFRes1(),  z::clssetHWFRes2(),
        z::clssetHWFScan(),   z::clssetHWFHalftone(), z::clssetHWFPrint(), z::clssetHWFReceive(),
        z::clssetHWFSend(),   z::clssetHWFTelex()};
    const std::int32_t actions[] = {
        z::clssetATPrintSend(), z::clssetATPrintError(), z::clssetATPrintReceive(),
        z::clssetATMailSend(),  z::clssetATMailError(),  z::clssetATMailReceive(),
        z::clssetATLampSend(),  z::clssetATLampError(),  z::clssetATLampReceive(),
        z::clssetATVoiceSend(), z::clssetATVoiceError(), z::clssetATVoiceReceive()};
    EXPECT_THAT(features, ElementsAre(1, 2, 4, 8, 0x10, 0x20, 0x40, 0x80, 0x100, 0x200));
    EXPECT_THAT(actions,
                ElementsAre(1, 2, 4, 8, 0x10, 0x20, 0x40, 0x80, 0x100, 0x200, 0x400, 0x800));
}

TEST_F(UserRecords, APriorityOutOfRangeIsRefusedHere) {
    for (const auto priority : std::initializer_list<std::int16_t>{-1, 101, 32767})
        EXPECT_EQ(session.setPriority(priority), 4);
    EXPECT_TRUE(server.calls().empty());
    EXPECT_EQ(session.setPriority(0) + session.setPriority(100), 0);
    rpc::session().pclient = nullptr;
    EXPECT_EQ(session.setPriority(101), 12);
}

TEST_F(UserRecords, TheKeptRecordHasWhatTheServerRefused) {
    ASSERT_EQ(session.setPriority(10), 0);
    allowed = false;
    EXPECT_EQ(session.setPriority(20), 4);
    server.fail(31);
    EXPECT_EQ(session.setActions(3), 8);
    server.calls();
    EXPECT_EQ(ZERDIX::clsGetAUserRecord()->priority, 20);
    EXPECT_EQ(ZERDIX::clsGetAUserRecord()->actions, 3);
    EXPECT_TRUE(server.calls().empty());
    EXPECT_EQ(session.getAUserRecord()->priority, 10);
    { const ZERDIX other; }
    server.open();
    EXPECT_EQ(ZERDIX::clsGetAUserRecord()->priority, 10);
    EXPECT_THAT(server.calls(), ElementsAre(30, 30)) << "a new object forgets the record";
}

// All objects have their answers in the same record.
TEST_F(UserRecords, AReplacementGoesWithARecordThatIsTheObjectsOwn) {
    identity.barcode.assign("123");
    allowed = false;
    EXPECT_EQ(session.setReplacement("schulze", "beta", 1), 6);
    EXPECT_THAT(server.calls(), ElementsAre(35, 51)) << "refused: nothing is changed";
    allowed = true;
    {
        ZERDIX other;
        server.open();
        other.getOUserRecord();
    }
    server.calls();
    EXPECT_EQ(session.setReplacement("schulze", "beta", -1), 0);
    EXPECT_THAT(server.calls(), ElementsAre(35, 51, 50));
    EXPECT_EQ(identity.repl_userid, "schulze");
    EXPECT_EQ(identity.repl_active.value, 1);
    EXPECT_EQ(identity.barcode, "123");
}

TEST_F(UserRecords, APasswordChangeTellsTheServersReasons) {
    for (const auto& [told, result] : {std::pair{0, 0}, {6, 6}, {8, 9}, {7, 7}, {-1, -1}}) {
        server.on(proc::a_chg_pw_1{}, [told = told](const a_chg_pw_i& asked, auto& status) {
            EXPECT_EQ(asked.oldpassword, "old");
            EXPECT_EQ(asked.newpassword, "twenty characters an");
            status = told;
        });
        EXPECT_EQ(session.chgPassword("old", "twenty characters and more"), result);
    }
}

class Signatures : public UserRecords {
  protected:
    std::string stored;
    std::int32_t last_length = -1;
    std::int32_t said_less = 0; // by the first answer

    Signatures() {
        server.on(proc::a_put_sigb_1{}, [this](const a_put_sigb_i& block, boolean& done) {
            stored.resize(static_cast<std::size_t>(block.offset));
            stored.append(reinterpret_cast<const char*>(block.data.data), block.data.length);
            last_length = block.length;
            done = block.userid == "meier";
        });
        server.on(proc::a_get_sigb_1{}, [this](const a_get_sigb_i& wanted, a_get_sigb_o& answer) {
            const std::string part = stored.substr(static_cast<std::size_t>(wanted.offset),
                                                   static_cast<std::size_t>(wanted.length));
            answer.size = static_cast<std::int32_t>(part.size());
            if (wanted.length == 0)
                answer.size = static_cast<std::int32_t>(stored.size()) - said_less;
            answer.data = {static_cast<std::uint32_t>(part.size()),
                           static_cast<unsigned char*>(std::malloc(part.size() + 1))};
            part.copy(reinterpret_cast<char*>(answer.data.data), part.size());
        });
    }
};

TEST_F(Signatures, CrossInBlocksWhoseLastIsShort) {
    for (const std::uint32_t size : {1u, 16383u, 16384u, 16385u, 32768u, 0u}) {
        std::string picture(size, '\0');
        for (std::size_t i = 0; i < picture.size(); ++i)
            picture[i] = static_cast<char>(i * 31 >> 3);
        const page_dat data{size, reinterpret_cast<unsigned char*>(picture.data())};
        EXPECT_EQ(session.putSignature(&data), 0);
        EXPECT_EQ(server.calls().size(), size / 16384 + 1);
        EXPECT_EQ(static_cast<std::uint32_t>(last_length), size % 16384);
        const page_dat* got = session.getSignature();
        EXPECT_EQ((std::string{reinterpret_cast<char*>(got->data), got->size}), picture);
        EXPECT_EQ(server.calls().size(), size == 0 ? 1 : 1 + size / 16384 + 1);
    }
    const page_dat too_long{0x80000000u, nullptr};
    EXPECT_EQ(session.putSignature(&too_long), 4);
    EXPECT_TRUE(server.calls().empty());
    stored = std::string(40000, 'x');
    server.fail(61, 3);
    EXPECT_EQ(session.getSignature(), nullptr);
}

TEST_F(Signatures, CopiesStayWithinWhatTheFirstAnswerSaid) {
    stored = std::string(20000, 'x');
    for (const auto& [less, size] : {std::pair{3000, 17000u}, {-5000, 20000u}, {20001, 0u}}) {
        said_less = less;
        EXPECT_EQ(session.getSignature()->size, size);
    }
    stored = std::string(40000, 'x');
    said_less = 40000 - 16384;
    server.calls();
    EXPECT_EQ(session.getSignature()->size, 16384u);
    EXPECT_EQ(server.calls().size(), 4u) << "one that has grown is read to its end, and no longer";
    said_less = 0;
    stored = std::string(1700000, 'y');
    server.calls();
    EXPECT_EQ(session.getSignature()->size, 1638400u);
    EXPECT_EQ(server.calls().size(), 101u);
    server.on(proc::a_get_sigb_1{}, [](const a_get_sigb_i&, a_get_sigb_o& answer) {
        answer.size = 2147483647;
        answer.data = {1, static_cast<unsigned char*>(std::calloc(1, 1))};
    });
    EXPECT_EQ(session.getSignature()->size, 100u) << "blocks that claim more than they carry";
}

TEST_F(UserRecords, TheBoardSendsWhatIsNew) {
    std::int32_t newest = 2;
    std::vector<std::int32_t> stamps;
    server.on(proc::a_get_board_1{}, [&](const a_get_board_i& wanted, a_get_board_o& answer) {
        stamps.push_back(wanted.stamp);
        EXPECT_EQ(wanted.language, "german_germany");
        for (std::int32_t i = newest; i > wanted.stamp; --i) {
            auto* entry = wire::new_node<a_board_entry>();
            entry->value = i;
            entry->next = std::exchange(answer.first, entry);
        }
        answer.stamp = newest;
    });
    EXPECT_EQ(session.getBoardEntries(0)->next->value, 2);
    EXPECT_EQ(session.getBoardEntries(0), nullptr);
    newest = 3;
    EXPECT_EQ(session.getBoardEntries(0)->value, 3);
    EXPECT_EQ(session.getBoardEntries(1)->value, 1);
    server.fail(1007);
    EXPECT_EQ(session.getBoardEntries(0), nullptr);
    EXPECT_EQ(session.getBoardEntries(0), nullptr) << "the mark is kept";
    EXPECT_THAT(stamps, ElementsAre(0, 2, 2, 0, 3));
}

} // namespace
} // namespace zerdix::testing
