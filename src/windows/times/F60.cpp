#include "F60.h"

#include "Filter.h"
#include "Fragen.h"
#include "Kartendateien.h"
#include "UndoMenu.h"

#include <algorithm>

namespace qvm {
namespace {

constexpr int FirstCardYear = 2000, LastCardYear = 2099;

} // namespace

F60::F60(Kern& kernel, Link& serialLink, AdapterListe& adapters)
    : kern(kernel), link(serialLink), Adapter(adapters), Wache(kernel.Welt, LookMs) {
    std::vector<std::string> groups;
    groups.reserve(Groups);
    for (int n = 0; n < Groups; ++n) {
        groups.push_back("Grp - " + Ziffern(n));
    }
    List1.Entries = std::move(groups);
    Text1.MaxLength = Text2.MaxLength = 5;
    Label12.Visible = false;
    Wache.Ticked = [this] { Nachsehen(); };
    kern.Windows.Open["F60"] = [this] { F60_FormLaden(); };
}

void F60::F60_FormLaden() {
    CheckIn = Heute(kern.Welt.Now());
    CheckOut = CheckIn();
    Label12.Visible = false;
    Hinweis.Text = std::string();
    Text3.Text = std::string();
    Laden();
    Text1.Text = standard_[0];
    Text2.Text = standard_[1];
    Text1.Caret = 0;
    Text2.Caret = 0;
    Gespeichert();
    Schritte_Vergessen();
    Auswahl.Go(FirstRow, CardColumn::Mark);
    Texte_Setzen();
    Fenster.Enabled = true;
    Fenster.Visible = true; // last, as the window's first size goes by its contents
}

void F60::Toolbar1_ButtonClick(std::string_view key) {
    if (key == u8"Zurück"_w) {
        Schliessen();
    } else if (key == "Speichern") {
        PermSelect_Speichern();
    }
}

void F60::Schliessen() {
    if (!Verlassen_Erlaubt(kern, Geaendert, kern.Zeile(Line::TimerGroup), [this] { return PermSelect_Speichern(); })) {
        return;
    }
    Geaendert = false;
    Enden(KartenErgebnis::Offen);
    Fenster.Visible = false;
    kern.Windows.BackToMain();
}

// ---- doors

void F60::Markieren(int row, std::string_view mark) {
    FGK60.SetText(row, CardColumn::Mark, mark);
    FGK60.SetBackColor(row, CardColumn::Mark, mark.empty() ? White : CardLook::Marked);
    FGK60.SetFontSize(row, CardColumn::Mark, CardLook::MarkSize);
}

void F60::FGK60_Click(int row, int column) {
    if (row < FirstRow || !FGK60.Holds(row, column)) {
        return;
    }
    Auswahl.Go(row, column);
    if (column != CardColumn::Mark || Schreibt()) {
        return;
    }
    const std::string mark = FGK60.Text(row, column);
    const std::string_view next = mark.empty()               ? DoorMark::Single
                                  : mark == DoorMark::Single ? DoorMark::Permanent
                                                             : std::string_view();
    Schritt_Tun(
        kern, steps_, Word::StepMark, [&] { Markieren(row, next); }, Rueckgaengig, Wiederholen);
    Geaendert = Geaendert || next != DoorMark::Single;
    Hinweis.Text = std::string();
    Stand_Zeigen();
}

void F60::FGK60_Kontext(int row, int column) {
    if (row < FirstRow || !FGK60.Holds(row, column)) {
        return;
    }
    Auswahl.Go(row, column);
    if (Menue_Zeigen) {
        Menue_Zeigen();
    }
}

void F60::Undo_Click() {
    Schritt_Gehen(&GridUndo::Undo, Word::UndoDone);
}

void F60::Redo_Click() {
    Schritt_Gehen(&GridUndo::Redo, Word::RedoDone);
}

void F60::Schritt_Gehen(std::optional<UndoStep> (GridUndo::*way)(), Word told) {
    if (!Fenster.Enabled || Schreibt()) {
        return;
    }
    const auto step = (steps_.*way)();
    if (!step) {
        return;
    }
    Geaendert = Dauertueren() != saved_;
    Auswahl.Go(step->Row, CardColumn::Mark);
    Stand_Zeigen();
    Schritte_Zeigen(kern, steps_, Rueckgaengig, Wiederholen);
    Hinweis.Text = Schritt_Meldung(kern, told, *step);
}

std::vector<int> F60::Dauertueren() const {
    std::vector<int> rows;
    for (int row = FirstRow; row <= LastRow; ++row) {
        if (FGK60.Text(row, CardColumn::Mark) == DoorMark::Permanent) {
            rows.push_back(row);
        }
    }
    return rows;
}

void F60::Gespeichert() {
    saved_ = Dauertueren();
    Geaendert = false;
}

void F60::Schritte_Vergessen() {
    steps_.Forget();
    Schritte_Zeigen(kern, steps_, Rueckgaengig, Wiederholen);
}

void F60::FGK60_KeyPress(int key) {
    if (key == Key::Enter || key == ' ') {
        FGK60_Click(FGK60.Row, CardColumn::Mark);
    }
}

void F60::Text3_KeyPress(int key) {
    if (key == Key::Enter) {
        Command1_Click();
    }
}

void F60::Command1_Click() {
    const std::string wanted = GrossText(Trim(Text3.Text()));
    if (wanted.empty()) {
        return;
    }
    int found = 0;
    for (int row = FirstRow; row <= LastRow; ++row) {
        if (GrossText(Trim(FGK60.Text(row, CardColumn::Name))).find(wanted) != std::string::npos) {
            found = row;
        }
    }
    Hinweis.Text = found == 0 ? Wort(kern, Word::DoorNotFound) : std::string();
    if (found != 0) {
        Auswahl.Go(found, CardColumn::Mark);
    }
}

// ---- the stay

void F60::Tag_Waehlen(Observed<Datum>& which, const Datum& day) {
    if (!Datum_Gueltig(day) || day.Year < FirstCardYear || day.Year > LastCardYear) {
        kern.Meldung(kern.Zeile(Line::EntryInvalid), Buttons::Ok, Icon::Exclamation);
        return;
    }
    which = day;
    Aufenthalt_Zeigen();
}

void F60::MV1_Waehlen(const Datum& day) {
    Tag_Waehlen(CheckIn, day);
}

void F60::MV2_Waehlen(const Datum& day) {
    Tag_Waehlen(CheckOut, day);
}

/// An empty box, as there is without default times, takes the shape of a time first.
void F60::Zeit_Tippen(TextBox& box, int key, bool goesOn) {
    ZeitTaste what = ZeitTaste::Verschluckt;
    if (box.Text().empty() && key >= '0' && key <= '9') {
        Zeit_Oeffnen(box, key);
        what = ZeitTaste::Geschrieben;
    } else {
        what = Zeit_Taste(box, key);
    }
    if (what == ZeitTaste::Geschrieben) {
        Zeit_Geaendert(box);
        Aufenthalt_Zeigen();
    } else if (what == ZeitTaste::Bestaetigt && goesOn && Text2.SetFocus) {
        Text2.SetFocus();
    }
}

void F60::Text1_KeyPress(int key) {
    Zeit_Tippen(Text1, key, true);
}

void F60::Text2_KeyPress(int key) {
    Zeit_Tippen(Text2, key, false);
}

// ---- object groups

void F60::List1_Waehlen(int index) {
    if (index < 0 || index >= Groups || !Objekt) {
        return;
    }
    if (index > GruppenNr) {
        kern.Meldung(kern.Zeile(Line::CalendarsReleased), Buttons::Ok, Icon::Exclamation, kern.Zeile(Line::TimerGroup));
        List1.Selected = GruppenNr;
        return;
    }
    List1.Selected = index;
}

void F60::Command3_Click() {
    if (!Objekt || !Gelesen() ||
        kern.Meldung(kern.Zeile(Line::PersonGroups), Buttons::YesNo, Icon::Question, kern.Zeile(Line::TimerGroup)) !=
            Answer::Yes) {
        return;
    }
    const int next = GruppenNr >= Groups - 1 ? 1 : GruppenNr + 1;
    if (!GruppenNr_Speichern(kern, next)) {
        kern.Meldung(Wort(kern, Word::GroupNotSaved), Buttons::Ok, Icon::Exclamation);
        return;
    }
    GruppenNr = next;
    List1.Selected = next;
}

int F60::Breite(int column) {
    constexpr std::array<int, 4> widths{500, 2600, 1500, 700};
    return column >= 0 && column < static_cast<int>(widths.size()) ? widths[static_cast<std::size_t>(column)] : 0;
}

} // namespace qvm
