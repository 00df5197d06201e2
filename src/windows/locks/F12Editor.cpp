// The boxes over the cells: open, type, take over, leave.

#include "Eingabe.h"
#include "F12.h"
#include "Filter.h"
#include "Kanal.h"
#include "LinkHooks.h"
#include "Schlossregeln.h"

#include <algorithm>

namespace qvm {

bool F12::Beschreibbar(int row, int column) {
    return FGK12.Holds(row, column) && row >= LockGrid::FirstRow && Breite(column) > 0 &&
           (column == LockColumn::Name || column == LockColumn::Serial || Liste_Von(column) != nullptr);
}

void F12::FGK12_Eintragen(int row, int column, std::string_view text) {
    if (!Fenster.Enabled || !Beschreibbar(row, column)) {
        return;
    }
    Editor_Uebernehmen();
    Auswahl.Go(row, column);
    Editor_Oeffnen(Key::Enter);
    if (OpenColumn == LockColumn::Serial) {
        Serie.Eintippen(text);
        Serie.Taste(SerialEntry::Count - 1, Key::Enter);
    } else if (OpenColumn == LockColumn::Name) {
        typed_.clear();
        Text1_Change(text);
        Editor_Bestaetigen();
    } else if (ListBox* list = Liste_Von(OpenColumn)) {
        const auto& entries = list->Entries();
        const auto found = std::find_if(entries.begin(), entries.end(),
                                        [text](const std::string& entry) { return Trim(entry) == Trim(text); });
        if (found == entries.end()) {
            Editor_Schliessen();
            return;
        }
        list->Selected = static_cast<int>(found - entries.begin());
        Editor_Bestaetigen();
    }
}

void F12::Editor_Oeffnen(int key) {
    if (!Beschreibbar(FGK12.Row, FGK12.Column)) {
        return;
    }
    if (FGK12.Column == LockColumn::Name) {
        Name_Oeffnen(key);
    } else if (FGK12.Column == LockColumn::Serial) {
        Serie_Oeffnen(key);
    } else {
        Liste_Oeffnen();
    }
}

void F12::Name_Oeffnen(int key) {
    edited_ = {FGK12.Row, LockColumn::Name};
    OpenColumn = LockColumn::Name;
    const int typed = Name_Filter(key);
    typed_ = Ist_Zeichen(typed) ? std::string(1, static_cast<char>(typed)) : FGK12.Text(edited_.Row, LockColumn::Name);
    Text1.Text = typed_;
    Text1.Caret = static_cast<int>(typed_.size());
    Text1.Visible = true;
    if (!Ist_Zeichen(typed)) {
        Rufen(Text1.SelectAll);
    }
}

/// The lock may be another one afterwards: it is noted at once that its channel is to be changed.
void F12::Serie_Oeffnen(int key) {
    if (!Kanal_Offen(kern, FGK12.Row)) {
        kern.Meldung(Wort(kern, Word::LockChannelUnsaved), Buttons::Ok, Icon::Exclamation);
        return;
    }
    edited_ = {FGK12.Row, LockColumn::Serial};
    OpenColumn = LockColumn::Serial;
    Serie.Oeffnen(key);
}

void F12::Text1_Change(std::string_view text) {
    if (OpenColumn != LockColumn::Name) {
        return;
    }
    const std::string before = typed_;
    const std::string offered(text); // which may be that of the box
    typed_ = Gefiltert(offered, Name_Filter).substr(0, LongestName);
    Text1.Text = typed_;
    // What was allowed as a whole has left the view's caret in its place.
    if (typed_ != offered) {
        Text1.Caret = Einfuegestelle(before, offered, typed_);
    }
}

void F12::Editor_Schliessen() {
    if (Liste_Von(OpenColumn) != nullptr) {
        FGK12.SetBackColor(edited_.Row, edited_.Column, White);
    }
    OpenColumn = 0;
    Text1.Visible = false;
    Text1.Text = std::string();
    Serie.Schliessen();
    for (ListBox* list : {&List1, &List2, &List3, &List4, &List5}) {
        list->Visible = false;
    }
}

void F12::Editor_KeyPress(int key) {
    if (key == Key::Escape) {
        Editor_Schliessen();
    } else if (key == Key::Tab || key == Key::Enter) {
        Editor_Bestaetigen();
    }
}

void F12::Editor_Bestaetigen() {
    const Place cell = edited_;
    if (const ListBox* list = Liste_Von(OpenColumn)) {
        const int entry = list->Selected;
        const int entries = static_cast<int>(list->Entries().size());
        Editor_Schliessen();
        if (entry >= 0 && entry < entries) {
            Eintrag_Waehlen(cell, entry);
        }
    } else if (OpenColumn == LockColumn::Name) {
        if (!Schlossname_Frei(FGK12, cell.Row, typed_)) {
            kern.Meldung(kern.Zeile(Line::NameExists), Buttons::Ok, Icon::Exclamation, InfoTitle);
            return;
        }
        Editor_Uebernehmen();
        Auswahl.Go(cell.Row, LockColumn::Serial);
    }
}

void F12::Editor_Uebernehmen() {
    const Place cell = edited_;
    if (OpenColumn == LockColumn::Serial) {
        Serie_LostFocus();
    } else if (OpenColumn == LockColumn::Name) {
        const std::string name = typed_;
        Editor_Schliessen();
        Aendern(Word::StepEdit, [&] { FGK12.SetText(cell.Row, LockColumn::Name, name); });
    } else if (OpenColumn != 0) {
        Editor_Schliessen(); // nothing was chosen
    }
}

void F12::Editor_LostFocus() {
    Editor_Uebernehmen();
}

void F12::Serie_Schreiben(int row, const std::string& serial, bool emi) {
    const bool whole = serial.empty() || Serie.Vollstaendig();
    Editor_Schliessen();
    Aendern(Word::StepEdit, [&] {
        FGK12.SetText(row, LockColumn::Serial, serial);
        if (emi) {
            FGK12.SetPicture(row, LockColumn::Emi, Emi_Bild(serial));
        }
        if (!serial.empty()) {
            Schalter_Geben(FGK12, row);
        }
        Verlauf.Keep(Word::LockChannelStays);
    });
    if (!whole) {
        Hinweis.Text = Wort(kern, Word::SerialPartial);
    }
}

void F12::Serie_Uebernehmen(int row, std::string_view serial, std::string_view unitType) {
    if (row < LockGrid::FirstRow || row > LockGrid::LastRow) {
        return;
    }
    Aendern(Word::StepScan, [&] {
        FGK12.SetText(row, LockColumn::Serial, serial);
        FGK12.SetPicture(row, LockColumn::Emi, Emi_Bild(serial));
        FGK12.SetText(row, LockColumn::UnitType, unitType);
        Schalter_Geben(FGK12, row);
        Verlauf.Keep(Word::LockFoundStays);
    });
    Auswahl.Go(row, LockColumn::Serial);
}

void F12::Unit_Uebernehmen(int row, std::string_view unitType) {
    if (row >= LockGrid::FirstRow && row <= LockGrid::LastRow) {
        FGK12.SetText(row, LockColumn::UnitType, unitType);
    }
}

} // namespace qvm
