// The blocks of templates that a unit of type 2 gets, from its opening to its disconnect.

#include "Laufbedingungen.h"
#include "Laufschritte.h"

namespace qvm {
namespace {

constexpr int DatenstartRepeats = 20;

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
    const ChainState& chain = Kette(run);
    const ProgSlot& row = *rows[static_cast<std::size_t>(chain.UnitRow)];
    UnitBlock block;
    block.Rows = static_cast<std::uint16_t>(rows.size());
    block.Row = static_cast<std::uint16_t>(chain.UnitRow + 1);
    block.Piece = static_cast<std::uint8_t>(chain.UnitPiece);
    block.Type = row.PrFlag;
    block.RowAddress = row.FingerNumber;
    const std::size_t start = static_cast<std::size_t>(chain.UnitPiece) * ProgSlot::PieceLength;
    for (std::size_t n = 0; n < ProgSlot::PieceLength && start + n < row.Template.size(); ++n) {
        block.Data[n] = row.Template[start + n];
    }
    TelUnitBlock_Senden(run.link, block);
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

void Schritt_Unit_Offen(Programmierlauf& run) {
    Kette(run).UnitModus = 0xFD;
    Kette(run).UnitTry = 0;
    TelUnitOeffnen_Senden(run.link, run.link.Lauf.Order.LockAddress);
}

void Schritt_Unit_Schluessel(Programmierlauf& run) {
    run.link.Lauf.SitzungsSchluessel = SitzungsSchluessel_Neu(run.kern.Welt);
    TelUnitSchluessel_Senden(run.link);
}

void Schritt_Unit_Datenstart(Programmierlauf& run) {
    Kette(run).UnitVersuche = 0;
    Kette(run).UnitRow = 0;
    Kette(run).UnitPiece = 0;
    TelDatenStart_Senden(run.link, 0);
}

void Schritt_Unit_Datenstart_Wiederholen(Programmierlauf& run) {
    if (run.Waiting) {
        return;
    }
    if (++Kette(run).UnitVersuche > DatenstartRepeats) {
        if (UnitReport* unit = Unit_Bericht(run)) {
            unit->End = UnitReport::State::Failed;
            unit->Note = run.kern.Zeile(Line::ConnectionFailed);
        }
        TelTrennen_Senden(run.link);
        return;
    }
    if (Warten(run, 100, 80) && Blocktransfer(run)) {
        TelDatenStart_Senden(run.link, 0);
    }
}

void Schritt_Unit_Bloecke_Start(Programmierlauf& run) {
    if (run.Waiting) {
        return;
    }
    // The unit erases its memory after the acknowledge and hears nothing meanwhile.
    if (!Warten(run, 1000, 5000) || !Blocktransfer(run)) {
        return;
    }
    const auto rows = Zeilen(run);
    if (rows.empty()) {
        TelTrennen_Senden(run.link);
        return;
    }
    Kette(run).UnitRow = 0;
    Kette(run).UnitPiece = 0;
    Stueck_Senden(run, rows);
}

void Schritt_Unit_Block_Quittung(Programmierlauf& run) {
    ChainState& chain = Kette(run);
    const auto rows = Zeilen(run);
    if (run.Waiting || chain.UnitRow < 0 || chain.UnitRow >= static_cast<int>(rows.size())) {
        return;
    }
    const std::uint8_t status = run.link.RxByte(StatusIndex);
    UnitReport* const unit = Unit_Bericht(run);
    // The text of a refused block stays, whatever the others give.
    if (std::string note = Block_Notiz(status); unit != nullptr && !note.empty() && !run.BlockRefused) {
        unit->Note = std::move(note);
    }
    if (unit != nullptr && !Block_Angenommen(status)) {
        run.BlockRefused = true;
        unit->End = UnitReport::State::Failed;
    }
    const ProgSlot& row = *rows[static_cast<std::size_t>(chain.UnitRow)];
    ++chain.UnitPiece;
    if (static_cast<std::size_t>(chain.UnitPiece) * ProgSlot::PieceLength < row.Template.size()) {
        Stueck_Senden(run, rows);
        return;
    }
    chain.UnitPiece = 0;
    ++chain.UnitRow;
    if (chain.UnitRow >= static_cast<int>(rows.size())) {
        TelTrennen_Senden(run.link);
        return;
    }
    if (Warten(run, 100, row.PrFlag == 1 ? 1800 : 400) && Blocktransfer(run)) {
        Stueck_Senden(run, rows);
    }
}

void Schritt_Unit_Getrennt(Programmierlauf& run) {
    RxBuffer_Leeren(run.link, 64);
    ChainState& chain = Kette(run);
    chain.UnitModus = 0;
    Zum_Schloss_Zurueck(run);
    UnitReport* unit = Unit_Bericht(run);
    const bool whole = Konto_Unit_Fertig(run.Konto, chain.UnitIndex);
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
        run.Ansicht.Kaestchen(chain.UnitIndex + 2);
    }
    Schloss_Fertig(run);
}

} // namespace qvm
