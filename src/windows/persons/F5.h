#pragma once

#include "Berichtsmenue.h"
#include "Controls.h"
#include "Grid.h"
#include "GridSelection.h"
#include "GridUndo.h"
#include "Kern.h"
#include "MouseButton.h"
#include "Text.h"
#include "Timer.h"
#include "UserTable.h"
#include "Words.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace qvm {

/// Menus of F5 that open over the grid.
enum class F5Menu : std::uint8_t {
    M_FGK4,       ///< F5_Loeschen
    F5_E_Key,     ///< key_anlernen with Save_Ekey and Save_RFID, Key_loeschen, key_ausschneiden ... key_synchron
    F5_Fingerscan ///< FS_anerlen, FS_loeschen, F5_FSpremium, F5_FSstandard
};

/// Window F5, the users: FGK4 is the working copy of the whole table. Load fills every cell, save rewrites every
/// record.
struct F5 {
    explicit F5(Kern& kernel);

    static constexpr int NoRow = 255;         ///< FsRow while no action with a finger is open
    static constexpr int LastTabColumn = 200; ///< at it and behind it nothing moves to the right
    static constexpr int TintInterval = 10;   ///< ms of Timer1
    static constexpr std::string_view InfoTitle = "INFO";
    static constexpr std::string_view FingerSlot = "Slot_Nr:"; ///< so begins the designation of a fingerprint

    Kern& kern;

    Window Fenster;
    Label Label1;             ///< what the window is for
    UserTable Tabelle;        ///< with UserDirty and GroupTablePerson
    Grid& FGK4{Tabelle.FGK4}; ///< rows and columns: UserGrid, UserColumn
    GridSelection Auswahl{FGK4, GridSelection::Unit::Cells, nullptr, UserGrid::FirstRow, UserColumn::Name};
    GridUndo Verlauf{FGK4};
    Observed<int> FixedCols{1};          ///< columns that stay in sight: 2 while the grid is scrolled
    Label Benutzerzahl;                  ///< status line: users, and rows that are free
    Label Benutzermarken, Schlossmarken; ///< status line: marks of the current user and of the current lock
    Label Hinweis;                       ///< status line: what became of the last action; empty: nothing to say

    int MenuRow = 0;   ///< row of the last context menu: the user that a learned E-Key or transponder goes to
    int FsRow = NoRow; ///< row of the action with a finger

    // Editors, one of which lies over the grid's current cell while it is visible.
    TextBox Text1;      ///< of a name
    TextBox Text2;      ///< of a code
    TextBox Text7;      ///< of a designation
    ListBox List1;      ///< of a timer group: " - " and the names of the groups
    ListBox List2;      ///< of a right
    int OpenColumn = 0; ///< whose editor is open; 0: none

    std::array<ToolButton, 6> Toolbar1{{{.Key = u8"Zurück"_w},
                                        {.Key = "Aufsteigend sortieren"},
                                        {.Key = "Suchen"},
                                        {.Key = "Neu"},
                                        {.Key = "CSV-Print"},
                                        {.Key = "Speichern"}}};
    /// Menu bar: F5_Extras with F5_Markierung (F5_M5ON, F5_M5_OFF), F5_Sort, F5_Search, F5_Import, and undo and redo.
    MenuEntry F5_Extras, F5_Markierung, F5_M5ON, F5_M5_OFF, F5_Sort, F5_Search, F5_Import, F5_Undo, F5_Redo;
    /// Menu bar too. The reports have the table as it is shown, saved or not.
    Berichtsmenue Berichte{kern, {ReportKind::People, ReportKind::Doors, ReportKind::Receipt}};
    MenuEntry F5_Loeschen;
    MenuEntry key_anlernen, Save_Ekey, Save_RFID, Key_loeschen, key_ausschneiden, key_einfuegen, key_suchen,
        Search_Ekey, Search_RFID, key_synchron;
    MenuEntry FS_anerlen, FS_loeschen, F5_FSpremium, F5_FSstandard;

    Timer Timer1; ///< tints the heads of the row and the column under the mouse
    Timer Timer2; ///< looks where the mouse is

    std::function<void()> Geschlossen;                     ///< what was cut out of the table is to be forgotten, too
    std::function<void()> F16_Oeffnen;                     ///< the search window
    std::function<void(F5Menu which)> Menue_Zeigen;        ///< opens a menu over the current cell
    std::function<bool(int& row, int& column)> Maus_Zelle; ///< the cell under the mouse

    /// Loads groups, lock names, users and colours, and shows the window. What cannot be read is told; such a table is
    /// not saved.
    void F5_FormLaden();
    /// Words from the catalogue anew; cells of users stay.
    void Texte_Setzen();
    /// One key of the tool bar. An open editor is left first, as by any click elsewhere.
    void Toolbar1_ButtonClick(std::string_view key);
    /// "Zurück", and the window's own close button: asks while there is something to save. Codes, keys
    /// and what undo has kept of them are overwritten.
    void F5_Schliessen();

