#include "F42.h"

#include "Eingabe.h"
#include "FileTrouble.h"
#include "Fragen.h"
#include "TimeRecords.h"
#include "UndoMenu.h"
#include "Zeit.h"

#include <algorithm>

namespace qvm {
namespace {

constexpr std::string_view MidnightText = "00:00";
constexpr int LowestPrintable = ' ';
constexpr int Minute = 60000; // ms

bool Druckbar(int key) {
    return key >= LowestPrintable && key != Key::Delete;
}

bool Tageszeit(std::string_view text) {
    return text.size() == MidnightText.size() && Uhrzeit_Lesen(text).has_value();
}

} // namespace

F42::F42(Kern& kernel) : kern(kernel), Uhr(kernel.Welt, Minute) {
    Uhr.Ticked = [this] { Woche_Zeigen(); };
    for (TextBox* box : {&Text3, &Text4}) {
        box->Visible = false;
    }
    Text4.MaxLength = OffsetNameLength;
    List1.Visible = false;
    Auswahl.Moved = [this] { Stand_Zeigen(); };
    kern.Windows.Open["F42"] = [this] { F42_FormLaden(); };
}

void F42::F42_FormLaden() {
    Text3.Visible = false;
    Text4.Visible = false;
    List1.Visible = false;
    Hinweis.Text = std::string();
    Laden();
    Geaendert = false;
    Auswahl.Go(1, OffsetColumn::Name);
    Texte_Setzen();
    Fenster.Enabled = true;
    Uhr.Start();
    Fenster.Visible = true; // last, as the window's first size goes by its contents
    if (unread_) {
        kern.Meldung(Wort(kern, Word::GuestTimesUnread), Buttons::Ok, Icon::Exclamation);
    } else if (firstUnknown_ > 0) {
        const FileTrouble trouble{.File = std::string(TimeSlot::Record.File),
                                  .Damage = FileDamage::BadRecord,
                                  .Number = PersonSlots.First + firstUnknown_ - 1};
        kern.Meldung(Wort(kern, Word::FileNotRead, {FileTrouble_Text(kern, trouble)}), Buttons::Ok, Icon::Exclamation);
    }
}

void F42::Laden() {
    FGK42.ClearRows(1);
    FGK42B.ClearRows(1);
    DefaultTimes times;
    GuestSelection selection;
    slots_ = {};
    const bool offsets = Offsets_Laden(kern, FGK42);
    const bool setup = OffsetSetup_Laden(kern, times);
    const SlotLoad slots = Gastslots_Laden(kern, slots_);
    const bool selected = Auswahl_Laden(kern, selection);
    unread_ = !offsets || !setup || !slots || !selected;
    firstUnknown_ = slots.Damaged == 0 ? 0 : slots.Damaged - PersonSlots.First + 1;
    for (TextBox* box : {&Text1, &Text2}) {
        box->MaxLength = static_cast<int>(MidnightText.size());
        box->Text = box == &Text1 ? times.CheckIn : times.CheckOut;
        box->Caret = 0;
    }
    Combo1.Selected = selection.Hotel ? 0 : 1;
    for (int row = 1; row <= OffsetRows; ++row) {
        FGK42.SetText(row, OffsetColumn::Number, Ziffern(row));
    }
    for (int row = 1; row <= GuestSlotRows; ++row) {
        FGK42B.SetText(row, GuestSlotColumn::Number, Ziffern(row));
        if (selection.Slots[static_cast<std::size_t>(row) - 1]) {
            Slot_Markieren(row, true);
        }
    }
    steps_.Forget();
}

void F42::Toolbar1_ButtonClick(std::string_view key) {
    Editor_Uebernehmen();
    if (key == u8"Zurück"_w) {
        F42_Schliessen();
    } else if (key == "Speichern") {
        Speichern();
    }
}

bool F42::Speichern() {
    if (unread_) {
        kern.Meldung(Wort(kern, Word::GuestTimesUnread), Buttons::Ok, Icon::Exclamation);
        return false;
    }
    GuestSelection selection;
    selection.Hotel = Combo1.Selected() != 1;
    for (int row = 1; row <= GuestSlotRows; ++row) {
        selection.Slots[static_cast<std::size_t>(row) - 1] = FGK42B.Text(row, GuestSlotColumn::Selection) == "X";
    }
    if (!Gastzeiten_Speichern(kern, {Text1.Text(), Text2.Text()}, FGK42, selection)) {
        kern.Meldung(Wort(kern, Word::GuestTimesNotSaved), Buttons::Ok, Icon::Exclamation);
        return false;
    }
    Geaendert = false;
    return true;
}

void F42::F42_Schliessen() {
    Editor_Uebernehmen();
    if (!Verlassen_Erlaubt(kern, Geaendert, kern.Zeile(Line::TimerGroup), [this] { return Speichern(); })) {
        return;
    }
    Geaendert = false;
    Uhr.Stop();
    Fenster.Visible = false;
    steps_.Forget();
    kern.Windows.BackToMain();
}

// ---- default times and mode

void F42::Text1_KeyPress(int key) {
    if (Standardzeit_Taste(Text1, key) && Text2.SetFocus) {
        Text2.SetFocus();
    }
}

void F42::Text2_KeyPress(int key) {
    Standardzeit_Taste(Text2, key);
}

bool F42::Standardzeit_Taste(TextBox& box, int key) {
    const std::string before = box.Text();
    const ZeitTaste did = Zeit_Taste(box, key);
    if (box.Text() != before) {
        Geaendert = true;
        Stand_Zeigen();
    }
    return did == ZeitTaste::Bestaetigt;
}

void F42::Combo1_Click(int entry) {
    if ((entry == 0 || entry == 1) && entry != Combo1.Selected()) {
        Combo1.Selected = entry;
        Geaendert = true;
    }
}

// ---- offsets

void F42::FGK42_KeyPress(int key) {
    if (key == Key::Enter) {
        FGK42_DblClick(FGK42.Row, FGK42.Column);
    } else if (Druckbar(key)) {
        Editor_Uebernehmen();
        Aktivieren(FGK42.Row, FGK42.Column, key);
    }
}

void F42::FGK42_DblClick(int row, int column) {
    Editor_Uebernehmen();
    if (row >= 1 && FGK42.Holds(row, column)) {
        Auswahl.Go(row, column);
        Aktivieren(row, column, 0);
    }
}

/// @param key that the editor begins with; 0: it begins with the text of the cell
void F42::Aktivieren(int row, int column, int key) {
    if (row < 1 || column < OffsetColumn::Name || column > OffsetColumn::Base) {
        return;
    }
    Geaendert = true;
    row_ = row;
    column_ = column;
    const std::string& text = FGK42.Text(row, column);
    if (column == OffsetColumn::Name) {
        Text4.Text = key != 0 ? std::string(1, static_cast<char>(key)) : text;
        Text4.Caret = key != 0 ? 1 : 0;
        Text4.Visible = true;
    } else if (column == OffsetColumn::Base) {
        List1.Entries = std::vector<std::string>{Text1.Text(), Text2.Text()};
        List1.Selected = 0;
        List1.Visible = true;
    } else {
        if (key != 0) {
            Zeit_Oeffnen(Text3, key);
        } else {
            // The box holds a whole time of day, whatever stands in the cell.
            Text3.MaxLength = static_cast<int>(MidnightText.size());
            Text3.Text = Tageszeit(text) ? text : std::string(MidnightText);
            Text3.Caret = 0;
        }
        Text3.Visible = true;
    }
}

void F42::Text3_KeyPress(int key) {
    const ZeitTaste did = Zeit_Taste(Text3, key);
    if (did == ZeitTaste::Bestaetigt) {
        Editor_Uebernehmen();
    } else if (did == ZeitTaste::Abgebrochen) {
        Text3.Visible = false;
    }
}

void F42::Text4_Change(const std::string& text) {
    Text4.Text = text;
}

void F42::Text4_KeyPress(int key) {
    if (key == Key::Enter || key == Key::Tab) {
        Editor_Uebernehmen();
    } else if (key == Key::Escape) {
        Text4.Visible = false;
    }
}

void F42::Editor_LostFocus() {
    Editor_Uebernehmen();
}

void F42::Editor_Uebernehmen() {
    List1.Visible = false;
    for (TextBox* box : {&Text3, &Text4}) {
        if (box->Visible()) {
            const std::string text = box->Text();
            box->Visible = false;
            Zelle_Schreiben(text);
        }
    }
}

void F42::List1_Waehlen(int entry) {
    if (!List1.Visible() || (entry != 0 && entry != 1)) {
        return;
    }
    List1.Visible = false;
    Zelle_Schreiben(entry == 0 ? Text1.Text() : Text2.Text());
}

void F42::Zelle_Schreiben(const std::string& text) {
    Aendern(Word::StepEdit, [&] { FGK42.SetText(row_, column_, text); });
}

bool F42::FGK42_Beschreibbar(int row, int column) const {
    return FGK42.Holds(row, column) && row >= 1 && column >= OffsetColumn::Name && column <= OffsetColumn::Base;
}

void F42::FGK42_Eintragen(int row, int column, const std::string& text) {
    const bool base = column == OffsetColumn::Base;
    const bool good = base                           ? text == Text1.Text() || text == Text2.Text()
                      : column == OffsetColumn::Time ? Tageszeit(text)
                                                     : text.size() <= static_cast<std::size_t>(OffsetNameLength) &&
                                                           Gefiltert(text, Jedes_Zeichen) == text;
    if (!Fenster.Enabled || !FGK42_Beschreibbar(row, column) || !good) {
        return;
    }
    FGK42_DblClick(row, column);
    if (base) {
        List1_Waehlen(text == Text1.Text() ? 0 : 1);
        return;
    }
    (column == OffsetColumn::Time ? Text3 : Text4).Text = text;
    Editor_Uebernehmen();
}

void F42::FGK42_MouseUp(MouseButton button, int row, int column) {
    Editor_Uebernehmen();
    if (row < 1 || !FGK42.Holds(row, column)) {
        return;
    }
    Auswahl.Go(row, column);
    if (button == MouseButton::Right && column == OffsetColumn::Name && Menue_Zeigen) {
        Menue_Zeigen();
    }
}

void F42::FGK42_Kontext() {
    Editor_Uebernehmen();
    if (FGK42.Row >= 1 && FGK42.Column == OffsetColumn::Name && Menue_Zeigen) {
        Menue_Zeigen();
    }
}

void F42::F42Loeschen_Click() {
    Editor_Uebernehmen();
    const int row = FGK42.Row;
    if (row < 1) {
        return;
    }
    Aendern(Word::StepDelete, [&] {
        FGK42.SetText(row, OffsetColumn::Name, "");
        FGK42.SetText(row, OffsetColumn::Time, MidnightText);
        FGK42.SetText(row, OffsetColumn::Base, MidnightText);
    });
}

// ---- guest slots

void F42::FGK42B_Click(int row, int column) {
    if (row < 1 || column != GuestSlotColumn::Selection || !FGK42B.Holds(row, column)) {
        return;
    }
    Aendern(Word::StepMark, [&] { Slot_Markieren(row, FGK42B.Text(row, column) != "X"); });
    Woche_Zeigen();
}

void F42::Slot_Markieren(int row, bool selected) {
    Cell cell = FGK42B.At(row, GuestSlotColumn::Selection);
    cell.Text = selected ? "X" : "";
    cell.BackColor = selected ? GuestSlotLook::Selected : White;
    cell.FontSize = GuestSlotLook::MarkSize;
    FGK42B.Set(row, GuestSlotColumn::Selection, cell);
}

// ---- steps

bool F42::Aendern(Word what, const std::function<void()>& change) {
    Stand_Merken();
    change();
    steps_.Begin(what);
    Stand_Merken();
    if (!steps_.End()) {
        return false;
    }
    Schritte_Zeigen(kern, steps_, Rueckgaengig, Wiederholen);
    Geaendert = true;
    Hinweis.Text = std::string();
    Stand_Zeigen();
    return true;
}

void F42::Stand_Merken() {
    for (int row = 0; row < OffsetRows; ++row) {
        for (int n = 0; n < OffsetFields; ++n) {
            kept_.SetText(row, n, FGK42.Text(row + 1, OffsetColumn::Name + n));
        }
    }
    for (int row = 0; row < GuestSlotRows; ++row) {
        kept_.SetText(OffsetRows + row, 0, FGK42B.Text(row + 1, GuestSlotColumn::Selection));
    }
}

void F42::Stand_Herstellen() {
    for (int row = 0; row < OffsetRows; ++row) {
        for (int n = 0; n < OffsetFields; ++n) {
            FGK42.SetText(row + 1, OffsetColumn::Name + n, kept_.Text(row, n));
        }
    }
    for (int row = 0; row < GuestSlotRows; ++row) {
        Slot_Markieren(row + 1, kept_.Text(OffsetRows + row, 0) == "X");
    }
}

void F42::Undo_Click() {
    Schritt_Gehen(&GridUndo::Undo, Word::UndoDone);
}

void F42::Redo_Click() {
    Schritt_Gehen(&GridUndo::Redo, Word::RedoDone);
}

void F42::Schritt_Gehen(std::optional<UndoStep> (GridUndo::*way)(), Word told) {
    Editor_Uebernehmen();
    const auto step = (steps_.*way)();
    if (!step) {
        return;
    }
    Stand_Herstellen();
    Geaendert = true;
    if (step->Row < OffsetRows) {
        Auswahl.Go(step->Row + 1, step->Column + OffsetColumn::Name);
    }
    Stand_Zeigen();
    Woche_Zeigen();
    Schritte_Zeigen(kern, steps_, Rueckgaengig, Wiederholen);
    Hinweis.Text = Schritt_Meldung(kern, told, *step);
}

} // namespace qvm
