// Pictures of every window over the demonstration installation, in virtual time, so that they come out the same again.
//
//   qvm_screenshots PLACE LANGUAGE PALETTE PREFIX   writes PREFIX<window>.png; PLACE: a program folder with its data,
//                                                   PALETTE: a desktop's, "breeze-dark" for one
//   qvm_screenshots --check FOLDER                  looks whether the pictures of docs/screenshots.sh are sound
//
// A text that does not fit its place is a fault in either case.
#include "Bilderpruefung.h"
#include "ClearStyle.h"
#include "Fensterschau.h"
#include "Palettes.h"
#include "WidgetChecks.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <cstdio>

namespace {

/// The language files and the data of a program folder.
void load(const QString& place, qvm::test::MemoryFiles& disk) {
    QDirIterator entries(place, QDir::Files | QDir::NoSymLinks, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        QFile file(entries.next());
        const QString name = QDir(place).relativeFilePath(file.fileName());
        if ((name.startsWith(QLatin1String("DAT/")) || name.startsWith(QLatin1String("QVM_"))) &&
            file.open(QIODevice::ReadOnly)) {
            disk.Files["/q/" + name.toStdString()] = file.readAll().toStdString();
        }
    }
}

constexpr int FastPacking = 85; // of 100 for no packing at all; half of the time went into packing

QStringList takePictures(const QString& place, const std::string& language, const QString& prefix) {
    qvm::test::VirtualPlatform world;
    load(place, world.Disk);
    QStringList faults;
    qvm::test::Fensterschau(world, language).run([&](QWidget& window, const char* name) {
        const QString path = prefix + QLatin1String(name) + QStringLiteral(".png");
        for (const QString& text : qvm::test::allTextsFit(&window)) {
            faults += path + QStringLiteral(": does not fit: ") + text;
        }
        if (!window.isVisible() || !window.grab().save(path, "PNG", FastPacking)) {
            faults += path + QStringLiteral(": no picture");
        }
    });
    return faults;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("qvm7702-screens"));
    QApplication::setStyle(new qvm::ui::ClearStyle(QStringLiteral("Fusion")));
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    QStringList faults;
    if (arguments.size() == 3 && arguments.at(1) == QLatin1String("--check")) {
        faults = qvm::test::checkPictures(arguments.at(2));
    } else if (arguments.size() == 5) {
        if (!qvm::test::dressProgram(arguments.at(3))) {
            std::fprintf(stderr, "%s: no palette of that name\n", qUtf8Printable(arguments.at(3)));
            return 2;
        }
        faults = takePictures(arguments.at(1), arguments.at(2).toStdString(), arguments.at(4));
    } else {
        std::fputs("qvm_screenshots PLACE LANGUAGE PALETTE PREFIX | --check FOLDER\n", stderr);
        return 2;
    }
    for (const QString& fault : faults) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(fault));
    }
    return faults.isEmpty() ? 0 : 1;
}
