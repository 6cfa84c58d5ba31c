// SPDX-License-Identifier: MIT
// Dialogs in real windows, and a user who works with them from a script.
#ifndef ZERDIX_TESTS_DIALOGS_QT_WINDOWS_H
#define ZERDIX_TESTS_DIALOGS_QT_WINDOWS_H

#include <functional>
#include <string>
#include <vector>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <gmock/gmock.h>

#include "dialogs/dialog_resources.h"
#include "dialogs/templates.h"
#include "forms/dialog.h"
#include "forms/presenter_plugin.h"
#include "forms/tree_list.h"

extern "C" zerdix::forms::presenter* zerdix_presenter(std::int32_t interface);

namespace zerdix::test {

using forms::control_event;

// A dialog of the library that only notes what the user does: "clicked 2301", "changed 2327 030".
class noting_dialog : public forms::dialog {
  public:
    explicit noting_dialog(std::int32_t template_id, forms::window_handle owner = nullptr)
        : dialog(template_id, owner) {
        for (const auto& one : dialogs::find_template(template_id)->controls)
            listen(one.id);
    }

    using dialog::add_item, dialog::check, dialog::enable, dialog::is_checked, dialog::list,
        dialog::make_window, dialog::mark, dialog::on, dialog::on_posted, dialog::selected_item,
        dialog::set_filter, dialog::set_focus, dialog::set_limit, dialog::set_read_only,
        dialog::set_text, dialog::show, dialog::text;

    std::vector<std::string> notes;
    std::function<void(noting_dialog&)> opening;

  protected:
    bool OnInitDialog() override {
        if (opening)
            opening(*this);
        return true;
    }
    void OnCancel() override {
        notes.push_back("closed");
        EndDialog(0);
    }

  private:
    void listen(std::int32_t id) {
        const std::string number = " " + std::to_string(id);
        on(id, control_event::clicked, [=, this] { notes.push_back("clicked" + number); });
        on(id, control_event::changed,
           [=, this] { notes.push_back("changed" + number + " " + text(id)); });
        on(id, control_event::selection_changed, [=, this] {
            const auto* rows = list(id);
            notes.push_back(
                "selected" + number + " " +
                (rows != nullptr ? std::to_string(rows->selected_row()) : selected_item(id)));
        });
        on(id, control_event::double_clicked, [=, this] { notes.push_back("entered" + number); });
        on(id, control_event::scrolled, [=, this] { notes.push_back("scrolled" + number); });
    }
};

class Windows : public ::testing::Test {
  protected:
    Windows() {
        dialogs::install_dialog_resources();
        forms::SftTree_RegisterApp2(this);
        shown = zerdix_presenter(forms::presenter_interface);
        if (shown != nullptr)
            forms::replace_presenter(shown);
    }
    ~Windows() override { forms::replace_presenter(nullptr); }
    void SetUp() override { ASSERT_NE(shown, nullptr); }

    static QWidget* window(std::int32_t template_id) {
        for (QWidget* one : QApplication::topLevelWidgets())
            if (one->objectName() == QString::number(template_id))
                return one;
        return nullptr;
    }
    template <typename Widget = QWidget>
    static Widget* control(std::int32_t template_id, std::int32_t id) {
        return window(template_id)->findChild<Widget*>(QString::number(id));
    }
    // The user's steps, each once the loop has nothing else to do; the last one has to end the
    // dialog, which is given up after a while.
    static void script(std::vector<std::function<void()>> steps) {
        int at = 0;
        for (auto& step : steps)
            QTimer::singleShot(120 + 60 * at++, qApp, std::move(step));
    }

    forms::presenter* shown = nullptr;
};

} // namespace zerdix::test

#endif
