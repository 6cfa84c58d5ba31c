// SPDX-License-Identifier: MIT
// What keys and clicks come to.

#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>

#include "dialogs-qt/windows.h"

namespace zerdix::test {
namespace {

using dialogs::send_form;
using ::testing::ElementsAre;

TEST_F(Windows, EnterTakesTheTypedRecipientFirstAndThenTheDialog) {
    noting_dialog dialog(send_form);
    dialog.opening = [](auto& self) {
        self.set_limit(2327, 5);
        self.set_focus(2327);
        self.on(2333, control_event::clicked, [&self] {
            self.notes.push_back("added " + self.text(2327));
            self.set_text(2327, "");
        });
        self.on(2301, control_event::clicked, [&self] { self.EndDialog(2301); });
    };
    script({[] { QTest::keyClicks(QApplication::focusWidget(), "03"); },
            [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); },
            [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Enter); }});
    EXPECT_EQ(dialog.DoModal(), 2301);
    EXPECT_THAT(dialog.notes, ElementsAre("changed 2327 0", "changed 2327 03", "added 03"));
}

TEST_F(Windows, TabGoesInTheOrderOfTheTemplate) {
    std::vector<std::int32_t> expected;
    for (const auto& one : dialogs::find_template(send_form)->controls)
        expected.push_back(one.id);
    std::vector<std::int32_t> passed;
    noting_dialog dialog(send_form);
    dialog.opening = [](auto& self) {
        self.set_focus(2327);
        self.check(2307); // only the checked button of a group is on the way
        for (const auto id : {2324, 2325, 2313})
            self.check(id);
    };
    script({[&passed] {
        do {
            passed.push_back(QApplication::focusWidget()->objectName().toInt());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        } while (QApplication::focusWidget()->objectName() != "2327" && passed.size() < 40);
        QTest::keyClick(window(send_form), Qt::Key_Escape);
    }});
    EXPECT_EQ(dialog.DoModal(), 0);
    EXPECT_THAT(dialog.notes, ElementsAre("closed"));
    EXPECT_THAT(passed, ElementsAre(2327, 2333, 2324, 2348, 2347, 2325, 2350, 2313, 2307, 2332,
                                    2311, 2319, 2317, 2301, 2302));
}

TEST_F(Windows, AcceleratorsAndTheWindowsOwnClose) {
    noting_dialog dialog(send_form);
    script({[] { QTest::keyClick(window(send_form), Qt::Key_H, Qt::AltModifier); },
            [] { QTest::keyClick(window(send_form), Qt::Key_R, Qt::AltModifier); },
            [] { QTest::keyClick(window(send_form), Qt::Key_O, Qt::AltModifier); },
            [&dialog] {
                dialog.notes.push_back(QApplication::focusWidget()->objectName().toStdString());
                window(send_form)->close();
            }});
    EXPECT_EQ(dialog.DoModal(), 0);
    EXPECT_THAT(dialog.notes, ElementsAre("clicked 2333", "clicked 2347", "2317", "closed"));
}

TEST_F(Windows, OnlyWhatTheDialogTakesIsTyped) {
    noting_dialog dialog(dialogs::entry_form);
    dialog.opening = [](auto& self) {
        self.set_limit(1908, 5);
        self.set_filter(1908, [](unsigned char one) { return one != ' ' && one != '&'; });
        self.set_focus(1908);
    };
    std::string typed, pasted, commented;
    const auto type = [](std::int32_t id, const QString& text) {
        for (const QChar one : text)
            QTest::sendKeyEvent(QTest::Click, control(dialogs::entry_form, id), Qt::Key_unknown,
                                QString(one), Qt::NoModifier);
    };
    script({[&] { type(1908, QString::fromUtf8("ä &б€bcde")); },
            [&] {
                typed = dialog.text(1908);
                auto* edit = control<QLineEdit>(dialogs::entry_form, 1908);
                edit->selectAll();
                QApplication::clipboard()->setText(QString::fromUtf8("a u\u0308б"));
                QTest::keyClick(edit, Qt::Key_V, Qt::ControlModifier);
                pasted = dialog.text(1908);
                type(1911, QString::fromUtf8("x & y"));
                commented = dialog.text(1911);
                window(dialogs::entry_form)->close();
            }});
    dialog.DoModal();
    EXPECT_EQ(typed, "\xe4\x80"
                     "bcd");
    EXPECT_EQ(pasted, "a \xfc?");
    EXPECT_EQ(commented, "x & y");
}

