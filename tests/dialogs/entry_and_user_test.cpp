// SPDX-License-Identifier: MIT
// The dialogs for a phone book entry and for a user, against the stand-in server.

#include <cctype>

#include <zerdix/sendfax.h>

#include "common/string_table.h"
#include "dialogs/dialog_resources.h"
#include "dialogs/entry_dialog.h"
#include "dialogs/kept_setting.h"
#include "dialogs/user_select.h"
#include "support/scripted_presenter.h"
#include "support/session_test.h"

namespace zerdix::dialogs {
namespace {

using forms::dialog_view;
using namespace ::testing;

constexpr int put_entry = 81;
constexpr int get_entry = 82;
constexpr int get_users = 101;

constexpr std::int32_t entry_exists = 1456;
constexpr std::int32_t nothing_chosen = 1273;

std::string told(std::int32_t number) {
    return common::string_text(number);
}

class EntryAndUser : public testing::connected_test {
  protected:
    EntryAndUser() {
        install_dialog_resources();
        forms::SftTree_RegisterApp2(this);
        pzerdix = &session;
    }
    ~EntryAndUser() override { pzerdix = nullptr; }

    // The user presses OK with this as the new entry's name, and is told why it stays open.
    void refused(dialog_view& shown, const char* id, std::int32_t message) {
        user.messages.clear();
        user.log.clear();
        shown.user_edits(1908, id);
        shown.user_clicks(1901);
        EXPECT_FALSE(shown.has_ended()) << id;
        EXPECT_THAT(user.messages, ElementsAre(told(message))) << id;
        const bool focus = !user.log.empty() && user.log.back() == "1900 focus 1908";
        EXPECT_EQ(focus, message == 511) << id;
    }
    std::int32_t new_entry(o_tebul& record, const char* to_book = "common") {
        return CDialogTeleEntry(host, &record, to_book, &book, 1).DoModal();
    }

    std::int32_t choose_user(std::vector<test::scripted_presenter::step> steps) {
        user.script(2450, std::move(steps));
        return CDialogUserSelect(host, name, alpha).DoModal();
    }
    void expect_kept(const char* userid, const char* server_name) {
        EXPECT_EQ(kept_text("User-Userid", "none", 12), userid);
        EXPECT_EQ(kept_text("User-Alphaid", "none", 37), server_name);
    }

