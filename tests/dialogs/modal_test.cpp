// SPDX-License-Identifier: MIT
// How the dialogs open and end over somebody else's windows, and how the user is told something.

#include <stdexcept>

#include <gmock/gmock.h>

#include "common/string_table.h"
#include "dialogs/dialog_resources.h"
#include "dialogs/find_dialog.h"
#include "dialogs/message.h"
#include "dialogs/notify_dialog.h"
#include "dialogs/print_abort.h"
#include "dialogs/wait_dialog.h"
#include "support/scripted_presenter.h"
#include "support/test_server.h"

namespace zerdix::dialogs {
namespace {

using forms::dialog_view;
using namespace ::testing;

std::string told(std::int32_t number) {
    return common::string_text(number);
}

// Opens as the base class does; its button runs `work`.
class plain_dialog : public CDialogDriver {
  public:
    plain_dialog(std::int32_t form, forms::window_handle& parent) : CDialogDriver(form, parent) {
        on(1, forms::control_event::clicked, [this] { work(*this); });
        on_posted(recipient_search_command, [this] { search(searchText()); });
        on_posted(group_search_command, [this] { search("groups"); });
    }

    void search(const std::string& what) {
        searched.push_back(what);
        if (find != nullptr)
            find->ready();
    }
    std::int32_t open_find(std::int32_t mode) {
        CDialogFind opened(window_, mode);
        find = &opened;
        const std::int32_t result = opened.DoModal();
        find = nullptr;
        return result;
    }

    std::function<void(plain_dialog&)> work = [](plain_dialog& self) { self.EndDialog(7); };
    CDialogFind* find = nullptr;
    std::vector<std::string> searched;
};

class Modal : public ::testing::Test {
  protected:
    Modal() { install_dialog_resources(); }

    std::int32_t run(forms::window_handle over, std::int32_t form = 9650) {
        user.active = over;
        plain_dialog shown(form, over);
        return shown.DoModal();
    }

