#include "Antwort_Verteilen.h"
#include "Laufschritte.h"
#include "Schlosszeile.h"

#include <Lines.h>
#include <algorithm>

namespace qvm {
namespace {

constexpr int Units = 5;
constexpr int NotBegun = 0xFF;
constexpr int OpeningMark = 0x38;
constexpr int DatenstartRepeats = 20;
constexpr int UnitChannels = 12;

int Naechste_Unit(const Programmierlauf& run) {
    const int present = run.link.Lauf.Chain.UnitIndex;
    for (int u = present == NotBegun ? 0 : present + 1; u < Units; ++u) {
        if (run.Daten.Units[static_cast<std::size_t>(u)].UnitPresent) {
            return u;
        }
    }
    return Units;
}

UnitReport* Aktuelle(Programmierlauf& run) {
    const int u = run.link.Lauf.Chain.UnitIndex;
    return u >= 0 && u < Units ? &run.Bericht.Units[static_cast<std::size_t>(u)] : nullptr;
}

/// An ordered wait inside a step. The lock's silence is not counted meanwhile. False when the step must not go on: the
/// run was cancelled or has ended in the wait, or another one has begun. A cancel that was wished in the wait is
/// honoured at its end: the closing telegram goes out in place of the next one.
bool Warten(Programmierlauf& run, int interval, int limit) {
    const int number = run.RunNumber;
    run.Waiting = true;
    Warte_Ticks(run.link, interval, limit);
    if (run.RunNumber != number) {
        return false;
    }
    run.Waiting = false;
    run.link.Lauf.Chain.LastAnswer = run.kern.Welt.Milliseconds();
    if (run.link.Lauf.Chain.Phase == RunPhase::Open && run.link.Lauf.Chain.AbbruchWunsch != 0) {
        Abbruch_Ausfuehren(run.link);
    }
    return run.link.Lauf.Chain.Phase == RunPhase::Open;
}

/// What the unit sessions send: every slot that holds a template is a row.
std::vector<const ProgSlot*> Zeilen(const Programmierlauf& run) {
    std::vector<const ProgSlot*> rows;
    for (const ProgSlot& slot : run.Daten.Slots) {
        if (!slot.Template.empty()) {
            rows.push_back(&slot);
        }
    }
    return rows;
}

void Stueck_Senden(Programmierlauf& run, const std::vector<const ProgSlot*>& rows) {
    const RunState& lauf = run.link.Lauf;
    const ProgSlot& row = *rows[static_cast<std::size_t>(lauf.Chain.UnitRow)];
    UnitBlock block;
    block.Rows = static_cast<std::uint16_t>(rows.size());
    block.Row = static_cast<std::uint16_t>(lauf.Chain.UnitRow + 1);
    block.Piece = static_cast<std::uint8_t>(lauf.Chain.UnitPiece);
    block.Type = row.PrFlag;
    block.RowAddress = row.FingerNumber;
    const std::size_t start = static_cast<std::size_t>(lauf.Chain.UnitPiece) * ProgSlot::PieceLength;
    for (std::size_t n = 0; n < ProgSlot::PieceLength && start + n < row.Template.size(); ++n) {
        block.Data[n] = row.Template[start + n];
    }
    TelUnitBlock_Senden(run.link, block);
}

/// Raw telegram that turns the adapter to the unit, then the opening.
void Unit_Ansprechen(Programmierlauf& run) {
    TelAdapterZiel_Senden(run.link, run.link.AddressMode);
    if (Warten(run, 100, 80) && run.link.Lauf.Chain.UnitModus == 0xFA) {
        TelKanalLesen_Senden(run.link, run.kern.Config.Funkkanal());
    }
}

void Typ1_Beginnen(Programmierlauf& run) {
    RunState& lauf = run.link.Lauf;
    run.link.AddressMode = 0;
    lauf.Chain.UnitModus = 0;
    lauf.Chain.LaufZiel = "UNIT";
    TelVerbindenKurz_Senden(run.link);
}

void Typ2_Beginnen(Programmierlauf& run) {
    RunState& lauf = run.link.Lauf;
    run.Daten.UnitCount = std::max(0, run.Daten.UnitCount - 1);
    run.link.AddressMode = 1;
    lauf.Chain.LaufZiel.clear();
    lauf.Chain.UnitModus = 0xFA;
    lauf.Chain.UnitTry = OpeningMark;
    lauf.Chain.EintragFertig = 0;
    Unit_Ansprechen(run);
}

/// Between two units, and between two channels, no session is open: a cancel takes effect at once. True when it did.
bool Abgebrochen(Programmierlauf& run) {
    if (run.link.Lauf.Chain.AbbruchWunsch == 0 && !run.Cancelled) {
        return false;
    }
    Schritt_Abbruch(run);
    Schloss_Fertig(run);
    return true;
}

/// A unit's session has ended badly and takes the units behind it along.
void Units_Abbrechen(Programmierlauf& run, RunOutcome outcome, int messageLine) {
    Timer_Anhalten(run);
    run.link.Lauf.Chain.UnitModus = 0;
    Zum_Schloss_Zurueck(run);
    if (UnitReport* unit = Aktuelle(run)) {
        unit->End = UnitReport::State::Failed;
        unit->Note = run.kern.Zeile(Line::ConnectionFailed);
    }
    if (Zeile_Fehlgeschlagen(run, outcome, run.kern.Zeile(Line::ConnectionFailed))) {
        return;
    }
    Lauf_Beenden(run, outcome, run.kern.Zeile(messageLine));
}

std::string Block_Notiz(std::uint8_t status) {
    switch (status) {
    case 0:
        return {};
    case 2:
        return "FS-Memory Full";
    case 10:
    case 11:
        return "FS-Prem. Error";
    default:
        return "FS-ERROR";
    }
}

} // namespace

bool Block_Angenommen(std::uint8_t status) {
    return status == 0 || status == 2 || status == 10 || status == 11;
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
    RunState& lauf = run.link.Lauf;
    run.Timer9.Stop();
    lauf.Chain.WiederholZaehler = 0;
    lauf.Chain.LastAnswer = run.kern.Welt.Milliseconds();
    if (UnitReport* last = Aktuelle(run); last != nullptr && run.UnitGood) {
        last->End = UnitReport::State::Done;
        if (run.Ansicht.Kaestchen) {
            run.Ansicht.Kaestchen(lauf.Chain.UnitIndex + 2);
        }
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
    lauf.Chain.UnitIndex = next;
    const ProgUnit& unit = run.Daten.Units[static_cast<std::size_t>(next)];
    run.link.TargetAddress = unit.Serial;
    run.link.TargetChannel = static_cast<std::uint8_t>(run.kern.Config.Funkkanal());
    if (unit.Type == '1') {
        Typ1_Beginnen(run);
    } else if (unit.Type == '2') {
        Typ2_Beginnen(run);
    } else {
        Aktuelle(run)->End = UnitReport::State::Failed;
        run.Timer9.Start(600);
    }
}

void Schritt_Unit_Fertig(Programmierlauf& run) {
    run.UnitGood = Konto_Unit_Fertig(run.Konto, run.link.Lauf.Chain.UnitIndex);
    if (UnitReport* unit = Aktuelle(run); unit != nullptr && !run.UnitGood) {
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
        Rufen(run.Ansicht.Zum_Schlossgitter);
    }
}

void Schritt_Unit_Naechster_Kanal(Programmierlauf& run) {
    if (!run.Waiting) {
        run.Timer11.Start(500);
    }
}

void Tick_Timer11(Programmierlauf& run) {
    RunState& lauf = run.link.Lauf;
    run.Timer11.Stop();
    lauf.Chain.LastAnswer = run.kern.Welt.Milliseconds();
    if (Abgebrochen(run)) {
        return;
    }
    if (lauf.Chain.UnitModus != 0xFA || lauf.Chain.EintragFertig >= UnitChannels) {
        return;
    }
    ++lauf.Chain.EintragFertig;
    run.link.TargetChannel = static_cast<std::uint8_t>(lauf.Chain.EintragFertig);
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
        Ende_Zeigen(run, Line::ConnectionFailed);
    }
}

void Schritt_Unit_Datenstart_Wiederholen(Programmierlauf& run) {
    if (run.Waiting) {
        return;
    }
    if (++run.link.Lauf.Chain.UnitVersuche > DatenstartRepeats) {
        if (UnitReport* unit = Aktuelle(run)) {
            unit->End = UnitReport::State::Failed;
            unit->Note = run.kern.Zeile(Line::ConnectionFailed);
        }
        TelTrennen_Senden(run.link);
        return;
    }
    if (Warten(run, 100, 80) && run.link.Lauf.Chain.UnitModus == 0xFD) {
        TelDatenStart_Senden(run.link, 0);
    }
}

void Schritt_Unit_Bloecke_Start(Programmierlauf& run) {
    if (run.Waiting) {
        return;
    }
    // The unit erases its memory after the acknowledge and hears nothing meanwhile.
    if (!Warten(run, 1000, 5000) || run.link.Lauf.Chain.UnitModus != 0xFD) {
        return;
    }
    const auto rows = Zeilen(run);
    if (rows.empty()) {
        TelTrennen_Senden(run.link);
        return;
    }
    run.link.Lauf.Chain.UnitRow = 0;
    run.link.Lauf.Chain.UnitPiece = 0;
    Stueck_Senden(run, rows);
}

void Schritt_Unit_Block_Quittung(Programmierlauf& run) {
    RunState& lauf = run.link.Lauf;
    const auto rows = Zeilen(run);
    if (run.Waiting || lauf.Chain.UnitRow < 0 || lauf.Chain.UnitRow >= static_cast<int>(rows.size())) {
        return;
    }
    const std::uint8_t status = run.link.RxByte(14);
    UnitReport* const unit = Aktuelle(run);
    // The text of a refused block stays, whatever the others give.
    if (std::string note = Block_Notiz(status); unit != nullptr && !note.empty() && !run.BlockRefused) {
        unit->Note = std::move(note);
    }
    if (unit != nullptr && !Block_Angenommen(status)) {
        run.BlockRefused = true;
        unit->End = UnitReport::State::Failed;
    }
    const ProgSlot& row = *rows[static_cast<std::size_t>(lauf.Chain.UnitRow)];
    ++lauf.Chain.UnitPiece;
    if (static_cast<std::size_t>(lauf.Chain.UnitPiece) * ProgSlot::PieceLength < row.Template.size()) {
        Stueck_Senden(run, rows);
        return;
    }
    lauf.Chain.UnitPiece = 0;
    ++lauf.Chain.UnitRow;
    if (lauf.Chain.UnitRow >= static_cast<int>(rows.size())) {
        TelTrennen_Senden(run.link);
        return;
    }
    if (Warten(run, 100, row.PrFlag == 1 ? 1800 : 400) && lauf.Chain.UnitModus == 0xFD) {
        Stueck_Senden(run, rows);
    }
}

void Schritt_Unit_Getrennt(Programmierlauf& run) {
    RunState& lauf = run.link.Lauf;
    lauf.Chain.UnitModus = 0;
    Zum_Schloss_Zurueck(run);
    UnitReport* unit = Aktuelle(run);
    const bool whole = Konto_Unit_Fertig(run.Konto, lauf.Chain.UnitIndex);
    run.UnitGood = unit != nullptr && whole && unit->End != UnitReport::State::Failed && !run.Cancelled;
    if (unit != nullptr && !run.UnitGood && !run.Cancelled && !run.BlockRefused) {
        // A failed session of this kind takes the units behind it along. One that had all its telegrams, but did not
        // accept them, does not.
        Schritt_Unit_Fehlgeschlagen(run);
        return;
    }
    if (!run.Cancelled && Units_Uebrig(run)) {
        run.Timer9.Start(1200);
        return;
    }
    if (unit != nullptr && run.UnitGood) {
        unit->End = UnitReport::State::Done;
        if (run.Ansicht.Kaestchen) {
            run.Ansicht.Kaestchen(lauf.Chain.UnitIndex + 2);
        }
    }
    Schloss_Fertig(run);
}

} // namespace qvm
