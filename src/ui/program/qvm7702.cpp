#include "ClearStyle.h"
#include "FileDialogs.h"
#include "FrontWindow.h"
#include "MainWindows.h"
#include "Messages.h"
#include "Oberflaeche.h"
#include "ProcessGuard.h"
#include "ProcessStart.h"
#include "ProgramDirectory.h"
#include "Programm.h"
#include "QtPlatform.h"
#include "Text.h"
#include "Theme.h"

#include <QApplication>
#include <QDesktopServices>
#include <QTimer>
#include <QUrl>

#include <cstdlib>

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

/// The end of the program, also out of a wait for an adapter: it would hold the process for seconds, and with it the
/// claim to be the only instance. By then all is saved and the port is closed.
void EndSoon() {
    constexpr int Milliseconds = 200;
    QCoreApplication::exit(0);
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [] { std::_Exit(0); });
    timer->start(Milliseconds);
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

    const qvm::ProgramPlaces places = qvm::ProgramPlaces_Here({});
    const qvm::ProgramDirectory directory = qvm::ProgramDirectory_Choose(places);
    const std::string noDirectory = qvm::ProgramDirectory_Make(directory);
    qvm::ui::MessageBoxes boxes;
    qvm::QtPlatform platform(Options(directory.Path, qvm::ProgramFiles_Of(places.Executable), boxes));
    qvm::Programm programm(platform.World(), directory.Path);
    boxes.setWords(programm.kern);
    const qvm::StartResult start = qvm::Programm_Start(programm, true);
    if (start == qvm::StartResult::AlreadyRunning) {
        return 0;
    }
    if (start == qvm::StartResult::NoDirectory) {
        TellNoDirectory(boxes, directory.Path, noDirectory);
        return 1;
    }
    if (start == qvm::StartResult::DataHeld) {
        TellDataHeld(boxes, programm);
        return 1;
    }
    programm.Main->F1.CipherText = qvm::AusUtf8(platform.CipherText());
    programm.Main->F1.SupportPage = QVM_SUPPORT_PAGE;
    qvm::ui::Oberflaeche windows(programm);
    programm.Main->F2.Hooks.Ende = EndSoon;
    // From inside the event loop, so that it can be left again whatever the operator does first.
    QTimer opening;
    opening.setSingleShot(true);
    QObject::connect(&opening, &QTimer::timeout, &application, [&programm] { programm.Main->F2.F2_Laden(); });
    opening.start(0);
    return QApplication::exec();
}
