// Marks, and the two keys that make a list of them.

#include "F13.h"
#include "Fragen.h"
#include "Text.h"
#include "Words.h"

#include <algorithm>
#include <utility>

namespace qvm {

bool F13::Markierbar(int row) const {
    return !FGK13.Text(row, F13Column::Name).empty() && !FGK13.Text(row, F13Column::Serial).empty();
}

bool F13::Markiert(int row) const {
    return FGK13.Text(row, F13Column::Mark) == "X";
}

void F13::Marke_Setzen(int row, bool on) {
    FGK13.SetText(row, F13Column::Mark, on ? "X" : "");
    FGK13.SetFontSize(row, F13Column::Mark, 16);
    FGK13.SetForeColor(row, F13Column::Mark, 0x808080);
    Marken_Zaehlen();
}

void F13::Marke_Umschalten(int row) {
    if (Markierbar(row)) {
        Marke_Setzen(row, !Markiert(row));
    }
}

std::vector<int> F13::Markierte_Zeilen() const {
    std::vector<int> rows;
    for (int row = 1; row < FGK13.Rows(); ++row) {
        if (Markiert(row)) {
            rows.push_back(row);
        }
    }
    return rows;
}

void F13::Marken_Zaehlen() {
    const std::vector<int> rows = Markierte_Zeilen();
    const auto hidden = std::count_if(rows.begin(), rows.end(), [this](int row) { return !Filter.Shows(row); });
    const std::string marked = Ziffern(static_cast<int>(rows.size()));
    Markenzahl.Text = rows.empty()  ? std::string()
                      : hidden == 0 ? Wort(kern, Word::MarkedCount, {marked})
                                    : Wort(kern, Word::MarkedHidden, {marked, Ziffern(static_cast<int>(hidden))});
}

void F13::Marken_Zurueckholen() {
    for (const auto& [row, serial] : std::exchange(kept_, {})) {
        // The files may have another lock there by now.
        if (Markierbar(row) && FGK13.Text(row, F13Column::Serial) == serial) {
            Marke_Setzen(row, true);
        }
    }
}

bool F13::Marken_Hinnehmen() const {
    const std::size_t marked = Markierte_Zeilen().size();
    return marked == 0 || Verlust_Hinnehmen(kern, Wort(kern, Word::LeaveMarks, {Ziffern(static_cast<int>(marked))}));
}

void F13::Auswahl_Markieren() {
    std::vector<int> rows = Auswahl.Rows();
    std::erase_if(rows, [this](int row) { return !Markierbar(row); });
    const bool all = std::all_of(rows.begin(), rows.end(), [this](int row) { return Markiert(row); });
    for (const int row : rows) {
        Marke_Setzen(row, !all);
    }
}

void F13::FGK13_KeyPress(int key) {
    if (const int row = Sprung.Letter(key); row != 0) {
        Auswahl.Go(row, FGK13.Column);
    }
}

std::vector<int> F13::Gescheiterte_Zeilen() const {
    std::vector<int> rows = Gescheiterte_Schloesser ? Gescheiterte_Schloesser() : std::vector<int>();
    std::erase_if(rows, [this](int row) { return row < 1 || !Markierbar(row); });
    return rows;
}

void F13::Command1_Click() {
    for (const int row : Gescheiterte_Zeilen()) {
        Marke_Setzen(row, true);
    }
}

void F13::Liste(bool historyOnly) {
    const std::vector<int> rows = Markierte_Zeilen();
    if (rows.empty()) {
        kern.Meldung(Wort(kern, Word::NothingMarked, {FGK13.Text(0, F13Column::Mark)}), Buttons::Ok, Icon::Exclamation,
                     kern.Zeile(Line::Programming));
        return;
    }
    if (!Konfiguration_Verlangen(kern)) {
        return;
    }
    Lauf_Ruecksetzen(run);
    RunTask what = RunTask::HistoryOnly;
    if (!historyOnly) {
        bool first = false;
        Historie_Fragen(first, "");
        what = first ? RunTask::HistoryFirst : RunTask::Program;
    }
    run.link.Lauf.Order = {.What = what};
    run.link.Lauf.List = {.NetMode = NetMode_Von(what)};
    Rufen(Liste_Leeren);
    DelayedStart = kern.Meldung(kern.Zeile(Line::StartLater), Buttons::YesNoCancel, Icon::Question,
                                kern.Zeile(Line::Programming), 2) == Answer::Yes;
    Liste_Uebernehmen(rows);
    F11_Oeffnen(FGK13.Row);
}

void F13::Liste_Uebernehmen(const std::vector<int>& rows) {
    RunState& lauf = run.link.Lauf;
    for (const int row : rows) {
        Marke_Setzen(row, false);
        ++lauf.List.RunRows;
        if (Listenzeile_Uebernehmen) {
            Listenzeile_Uebernehmen(row, lauf.List.RunRows);
        }
    }
    listRows_ = rows;
}

void F13::F11_Verlassen() {
    for (const int row : std::exchange(listRows_, {})) {
        Marke_Setzen(row, true);
    }
    Fenster.Enabled = true;
}

} // namespace qvm
