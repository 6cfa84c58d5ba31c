// SPDX-License-Identifier: MIT
// Takes input for code that has a loop of its own, and ends the program.
#include "presenter/qt_presenter.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QThread>

namespace zerdix::dialogs_qt {

// The toolkit can't be asked whether input waits; it tells only whether there was any. So each
// round takes until there was none.
bool qt_presenter::input_waits() {
    const bool waits = input_may_wait_ && on_own_thread();
    input_may_wait_ = true;
    return waits;
}

bool qt_presenter::take_input() {
    if (!on_own_thread())
        return false;
    auto* dispatcher = QAbstractEventDispatcher::instance(QThread::currentThread());
    input_may_wait_ = dispatcher != nullptr && dispatcher->processEvents(QEventLoop::AllEvents);
    return !quitting_;
}

// A host's loop may not run yet, and mustn't miss it.
void qt_presenter::quit(int code) {
    quitting_ = whose_ == application::ours;
    if (quitting_)
        QCoreApplication::exit(code);
    else
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [code] { QCoreApplication::exit(code); },
            Qt::QueuedConnection);
}

} // namespace zerdix::dialogs_qt
