#include "HolidayCalendar.h"

#include "Csv.h"
#include "CsvAusgabe.h"
#include "FileTrouble.h"
#include "Fragen.h"
#include "TimeRecords.h"
#include "UndoMenu.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace qvm {
namespace {

constexpr std::size_t DayAndMonth = 6; // "dd.mm."
constexpr std::string_view NoYear = " - -";
constexpr int LongestLeapGap = 9; // years: 2096 to 2104

} // namespace

HolidayCalendar::HolidayCalendar(Kern& kernel, const CalendarTraits& traits)
    : kern(kernel), Traits(traits), FGK(CalendarRows + 1, traits.Columns) {
    List.Visible = false;
    Auswahl.Moved = [this] { Stand_Zeigen(); };
    kern.Windows.Open[std::string(Traits.Window)] = [this] { FormLaden(); };
}

void HolidayCalendar::FormLaden() {
    Editor_Schliessen();
    Geaendert = false;
    lastPicked_.reset();
    MV.Day = Heute(kern.Welt.Now());
    Jahr = MV.Day.Year;
    Hinweis.Text = std::string();
    Laden();
    Auswahl.Go(FirstRow, CalendarColumn::From);
    Texte_Setzen();
    Fenster.Enabled = true;
    Fenster.Visible = true; // last, as the window's first size goes by its contents
    if (unread_) {
        const FileTrouble trouble{.File = std::string(CalendarEntry::Record.File),
                                  .Fault = Lesefehler(kern.Welt.Files)};
        kern.Meldung(Wort(kern, Word::FileNotRead, {FileTrouble_Text(kern, trouble)}), Buttons::Ok, Icon::Exclamation);
    }
}

void HolidayCalendar::Laden() {
    FGK.ClearRows(FirstRow);
    unread_ = !Kalender_Laden(kern, FGK, Traits.Block);
    for (int row = FirstRow; row <= LastRow; ++row) {
        FGK.SetText(row, CalendarColumn::Number, Ziffern(row));
    }
    cellWords_ = kern.Sprache.FeiertagsTexte;
    Verlauf.Forget();
    Tage_Suchen();
}

void HolidayCalendar::Toolbar1_ButtonClick(std::string_view key) {
    Editor_Schliessen();
    if (key == u8"Zurück"_w) {
        Schliessen();
    } else if (key == "CSV-Print") {
        Csv_Schreiben();
    } else if (key == "Speichern") {
        Speichern();
    }
}

/// The sort is a step of its own: steps before it go by the rows as they stood.
bool HolidayCalendar::Speichern() {
    if (unread_) {
        kern.Meldung(Wort(kern, Word::HolidaysUnread), Buttons::Ok, Icon::Exclamation);
        return false;
    }
    bool saved = false;
    Aendern(Word::StepSort, [&] { saved = Kalender_Speichern(kern, FGK, Traits.Block); });
    if (!saved) {
        kern.Meldung(Wort(kern, Word::HolidaysNotSaved), Buttons::Ok, Icon::Exclamation);
        return false;
    }
    Geaendert = false;
    return true;
}

void HolidayCalendar::Csv_Schreiben() {
    std::string text = Csv_Feld(kern.Zeile(Line::DateFrom)) + ";" + Csv_Feld(kern.Zeile(Line::DateTo)) + ";\r";
    for (int row = FirstRow; row <= LastRow; ++row) {
        text +=
            Csv_Feld(FGK.Text(row, CalendarColumn::From)) + ";" + Csv_Feld(FGK.Text(row, CalendarColumn::To)) + ";\r";
    }
    Csv_Ausgeben(kern, Label1.Text(), kern.Zeile(Line::Settings), text);
}

void HolidayCalendar::Schliessen() {
    Editor_Schliessen();
    if (!Verlassen_Erlaubt(kern, Geaendert, kern.Zeile(Traits.Purpose), [this] { return Speichern(); })) {
        return;
    }
    Geaendert = false;
    Fenster.Visible = false;
    Verlauf.Forget();
    kern.Windows.BackToMain();
}

// ---- grid, month and list

void HolidayCalendar::FGK_MouseUp(MouseButton button, int row, int column) {
    Editor_Schliessen();
    if (row < FirstRow || !FGK.Holds(row, column)) {
        return;
    }
    if (button == MouseButton::Right && Auswahl.Larger() && Auswahl.Holds(row, column)) {
        Auswahl.Within(row, column);
    } else {
        Auswahl.Go(row, column);
    }
    if (button == MouseButton::Right && Menue_Zeigen) {
        Menue_Zeigen();
    }
}

void HolidayCalendar::FGK_Kontext() {
    Editor_Schliessen();
    if (FGK.Row >= FirstRow && Menue_Zeigen) {
        Menue_Zeigen();
    }
}

void HolidayCalendar::FGK_DblClick(int row, int column) {
    Editor_Schliessen();
    if (row >= FirstRow && FGK.Holds(row, column)) {
        Auswahl.Go(row, column);
        Aktivieren(row, column);
    }
}

void HolidayCalendar::FGK_KeyPress(int key) {
    if (key == Key::Enter) {
        FGK_DblClick(FGK.Row, FGK.Column);
    }
}

void HolidayCalendar::Aktivieren(int row, int column) {
    row_ = row;
    column_ = column;
    if (column == CalendarColumn::From || column == CalendarColumn::To) {
        Geaendert = true;
        MV.Day = Heute(kern.Welt.Now());
        MV.Visible = true;
    } else if (column == CalendarColumn::Kind) {
        Art_Aktivieren(row);
    }
}