TEST_F(Windows, RadioButtonsExcludeEachOtherAndAGroupMayBeEmpty) {
    noting_dialog dialog(send_form);
    dialog.opening = [](auto& self) { self.check(2307); };
    const auto checked = [] {
        std::vector<int> ids;
        for (const auto* one : window(send_form)->findChildren<QRadioButton*>())
            if (one->isChecked())
                ids.push_back(one->objectName().toInt());
        return ids;
    };
    std::vector<int> before, after;
    script({[&] {
                before = checked();
                QTest::mouseClick(control(send_form, 2326), Qt::LeftButton);
                control(send_form, 2307)->setFocus();
                QTest::keyClick(control(send_form, 2307), Qt::Key_Down);
            },
            [&] {
                after = checked();
                EXPECT_TRUE(dialog.is_checked(2308));
                EXPECT_FALSE(dialog.is_checked(2307));
                dialog.check(2308, false);
                EXPECT_THAT(checked(), ElementsAre(2326));
                window(send_form)->close();
            }});
    dialog.DoModal();
    EXPECT_THAT(before, ElementsAre(2307));
    EXPECT_THAT(after, ElementsAre(2326, 2308));
    EXPECT_THAT(dialog.notes, ElementsAre("clicked 2326", "clicked 2308", "closed"));
}

TEST_F(Windows, StateOfTheControlsShows) {
    noting_dialog dialog(send_form);
    dialog.opening = [](auto& self) {
        self.set_read_only(2348);
        for (const auto* book : {"common", "privat"})
            self.add_item(2310, book);
    };
    script({[&dialog] {
        dialog.set_text(2348, "030 kanzlei\xe4 ");
        EXPECT_EQ(control<QPlainTextEdit>(send_form, 2348)->toPlainText(),
                  QString::fromUtf8("030 kanzleiä "));
        EXPECT_EQ(control(send_form, 2327)->accessibleName(), "Rufnummer oder Kennung");
        EXPECT_EQ(control(send_form, 2333)->accessibleName(), "Hinzu");
        const auto expect_marked = [](const char* with, bool marked) {
            auto* edit = control<QLineEdit>(send_form, 2327);
            EXPECT_EQ(edit->accessibleDescription(), with);
            const QColor edge = edit->grab().toImage().pixelColor(0, edit->height() / 2);
            EXPECT_EQ(edge == QColor(0xd9, 0x77, 0x06), marked);
        };
        expect_marked("", false);
        dialog.mark(2327, "note");
        expect_marked("note", true);
        dialog.mark(2327, "");
        expect_marked("", false);
        EXPECT_FALSE(control(send_form, 2385)->isVisible());
        dialog.show(2385);
        EXPECT_TRUE(control(send_form, 2385)->isVisible());
        EXPECT_FALSE(control(send_form, 2303)->isEnabled());
        dialog.enable(2303);
        EXPECT_TRUE(control(send_form, 2303)->isEnabled());
        const int low = window(send_form)->height();
        for (const auto id : {2305, 2329, 2310, 2331})
            dialog.show(id);
        QTimer::singleShot(60, qApp, [low, &dialog] {
            EXPECT_TRUE(control(send_form, 2331)->isVisible());
            EXPECT_GT(window(send_form)->height(), low + 100);
            EXPECT_TRUE(window(send_form)->screen()->availableGeometry().contains(
                window(send_form)->geometry()));
            QTest::keyClick(control(send_form, 2310), Qt::Key_Down);
            dialog.EndDialog(5);
        });
    }});
    EXPECT_EQ(dialog.DoModal(), 5);
    EXPECT_THAT(dialog.notes, ElementsAre("selected 2310 common"));
}

} // namespace
} // namespace zerdix::test
