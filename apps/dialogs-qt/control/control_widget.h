// SPDX-License-Identifier: MIT
// One control of a dialog in its window: a widget that shows the control's state and tells the
// dialog what the user does.
#ifndef ZERDIX_CONTROL_CONTROL_WIDGET_H
#define ZERDIX_CONTROL_CONTROL_WIDGET_H

#include <functional>
#include <memory>

#include <QPointer>
#include <QWidget>

#include "forms/dialog_view.h"

class QButtonGroup;
class QLabel;

namespace zerdix::dialogs_qt {

// The window, as its controls see it.
class window_port {
  public:
    using action = std::function<void(forms::dialog_view&)>;

    virtual forms::dialog_view& dialog() = 0;
    // Lets the dialog know what the user did, unless the window itself makes changes just now. The
    // control may be gone afterwards.
    virtual void tell(const action& what) = 0;
    // The same once the handlers that run now are done.
    virtual void tell_later(const action& what) = 0;
    // The user presses a button by way of another control. False when it can't be pressed.
    virtual bool press(std::int32_t button) = 0;
    virtual QButtonGroup* radio_group(int number) = 0;

  protected:
    ~window_port() = default;
};

class control_widget {
  public:
    control_widget(window_port& window, forms::control& control, QWidget* widget);
    virtual ~control_widget();
    control_widget(const control_widget&) = delete;
    control_widget& operator=(const control_widget&) = delete;

    // Shows the control's present state.
    void refresh();
    // Before the dialog's controls go, when the window outlives them.
    virtual void detach() {}

    QWidget* widget() const { return widget_; }
    // In front of the widget, or above it; null for none.
    QLabel* label() const { return label_; }
    std::int32_t id() const { return control_.id(); }
    const forms::control_template& form() const { return *control_.form; }
    // Whether it needs all the room there is.
    virtual bool grows_high() const { return false; }
    virtual bool grows_wide() const { return false; }

  protected:
    virtual void refresh_content() = 0;
    void make_label(QWidget* parent);
    QString caption() const;

    window_port& window_;
    forms::control& control_;

  private:
    QWidget* widget_;
    QLabel* label_ = nullptr;
};

std::unique_ptr<control_widget> make_control_widget(window_port& window, forms::control& control,
                                                    QWidget* parent);

} // namespace zerdix::dialogs_qt

#endif
