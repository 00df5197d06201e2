#include "Hauptprogramm.h"
#include "PcClock.h"
#include "ProcessGuard.h"
#include "ProcessStart.h"
#include "QtPlatform.h"
#include "Zeit.h"

#include <QCoreApplication>

#include <iostream>
#include <unistd.h>

namespace {

std::string ProgramDirectory(const std::string& wanted) {
    std::string directory = wanted.empty() ? QCoreApplication::applicationDirPath().toStdString() : wanted;
    if (directory.back() != '/') {
        directory += '/';
    }
    return directory;
}

} // namespace

int main(int argc, char** argv) {
    qvm::Memory_Protect();
    // A reader of the output that goes away must not end a session with a lock half way.
    qvm::Process_Start();
    QCoreApplication application(argc, argv);
    int exitCode = 0;
    const auto options =
        qvm::Befehlszeile_Lesen(argc, argv, qvm::Heute(qvm::Clock_Now()), std::cout, std::cerr, exitCode);
    if (!options) {
        return qvm::Ausgabe_Abschliessen(std::cout, std::cerr, exitCode);
    }
    const std::string directory = ProgramDirectory(options->Directory);
    qvm::PlatformOptions world;
    world.Directory = directory;
    if (!options->Port.empty()) {
        world.PortDevice = options->Port;
    }
    qvm::QtPlatform platform(std::move(world));
    const qvm::Console console{
        .Out = std::cout, .Err = std::cerr, .Json = options->Json, .Terminal = ::isatty(STDERR_FILENO) == 1};
    const qvm::Umgebung surroundings{.Welt = platform.World(), .AppPath = directory};
    const auto done = static_cast<int>(qvm::Befehl_Ausfuehren(surroundings, console, *options));
    return qvm::Ausgabe_Abschliessen(std::cout, std::cerr, done);
}
