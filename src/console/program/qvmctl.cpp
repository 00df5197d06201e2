#include "Hauptprogramm.h"
#include "PcClock.h"
#include "ProcessGuard.h"
#include "ProcessStart.h"
#include "ProgramDirectory.h"
#include "QtPlatform.h"
#include "Zeit.h"

#include <QCoreApplication>

#include <iostream>
#include <unistd.h>

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
    const qvm::ProgramPlaces places = qvm::ProgramPlaces_Here(options->Directory);
    const qvm::ProgramDirectory directory = qvm::ProgramDirectory_Choose(places);
    qvm::PlatformOptions world;
    world.Directory = directory.Path;
    world.ProgramFiles = qvm::ProgramFiles_Of(places.Executable);
    if (!options->Port.empty()) {
        world.PortDevice = options->Port;
    }
    qvm::QtPlatform platform(std::move(world));
    const qvm::Console console{
        .Out = std::cout, .Err = std::cerr, .Json = options->Json, .Terminal = ::isatty(STDERR_FILENO) == 1};
    if (const std::string why = qvm::ProgramDirectory_Make(directory); !why.empty()) {
        // Not the end: there are commands that do without.
        console.Meldung("The folder " + directory.Path + " cannot be made: " + why + ".");
    }
    const qvm::Umgebung surroundings{.Welt = platform.World(), .AppPath = directory.Path};
    const auto done = static_cast<int>(qvm::Befehl_Ausfuehren(surroundings, console, *options));
    return qvm::Ausgabe_Abschliessen(std::cout, std::cerr, done);
}
