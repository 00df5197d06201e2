#pragma once

#include "Berichtsmenue.h"
#include "Controls.h"
#include "Grid.h"
#include "Kern.h"
#include "Text.h"

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// Columns of the history grid.
namespace F7Column {
inline constexpr int Number = 0, Name = 1, Date = 2, Time = 3, Event = 4, Count = 5;
}

/// Window F7: shows a stored history file, which it never changes.
struct F7 {
    explicit F7(Kern& kernel);

    static constexpr int RowCount = 2025; ///< the header and 2024 lines of a file
    static constexpr Colour NoColour = White;
    static constexpr Colour BandColour = 0xC0C0C0;
    static constexpr Colour HitColour = 0xFFFF;

    Kern& kern;

    Window Fenster;
    Grid FGV{RowCount, F7Column::Count};
    TextBox Text1; ///< the hits of the last search, a line each
    /// Status bar: the file, how many lines it has, how many hits the last search, and which of them is the present
    /// one.
    Label Meldezeile;
    std::array<ToolButton, 3> Toolbar1{
        {{.Key = u8"Öffnen"_w, .Number = 1}, {.Key = "Suchen", .Number = 3}, {.Key = "W95MBX01", .Number = 5}}};

    /// Menu bar: F7_Extras with the report of the lines that are shown.
    MenuEntry F7_Extras;
    Berichtsmenue Berichte{kern, {ReportKind::Events}};

    std::function<void()> Hauptfenster_Verbergen;
    /// Windows that F7 was opened from at the end of a run still stand open: the main window does not come back.
    std::function<bool()> Dahinter_Offen;
    std::function<void()> F8_Oeffnen, F8_Schliessen;
    std::function<void(int row, int column)> Zelle_Zeigen; ///< the cell becomes the current one and comes into sight

    /// The file dialog, then the window with the chosen file; without a choice with an empty grid.
    void F7_Datei_Waehlen();
    /// The window with this file. One that is missing or cannot be read leaves the grid empty, and a message names it.
    void F7_Oeffnen(const std::string& path);
    /// Words from the catalogue anew; the lines stay.
    void Texte_Setzen();
    /// "Öffnen", "Suchen" or "W95MBX01".
    void Toolbar1_ButtonClick(std::string_view key);
    /// Saves the lines of the file, as they are shown, as PDF, or prints them.
    void F7_Bericht_Click(ReportKind kind, ReportWay way);
    /// Takes the colour of hits off columns 1 to 4, so that the bands show again; back to the first row.
    void Farben_Zuruecksetzen();
    /// The colour of a cell that is no hit: its band's, from the date on.
    Colour Grundfarbe(int row, int column) const;
    /// F8 has searched or was closed: this window goes on.
    void F8_Zurueck();
    /// Makes the cell the current one.
    void Zelle_Setzen(int row, int column);
    /// What a search has found: these rows, in order, in this column. The first one becomes the present hit.
    void Treffer_Setzen(std::vector<int> rows, int column);
    /// To the hit behind the current row, behind the last one again to the first; or likewise backwards. Does nothing
    /// without a hit and while the window is disabled.
    void Naechster_Treffer();
    void Voriger_Treffer();
    /// Columns 1 to 4 of the rows as text, tabs between the columns, a line feed behind each row. Rows that hold no
    /// line of the file are left out.
    std::string Zeilen_Text(const std::vector<int>& rows) const;
    /// How many lines of the file are shown, 0 to 2024.
    int Zeilen() const { return lines_; }

private:
    void F7_Laden();
    void Datei_Lesen(const std::string& path);
    void Datei_Zeigen(std::string_view bytes);
    void Treffer_Vergessen();
    void Treffer_Zeigen(std::size_t hit);
    void Meldezeile_Setzen();
    std::optional<Report> Bericht_Erstellen() const;

    std::string file_;          ///< name of the file shown, empty: none
    int lines_ = 0;             ///< rows filled
    std::size_t total_ = 0;     ///< lines of the file
    std::vector<Colour> bands_; ///< by row
    bool searched_ = false;     ///< since the file was opened
    std::vector<int> hits_;     ///< rows of the last search's hits, ascending
    int hitColumn_ = F7Column::Name;
    std::size_t hit_ = 0; ///< the present one of hits_
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
