#include "Kanal.h"
#include "Laufschritte.h"
#include "Schlosszeile.h"

#include <Lines.h>
#include <algorithm>
#include <array>

namespace qvm {
namespace {

constexpr int SearchSteps = 12;

/// Beyond the last channel of a search.
void Suche_Gescheitert(Programmierlauf& run) {
    run.link.Lauf.Chain.KanalSuche = 0;
    Codeaenderung_Gescheitert(run);
    if (Zeile_Fehlgeschlagen(run, RunOutcome::NotReached, run.kern.Zeile(Line::ConnectionFailed))) {
        return;
    }
    if (run.Ansicht.Wartebox_Text) {
        run.Ansicht.Wartebox_Text(Line::Cancelled);
    }
    Kanal_Offen(run.kern, run.link.Lauf.Order.LockNumber);
    Mit_Meldung_Enden(run, RunOutcome::NotReached, Line::NotReachable);
}

} // namespace

int Anmeldung_Zeile(std::uint8_t status) {
    constexpr std::array<int, 4> lines{0, Line::CheckCode, Line::CodeNotAccepted, Line::AccessDenied};
    return status < lines.size() ? lines[status] : 0;
}

void Schritt_Anmeldung_Abgelehnt(Programmierlauf& run) {
    const Kern& kern = run.kern;
    const int line = Anmeldung_Zeile(run.link.Device.Status);
    const std::string failed = kern.Zeile(Line::ConnectionFailed);
    Timer_Anhalten(run);
    Rufen(run.Ansicht.Wartebox_Schliessen);
    if (Zeile_Fehlgeschlagen(run, RunOutcome::Refused,
                             (line != 0 ? kern.Zeile(line) + "  /  " : std::string()) + failed)) {
        return;
    }
    Rufen(run.Ansicht.Schlossgitter_Freigeben);
    Lauf_Beenden(run, RunOutcome::Refused, line != 0 ? kern.Zeile(line) : failed);
    std::fill_n(run.link.Rx.RxBuffer.begin(), 66, std::uint8_t{0});
    if (line != 0) {
        Meldung_Zu(kern, Worum(run), kern.Zeile(line), Buttons::Ok, Icon::Exclamation);
    }
    Meldung_Zu(kern, Worum(run), failed, Buttons::Ok, Icon::Exclamation);
    Ende_Zeigen(run, Line::LoginFailed);
    Port_Neu(run.link);
}

void Schritt_Unit_Abgelehnt(Programmierlauf& run) {
    // The unit's box stays unticked; the units behind it are tried.
    run.UnitGood = false;
    const int line = Anmeldung_Zeile(run.link.RxByte(14));
    const int index = run.link.Lauf.Chain.UnitIndex;
    if (index >= 0 && index < static_cast<int>(run.Bericht.Units.size())) {
        UnitReport& unit = run.Bericht.Units[static_cast<std::size_t>(index)];
        unit.End = UnitReport::State::Failed;
        unit.Refused = true;
        unit.Note = run.kern.Zeile(line != 0 ? line : Line::ConnectionFailed);
    }
    run.Timer9.Start(600);
    if (line != 0 && run.link.Lauf.List.RunRows == 0) {
        Meldung_Zu(run.kern, Worum_Unit(run), run.kern.Zeile(line), Buttons::Ok, Icon::Exclamation);
    }
}

void Schritt_Kanal_Weiter(Programmierlauf& run) {
    RunState& lauf = run.link.Lauf;
    if (lauf.Chain.KanalIndex >= SearchSteps) {
        Suche_Gescheitert(run);
        return;
    }
    run.link.TargetChannel = static_cast<std::uint8_t>(lauf.Chain.KanalIndex + 1);
    ++lauf.Chain.KanalIndex;
    if (run.Ansicht.Wartebox_Balken) {
        run.Ansicht.Wartebox_Balken(100 + 6 * lauf.Chain.KanalIndex);
    }
    TelVerbinden_Senden(run.link);
}

void Schritt_Kanal_Gesetzt(Programmierlauf& run) {
    // A 0x29 that answers something else does not say where the lock listens.
    run.Bericht.ChannelUnsaved =
        Konto_Kanal_Gesetzt(run.Konto) && !Kanal_Ausgefuehrt(run.kern, run.link.Lauf.Order.LockNumber);
    Rufen(run.Ansicht.Wartebox_Schliessen);
    Rufen(run.Ansicht.F9_Zeigen);
}

void Schritt_Zweiter_Durchgang(Programmierlauf& run) {
    RunState& lauf = run.link.Lauf;
    run.Timer6.Stop();
    lauf.Chain.HistoryOnly = lauf.Chain.ReadHistoryFirst = lauf.Chain.TwoPassFlag = 0;
    Konto_Zweiter_Durchgang(run.Konto);
    TelVerbinden_Senden(run.link);
}

} // namespace qvm
