#include "Bestandslese.h"
#include "ClearStyle.h"
#include "F1.h"
#include "FileDialogs.h"
#include "FrontWindow.h"
#include "Messages.h"
#include "PagePrinter.h"
#include "ProcessGuard.h"
#include "ProcessStart.h"
#include "ProgramDirectory.h"
#include "ProgramLine.h"
#include "Programm.h"
#include "QtPlatform.h"
#include "Sitzung.h"
#include "Text.h"
#include "Theme.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDesktopServices>
#include <QUrl>

namespace {

/// A path, or a web address.
bool OpenWithLinkedApp(const std::string& target, const std::string& /*directory*/) {
    const QString text = QString::fromStdString(target);
    return QDesktopServices::openUrl(text.startsWith(QLatin1Char('/')) ? QUrl::fromLocalFile(text) : QUrl(text));
}

void Hourglass(bool on) {
    if (on) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QGuiApplication::restoreOverrideCursor();
    }
}

qvm::PlatformOptions Options(const std::string& directory, const std::string& programFiles,
                             qvm::ui::MessageBoxes& boxes) {
    qvm::PlatformOptions options;
    options.Directory = directory;
    options.ProgramFiles = programFiles;
    options.ShowMessage = [&boxes](const qvm::Message& message) { return boxes.show(message); };
    options.OpenFile = qvm::ui::openFile;
    options.SaveFile = qvm::ui::saveFile;
    options.PrintPages = qvm::ui::printPages;
    options.OpenWithLinkedApp = OpenWithLinkedApp;
    options.BringToFront = qvm::ui::bringToFront;
    options.Hourglass = Hourglass;
    return options;
}

/// The configured language is not known yet when this happens. `why`: in the system's words, or empty.
void TellNoDirectory(qvm::ui::MessageBoxes& boxes, const std::string& directory, const std::string& why) {
    boxes.show({.Text = qvm::AusUtf8("Die Verzeichnisse DAT und HIST können nicht angelegt werden.\n"
                                     "The folders DAT and HIST cannot be made.\n\n" +
                                     directory + (why.empty() ? "" : "\n" + why)),
                .Title = std::string(qvm::SystemTitle),
                .Sign = qvm::Icon::Exclamation});
}

void TellDataHeld(qvm::ui::MessageBoxes& boxes, const qvm::Programm& programm) {
    boxes.show({.Text = qvm::Datenbesitzer_Text(programm),
                .Title = std::string(qvm::SystemTitle),
                .Sign = qvm::Icon::Exclamation});
}

/// The virtual building of an installation without people and locks is the demonstration.
qvm::ui::Danach TheBuilding(qvm::Platform& world, const std::string& directory) {
    qvm::Kern kern(world);
    kern.AppPath = directory;
    return qvm::Bestand_Lesen(kern).Leer() ? qvm::ui::Danach::Vorfuehrung : qvm::ui::Danach::Gebaeude;
}

} // namespace

int main(int argc, char** argv) {
    qvm::Memory_Protect();
    // The far end of a socket may go away while it is told something.
    qvm::Process_Start();
    QApplication application(argc, argv);
    QApplication::setStyle(new qvm::ui::ClearStyle);
    // The application owns its style. NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
    QApplication::setApplicationName(QStringLiteral("qvm7702"));
    QApplication::setDesktopFileName(QStringLiteral("qvm7702"));
    QApplication::setWindowIcon(qvm::ui::programIcon());
    // The main window hides while an editor is open.
    QApplication::setQuitOnLastWindowClosed(false);

    QApplication::setApplicationVersion(QString::fromStdString(std::string(qvm::ProgrammVersion)));
    QCommandLineParser line;
    qvm::ui::declareProgramLine(line);
    line.process(application);

    const qvm::ProgramPlaces places = qvm::ProgramPlaces_Here({});
    const qvm::ProgramDirectory directory = qvm::ProgramDirectory_Choose(places);
    const std::string noDirectory = qvm::ProgramDirectory_Make(directory);
    qvm::ui::MessageBoxes boxes;
    qvm::QtPlatform platform(Options(directory.Path, qvm::ProgramFiles_Of(places.Executable), boxes));
    qvm::ui::Danach next =
        qvm::ui::beginsInTheBuilding(line) ? TheBuilding(platform.World(), directory.Path) : qvm::ui::Danach::Wirklich;
    for (bool first = true; next != qvm::ui::Danach::Ende; first = false) {
        qvm::ui::Sitzung session(platform, boxes, directory.Path, next);
        const qvm::StartResult start = session.Starten(first);
        if (start == qvm::StartResult::AlreadyRunning) {
            return 0;
        }
        if (start == qvm::StartResult::NoDirectory) {
            TellNoDirectory(boxes, directory.Path, noDirectory);
            return 1;
        }
        if (start == qvm::StartResult::DataHeld) {
            TellDataHeld(boxes, session.Das_Programm());
            return 1;
        }
        next = session.Laufen();
    }
    return 0;
}