    test::scripted_presenter user;
    forms::window_handle host = user.foreign_window("host");
    TELEBOOK book;
    char name[11] = "";
    char alpha[36] = "";
};

TEST_F(EntryAndUser, OnlyFittingCharactersAreTyped) {
    for (int c = 0; c < 256; ++c) {
        const bool fits = (c < 0x80 && std::isalnum(c)) || c == 8 || (c > 0x80 && c < 0xff) ||
                          (c != 0 && std::strchr("#._-+", c) != nullptr);
        EXPECT_EQ(isTeleIdChar(static_cast<unsigned char>(c)), fits) << c;
        EXPECT_EQ(CEditDigits::takes(static_cast<unsigned char>(c)),
                  c == 8 || (c >= '0' && c <= '9'))
            << c;
    }
    o_tebul record{};
    user.script(1900, {[](dialog_view& shown) {
                    EXPECT_FALSE(shown.user_may_type(1908, ' '));
                    EXPECT_TRUE(shown.user_may_type(1908, 0xfc));
                    EXPECT_TRUE(shown.user_may_type(1915, ' '));
                    EXPECT_TRUE(shown.find(1903)->checked && shown.find(1905)->checked);
                    shown.user_closes();
                }});
    EXPECT_EQ(new_entry(record), 1902);
    EXPECT_THAT(server.calls(), IsEmpty());
    EXPECT_TRUE(record.teleid.empty() && record.nettype == 0);
}

TEST_F(EntryAndUser, ANewEntryIsStoredOnceEveryRefusalIsMended) {
    o_tebul record{};
    user.script(1900, {[&](dialog_view& shown) {
                    for (const char* bad : {"", "a b", "&Co", "\x80", "\xff", "x\n"})
                        refused(shown, bad, 511);
                    EXPECT_THAT(server.calls(), IsEmpty());
                    server.fail(get_entry);
                    refused(shown, "m\xfcller", 1459);
                    refused(shown, "lager", entry_exists);
                    server.refuse(put_entry);
                    refused(shown, "m\xfcller", 491);
                    server.fail(put_entry);
                    refused(shown, "m\xfcller", 1298);
                    EXPECT_TRUE(record.teleid.empty());
                    shown.user_edits(1908, "+49.m\xfcller-long");
                    shown.user_edits(1911, std::string(40, 'k'));
                    shown.user_edits(1913, "+49 30 123");
                    shown.user_edits(1915, "030 / 123");
                    shown.user_clicks(1904);
                    shown.user_clicks(1906);
                    shown.user_clicks(1901);
                    EXPECT_TRUE(shown.has_ended());
                }});
    EXPECT_EQ(new_entry(record), 1901);
    const o_tebul* stored = book.getTBookEntry("common", "+49.m\xfcller", 1);
    ASSERT_NE(stored, nullptr);
    for (const o_tebul* entry : {static_cast<const o_tebul*>(&record), stored}) {
        EXPECT_EQ(entry->tbookid, "common");
        EXPECT_EQ(entry->teleid, "+49.m\xfcller");
        EXPECT_EQ(entry->comment, std::string(30, 'k'));
        EXPECT_EQ(entry->tsi, "+49 30 123");
        EXPECT_EQ(entry->phone, "030 / 123");
        EXPECT_TRUE(entry->intern);
        EXPECT_EQ(entry->nettype, NETTYPE_TELEX);
    }
}

TEST_F(EntryAndUser, WithoutTheRightToAddNothingChanges) {
    o_tebu foreign{};
    foreign.tbookid.assign("fremd");
    foreign.owner.assign("meier");
    foreign.perms = {{0x3f, 0, 0x03}};
    ASSERT_TRUE(server.store().phone_books.put_book(foreign));
    o_tebul record{};
    user.script(1900, {[&](dialog_view& shown) { refused(shown, "neu", 491); },
                       [](dialog_view& shown) { shown.user_clicks(1902); }});
    EXPECT_EQ(new_entry(record, "fremd"), 1902);
    EXPECT_EQ(book.getTBookEntries("fremd", NETTYPE_FAX, "", 30)->getSize(), 0u);
}

TEST_F(EntryAndUser, AnExistingEntryKeepsItsName) {
    o_tebul record = *book.getTBookEntry("common", "hansen", 1);
    server.clear_calls();
    user.script(1900, {[](dialog_view& shown) {
                    EXPECT_TRUE(shown.find(1908)->read_only);
                    EXPECT_TRUE(shown.find(1906)->checked);
                    EXPECT_EQ(shown.find(1915)->text, "402195");
                    shown.user_edits(1908, "other");
                    shown.user_edits(1915, "1");
                    shown.user_clicks(1901);
                }});
    EXPECT_EQ(CDialogTeleEntry(host, &record, "common", &book, 0).DoModal(), 1901);
    EXPECT_THAT(server.calls(), ElementsAre(put_entry));
    EXPECT_EQ(record.teleid, "hansen");
    EXPECT_EQ(book.getTBookEntry("common", "hansen", 1)->phone, "1");
}

TEST_F(EntryAndUser, TheFirstUserIsSelectedUntilOneIsRemembered) {
    const auto expect_row = [](std::int32_t row) {
        return [row](dialog_view& shown) {
            const auto& list = *shown.find(2453)->list;
            EXPECT_EQ(list.selected_row(), row);
            EXPECT_THAT(list.titles, ElementsAre("User-ID", "Kommentar", "Server"));
            EXPECT_EQ(list.columns[0].second, 1);
        };
    };
    // Sorted by name: meier, zerdix. The session's server isn't the name that users have.
    EXPECT_EQ(
        choose_user({expect_row(0), [](dialog_view& shown) { shown.user_double_clicks(2453, 1); }}),
        2451);
    EXPECT_STREQ(name, "zerdix");
    EXPECT_EQ(alpha, server.store().configuration.server_name().view());
    expect_kept("zerdix", alpha);

    server.add_users(20); // between the two
    const auto out_of_ten_into_view = [](dialog_view& shown) {
        forms::row_rectangle place;
        EXPECT_TRUE(shown.find(2453)->list->view->in_view(21, place));
        shown.user_closes();
    };
    EXPECT_EQ(choose_user({expect_row(21), out_of_ten_into_view}), 2452);
    expect_kept("zerdix", alpha);
    EXPECT_THAT(user.log, Contains("2450 focus 2453"));
}

TEST_F(EntryAndUser, NothingSelectedKeepsTheUserSelectionOpen) {
    EXPECT_EQ(choose_user({[&](dialog_view& shown) {
                               shown.user_selects_row(2453, -1);
                               shown.user_presses_key(2453, 40);
                               shown.user_clicks(2451);
                               EXPECT_THAT(user.messages, ElementsAre(told(nothing_chosen)));
                           },
                           [](dialog_view& shown) { shown.user_clicks(2452); }}),
              2452);
    EXPECT_STREQ(name, "");
    EXPECT_THAT(user.log, Contains("1169 posted to 2450"));
    expect_kept("zerdix", "127.0.0.1"); // the session's own
}

TEST_F(EntryAndUser, AFailedUserListIsEmptyAndCanBeLeft) {
    keep_text("User-Userid", "m\xfcller-lang");
    server.fail(get_users);
    EXPECT_EQ(choose_user({[](dialog_view& shown) {
                               EXPECT_EQ(shown.find(2453)->list->row_count(), 0);
                               shown.user_clicks(2451);
                           },
                           [](dialog_view& shown) { shown.user_closes(); }}),
              2452);
    EXPECT_THAT(user.messages, ElementsAre(told(nothing_chosen)));
    expect_kept("m\xfcller-lan", "127.0.0.1");
    user.cannot_create = {2450};
    const std::string before = kept_text("User-Userid", "", 12);
    EXPECT_EQ(CDialogUserSelect(host, name, alpha).DoModal(), -1);
    expect_kept(before.c_str(), "127.0.0.1");
}

} // namespace
} // namespace zerdix::dialogs
