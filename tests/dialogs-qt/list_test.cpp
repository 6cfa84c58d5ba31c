// SPDX-License-Identifier: MIT
// The list control in a window.

#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>

#include "dialogs-qt/windows.h"

namespace zerdix::test {
namespace {

using dialogs::send_form;
using forms::SftTree_WndProc;
using namespace ::testing;

class Lists : public Windows {
  protected:
    Lists() {
        dialog.opening = [this](auto& self) {
            for (const auto id : {2305, 2310, 2331})
                self.show(id);
            set_columns(self.list(2331)->view->client_width());
            self.set_focus(2331);
        };
    }

    std::intptr_t send(std::uint32_t message, std::uintptr_t wParam = 0, std::intptr_t lParam = 0) {
        return SftTree_WndProc(dialog.list(2331), message, wParam, lParam);
    }
    void set_columns(std::int32_t width) {
        const forms::column_record columns[2] = {{width / 2, 0, 0, 0}, {width / 2, 0, 0, 0}};
        send(forms::write_columns, 2, reinterpret_cast<std::intptr_t>(columns));
    }
    void add(int rows) {
        for (int i = 0; i < rows; ++i) {
            const auto row = send(forms::add_row, 0, reinterpret_cast<std::intptr_t>("e"));
            send(forms::choose_column, 1);
            send(forms::write_cell, static_cast<std::uintptr_t>(row),
                 reinterpret_cast<std::intptr_t>("K\xf6ln"));
        }
    }
    bool in_view(std::uintptr_t row) { return send(forms::row_place, row) == 0; }
    static QTableView* table() { return control<QTableView>(send_form, 2331); }
    void finish() { dialog.EndDialog(1); }

    noting_dialog dialog{send_form};
};

TEST_F(Lists, FillsWhileTheUserScrolls) {
    // What the send dialog does: the next block when the last row comes into view.
    int blocks = 0;
    dialog.on(2331, control_event::scrolled, [&] {
        if (blocks < 4 && in_view(static_cast<std::uintptr_t>(send(forms::count_rows)) - 1)) {
            ++blocks;
            add(30);
        }
    });
    script({[&] {
                add(30);
                EXPECT_TRUE(in_view(0));
                EXPECT_FALSE(in_view(29));
                table()->verticalScrollBar()->setValue(table()->verticalScrollBar()->maximum());
            },
            [&] {
                EXPECT_EQ(blocks, 1);
                EXPECT_EQ(table()->model()->rowCount(), 60);
                EXPECT_EQ(table()->model()->index(59, 1).data(), QString::fromUtf8("Köln"));
                QTest::keyClick(table(), Qt::Key_End);
            },
            [&] {
                EXPECT_EQ(table()->model()->rowCount(), 90);
                EXPECT_FALSE(in_view(0));
                send(forms::remove_rows);
                EXPECT_EQ(table()->model()->rowCount(), 0);
                finish();
            }});
    dialog.DoModal();
    EXPECT_THAT(dialog.notes, Contains("selected 2331 59"));
}

TEST_F(Lists, TellsOfScrollingWhereThereIsNothingToScroll) {
    script({[&] { add(3); },
            [&] {
                const auto middle = QPointF(table()->viewport()->rect().center());
                QWheelEvent down(middle, table()->viewport()->mapToGlobal(middle), {0, -120},
                                 {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
                QApplication::sendEvent(table()->viewport(), &down);
            },
            [&] { finish(); }});
    dialog.DoModal();
    EXPECT_THAT(dialog.notes, ElementsAre("scrolled 2331"));
}

TEST_F(Lists, SelectsByMouseAndKeysAndTellsNothingOfWhatTheDialogSelects) {
    script({[&] {
                add(50);
                send(forms::select_row, 40);
                send(forms::show_row, 40);
                EXPECT_TRUE(in_view(40));
                EXPECT_EQ(table()->selectionModel()->selectedRows().front().row(), 40);
                send(forms::show_row, 0);
            },
            [&] {
                dialog.notes.clear();
                const auto second = table()->visualRect(table()->model()->index(1, 0)).center();
                QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, second);
                QTest::keyClick(table(), Qt::Key_Down);
                QTest::keyClick(table(), Qt::Key_Return);
                QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {}, second);
                send(forms::select_row, static_cast<std::uintptr_t>(-1));
                EXPECT_TRUE(table()->selectionModel()->selectedRows().isEmpty());
                QTest::keyClick(table(), Qt::Key_Home);
                finish();
            }});
    dialog.DoModal();
    EXPECT_THAT(dialog.notes,
                ElementsAre("selected 2331 1", "selected 2331 2", "selected 2331 2", "entered 2331",
                            "selected 2331 1", "entered 2331", "selected 2331 0"));
}

TEST_F(Lists, KeepsTheWidthThatTheUserDrew) {
    static const forms::font_description large{-30, 700, "Courier"};
    script({[&] {
        EXPECT_EQ(table()->horizontalScrollBar()->maximum(), 0) << "the columns fill the list";
        const int row = table()->verticalHeader()->defaultSectionSize();
        table()->horizontalHeader()->resizeSection(1, 77);
        send(forms::set_font, reinterpret_cast<std::uintptr_t>(&large));
        EXPECT_EQ(table()->columnWidth(1), 77);
        forms::column_record* columns = nullptr;
        EXPECT_EQ(send(forms::read_columns, 0, reinterpret_cast<std::intptr_t>(&columns)), 2);
        EXPECT_EQ(columns[1].width, 77);
        EXPECT_GE(table()->verticalHeader()->defaultSectionSize(), row + 8);
        finish();
    }});
    dialog.DoModal();
}

// By the right button on the titles and by the menu key, with the box that the menu leads to.
TEST_F(Lists, OffersTheFontsInAMenu) {
    static forms::font_description font{-20, 400, "Courier"};
    dialog.on_posted(31036, [&] {
        EXPECT_TRUE(shown->choose_font(nullptr, font, false));
        dialog.notes.push_back("list font " + font.face);
    });
    dialog.on_posted(31032, [&] { dialog.notes.push_back("text font"); });
    const auto key = [](Qt::Key one) {
        QWidget* menu = QApplication::activePopupWidget();
        QTest::keyClick(menu != nullptr ? menu : QApplication::focusWidget(), one);
    };
    script({[] {
                const auto* header = table()->horizontalHeader();
                QTest::mouseClick(window(send_form)->windowHandle(), Qt::RightButton, {},
                                  header->mapTo(window(send_form), header->rect().center()));
            },
            [&] {
                ASSERT_NE(QApplication::activePopupWidget(), nullptr);
                key(Qt::Key_Up);
                key(Qt::Key_Return);
            },
            [&] {
                QContextMenuEvent by_key(QContextMenuEvent::Keyboard, {}, {});
                QApplication::sendEvent(table(), &by_key);
            },
            [&] {
                key(Qt::Key_Down);
                key(Qt::Key_Return);
            },
            [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return); },
            [&] {
                EXPECT_EQ(QApplication::focusWidget(), table());
                finish();
            }});
    dialog.DoModal();
    EXPECT_THAT(dialog.notes, ElementsAre("text font", "list font Liberation Mono"));
}

} // namespace
} // namespace zerdix::test
