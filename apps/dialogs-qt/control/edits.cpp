// SPDX-License-Identifier: MIT
#include "control/edits.h"

#include <QLabel>
#include <QPlainTextEdit>

#include "control/typed_edit.h"
#include "control/unicode.h"

namespace zerdix::dialogs_qt {

namespace {

// Edits that take less get a place of their length.
constexpr std::size_t short_edit = 10;
constexpr int widest_edit = 32767;
constexpr int lines_of_text = 3;
constexpr int characters_of_text = 30;

// Of an edit that holds `characters`.
int width_for(const QLineEdit& edit, std::size_t characters) {
    const int frame = edit.sizeHint().height();
    return static_cast<int>(characters + 2) * edit.fontMetrics().horizontalAdvance('0') + frame;
}

} // namespace

edit_control::edit_control(window_port& window, forms::control& control, QWidget* parent)
    : control_widget(window, control, new typed_edit(window, control.id(), parent)) {
    if (control.form->style.captioned)
        make_label(parent);
    auto* edit = static_cast<QLineEdit*>(widget());
    if (label() == nullptr)
        edit->setPlaceholderText(without_accelerator(caption()));
    QObject::connect(edit, &QLineEdit::textEdited, edit,
                     [this](const QString& text) { edited(text); });
}

bool edit_control::grows_wide() const {
    return control_.limit == 0 || control_.limit > short_edit;
}

void edit_control::edited(const QString& text) {
    window_.tell(
        [id = this->id(), bytes = to_cp1252(text)](auto& dialog) { dialog.user_edits(id, bytes); });
}

void edit_control::refresh_content() {
    auto* edit = static_cast<typed_edit*>(widget());
    const QString text = to_unicode(control_.text);
    edit->setMaxLength(control_.limit != 0 ? static_cast<int>(control_.limit) : widest_edit);
    edit->setReadOnly(control_.read_only);
    if (edit->text() != text)
        edit->setText(text);
    edit->set_marked(!control_.mark.empty());
    edit->setAccessibleDescription(without_accelerator(to_unicode(control_.mark)));
    if (!grows_wide())
        edit->setFixedWidth(width_for(*edit, control_.limit));
}

text_control::text_control(window_port& window, forms::control& control, QWidget* parent)
    : control_widget(window, control, new QPlainTextEdit(parent)) {
    if (control.form->style.captioned)
        make_label(parent);
    auto* edit = static_cast<QPlainTextEdit*>(widget());
    edit->setTabChangesFocus(true);
    const int margins =
        2 * (edit->frameWidth() + static_cast<int>(edit->document()->documentMargin()));
    edit->setFixedHeight(lines_of_text * edit->fontMetrics().lineSpacing() + margins);
    edit->setMinimumWidth(characters_of_text * edit->fontMetrics().averageCharWidth());
    QObject::connect(edit, &QPlainTextEdit::textChanged, edit, [this, edit] {
        window_.tell([id = this->id(), bytes = to_cp1252(edit->toPlainText())](auto& dialog) {
            dialog.user_edits(id, bytes);
        });
    });
}

// The newest part of the text stands at its end.
void text_control::refresh_content() {
    auto* edit = static_cast<QPlainTextEdit*>(widget());
    const QString text = to_unicode(control_.text);
    edit->setReadOnly(control_.read_only);
    if (edit->toPlainText() == text)
        return;
    edit->setPlainText(text);
    edit->moveCursor(QTextCursor::End);
}

} // namespace zerdix::dialogs_qt
