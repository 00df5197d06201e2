#include "F7.h"

#include "Historienband.h"
#include "LinkHooks.h"
#include "Stelle.h"
#include "Worte.h"

#include <algorithm>
#include <utility>

namespace qvm {
namespace {

std::string Dateiname(const std::string& path) {
    return AusUtf8(path.substr(path.find_last_of('/') + 1));
}

} // namespace

F7::F7(Kern& kernel) : kern(kernel), bands_(RowCount, NoColour) {
    // Nothing to search in before a file is shown.
    Text1.Visible = false;
    Berichte.Erstellen = [this](ReportKind /*kind*/) { return Bericht_Erstellen(); };
    kern.Windows.Open["F7"] = [this] { F7_Datei_Waehlen(); };
}

void F7::F7_Datei_Waehlen() {
    const auto path = kern.Welt.OpenFile({.Title = std::string(SystemTitle),
                                          .Filter = "Vorgangsdateien (*.HST)|*.HST|",
                                          .Directory = kern.HistPfad(),
                                          .NewestFirst = true});
    F7_Laden();
    if (path) {
        Datei_Lesen(*path);
    }
}

void F7::F7_Oeffnen(const std::string& path) {
    // Shown anew, it comes to the front.
    Fenster.Visible = false;
    F7_Laden();
    Datei_Lesen(path);
}

void F7::F7_Laden() {
    Rufen(F8_Schliessen);
    Rufen(Hauptfenster_Verbergen);
    FGV.ClearRows(0);
    for (int row = 1; row < RowCount; ++row) {
        FGV.SetText(row, F7Column::Number, Ziffern(row));
    }
    file_.clear();
    lines_ = 0;
    total_ = 0;
    bands_.assign(RowCount, NoColour);
    Treffer_Vergessen();
    Texte_Setzen();
    Fenster.Enabled = true;
    Fenster.Visible = true;
    Zelle_Setzen(1, F7Column::Name);
}

void F7::Texte_Setzen() {
    Fenster.Title = kern.Zeile(Line::HistoryView);
    FGV.SetText(0, F7Column::Number, kern.Zeile(Line::Number));
    FGV.SetText(0, F7Column::Name, kern.Zeile(Line::Name));
    FGV.SetText(0, F7Column::Date, kern.Zeile(Line::Date));
    FGV.SetText(0, F7Column::Time, kern.Zeile(Line::Time));
    FGV.SetText(0, F7Column::Event, kern.Zeile(Line::Event));
    F7_Extras.Text = Wort(kern, Line::Extras, "Extras");
    Berichte.Texte_Setzen();
    Toolbar1[0].Tip = kern.Zeile(Line::EventOpen);
    Toolbar1[1].Tip = kern.Zeile(Line::Search);
    Toolbar1[2].Tip = kern.Zeile(Line::Back);
    Meldezeile_Setzen();
}

void F7::Toolbar1_ButtonClick(std::string_view key) {
    if (key == Toolbar1[0].Key) {
        F7_Datei_Waehlen();
    } else if (key == Toolbar1[1].Key) {
        Farben_Zuruecksetzen();
        Treffer_Vergessen();
        Meldezeile_Setzen();
        Fenster.Enabled = false;
        Rufen(F8_Oeffnen);
    } else if (key == Toolbar1[2].Key) {
        Rufen(F8_Schliessen);
        Fenster.Visible = false;
        if (!Dahinter_Offen || !Dahinter_Offen()) {
            kern.Windows.BackToMain();
        }
    }
}

void F7::Datei_Lesen(const std::string& path) {
    std::string bytes;
    const ReadStatus status = kern.Welt.Files.ReadAll(path, bytes);
    if (status != ReadStatus::Ok) {
        const int line = status == ReadStatus::Missing ? Line::FileNotFound : Line::CannotOpen;
        kern.Meldung(kern.Zeile(line) + " " + Dateiname(path), Buttons::Ok, Icon::Exclamation);
        return;
    }
    file_ = Dateiname(path);
    Datei_Zeigen(bytes);
    Meldezeile_Setzen();
    Zelle_Setzen(1, F7Column::Name);
}

void F7::Datei_Zeigen(std::string_view bytes) {
    const HistoryLines file = Historie_Zeilen(bytes, RowCount - 1);
    const Bandtexte texts(kern);
    Colour band = NoColour;
    const auto other = [](Colour colour) { return colour == NoColour ? BandColour : NoColour; };
    for (const HistoryLine& line : file.Lines) {
        const int row = ++lines_;
        // A line with fewer fields leaves the columns behind them as they are.
        for (std::size_t n = 0; n < HistoryFieldCount && n < line.Count; ++n) {
            FGV.SetText(row, F7Column::Name + static_cast<int>(n), line.Fields[n]);
        }
        const BandMark mark = texts.Marke(line);
        band = mark == BandMark::Turns ? other(band) : band;
        bands_[At(row)] = mark == BandMark::OneRow ? other(band) : band;
        for (int column = F7Column::Date; column <= F7Column::Event; ++column) {
            FGV.SetBackColor(row, column, Grundfarbe(row, column));
        }
    }
    total_ = file.Total;
}

Colour F7::Grundfarbe(int row, int column) const {
    const bool banded = row > 0 && row < RowCount && column >= F7Column::Date && column <= F7Column::Event;
    return banded ? bands_[At(row)] : NoColour;
}

void F7::Farben_Zuruecksetzen() {
    for (int row = 1; row < RowCount; ++row) {
        for (int column = F7Column::Name; column <= F7Column::Event; ++column) {
            FGV.SetBackColor(row, column, Grundfarbe(row, column));
        }
    }
    Zelle_Setzen(1, F7Column::Name);
}

void F7::F8_Zurueck() {
    Fenster.Enabled = true;
}

void F7::Zelle_Setzen(int row, int column) {
    FGV.Row = row;
    FGV.Column = column;
    if (Zelle_Zeigen) {
        Zelle_Zeigen(row, column);
    }
}

void F7::Treffer_Vergessen() {
    searched_ = false;
    hits_.clear();
    Text1.Text = std::string();
    Text1.Visible = false;
}

void F7::Treffer_Setzen(std::vector<int> rows, int column) {
    searched_ = true;
    hits_ = std::move(rows);
    hitColumn_ = column;
    hit_ = 0;
    Meldezeile_Setzen();
}

void F7::Naechster_Treffer() {
    const auto next = std::upper_bound(hits_.begin(), hits_.end(), FGV.Row);
    Treffer_Zeigen(next == hits_.end() ? 0 : static_cast<std::size_t>(next - hits_.begin()));
}

void F7::Voriger_Treffer() {
    const auto here = std::lower_bound(hits_.begin(), hits_.end(), FGV.Row);
    Treffer_Zeigen((here == hits_.begin() ? hits_.size() : static_cast<std::size_t>(here - hits_.begin())) - 1);
}

void F7::Treffer_Zeigen(std::size_t hit) {
    if (!Fenster.Enabled || hit >= hits_.size()) {
        return;
    }
    hit_ = hit;
    Meldezeile_Setzen();
    Zelle_Setzen(hits_[hit], hitColumn_);
}

void F7::Meldezeile_Setzen() {
    Berichte.Freigeben(ReportKind::Events, lines_ > 0);
    std::string text;
    if (!file_.empty()) {
        const auto shown = static_cast<std::size_t>(lines_);
        text = file_ + "   " + kern.Zeile(Line::Lines) + " " + std::to_string(shown);
        if (total_ > shown) {
            text += " / " + std::to_string(total_);
        }
    }
    if (searched_) {
        text += (text.empty() ? "" : "   ") + kern.Zeile(Line::Hits) + " ";
        text += hits_.empty() ? "0" : std::to_string(hit_ + 1) + " / " + std::to_string(hits_.size());
    }
    Meldezeile.Text = text;
}

std::string F7::Zeilen_Text(const std::vector<int>& rows) const {
    std::string text;
    for (const int row : rows) {
        if (row < 1 || row > lines_) {
            continue;
        }
        for (int column = F7Column::Name; column <= F7Column::Event; ++column) {
            text += FGV.Text(row, column) + (column < F7Column::Event ? "\t" : "\n");
        }
    }
    return text;
}

} // namespace qvm
