// The switch clocks: days and times of the slots.

#include "Filter.h"
#include "WeekTimer.h"
#include "Wochentage.h"
#include "Zeit.h"

#include <utility>

namespace qvm {
namespace {

constexpr std::string_view NeutralTime = "00:00";

bool Ganze_Zeit(std::string_view text) {
    return text.size() == NeutralTime.size() && text[2] == ':' && Uhrzeit_Lesen(text).has_value();
}

} // namespace

bool WeekTimer::FGK1_Beschreibbar(int row, int column) const {
    return FGK1.Holds(row, column) && row >= FirstRow && column >= SlotColumn::Day;
}

void WeekTimer::FGK1_MouseUp(MouseButton button, int row, int column) {
    Editor_Verlassen();
    if (row < FirstRow || !FGK1.Holds(row, column)) {
        return;
    }
    if (button == MouseButton::Right && SlotAuswahl.Larger() && SlotAuswahl.Holds(row, column)) {
        SlotAuswahl.Within(row, column);
    } else {
        SlotAuswahl.Go(row, column);
    }
    if (button == MouseButton::Right) {
        FGK1_Kontext();
    }
}

void WeekTimer::FGK1_Kontext() {
    Editor_Verlassen();
    if (Menue_Zeigen) {
        Menue_Zeigen(Menu::Slots);
    }
}

void WeekTimer::FGK1_DblClick(int row, int column) {
    Editor_Verlassen();
    if (FGK1_Beschreibbar(row, column)) {
        SlotAuswahl.Go(row, column);
        Slot_Aktivieren(row, column);
    }
    TasteZeit = 0;
}

void WeekTimer::FGK1_KeyPress(int key) {
    Geaendert = true;
    if (key == Key::Enter) {
        TasteZeit = 0;
    } else {
        TasteZeit = key >= '0' && key <= '9' ? key : '0';
    }
    FGK1_DblClick(FGK1.Row, FGK1.Column);
}

void WeekTimer::Slot_Aktivieren(int row, int column) {
    AktZeile = row;
    AktSpalte = column;
    EditAktiv = true;
    Geaendert = true;
    const int key = std::exchange(TasteZeit, 0);
    if (column == SlotColumn::Day) {
        List1.Selected = 0;
        List1.Visible = true;
        return;
    }
    AlterText = FGK1.Text(row, column);
    if (key != 0) {
        Zeit_Oeffnen(Text1, key);
    } else {
        // What a damaged file holds cannot be typed over digit by digit.
        Text1.Text = Ganze_Zeit(AlterText) ? AlterText : std::string(NeutralTime);
        Text1.Caret = 0;
    }
    Text1.Visible = true;
}

void WeekTimer::List1_Waehlen(int entry) {
    if (!List1.Visible() || entry < 0 || entry > LetzterWochentag) {
        return;
    }
    List1.Visible = false;
    EditAktiv = false;
    Aendern(Word::StepEdit, [&] {
        if (entry == 0) {
            FGK1.SetText(AktZeile, SlotColumn::From, NeutralTime);
            FGK1.SetText(AktZeile, SlotColumn::To, NeutralTime);
        }
        FGK1.SetText(AktZeile, SlotColumn::Day, Wochentag_Text(kern, entry));
    });
    if (AktSpalte < SlotColumn::To) {
        ++AktSpalte;
    }
    SlotAuswahl.Go(AktZeile, AktSpalte);
}

void WeekTimer::Text1_KeyPress(int key) {
    if (!Text1.Visible()) {
        return;
    }
    const ZeitTaste became = Zeit_Taste(Text1, key);
    if (became == ZeitTaste::Bestaetigt) {
        Text1_Uebernehmen();
    } else if (became == ZeitTaste::Abgebrochen) {
        if (EditAktiv) {
            FGK1.SetText(AktZeile, AktSpalte, AlterText);
        }
        EditAktiv = false;
        Text1.Visible = false;
        Text1.Text = std::string();
    }
}

void WeekTimer::Text1_Uebernehmen() {
    if (!Text1.Visible()) {
        return;
    }
    const std::string time = Text1.Text();
    Text1.Visible = false; // before a message, which would take its keyboard
    Text1.Text = std::string();
    EditAktiv = false;
    if (AktSpalte != SlotColumn::To) {
        Zeit_Schreiben(time);
        ++AktSpalte;
        SlotAuswahl.Go(AktZeile, AktSpalte);
        return;
    }
    const std::string from = FGK1.Text(AktZeile, SlotColumn::From);
    const SlotEnde end = Zeitfenster_EndePruefen(from, time);
    if (end == SlotEnde::Verkehrt) {
        Zeit_Schreiben(std::string(NeutralTime));
        kern.Meldung("\t" + kern.Zeile(Line::EntryInvalid) + " [ " + from + "   >>   " + time + " ] ", Buttons::Ok,
                     Icon::Exclamation);
    } else if (end == SlotEnde::Gut) {
        Zeit_Schreiben(time);
    }
}

void WeekTimer::Zeit_Schreiben(const std::string& time) {
    Aendern(Word::StepEdit, [&] { FGK1.SetText(AktZeile, AktSpalte, time); });
}

void WeekTimer::FGK1_Eintragen(int row, int column, std::string_view text) {
    const int day = Wochentag_Index(kern, text);
    if (!Fenster.Enabled || !FGK1_Beschreibbar(row, column) ||
        (column == SlotColumn::Day ? day < 0 : !Ganze_Zeit(text))) {
        return;
    }
    FGK1_DblClick(row, column);
    if (column == SlotColumn::Day) {
        List1_Waehlen(day);
    } else {
        Text1.Text = std::string(text);
        Text1_Uebernehmen();
    }
}

} // namespace qvm
