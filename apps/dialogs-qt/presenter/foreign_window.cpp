// SPDX-License-Identifier: MIT
#include "presenter/foreign_window.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>

#include <QGuiApplication>

namespace zerdix::dialogs_qt {

namespace {

QWindow* window_of_host(WId id) {
    for (QWindow* one : QGuiApplication::topLevelWindows())
        if (one->handle() != nullptr && one->winId() == id)
            return one;
    return nullptr;
}

bool is_on_screen(WId id) {
    const auto* x = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x == nullptr || x->connection() == nullptr || id > 0xffffffffu)
        return false;
    const auto asked = xcb_get_window_attributes(x->connection(), static_cast<xcb_window_t>(id));
    const std::unique_ptr<xcb_get_window_attributes_reply_t, decltype(&std::free)> reply(
        xcb_get_window_attributes_reply(x->connection(), asked, nullptr), &std::free);
    return reply != nullptr;
}

} // namespace

QWindow* foreign_windows::find(forms::window_handle window) {
    const auto id = reinterpret_cast<WId>(window);
    if (id == 0)
        return nullptr;
    if (QWindow* host = window_of_host(id))
        return host;
    if (!is_on_screen(id))
        return nullptr;
    auto& stand_in = stand_ins_[id];
    if (stand_in == nullptr)
        stand_in.reset(QWindow::fromWinId(id));
    return stand_in.get();
}

bool foreign_windows::is_stand_in(const QWindow* window) const {
    return std::any_of(stand_ins_.begin(), stand_ins_.end(),
                       [window](const auto& one) { return one.second.get() == window; });
}

} // namespace zerdix::dialogs_qt
