// SPDX-License-Identifier: MIT
#include "presenter/display.h"

#include <dlfcn.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

#include <QFile>
#include <QLibraryInfo>
#include <QStringList>

namespace zerdix::dialogs_qt {

namespace {

QString setting(const char* name) {
    return qEnvironmentVariable(name);
}

QStringList plugin_folders() {
    QStringList folders;
    if (!setting("QT_QPA_PLATFORM_PLUGIN_PATH").isEmpty())
        folders += setting("QT_QPA_PLATFORM_PLUGIN_PATH").split(':');
    for (const QString& folder : setting("QT_PLUGIN_PATH").split(':', Qt::SkipEmptyParts))
        folders += folder + "/platforms";
    folders += QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/platforms";
    return folders;
}

// A plug-in that lacks a library of its own would end the process, too.
bool can_be_loaded(const QString& plugin) {
    for (const QString& folder : plugin_folders()) {
        const QByteArray path = QFile::encodeName(folder + "/libq" + plugin + ".so");
        void* library = QFile::exists(path) ? dlopen(path.constData(), RTLD_LAZY) : nullptr;
        if (library == nullptr)
            continue;
        dlclose(library);
        return true;
    }
    return false;
}

std::shared_ptr<void> connect_to_x() {
    if (setting("DISPLAY").isEmpty())
        return nullptr;
    std::shared_ptr<xcb_connection_t> link(xcb_connect(nullptr, nullptr), &xcb_disconnect);
    return xcb_connection_has_error(link.get()) == 0 ? link : nullptr;
}

bool accepts_connections(const QByteArray& path) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.isEmpty() || static_cast<std::size_t>(path.size()) >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket < 0)
        return false;
    const auto* where = reinterpret_cast<const sockaddr*>(&address);
    const bool accepted = ::connect(socket, where, sizeof address) == 0;
    ::close(socket);
    return accepted;
}

bool compositor_answers() {
    const QString name = setting("WAYLAND_DISPLAY");
    if (name.isEmpty())
        return false;
    const QString path = name.startsWith('/') ? name : setting("XDG_RUNTIME_DIR") + '/' + name;
    return accepts_connections(QFile::encodeName(path));
}

way_to_screen try_way(const QString& way) {
    const QString platform = way.section(':', 0, 0);
    const bool wayland = platform.startsWith("wayland");
    if (!can_be_loaded(wayland ? "wayland-generic" : platform) ||
        (wayland && !compositor_answers()))
        return {};
    if (platform != "xcb")
        return {way.toStdString(), nullptr};
    auto link = connect_to_x();
    return {link != nullptr ? way.toStdString() : "", link};
}

} // namespace

way_to_screen find_screen() {
    // X first: under it a dialog can stand in front of a window of another toolkit.
    QString ways = setting("QT_QPA_PLATFORM");
    if (ways.isEmpty())
        ways = "xcb;wayland";
    for (const QString& one : ways.split(';', Qt::SkipEmptyParts))
        if (auto found = try_way(one); !found.platform.empty())
            return found;
    return {};
}

} // namespace zerdix::dialogs_qt
