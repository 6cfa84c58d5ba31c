// SPDX-License-Identifier: MIT
#include "gallery/clipped.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QTableView>

namespace zerdix::gallery {

namespace {

QString note(const QString& words, int missing) {
    return QString("\"%1\" lacks %2 pixels").arg(words).arg(missing);
}

// What the widget would need more than it has; negative when it has enough.
int missing_room(const QWidget& widget) {
    const QSize needed = widget.minimumSizeHint().expandedTo(widget.minimumSize());
    const auto* label = qobject_cast<const QLabel*>(&widget);
    if (label != nullptr && label->wordWrap())
        return label->heightForWidth(label->width()) - label->height();
    return std::max(needed.width() - widget.width(), needed.height() - widget.height());
}

template <typename Widget, typename Words>
void look_at(const QWidget& window, QStringList& found, Words words) {
    for (const Widget* one : window.findChildren<Widget*>())
        if (one->isVisible() && missing_room(*one) > 0)
            found += note(words(*one), missing_room(*one));
}

void look_at_titles(const QWidget& window, QStringList& found) {
    for (const auto* table : window.findChildren<QTableView*>()) {
        const auto* header = table->horizontalHeader();
        for (int i = 0; table->isVisible() && i < header->count(); ++i) {
            const QString title = table->model()->headerData(i, Qt::Horizontal).toString();
            const int missing = header->sectionSizeHint(i) - header->sectionSize(i);
            if (missing > 0)
                found += note(title, missing);
        }
    }
}

void look_at_text(const QWidget& window, QStringList& found) {
    for (const auto* edit : window.findChildren<QLineEdit*>()) {
        const QString words = edit->text().isEmpty() ? edit->placeholderText() : edit->text();
        const int missing = edit->fontMetrics().horizontalAdvance(words) + 8 - edit->width();
        if (edit->isVisible() && missing > 0)
            found += note(words, missing);
    }
}

void look_for_overlaps(const QWidget& parent, QStringList& found) {
    const auto children = parent.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    for (qsizetype i = 0; i < children.size(); ++i)
        for (qsizetype j = i + 1; j < children.size(); ++j)
            if (children[i]->isVisible() && children[j]->isVisible() &&
                children[i]->geometry().intersects(children[j]->geometry()))
                found += children[i]->objectName() + " overlaps " + children[j]->objectName();
    for (const auto* child : children)
        if (child->layout() != nullptr)
            look_for_overlaps(*child, found);
}

} // namespace

QStringList misplaced(const QWidget& window) {
    QStringList found;
    look_at<QAbstractButton>(window, found, [](const auto& one) { return one.text(); });
    look_at<QLabel>(window, found, [](const auto& one) { return one.text(); });
    look_at<QGroupBox>(window, found, [](const auto& one) { return one.title(); });
    look_at_titles(window, found);
    look_at_text(window, found);
    look_for_overlaps(window, found);
    return found;
}

} // namespace zerdix::gallery