    test::scripted_presenter user;
    forms::window_handle host = user.foreign_window("host");
};

TEST_F(Modal, TheOwnerWaitsUntilTheDialogIsGone) {
    EXPECT_EQ(run(host), 7);
    EXPECT_THAT(user.log, ElementsAre("host disabled", "9650 created over host", "9650 centered",
                                      "9650 topmost", "9650 shown", "9650 hidden", "host enabled",
                                      "host activated", "9650 destroyed"));
    user.log.clear();
    EXPECT_EQ(run(nullptr), 7);
    EXPECT_THAT(user.log, ElementsAre("9650 created over -", "9650 centered", "9650 topmost",
                                      "9650 shown", "9650 hidden", "9650 destroyed"));
}

TEST_F(Modal, AnOwnerThatWasDisabledStaysSoAndAnotherWindowStaysActive) {
    forms::window_handle closed = user.foreign_window("closed", false);
    user.script(9650, {[&](dialog_view& shown) {
                    user.active = host;
                    shown.user_clicks(1);
                }});
    EXPECT_EQ(run(closed), 7);
    EXPECT_EQ(user.active, host);
    EXPECT_THAT(user.log, Not(Contains(HasSubstr("closed enabled"))));
    EXPECT_FALSE(user.is_enabled(closed));
}

TEST_F(Modal, WhatCannotRunGivesMinusOneAndLeavesTheOwnerEnabled) {
    EXPECT_EQ(run(host, 4711), -1); // no such template
    EXPECT_TRUE(user.log.empty());
    EXPECT_EQ(run(host, 2450), -1); // its list control isn't registered
    user.cannot_create = {9650};
    EXPECT_EQ(run(host), -1);
    EXPECT_TRUE(user.is_enabled(host));
    user.cannot_create.clear();

    user.script(9650, {[](dialog_view&) { throw std::runtime_error("out of memory"); }});
    EXPECT_THROW(run(host), std::runtime_error);
    EXPECT_TRUE(user.is_enabled(host));
    EXPECT_EQ(user.open(9650), nullptr);

    user.script(9650, {[&](dialog_view&) { user.quit(3); }});
    EXPECT_EQ(run(host), -1);
    EXPECT_TRUE(user.quitting); // for the host's own loop
    EXPECT_TRUE(user.is_enabled(host));
}

TEST_F(Modal, WithoutWindowsNoDialogRuns) {
    const test::environment_variable none("ZERDIX_DIALOGS", "none");
    forms::replace_presenter(nullptr);
    EXPECT_EQ(run(nullptr), -1);
    EXPECT_FALSE(CDialogWait(nullptr, 0).create());
    forms::replace_presenter(&user);
}

TEST_F(Modal, MessagesAndNotifications) {
    EXPECT_EQ(showMessage(host, 1273), 1);
    AfxMessageBox("50 % fertig");
    AfxMessageBox(1203);
    EXPECT_THAT(user.log, ElementsAre("message over host: Benachrichtigung: Nichts ausgew\xe4hlt!",
                                      "message over -: zerDIX: 50 % fertig",
                                      "message over -: zerDIX: " + told(1203)));
    std::string text = "eins";
    CDialogNotify notify(host, &text);
    text = "zwei";
    EXPECT_EQ(notify.DoModal(), 1);
    user.script(9650, {[](dialog_view& shown) { shown.user_closes(); }});
    EXPECT_EQ(CDialogNotifyId(host, 1465).DoModal(), 1);
    EXPECT_THAT(user.messages,
                ElementsAre(told(1273), "50 % fertig", told(1203), "eins", "Nicht gefunden!"));
    EXPECT_THAT(user.log, Not(Contains("9650 topmost")));
}

TEST_F(Modal, TheWaitDialogShowsItsButtonOnlyWhenAskedTo) {
    for (const std::int32_t button : {0, 1}) {
        CDialogWait wait(host, button);
        ASSERT_TRUE(wait.create());
        EXPECT_EQ(user.log.back(), "9599 shown");
        EXPECT_EQ(wait.find(9605)->caption, "Bitte warten!");
        EXPECT_EQ(wait.find(9607)->visible, button == 1);
        wait.user_clicks(9607);
        EXPECT_EQ(wait.fCancelled, button);
        EXPECT_EQ(user.open(9599), &wait);
        wait.DestroyWindow();
        EXPECT_EQ(user.open(9599), nullptr);
    }
    EXPECT_TRUE(user.is_enabled(host));
}

TEST_F(Modal, PrintingEndsWhenTheUserOrTheProgramDoes) {
    int taken = 0;
    CDialogPrintAbort first(host);
    ASSERT_TRUE(first.create());
    const auto work = [&taken] { return ++taken > 0; };
    user.input = {work, work};
    EXPECT_EQ(abortProc(), 1);
    user.input = {[&] { return first.user_clicks(9607), true; }, work};
    EXPECT_EQ(abortProc(), 0);
    EXPECT_EQ(taken, 2);
    EXPECT_EQ(first.fCancelled, 1);
    EXPECT_EQ(abortProc(), 0);

    CDialogPrintAbort second(host);
    EXPECT_EQ(second.fCancelled, 0);
    user.input = {[] { return false; }, work};
    EXPECT_EQ(abortProc(), 0);
    EXPECT_EQ(taken, 2);
    EXPECT_EQ(abortProc(), 1);
}

TEST_F(Modal, TheFindDialogHandsItsTextOverAndWaitsForTheSearch) {
    plain_dialog parent(9650, host);
    std::int32_t result = 0;
    parent.work = [&](plain_dialog& self) {
        result = self.open_find(search_recipients);
        self.open_find(search_groups);
        self.EndDialog(7);
    };
    user.script(9650, {[](dialog_view& shown) { shown.user_clicks(1); }});
    const auto press = [](dialog_view& find) { find.user_clicks(1401); };
    const auto type = [](const char* text) {
        return [text](dialog_view& find) { find.user_edits(1403, text); };
    };
    const std::string long_text = "1234567890123456789012345678901234567890123";
    user.script(1400, {press, type("\\(a"), press, type("meier"), press,
                       [&](dialog_view& find) {
                           EXPECT_THAT(parent.searched, ElementsAre("meier"));
                           EXPECT_EQ(find.find(1401)->caption, told(1321));
                       },
                       type(long_text.c_str()), press,
                       [&](dialog_view& find) {
                           EXPECT_EQ(find.find(1403)->text, long_text.substr(0, 40));
                           // A search without a hit leaves it so.
                           user.enable(parent.window(), false);
                           find.user_closes();
                           EXPECT_TRUE(user.is_enabled(parent.window()));
                       }});
    user.script(1400, {type("*"), press, [](dialog_view& find) { find.user_closes(); }});
    user.script(9650, {[](dialog_view& shown) { shown.user_clicks(1); }});
    user.script(9650, {[](dialog_view& shown) { shown.user_clicks(1); }});
    EXPECT_EQ(parent.DoModal(), 7);
    EXPECT_EQ(result, 1402);
    EXPECT_THAT(user.messages, ElementsAreArray({std::string(), told(1273), told(40003)}));
    EXPECT_THAT(parent.searched, ElementsAre("meier", long_text.substr(0, 39), "groups"));
    const auto at = std::find(user.log.begin(), user.log.end(), "wait cursor");
    ASSERT_GE(user.log.end() - at, 7);
    EXPECT_THAT(std::vector<std::string>(at, at + 7),
                ElementsAre("wait cursor", "1400 disabled", "30021 posted to 9650", "arrow cursor",
                            "1400 enabled", "1400 activated", "1400 focus 1403"));
}

} // namespace
} // namespace zerdix::dialogs
