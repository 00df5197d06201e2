// Commands of tool bar and menus.

#include "CsvAusgabe.h"
#include "F12.h"
#include "F12_Csv.h"
#include "Fragen.h"
#include "SchlossDaten.h"
#include "Zeit.h"

#include <numeric>

namespace qvm {

/// Units and EMI states go from the disk before anything changes. False, with a message, when that failed.
bool F12::Platte_Leeren(const std::vector<int>& rows) {
    if (SchlossDaten_Leeren(kern, rows)) {
        return true;
    }
    kern.Meldung(Wort(kern, Word::LockDataNotCleared), Buttons::Ok, Icon::Exclamation);
    return false;
}

/// What a free row holds. `group`: the lock timer group goes, too.
void F12::Zeile_Leeren(int row, bool group) {
    for (const int column : {LockColumn::Name, LockColumn::Serial, LockColumn::AdapterId, LockColumn::AdapterName,
                             LockColumn::Offset, LockColumn::OffsetId, LockColumn::DoorMode, LockColumn::DoorDays}) {
        FGK12.SetText(row, column, "");
    }
    for (int column = LockColumn::FirstSwitch; column <= LockColumn::LastSwitch; ++column) {
        FGK12.SetPicture(row, column, LockPicture::On);
    }
    FGK12.SetText(row, LockColumn::Priority, LockText::DefaultPriority);
    FGK12.SetPicture(row, LockColumn::Emi, LockPicture::NotApplicable);
    FGK12.SetText(row, LockColumn::UnitType, LockText::NoUnit);
    if (group) {
        FGK12.SetText(row, LockColumn::Group, "");
    }
}

void F12::F12_delete_Click() {
    const std::vector<int> rows = Auswahl.Rows();
    if (!Fenster.Enabled || rows.empty()) {
        return;
    }
    Editor_Uebernehmen();
    if (!Platte_Leeren(rows)) {
        return;
    }
    const bool changed = Aendern(Word::StepDeleteLock, [&] {
        for (const int row : rows) {
            Zeile_Leeren(row, true);
        }
        Verlauf.Keep(Word::LockDataStays);
    });
    if (changed) {
        Hinweis.Text = Wort(kern, Word::LockDataGone);
    }
}

void F12::Neu() {
    if (!Verlust_Hinnehmen(kern, kern.Zeile(Line::DeleteAllEntries))) {
        return;
    }
    std::vector<int> rows(LockGrid::LastRow);
    std::iota(rows.begin(), rows.end(), LockGrid::FirstRow);
    if (!Platte_Leeren(rows)) {
        return;
    }
    Aendern(Word::StepClear, [&] {
        for (const int row : rows) {
            Zeile_Leeren(row, false);
        }
        Verlauf.Keep(Word::LockDataStays);
    });
    Tabelle.LockDirty = true;
    Hinweis.Text = Wort(kern, Word::LockDataGone);
    Auswahl.Go(LockGrid::FirstRow, LockColumn::Name);
}

void F12::Initial() {
    const std::string& title = kern.Zeile(Line::LockSettings);
    if (kern.Meldung(kern.Zeile(Line::RenewDates), Buttons::YesNo, Icon::Question, title) != Answer::Yes) {
        return;
    }
    const std::string today = Ziffern(Tage_Seit_2000(kern.Welt.Now()));
    Aendern(Word::StepDates, [&] {
        for (int row = LockGrid::FirstRow; row <= LockGrid::LastRow; ++row) {
            if (!FGK12.Text(row, LockColumn::DoorMode).empty()) {
                FGK12.SetText(row, LockColumn::DoorDays, today);
            }
        }
    });
    Tabelle.LockDirty = true;
    kern.Meldung(kern.Zeile(Line::DateRenewed), Buttons::Ok, Icon::Information, title);
}

void F12::Csv_Schreiben() {
    Csv_Ausgeben(kern, Label1.Text(), kern.Zeile(Line::Settings), F12_CsvText(kern, FGK12));
}

void F12::SNA_save_Click() {
    const int row = FGK12.Row;
    if (!Fenster.Enabled || row < LockGrid::FirstRow || !Suche_Starten) {
        return;
    }
    Editor_Uebernehmen();
    Tabelle.LockDirty = true;
    Suche_Starten(row);
}

void F12::SNA_Input_Click() {
    if (!Fenster.Enabled) {
        return;
    }
    Editor_Uebernehmen();
    Auswahl.Go(FGK12.Row, LockColumn::Serial);
    Editor_Oeffnen(Key::Enter);
}

void F12::SNA_Function_Click() {
    const int row = FGK12.Row;
    if (!Fenster.Enabled || row < LockGrid::FirstRow || !F20_Oeffnen) {
        return;
    }
    Editor_Uebernehmen();
    Fenster.Enabled = false;
    if (!F20_Oeffnen(row)) {
        Fenster.Enabled = true;
    }
}

} // namespace qvm
