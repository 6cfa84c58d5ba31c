// SPDX-License-Identifier: MIT
#include "control/typed_edit.h"

#include <algorithm>
#include <utility>

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>

#include "control/unicode.h"

namespace zerdix::dialogs_qt {

namespace {

// Stands out from light and from dark ground.
constexpr QRgb mark_colour = 0xffd97706;
constexpr int mark_width = 2;

bool is_enter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

// A character that lands in the text, and not a command such as Ctrl+V.
bool is_typed(const QKeyEvent& event) {
    const auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const bool third_level = event.modifiers().testFlag(Qt::ControlModifier) &&
                             event.modifiers().testFlag(Qt::AltModifier);
    return !event.text().isEmpty() && event.text().front().isPrint() &&
           (third_level || (event.modifiers() & commands) == Qt::NoModifier);
}

} // namespace

typed_edit::typed_edit(window_port& window, std::int32_t id, QWidget* parent)
    : QLineEdit(parent), window_(window), id_(id) {}

bool typed_edit::may_type(const QString& text) const {
    if (!has_cp1252(text))
        return false;
    const std::string bytes = to_cp1252(text);
    return std::all_of(bytes.begin(), bytes.end(), [this](char one) {
        return window_.dialog().user_may_type(id_, static_cast<unsigned char>(one));
    });
}

std::int32_t typed_edit::entry_button() const {
    const auto& form = *window_.dialog().form();
    return form.entry_edit == id_ && !text().isEmpty() ? form.entry_button : 0;
}

void typed_edit::set_marked(bool marked) {
    if (std::exchange(marked_, marked) != marked)
        update();
}

void typed_edit::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    if (!marked_)
        return;
    QPainter painter(this);
    painter.setPen(
        QPen(QColor(mark_colour), mark_width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    constexpr int inside = mark_width / 2;
    painter.drawRect(rect().adjusted(inside, inside, -inside, -inside));
}

void typed_edit::keyPressEvent(QKeyEvent* event) {
    if (is_enter(*event) && entry_button() != 0 && window_.press(entry_button()))
        return;
    if (!isReadOnly() && is_typed(*event) && !may_type(event->text()))
        return;
    QLineEdit::keyPressEvent(event);
}

// Characters that are composed of several keys arrive here.
void typed_edit::inputMethodEvent(QInputMethodEvent* event) {
    QString kept;
    for (const char32_t one :
         event->commitString().normalized(QString::NormalizationForm_C).toUcs4()) {
        const QString character = QString::fromUcs4(&one, 1);
        if (may_type(character))
            kept += character;
    }
    event->setCommitString(kept, event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(event);
}

} // namespace zerdix::dialogs_qt
