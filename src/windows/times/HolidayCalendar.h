#pragma once

#include "Controls.h"
#include "Feiertage.h"
#include "Grid.h"
#include "GridSelection.h"
#include "GridUndo.h"
#include "Kern.h"
#include "MouseButton.h"
#include "Text.h"
#include "Words.h"
#include "Zeit.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace qvm {

/// What the windows of the two calendars do not share, beside what goes by the block itself.
struct CalendarTraits {
    std::string_view Window; ///< its name
    KalenderBlock Block;
    int Columns;
    int Caption; ///< catalogue line of Label1
    int Purpose; ///< catalogue line of the titles
};
inline constexpr CalendarTraits SingleCalendarTraits{"F3", KalenderBlock::Einzel, 6, Line::SingleCalendar,
                                                     Line::SingleHolidays};
inline constexpr CalendarTraits PermanentCalendarTraits{"F10", KalenderBlock::Permanent, 4, Line::PermanentCalendar,
                                                        Line::PermanentHolidays};

namespace CalendarLook {
inline constexpr Colour DayTwice = 0x99E6FF; ///< ground of dates that another row holds, too
}

/// A month to pick a day from.
struct DayPicker {
    Observed<bool> Visible{false};
    Datum Day; ///< that it shows when it opens
};

/// The windows F3 and F10: the single and the permanent holidays. The grid is the working copy of one block of the
/// calendar's file; load fills it, save sorts it and rewrites the block.
struct HolidayCalendar {
    HolidayCalendar(Kern& kernel, const CalendarTraits& traits);

    static constexpr int FirstRow = 1, LastRow = CalendarRows;

    Kern& kern;
    const CalendarTraits Traits;

    Window Fenster;
    Label Label1; ///< what the window is for
    Grid FGK;     ///< FGK3, FGK10; columns: CalendarColumn
    GridSelection Auswahl{FGK, GridSelection::Unit::Cells, nullptr, FirstRow, CalendarColumn::From};
    GridUndo Verlauf{FGK};
    bool Geaendert = false; ///< there is something to save
    Label Belegung;         ///< status line: rows in use and free
    Label Mangel;           ///< status line: what is odd about the current row; empty: nothing
    Label Hinweis;          ///< status line: what became of the last action; empty: nothing to say

    DayPicker MV; ///< MV1, MV10: over the grid's current cell
    ListBox List; ///< List1, List10: kinds, over the grid's current cell

    int Jahr = 0;     ///< that the year strip shows
    Label Jahreszahl; ///< its number
    Label Jahrestage; ///< how many of its days are entered
    Button FrueheresJahr, SpaeteresJahr;

    std::array<ToolButton, 5> Toolbar1{{{.Key = u8"Zurück"_w},
                                        {.Key = "Neu", .Visible = false},
                                        {.Key = "CSV-Print"},
                                        {.Key = u8"Öffnen"_w, .Visible = false},
                                        {.Key = "Speichern"}}};
    MenuEntry Loeschen; ///< F3_Loeschen, F10_Loeschen in the menu M_FGK3, M_FGK10
    MenuEntry Rueckgaengig, Wiederholen;

    std::function<void()> Menue_Zeigen;   ///< opens the menu over the current cell
    std::function<void()> Tage_Geaendert; ///< other days are entered, or another year is shown

    /// F3_FormLaden, F10_FormLaden: loads the block and shows the window. A file that cannot be read is told; its block
    /// is not saved then.
    void FormLaden();
    /// Words from the catalogue anew, those of the kinds in the cells too. Undo begins anew where those change.
    void Texte_Setzen();
    /// One key of the tool bar.
    void Toolbar1_ButtonClick(std::string_view key);
    /// "Zurück", and the window's own close button: asks while there is something to save.
    void Schliessen();

    /// A mouse button was released on the cell, which becomes the current one. The right one opens the menu; a larger
    /// block that holds the cell stays then.
    void FGK_MouseUp(MouseButton button, int row, int column);
    /// Activates the cell: a date opens the month, a kind becomes the other one or opens the list of kinds.
    void FGK_DblClick(int row, int column);
    /// Return activates the current cell.
    void FGK_KeyPress(int key);
    /// The key for a context menu.
    void FGK_Kontext();
    /// A date can be given a text.
    bool FGK_Beschreibbar(int row, int column) const;
    /// A date for the cell at once, as if it had been picked: "dd.mm.yyyy", of a permanent holiday also "dd.mm. - -".
    /// Any other text, and one for another cell, changes nothing.
    void FGK_Eintragen(int row, int column, std::string_view text);
    /// A day of the month was picked. At an end before the day that was picked last, whatever its row, the month stays.
    void MV_Waehlen(const Datum& day);
    /// An entry of the list was picked: 0 the second kind, 1 the first.
    void List_Waehlen(int entry);
    /// Month or list go without a choice.
    void Editor_Schliessen();
    /// Clears dates and kind of all rows of the selection.
    void Loeschen_Click();
    void Undo_Click();
    void Redo_Click();
    void FrueheresJahr_Click() { Jahr_Zeigen(Jahr - 1); }
    void SpaeteresJahr_Click() { Jahr_Zeigen(Jahr + 1); }

    /// How many rows hold the day.
    int Eintraege(const Datum& day) const { return days_.Count(day); }
    /// The day and the rows that hold it; empty for a day that no row holds.
    std::string Tagestext(const Datum& day) const;
    /// What the heading of the kinds says where it shows no text: the kinds. Empty elsewhere.
    std::string Tip(int row, int column) const;
    /// Width of a column in twips, of which the proportions count; 0: hidden.
    static int Breite(int column);

private:
    const std::string& Art(std::size_t index) const { return kern.Sprache.FeiertagsTexte[index]; }
    std::string Zelltext(const Datum& day) const;
    std::optional<Datum> Tag_Lesen(std::string_view text) const;
    void Laden();
    bool Speichern();
    void Csv_Schreiben();
    void Aktivieren(int row, int column);
    void Art_Aktivieren(int row);
    bool Aendern(Word what, const std::function<void()>& change);
    void Schritt_Gehen(std::optional<UndoStep> (GridUndo::*way)(), Word told);
    void Zellen_Uebersetzen();
    void Tage_Suchen();
    void Stand_Zeigen();
    void Jahr_Zeigen(int year);

    bool unread_ = false;             ///< the grid is not what stands on the disk
    int row_ = 0, column_ = 0;        ///< the cell under month or list
    std::optional<Datum> lastPicked_; ///< since the window was opened
    HolidayDays days_;
    std::array<std::string, 2> cellWords_; ///< the kinds as the cells have them
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
