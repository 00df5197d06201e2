// What the account proves at the end of a run.

#include "Laufschritte.h"
#include "Words.h"

#include <algorithm>

namespace qvm {
namespace {

using UnitState = UnitReport::State;

/// Owed to the unit, and neither done nor refused by it.
bool Offen(const Programmierlauf& run, std::size_t unit) {
    const UnitReport& report = run.Bericht.Units[unit];
    const int index = static_cast<int>(unit);
    return !report.Refused && Konto_Unit_Geplant(run.Konto, index) && !Konto_Unit_Fertig(run.Konto, index);
}

std::string Stand(const Programmierlauf& run, std::size_t unit) {
    return Unit_Stand_Text(run.kern, run.Daten.Units[unit], Konto_Unit_Stand(run.Konto, static_cast<int>(unit)));
}

} // namespace

bool RunReport::AllGood() const {
    return AllDone() && EraseConfirmed.value_or(true) && !ChannelUnsaved;
}

bool RunReport::AllDone() const {
    return End == RunOutcome::Done && HistoryLost == HistoryLoss::None &&
           std::none_of(Units.begin(), Units.end(), [](const UnitReport& unit) { return unit.Refused; });
}

void Bericht_Fuellen(Programmierlauf& run) {
    RunReport& report = run.Bericht;
    report.HistoryLost = run.link.Lauf.Chain.HistoryLost;
    report.Telegrams = run.Konto.Gesamt();
    report.Acknowledged = run.Konto.Erledigt();
    report.Missing = Konto_Luecken(run.Konto);
    report.EraseConfirmed = Konto_Loeschen_Bestaetigt(run.Konto);
    report.Lock = Konto_Schloss(run.Konto);
    for (std::size_t n = 0; n < report.Units.size(); ++n) {
        const int index = static_cast<int>(n);
        UnitReport& unit = report.Units[n];
        unit.Progress = Konto_Unit_Stand(run.Konto, index);
        if (unit.End == UnitState::Untried && Konto_Unit_Begonnen(run.Konto, index)) {
            unit.End = UnitState::BrokenOff;
        }
    }
}

std::string Unbewiesen(const Programmierlauf& run) {
    if (std::string text = Konto_Fehlendes(run.kern, run.Konto); !text.empty()) {
        return text;
    }
    for (std::size_t n = 0; n < run.Bericht.Units.size(); ++n) {
        if (Offen(run, n)) {
            const bool begun = Konto_Unit_Begonnen(run.Konto, static_cast<int>(n));
            const std::string& note = run.Bericht.Units[n].Note;
            return Wort(run.kern, Word::UnitMissing) + (begun ? " " + Stand(run, n) : "") +
                   (note.empty() ? "" : " (" + note + ")");
        }
    }
    return {};
}

std::string Erledigt_Zusatz(const Programmierlauf& run) {
    std::string text;
    if (!Konto_Loeschen_Bestaetigt(run.Konto).value_or(true)) {
        text = Wort(run.kern, Word::EraseUnconfirmed);
    }
    if (run.Bericht.ChannelUnsaved) {
        text += (text.empty() ? "" : " ") + Wort(run.kern, Word::ChannelUnsaved);
    }
    return text;
}

std::string Units_Abgelehnt(const Programmierlauf& run) {
    std::string names;
    for (std::size_t n = 0; n < run.Bericht.Units.size(); ++n) {
        if (run.Bericht.Units[n].Refused) {
            names += (names.empty() ? "" : ", ") + run.Daten.Units[n].Name;
        }
    }
    return names.empty() ? names : Wort(run.kern, Word::UnitsRefused, {names});
}

void Units_Zeigen(const Programmierlauf& run) {
    for (std::size_t n = 0; n < run.Bericht.Units.size(); ++n) {
        const UnitReport& unit = run.Bericht.Units[n];
        const bool open = unit.End == UnitState::BrokenOff || (unit.End == UnitState::Failed && !unit.Refused);
        if (open && Konto_Unit_Geplant(run.Konto, static_cast<int>(n))) {
            run.Ansicht.Kaestchen_Beschriften(static_cast<int>(n) + 2, Stand(run, n));
        }
    }
}

} // namespace qvm
