// SPDX-License-Identifier: MIT
// Saves a picture of a dialog. Ends with 1 and names them when words don't fit or controls lie over
// each other.
#include <QApplication>
#include <QCommandLineParser>
#include <QPixmap>
#include <QStyle>
#include <QTextStream>
#include <QWidget>

#include "forms/presenter_plugin.h"
#include "gallery/clipped.h"
#include "gallery/sample_dialog.h"

extern "C" zerdix::forms::presenter* zerdix_presenter(std::int32_t interface);

namespace {

using namespace zerdix;

void use_dark_colours() {
    QPalette dark(QColor(45, 45, 48));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::AlternateBase, QColor(38, 38, 40));
    dark.setColor(QPalette::Highlight, QColor(61, 120, 190));
    dark.setColor(QPalette::ToolTipBase, QColor(70, 70, 74));
    dark.setColor(QPalette::ToolTipText, Qt::white);
    dark.setColor(QPalette::PlaceholderText, QColor(160, 160, 160));
    QApplication::setPalette(dark);
}

gallery::side side_of(const QString& name) {
    return name == "book"     ? gallery::side::book
           : name == "groups" ? gallery::side::groups
                              : gallery::side::none;
}

int take(gallery::sample_dialog& dialog, const QString& file) {
    if (!dialog.Create())
        return 1;
    QWidget* window = QApplication::topLevelWidgets().constFirst();
    for (QWidget* one : QApplication::topLevelWidgets())
        if (one->objectName() == QString::number(dialog.form()->id))
            window = one;
    QCoreApplication::processEvents();
    const auto found = gallery::misplaced(*window);
    for (const QString& one : found)
        QTextStream(stderr) << file << ": " << one << '\n';
    const bool saved = window->grab().save(file);
    return saved && found.isEmpty() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    QApplication program(argc, argv);
    QCommandLineParser line;
    line.addOptions({{"language", "Language file.", "file", ""},
                     {"side", "book or groups, of the send dialog.", "side", ""},
                     {"typed", "A number stands typed beside the picks, of the send dialog."},
                     {"dark", "Light words on dark ground."}});
    line.addPositionalArgument("dialog", "Number of the template.");
    line.addPositionalArgument("picture", "PNG to write.");
    line.addHelpOption();
    line.process(program);
    const auto arguments = line.positionalArguments();
    if (arguments.size() != 2 || !gallery::use_language(line.value("language").toUtf8()))
        line.showHelp(64);
    if (line.isSet("dark"))
        use_dark_colours();
    forms::replace_presenter(zerdix_presenter(forms::presenter_interface));
    gallery::sample_dialog dialog(arguments[0].toInt(), side_of(line.value("side")),
                                  line.isSet("typed"));
    return take(dialog, arguments[1]);
}
