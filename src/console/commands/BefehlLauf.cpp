#include "Befehle.h"
#include "Laufsitzung.h"
#include "Reihenlauf.h"
#include "Schlosslauf.h"

namespace qvm {

namespace {

void Unversucht_Melden(Laufsitzung& session) {
    for (const int lock : session.Locks) {
        session.Melden(Schloss_Beschreiben(session.program, lock));
    }
}

} // namespace

ExitCode Befehl_Lauf(const Umgebung& world, const Console& console, const Optionen& options) {
    Laufsitzung session(world, console, options);
    if (const std::optional<ExitCode> refused = session.Beginnen()) {
        return *refused;
    }
    if (session.Abgebrochen()) {
        Unversucht_Melden(session);
    } else {
        Fortschritt progress(console);
        Schlosslauf runner(session, progress);
        for (const int lock : session.Locks) {
            session.Melden(runner.Abgebrochen() ? Schloss_Beschreiben(session.program, lock) : runner.Ausfuehren(lock));
        }
    }
    return session.Abschliessen();
}

ExitCode Befehl_Reihe(const Umgebung& world, const Console& console, const Optionen& options) {
    Laufsitzung session(world, console, options);
    if (const std::optional<ExitCode> refused = session.Beginnen()) {
        return *refused;
    }
    if (session.Abgebrochen()) {
        Unversucht_Melden(session);
    } else {
        Tafel table(console);
        Reihenlauf(session, options.At, table).Ausfuehren();
    }
    return session.Abschliessen();
}

} // namespace qvm
