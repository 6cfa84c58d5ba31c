// SPDX-License-Identifier: MIT
#include "presenter/application.h"

#include <array>
#include <clocale>
#include <string>

#include <QApplication>
#include <QThread>

#include "presenter/display.h"

namespace zerdix::dialogs_qt {

namespace {

// The toolkit takes the user's locale for the whole process, which is the host's to decide.
class kept_locale {
  public:
    kept_locale() : name_(std::setlocale(LC_ALL, nullptr)) {}
    ~kept_locale() { std::setlocale(LC_ALL, name_.c_str()); }
    kept_locale(const kept_locale&) = delete;
    kept_locale& operator=(const kept_locale&) = delete;

  private:
    std::string name_;
};

bool make_application() {
    static std::string platform;
    const way_to_screen way = find_screen();
    platform = way.platform;
    if (platform.empty())
        return false;
    static std::array<char, 7> name{"zerdix"};
    static std::array<char, 10> option{"-platform"};
    static std::array<char*, 4> arguments{name.data(), option.data(), platform.data(), nullptr};
    static int count = 3;
    const kept_locale locale;
    auto* made = new QApplication(count, arguments.data());
    made->setQuitOnLastWindowClosed(false);
    QGuiApplication::setDesktopFileName("org.zerdix.Zerdix");
    return true;
}

} // namespace

application find_application() {
    static bool made = false;
    if (QCoreApplication::instance() == nullptr)
        made = make_application();
    const auto* present = qobject_cast<QApplication*>(QCoreApplication::instance());
    if (present == nullptr || present->thread() != QThread::currentThread())
        return application::none;
    return made ? application::ours : application::of_the_host;
}

} // namespace zerdix::dialogs_qt
