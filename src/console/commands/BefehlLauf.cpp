#include "Befehle.h"
#include "Laufsitzung.h"
#include "Reihenlauf.h"
#include "Schlosslauf.h"

namespace qvm {

namespace {

void Einzeln(Laufsitzung& session, const Console& console) {
    Fortschritt progress(console);
    Schlosslauf runner(session, progress);
    for (const int lock : session.Locks) {
        session.Melden(runner.Abgebrochen() ? Schloss_Beschreiben(session.program, lock) : runner.Ausfuehren(lock));
    }
}

} // namespace

ExitCode Befehl_Lauf(const Umgebung& world, const Console& console, const Optionen& options) {
    Laufsitzung session(world, console, options);
    if (const std::optional<ExitCode> refused = session.Beginnen()) {
        return *refused;
    }
    if (session.Abgebrochen()) {
        for (const int lock : session.Locks) {
            session.Melden(Schloss_Beschreiben(session.program, lock));
        }
    } else if (options.Wanted == Command::Run) {
        Tafel table(console);
        Reihenlauf(session, options.At, table).Ausfuehren();
    } else {
        Einzeln(session, console);
    }
    return session.Abschliessen();
}

} // namespace qvm
