#include "F8.h"

#include "Text.h"
#include "Words.h"

#include <array>
#include <utility>

namespace qvm {
namespace {

/// A hit before this row is shown by going to its own row.
constexpr int FirstRows = 20;
/// Before this row F7 goes some rows further first, so that the hit stands inside the view and not at its edge.
constexpr int MiddleRows = 1010, RowsFurther = 10;

constexpr std::array<int, 4> Options{Line::Name, Line::Date, Line::Time, Line::Event};

std::string Trefferzeile(const Grid& grid, int row) {
    return grid.Text(row, F7Column::Name) + std::string(13, ' ') + grid.Text(row, F7Column::Date) +
           std::string(17, ' ') + grid.Text(row, F7Column::Time) + std::string(17, ' ') +
           grid.Text(row, F7Column::Event) + "\r\n";
}

} // namespace

void F8::F8_Laden() {
    Text1.Text = std::string();
    Option_Click(0);
    Enthaelt.Checked = false;
    Texte_Setzen();
    Fenster.Visible = true;
    if (Text1.SetFocus) {
        Text1.SetFocus();
    }
}

void F8::Texte_Setzen() {
    Fenster.Title = Fenstertitel(kern.Zeile(Line::Search));
    for (std::size_t n = 0; n < Option.size(); ++n) {
        Option[n].Text = kern.Zeile(Options[n]);
    }
    Enthaelt.Text = Wort(kern, Word::SearchContains);
    Command1.Text = kern.Zeile(Line::Search);
}

void F8::Option_Click(int index) {
    if (index < 0 || index >= static_cast<int>(Option.size())) {
        return;
    }
    for (std::size_t n = 0; n < Option.size(); ++n) {
        Option[n].Checked = n == static_cast<std::size_t>(index);
    }
}

void F8::Enthaelt_Click(bool on) {
    Enthaelt.Checked = on;
}

void F8::Text1_KeyPress(int key) {
    if (key == Key::Enter) {
        Command1_Click();
    }
}

void F8::Command1_Click() {
    if (!Fenster.Visible) {
        return;
    }
    if (Text1.Text().empty()) {
        kern.Meldung(kern.Zeile(Line::EnterSearchTerm), Buttons::Ok, Icon::Exclamation);
        F8_Schliessen();
        return;
    }
    const int first = Suchen();
    F8_Schliessen();
    if (first > 0) {
        Zeigen(first);
    }
}

void F8::F8_Schliessen() {
    if (!Fenster.Visible) {
        return;
    }
    Fenster.Visible = false;
    f7.F8_Zurueck();
}

int F8::Spalte() const {
    for (std::size_t n = 0; n < Option.size(); ++n) {
        if (Option[n].Checked) {
            return F7Column::Name + static_cast<int>(n);
        }
    }
    return F7Column::Name;
}

/// Both in capitals. Blanks behind a cell's text do not count.
bool F8::Ist_Treffer(std::string_view text, std::string_view wanted) const {
    const std::string_view kept = RTrim(text);
    return Enthaelt.Checked ? kept.find(wanted) != std::string_view::npos : kept == wanted;
}

int F8::Suchen() {
    const std::string wanted = GrossText(Text1.Text());
    const int column = Spalte();
    Grid& grid = f7.FGV;
    std::string lines;
    std::vector<int> hits;
    for (int row = 1; row < grid.Rows(); ++row) {
        const bool hit = Ist_Treffer(GrossText(grid.Text(row, column)), wanted);
        grid.SetBackColor(row, column, hit ? F7::HitColour : f7.Grundfarbe(row, column));
        if (hit) {
            lines += Trefferzeile(grid, row);
            hits.push_back(row);
        }
    }
    const int first = hits.empty() ? 0 : hits.front();
    f7.Text1.Visible = first > 0;
    f7.Text1.Text = f7.Text1.Text() + lines;
    f7.Treffer_Setzen(std::move(hits), column);
    return first;
}

void F8::Zeigen(int row) {
    const int column = Spalte();
    if (row >= FirstRows && row < MiddleRows) {
        f7.Zelle_Setzen(row + RowsFurther, column);
    }
    f7.Zelle_Setzen(row, column);
}

} // namespace qvm