/// A single holiday goes from each kind to the other one. A permanent one keeps the second, and loses any other.
void HolidayCalendar::Art_Aktivieren(int row) {
    const std::string kind = FGK.Text(row, CalendarColumn::Kind);
    if (kind.empty()) {
        List.Selected = 0;
        List.Visible = true;
        return;
    }
    const bool second = Traits.Block == KalenderBlock::Einzel ? kind == Art(0) : kind == Art(1);
    Aendern(Word::StepEdit, [&] { FGK.SetText(row, CalendarColumn::Kind, Art(second ? 1 : 0)); });
}

void HolidayCalendar::List_Waehlen(int entry) {
    if (!List.Visible() || (entry != 0 && entry != 1)) {
        return;
    }
    List.Visible = false;
    Aendern(Word::StepEdit, [&] { FGK.SetText(row_, CalendarColumn::Kind, Art(entry == 0 ? 1 : 0)); });
}

std::string HolidayCalendar::Zelltext(const Datum& day) const {
    const std::string whole = Datum_Text(day);
    return Traits.Block == KalenderBlock::Einzel ? whole : whole.substr(0, DayAndMonth) + std::string(NoYear);
}

void HolidayCalendar::MV_Waehlen(const Datum& day) {
    if (!MV.Visible() || !Datum_Gueltig(day)) {
        return;
    }
    if (column_ == CalendarColumn::To && lastPicked_ && day < *lastPicked_) {
        kern.Meldung(kern.Zeile(Line::EntryInvalid), Buttons::Ok, Icon::Exclamation);
        return;
    }
    lastPicked_ = day;
    MV.Visible = false;
    Aendern(Word::StepEdit, [&] {
        FGK.SetText(row_, column_, Zelltext(day));
        if (Traits.Block == KalenderBlock::Permanent) {
            FGK.SetText(row_, CalendarColumn::Kind, Art(1));
        } else if (FGK.Text(row_, CalendarColumn::Kind).empty()) {
            FGK.SetText(row_, CalendarColumn::Kind, Art(0));
        }
    });
}

bool HolidayCalendar::FGK_Beschreibbar(int row, int column) const {
    return FGK.Holds(row, column) && row >= FirstRow &&
           (column == CalendarColumn::From || column == CalendarColumn::To);
}

/// Without a year it is that of the next year that has it, which a leap day needs.
std::optional<Datum> HolidayCalendar::Tag_Lesen(std::string_view text) const {
    if (Traits.Block == KalenderBlock::Einzel || !text.ends_with(NoYear)) {
        return Datum_Lesen(text);
    }
    const std::string start(text.substr(0, text.size() - NoYear.size()));
    const int now = Heute(kern.Welt.Now()).Year;
    for (int year = now; year < now + LongestLeapGap; ++year) {
        if (const auto day = Datum_Lesen(start + Ziffern(year))) {
            return day;
        }
    }
    return {};
}

void HolidayCalendar::FGK_Eintragen(int row, int column, std::string_view text) {
    const auto day = Tag_Lesen(text);
    if (!Fenster.Enabled || !FGK_Beschreibbar(row, column) || !day) {
        return;
    }
    FGK_DblClick(row, column);
    MV_Waehlen(*day);
    Editor_Schliessen(); // which a refused day leaves open
}

void HolidayCalendar::Editor_Schliessen() {
    MV.Visible = false;
    List.Visible = false;
}

void HolidayCalendar::Loeschen_Click() {
    Editor_Schliessen();
    Aendern(Word::StepDelete, [&] {
        for (const int row : Auswahl.Rows()) {
            for (const int column : {CalendarColumn::From, CalendarColumn::To, CalendarColumn::Kind}) {
                FGK.SetText(row, column, "");
            }
        }
    });
}

// ---- steps

bool HolidayCalendar::Aendern(Word what, const std::function<void()>& change) {
    if (!Schritt_Tun(kern, Verlauf, what, change, Rueckgaengig, Wiederholen)) {
        return false;
    }
    Geaendert = true;
    Hinweis.Text = std::string();
    Tage_Suchen();
    return true;
}

void HolidayCalendar::Undo_Click() {
    Schritt_Gehen(&GridUndo::Undo, Word::UndoDone);
}

void HolidayCalendar::Redo_Click() {
    Schritt_Gehen(&GridUndo::Redo, Word::RedoDone);
}

void HolidayCalendar::Schritt_Gehen(std::optional<UndoStep> (GridUndo::*way)(), Word told) {
    Editor_Schliessen();
    const auto step = (Verlauf.*way)();
    if (!step) {
        return;
    }
    Geaendert = true;
    Tage_Suchen();
    Auswahl.Go(step->Row, std::clamp(step->Column, CalendarColumn::From, CalendarColumn::Kind));
    Schritte_Zeigen(kern, Verlauf, Rueckgaengig, Wiederholen);
    Hinweis.Text = Schritt_Meldung(kern, told, *step);
}

int HolidayCalendar::Breite(int column) {
    constexpr std::array<int, 4> widths{500, 1500, 1500, 2600};
    return column >= 0 && column < static_cast<int>(widths.size()) ? widths[static_cast<std::size_t>(column)] : 0;
}

} // namespace qvm