    /// A mouse button was released on the cell, which becomes the current one. A menu opens, or a mark is stepped. A
    /// larger block that holds the cell stays, as one does that was just dragged, or that a menu is opened for; no mark
    /// is stepped then. A press with the left button has left any other block behind. The heading rows do nothing.
    void FGK4_MouseUp(MouseButton button, int row, int column);
    /// Opens the editor of the cell with its text.
    void FGK4_DblClick(int row, int column);
    /// The cell has an editor.
    bool Beschreibbar(int row, int column) const;
    /// A text for the cell at once, as if it had been typed over the old one and confirmed with Return; in a column
    /// with a list one of its entries, of which another text changes nothing. What cannot be confirmed stays in the
    /// open editor.
    void FGK4_Eintragen(int row, int column, std::string_view text);
    /// One key on the current cell, Tab and Delete too: see the table in docs/decisions/user-window.md.
    void FGK4_KeyPress(int key);
    /// The key for a context menu: the menu of the current cell, whichever button opens it with the mouse.
    void FGK4_Kontext();
    /// The grid was scrolled sideways: names stay in sight, until a click in column 2.
    void FGK4_Scroll() { FixedCols = 2; }

    /// The text of the open box as the view holds it; what is not allowed in it is left out or put back, and the caret
    /// is then told where it was.
    void Editor_Change(std::string_view text);
    /// Tab and Return take over, Escape puts the old text back; other keys are the view's.
    void Editor_KeyPress(int key);
    /// The open editor was left by a click elsewhere: it is taken over without any comparison.
    void Editor_LostFocus();
    /// By how many twips the list of the column opens higher, as fewer than 18 rows lie below the top of the view; 0:
    /// it opens below its cell.
    static int Listenhub(int column, int topRow);

    void F5_Sort_Click();
    void F5_Search_Click();
    /// Takes a spreadsheet into the table as one step, behind a question that shows what it changes.
    void F5_Import_Click();
    /// Saves a report as PDF, or prints it.
    void F5_Bericht_Click(ReportKind kind, ReportWay way);
    void F5_M5ON_Click();
    void F5_M5_OFF_Click();
    /// By the current column: deletes the selected users, or clears the selected cells of the column.
    void F5_Loeschen_Click();
    /// Asks, then clears the selected keys. Their data and channels stay.
    void Key_loeschen_Click();
    /// The cell is what a search has found. One at a time; it is tinted until the next change or search.
    void Treffer_Zeigen(int row, int column, Colour ground);
    /// Says which user a key or transponder was found with.
    void Treffer_Melden(int row);

    /// Does what changes cells, as one step of undo that is named so, and notes that there is something to save. Every
    /// change of a saved cell by the operator or a device goes this way. False when no cell became another one.
    bool Aendern(Word what, const std::function<void()>& change);
    /// Who stands in the row: a number of its own for each user, which goes along when rows are sorted or others are
    /// deleted. Users that are loaded, and all of them once an undo or redo may have moved some, get new ones. 0 for
    /// other rows.
    int Wer(int row) const;
    /// The row of the user with that number; 0: there is none any more.
    int Zeile_Von(int who) const;
    /// The user in the row; while the editor has taken the name out of its cell, what stood there.
    const std::string& Benutzername(int row) const;

    /// Takes the last step back, or does it again; what of it is on the disk already stays, and Hinweis says so.
    void F5_Undo_Click();
    void F5_Redo_Click();

    /// Width of a column in twips, of which the proportions count; 0: hidden.
    static int Breite(int column);
    /// Height of row 0 in twips.
    int Kopfhoehe() const;
    /// What a cell says that shows its meaning by a sign, a picture or a colour alone: a mark (user, lock and what it
    /// means), a finger, a key that must be synchronised. Empty elsewhere.
    std::string Tip(int row, int column) const;
    /// What a picture of column 7 says; empty for none of them.
    std::string Fingertext(int picture) const;

private:
    std::string Markentip(int row, int column) const;
    void Menues_Beschriften();
    void Ueberschriften_Setzen();
    void Stand_Zeigen();
    std::optional<Report> Bericht_Erstellen(ReportKind kind) const;
    void Verlauf_Zeigen();
    void Neu_Besetzen(int row);
    void Alle_Neu_Besetzen();
    void Sortieren();
    void Schritt_Gehen(std::optional<UndoStep> (GridUndo::*way)(), Word told);
    void Geheimnisse_Vergessen();
    bool Speichern();
    void Neu();
    void Csv_Schreiben();

    void Editor_Oeffnen(int key);
    void Text_Oeffnen(TextBox& box, int typed);
    void Liste_Oeffnen(ListBox& list);
    void Editor_Schliessen();
    std::string Editor_Text() const;
    /// Takes the open editor over with the comparisons of its column. False when it stays open.
    bool Editor_Bestaetigen();
    void Editor_Uebernehmen();
    bool Vergeben(int row, int column, std::string_view text) const;
    TextBox* Offene_Box();
    ListBox* Offene_Liste();

    bool Menue_Oeffnen(int row, int column, MouseButton button);
    void Block_Schalten();
    bool Taste_Loeschen();
    void Benutzer_Loeschen();
    void Zellen_Leeren(int column);
    void Finger_Leeren(int row);
    void Farben_Erneuern();

    void Maus_Verfolgen();
    void Kreuz_Zeichnen();
    void Kreuz_Loeschen();
    void Treffer_Loeschen();

    struct Place {
        int Row = 0, Column = 0;
        bool operator==(const Place&) const = default;
    };
    Place edited_{};          ///< the cell under the editor
    std::string typed_;       ///< text of the open box, as it was allowed last
    std::string oldText_;     ///< what stood in it
    Place mouse_{}, cross_{}; ///< where the mouse was seen last, whose heads are tinted; row 0: nowhere
    Place hit_{};             ///< what a search has found; row 0: nothing
    Colour hitInk_ = Black;   ///< the text colour that it had
    std::array<int, UserGrid::LastRow + 1> who_{}; ///< by row
    int lastWho_ = 0;
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
