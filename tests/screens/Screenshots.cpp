// Pictures of every window over the demonstration installation, in virtual time, so that they come out the same again.
//
//   qvm_screenshots PLACE LANGUAGE light|dark PREFIX   writes PREFIX<window>.png; PLACE: a program folder with its data
//   qvm_screenshots --check FOLDER                     looks whether the pictures of docs/screenshots.sh are sound
//
// A text that does not fit its place is a fault in either case.
#include "Bilderpruefung.h"
#include "Fensterschau.h"

#include <QApplication>

#include <cstdio>

namespace {

QPalette darkPalette() {
    QPalette palette;
    const QColor white(Qt::white), grey(130, 130, 130);
    palette.setColor(QPalette::Window, QColor(45, 45, 48));
    palette.setColor(QPalette::Base, QColor(30, 30, 30));
    palette.setColor(QPalette::AlternateBase, QColor(38, 38, 40));
    palette.setColor(QPalette::Button, QColor(55, 55, 58));
    palette.setColor(QPalette::ToolTipBase, QColor(60, 60, 60));
    palette.setColor(QPalette::Mid, QColor(80, 80, 80));
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    palette.setColor(QPalette::Link, QColor(90, 170, 255));
    palette.setColor(QPalette::PlaceholderText, QColor(160, 160, 160));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText,
                            QPalette::HighlightedText}) {
        palette.setColor(role, white);
        palette.setColor(QPalette::Disabled, role, grey);
    }
    return palette;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("qvm7702-screens"));
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    QStringList faults;
    if (arguments.size() == 3 && arguments.at(1) == QLatin1String("--check")) {
        faults = qvm::test::checkPictures(arguments.at(2));
    } else if (arguments.size() == 5) {
        if (arguments.at(3) == QLatin1String("dark")) {
            QApplication::setPalette(darkPalette());
        }
        qvm::test::Fensterschau show(arguments.at(1), arguments.at(2).toStdString(), arguments.at(4));
        faults = show.run();
    } else {
        std::fputs("qvm_screenshots PLACE LANGUAGE light|dark PREFIX | --check FOLDER\n", stderr);
        return 2;
    }
    for (const QString& fault : faults) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(fault));
    }
    return faults.isEmpty() ? 0 : 1;
}
