// SPDX-License-Identifier: MIT
// Boxes of the toolkit's own: messages and the choice of a font.
#include "presenter/qt_presenter.h"

#include <QFontDialog>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include "control/fonts.h"
#include "control/unicode.h"

namespace zerdix::dialogs_qt {

namespace {

constexpr std::int32_t text_ok = 40001;
constexpr std::int32_t text_choose_font = 40002;

// The owner may go while the box is open, and the box with it.
template <typename Box>
class open_box {
  public:
    open_box(QWidget* parent, QWindow* owner) : box_(new Box(parent)) {
        box_->setWindowFlag(Qt::WindowStaysOnTopHint);
        box_->setWindowModality(owner != nullptr ? Qt::WindowModal : Qt::ApplicationModal);
        box_->winId();
        if (owner != nullptr)
            box_->windowHandle()->setTransientParent(owner);
    }
    ~open_box() { delete box_; }
    open_box(const open_box&) = delete;
    open_box& operator=(const open_box&) = delete;

    Box* operator->() { return box_; }
    bool is_accepted() { return box_->exec() == QDialog::Accepted && box_ != nullptr; }

  private:
    QPointer<Box> box_;
};

// Where no window manager does.
void give_back_focus(const QPointer<dialog_window>& front) {
    if (front != nullptr && front->isVisible() && front->isEnabled())
        front->activateWindow();
}

QString text_of(dialog_window* window, std::int32_t number) {
    return window != nullptr ? to_unicode(window->view()->string_text(number)) : QString();
}

} // namespace

void qt_presenter::show_message(forms::window_handle owner, std::string_view text,
                                std::string_view caption) {
    if (!on_own_thread())
        return;
    const QPointer<dialog_window> front = own(owner) != nullptr ? own(owner) : in_front();
    QWindow* over = any(owner);
    if (over == nullptr && front != nullptr)
        over = front->handle();
    open_box<QMessageBox> box(front, over);
    box->setWindowTitle(to_unicode(caption));
    box->setTextFormat(Qt::PlainText);
    box->setText(to_unicode(text).trimmed());
    const QString ok = text_of(front, text_ok);
    box->addButton(QMessageBox::Ok);
    if (!ok.isEmpty())
        box->button(QMessageBox::Ok)->setText(ok);
    box.is_accepted();
    give_back_focus(front);
}

bool qt_presenter::choose_font(forms::window_handle owner, forms::font_description& font,
                               bool scalable_only) {
    if (!on_own_thread())
        return false;
    const QPointer<dialog_window> front = own(owner) != nullptr ? own(owner) : in_front();
    open_box<QFontDialog> box(front, any(owner));
    const QString title = text_of(front, text_choose_font);
    if (!title.isEmpty())
        box->setWindowTitle(title);
    box->setOption(QFontDialog::DontUseNativeDialog);
    box->setOption(QFontDialog::ScalableFonts, scalable_only);
    QFont present = font_of(font);
    // The box knows sizes in points only.
    present.setPointSizeF(present.pixelSize() * 72.0 / box->logicalDpiY());
    box->setCurrentFont(present);
    const bool accepted = box.is_accepted();
    give_back_focus(front);
    if (!accepted)
        return false;
    font = describe(box->selectedFont());
    return true;
}

} // namespace zerdix::dialogs_qt
