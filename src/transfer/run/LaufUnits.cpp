#include "Laufbedingungen.h"
#include "Laufschritte.h"
#include "Schlosszeile.h"

#include <algorithm>

namespace qvm {
namespace {

constexpr int Units = 5;
constexpr int NotBegun = 0xFF;
constexpr int OpeningMark = 0x38;

int Naechste_Unit(const Programmierlauf& run) {
    const int present = Kette(run).UnitIndex;
    for (int u = present == NotBegun ? 0 : present + 1; u < Units; ++u) {
        if (run.Daten.Units[static_cast<std::size_t>(u)].UnitPresent) {
            return u;
        }
    }
    return Units;
}

/// Raw telegram that turns the adapter to the unit, then the opening.
void Unit_Ansprechen(Programmierlauf& run) {
    TelAdapterZiel_Senden(run.link, run.link.AddressMode);
    if (Warten(run, 100, 80) && Unit_Oeffnung(run)) {
        TelKanalLesen_Senden(run.link, run.kern.Config.Funkkanal());
    }
}

void Typ1_Beginnen(Programmierlauf& run) {
    ChainState& chain = Kette(run);
    run.link.AddressMode = 0;
    chain.UnitModus = 0;
    chain.LaufZiel = "UNIT";
    TelVerbindenKurz_Senden(run.link);
}

void Typ2_Beginnen(Programmierlauf& run) {
    ChainState& chain = Kette(run);
    run.Daten.UnitCount = std::max(0, run.Daten.UnitCount - 1);
    run.link.AddressMode = 1;
    chain.LaufZiel.clear();
    chain.UnitModus = 0xFA;
    chain.UnitTry = OpeningMark;
    chain.EintragFertig = 0;
    Unit_Ansprechen(run);
}

/// Between two units, and between two channels, no session is open: a cancel takes effect at once. True when it did.
bool Abgebrochen(Programmierlauf& run) {
    if (Kette(run).AbbruchWunsch == 0 && !run.Cancelled) {
        return false;
    }
    Schritt_Abbruch(run);
    Schloss_Fertig(run);
    return true;
}

/// A unit's session has ended badly and takes the units behind it along.
void Units_Abbrechen(Programmierlauf& run, RunOutcome outcome, int messageLine) {
    Timer_Anhalten(run);
    Kette(run).UnitModus = 0;
    Zum_Schloss_Zurueck(run);
    if (UnitReport* unit = Unit_Bericht(run)) {
        unit->End = UnitReport::State::Failed;
        unit->Note = run.kern.Zeile(Line::ConnectionFailed);
    }
    if (Zeile_Fehlgeschlagen(run, outcome, run.kern.Zeile(Line::ConnectionFailed))) {
        return;
    }
    Lauf_Beenden(run, outcome, run.kern.Zeile(messageLine));
}

} // namespace

UnitReport* Unit_Bericht(Programmierlauf& run) {
    const int u = Kette(run).UnitIndex;
    return u >= 0 && u < Units ? &run.Bericht.Units[static_cast<std::size_t>(u)] : nullptr;
}

bool Warten(Programmierlauf& run, int interval, int limit) {
    const int number = run.RunNumber;
    run.Waiting = true;
    Warte_Ticks(run.link, interval, limit);
    if (run.RunNumber != number) {
        return false;
    }
    run.Waiting = false;
    Kette(run).LastAnswer = run.kern.Welt.Milliseconds();
    if (Kette(run).Phase == RunPhase::Open && Kette(run).AbbruchWunsch != 0) {
        Abbruch_Ausfuehren(run);
    }
    return Kette(run).Phase == RunPhase::Open;
}

bool Units_Uebrig(const Programmierlauf& run) {
    return Naechste_Unit(run) < Units;
}

std::string Unit_Notiz(const Programmierlauf& run) {
    for (auto unit = run.Bericht.Units.rbegin(); unit != run.Bericht.Units.rend(); ++unit) {
        if (!unit->Note.empty()) {
            return unit->Note;
        }
    }
    return {};
}

void Tick_Timer9(Programmierlauf& run) {
    ChainState& chain = Kette(run);
    run.Timer9.Stop();
    chain.WiederholZaehler = 0;
    chain.LastAnswer = run.kern.Welt.Milliseconds();
    if (UnitReport* last = Unit_Bericht(run); last != nullptr && run.UnitGood) {
        last->End = UnitReport::State::Done;
        run.Ansicht.Kaestchen(chain.UnitIndex + 2);
    }
    run.UnitGood = run.UnitRepeated = run.BlockRefused = false;
    if (Abgebrochen(run)) {
        return;
    }
    const int next = Naechste_Unit(run);
    if (next >= Units) {
        Schloss_Fertig(run);
        return;
    }
    chain.UnitIndex = next;
    const ProgUnit& unit = run.Daten.Units[static_cast<std::size_t>(next)];
    run.link.TargetAddress = unit.Serial;
    run.link.TargetChannel = static_cast<std::uint8_t>(run.kern.Config.Funkkanal());
    if (unit.Type == '1') {
        Typ1_Beginnen(run);
    } else if (unit.Type == '2') {
        Typ2_Beginnen(run);
    } else {
        Unit_Bericht(run)->End = UnitReport::State::Failed;
        run.Timer9.Start(600);
    }
}

void Schritt_Unit_Angemeldet(Programmierlauf& run) {
    Kette(run).WiederholZaehler = 0;
    TelUnitEinstellung_Senden(run.link, run.link.Lauf.Order.LockAddress);
}

void Schritt_Unit_Fertig(Programmierlauf& run) {
    run.UnitGood = Konto_Unit_Fertig(run.Konto, Kette(run).UnitIndex);
    if (UnitReport* unit = Unit_Bericht(run); unit != nullptr && !run.UnitGood) {
        unit->End = UnitReport::State::Failed;
        unit->Note = run.kern.Zeile(Line::ConnectionFailed);
    }
    run.Timer9.Start(600);
}

void Schritt_Unit_Kein_Kontakt(Programmierlauf& run) {
    if (run.Cancelled) {
        Schloss_Fertig(run);
        return;
    }
    if (!run.UnitRepeated) {
        run.UnitRepeated = true;
        TelVerbindenKurz_Senden(run.link);
        return;
    }
    const bool list = run.link.Lauf.List.RunRows != 0;
    Units_Abbrechen(run, RunOutcome::NotReached, Line::NotReachable);
    if (!list) {
        Meldung_Zu(run.kern, Worum_Unit(run), run.kern.Zeile(Line::NotReachable), Buttons::Ok, Icon::Exclamation);
        run.Ansicht.Zum_Schlossgitter();
    }
}

void Schritt_Unit_Naechster_Kanal(Programmierlauf& run) {
    if (!run.Waiting) {
        run.Timer11.Start(500);
    }
}

void Tick_Timer11(Programmierlauf& run) {
    ChainState& chain = Kette(run);
    run.Timer11.Stop();
    chain.LastAnswer = run.kern.Welt.Milliseconds();
    if (Abgebrochen(run)) {
        return;
    }
    if (!Unit_Oeffnung(run) || chain.EintragFertig >= UnitChannels) {
        return;
    }
    ++chain.EintragFertig;
    run.link.TargetChannel = static_cast<std::uint8_t>(chain.EintragFertig);
    Unit_Ansprechen(run);
}

void Schritt_Unit_Fehlgeschlagen(Programmierlauf& run) {
    if (run.Cancelled) {
        Schloss_Fertig(run);
        return;
    }
    const bool list = run.link.Lauf.List.RunRows != 0;
    Units_Abbrechen(run, RunOutcome::NotReached, Line::ConnectionFailed);
    if (!list) {
        run.Ansicht.Fertig(Line::ConnectionFailed);
    }
}

} // namespace qvm
