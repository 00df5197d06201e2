#pragma once

#include "Controls.h"
#include "Grid.h"
#include "GridSelection.h"
#include "GridUndo.h"
#include "Kern.h"
#include "Text.h"
#include "UserTable.h"
#include "Words.h"

#include <array>
#include <functional>
#include <string>
#include <string_view>

namespace qvm {

/// Menus of F5 that open over the grid.
enum class F5Menu {
    M_FGK4,       ///< F5_Loeschen
    F5_E_Key,     ///< key_anlernen with Save_Ekey and Save_RFID, Key_loeschen, key_ausschneiden ... key_synchron
    F5_Fingerscan ///< FS_anerlen, FS_loeschen, F5_FSpremium, F5_FSstandard
};

/// Window F5, the users: FGK4 is the working copy of the whole table. Load fills every cell, save rewrites every
/// record.
struct F5 {
    explicit F5(Kern& kernel);

    static constexpr int NoRow = 255; ///< FsRow while no action with a finger is open

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
    TextBox Text3, Text4, Text5, Text6; ///< never seen: pieces of what a device sends

    std::array<ToolButton, 6> Toolbar1{{{.Key = u8"Zurück"_w},
                                        {.Key = "Aufsteigend sortieren"},
                                        {.Key = "Suchen"},
                                        {.Key = "Neu"},
                                        {.Key = "CSV-Print"},
                                        {.Key = "Speichern"}}};
    /// Menu bar: F5_Extras with F5_Markierung (F5_M5ON, F5_M5_OFF), F5_Sort, F5_Search, and undo and redo.
    MenuEntry F5_Extras, F5_Markierung, F5_M5ON, F5_M5_OFF, F5_Sort, F5_Search, F5_Undo, F5_Redo;
    MenuEntry F5_Loeschen;
    MenuEntry key_anlernen, Save_Ekey, Save_RFID, Key_loeschen, key_ausschneiden, key_einfuegen, key_suchen,
        Search_Ekey, Search_RFID, key_synchron;
    MenuEntry FS_anerlen, FS_loeschen, F5_FSpremium, F5_FSstandard;

    std::function<void()> F16_Oeffnen; ///< the search window

    /// Loads groups, lock names, users and colours, and shows the window. What cannot be read is told; such a table is
    /// not saved.
    void F5_FormLaden();
    /// Words from the catalogue anew; cells of users stay.
    void Texte_Setzen();
    /// "Zurück" or "Speichern".
    void Toolbar1_ButtonClick(std::string_view key);
    /// The window's own close button: as "Zurück".
    void F5_Schliessen();

    /// Does what changes cells, as one step of undo that is named so, and notes that there is something to save. Every
    /// change of a saved cell by the operator or a device goes this way. False when no cell became another one.
    bool Aendern(Word what, const std::function<void()>& change);
    /// Takes the last step back, or does it again; what of it is on the disk already stays, and Hinweis says so.
    void F5_Undo_Click();
    void F5_Redo_Click();

    /// Width of a column in twips, of which the proportions count; 0: hidden.
    static int Breite(int column);
    /// Height of row 0 in twips.
    int Kopfhoehe() const;
    /// What a mark's cell says: user, lock and what the mark means. Empty elsewhere.
    std::string Tip(int row, int column) const;

private:
    void Menues_Beschriften();
    void Ueberschriften_Setzen();
    void Stand_Zeigen();
    void Verlauf_Zeigen();
    void Schritt_Gegangen(const UndoStep& step, Word told);
    bool Speichern();

    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
