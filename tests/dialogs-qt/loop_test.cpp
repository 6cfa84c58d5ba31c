// SPDX-License-Identifier: MIT
// Who gets the user's input when: dialogs over dialogs, remote calls, messages, the program's end.

#include <clocale>

#include <QAbstractButton>
#include <QElapsedTimer>
#include <QLabel>
#include <QMessageBox>
#include <QWindow>

#include "dialogs-qt/windows.h"
#include "gallery/clipped.h"
#include "gallery/sample_dialog.h"
#include "presenter/display.h"

namespace zerdix::test {
namespace {

using dialogs::find_form;
using dialogs::send_form;
using ::testing::ElementsAre;

// Input as the screen sends it: to the window, not to a widget.
void type_into(QWidget* window) {
    QTest::keyClick(window->windowHandle(), Qt::Key_7);
}

TEST_F(Windows, ADialogInFrontKeepsTheOneBehindFromInputButNotFromCommands) {
    noting_dialog behind(send_form);
    behind.opening = [](auto& self) { self.set_focus(2327); };
    behind.on_posted(30021, [&behind] { behind.notes.push_back("command"); });
    behind.on(2322, control_event::clicked, [&] {
        noting_dialog front(find_form, behind.window());
        EXPECT_TRUE(shown->is_enabled(behind.window()));
        shown->enable(behind.window(), false);
        front.on(1401, control_event::clicked, [&] {
            shown->post_command(behind.window(), 30021);
            behind.notes.push_back("posted");
        });
        EXPECT_EQ(front.DoModal(), 0);
        shown->enable(behind.window(), true);
    });
    script({[&] { type_into(window(send_form)); },
            [&] { behind.enable(2322), behind.user_clicks(2322); },
            [&] {
                type_into(window(send_form));
                window(send_form)->windowHandle()->close();
                QTest::mouseClick(control(find_form, 1401), Qt::LeftButton);
            },
            [&] { window(find_form)->close(); }, [&] { type_into(window(send_form)); },
            [&] { window(send_form)->close(); }});
    behind.DoModal();
    EXPECT_THAT(behind.notes,
                ElementsAre("changed 2327 7", "posted", "command", "changed 2327 77", "closed"));
}

TEST_F(Windows, NothingReachesADialogDuringARemoteCall) {
    noting_dialog dialog(send_form);
    dialog.on_posted(30021, [&] { dialog.notes.push_back("command"); });
    const auto notice = [] {
        for (const auto* one : window(send_form)->findChildren<QLabel*>())
            if (one->text().startsWith("Der Server wird gefragt") && one->isVisible())
                return true;
        return false;
    };
    script({[&] {
                shown->post_command(dialog.window(), 30021);
                QTimer::singleShot(0, qApp,
                                   [] { QTest::keyClick(window(send_form), Qt::Key_Escape); });
                shown->remote_call_begins();
                EXPECT_FALSE(notice());
                QElapsedTimer call;
                for (call.start(); call.elapsed() < 300; QTest::qSleep(40))
                    shown->remote_call_goes_on();
                EXPECT_TRUE(notice());
                shown->remote_call_ended();
                dialog.notes.push_back("answered");
            },
            [] {}});
    dialog.DoModal();
    EXPECT_THAT(dialog.notes, ElementsAre("answered", "command", "closed"));
}

TEST_F(Windows, MessagesAreNeverMarkup) {
    QTimer::singleShot(100, qApp, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->windowTitle(), "Titel");
        EXPECT_EQ(box->text(), QString::fromUtf8("<b>Größe</b>"));
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        box->button(QMessageBox::Ok)->click();
    });
    shown->show_message(nullptr,
                        "<b>Gr\xf6\xdf"
                        "e</b>\n",
                        "Titel");
}

TEST_F(Windows, TheProgramsEndEndsADialog) {
    noting_dialog dialog(find_form);
    script({[this] { shown->quit(3); }});
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(noting_dialog(find_form).DoModal(), -1);
    EXPECT_FALSE(shown->take_input());
}

TEST_F(Windows, AWaitingWindowIsPaintedAtOnceAndAPumpHasAnEnd) {
    noting_dialog wait(dialogs::wait_form);
    ASSERT_TRUE(wait.Create());
    EXPECT_TRUE(window(dialogs::wait_form)->windowHandle()->isExposed());
    int rounds = 0;
    while (shown->input_waits() && ++rounds < 50)
        EXPECT_TRUE(shown->take_input());
    EXPECT_LT(rounds, 50);
    EXPECT_FALSE(shown->is_enabled(reinterpret_cast<forms::window_handle>(0x7654321)));
}

TEST_F(Windows, StartLeavesTheLocaleAlone) {
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
    EXPECT_EQ(zerdix_presenter(forms::presenter_interface), shown);
    EXPECT_EQ(zerdix_presenter(forms::presenter_interface - 1), nullptr);
}

TEST(Display, IsKnownBeforeTheToolkitStarts) {
    struct {
        const char *platform, *display, *wayland;
        std::string usable;
    } const cases[] = {{"offscreen", "", "", "offscreen"},
                       {"minimal", ":987", "", "minimal"},
                       {"xcb", ":987", "", ""},
                       {"", ":987", "", ""},
                       {"", "", "no-such-socket", ""},
                       {"no-such-way", "", "", ""},
                       {"xcb;offscreen", ":987", "", "offscreen"},
                       {"", "", "", ""}};
    for (const auto& one : cases) {
        qputenv("QT_QPA_PLATFORM", one.platform);
        qputenv("DISPLAY", one.display);
        qputenv("WAYLAND_DISPLAY", one.wayland);
        EXPECT_EQ(dialogs_qt::find_screen().platform, one.usable) << one.platform << one.display;
    }
}

// In every language; what a translation makes too long shows here.
TEST_F(Windows, WordsFitIntoTheDialogs) {
    for (const auto* language : {"deutsch.lng", "english.lng", "us.lng", "francais.lng"}) {
        ASSERT_TRUE(gallery::use_language(language));
        for (const auto& form : dialogs::templates())
            for (const auto side :
                 {gallery::side::none, gallery::side::book, gallery::side::groups}) {
                gallery::sample_dialog dialog(form.id, side, side == gallery::side::book);
                ASSERT_TRUE(dialog.Create());
                EXPECT_TRUE(gallery::misplaced(*window(form.id)).isEmpty())
                    << language << " " << form.id << ": "
                    << gallery::misplaced(*window(form.id)).join("; ").toStdString();
            }
    }
}

} // namespace
} // namespace zerdix::test
