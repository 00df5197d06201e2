#pragma once

#include "AdapterListe.h"
#include "Berichtsmenue.h"
#include "Controls.h"
#include "Grid.h"
#include "GridSelection.h"
#include "GridUndo.h"
#include "Kern.h"
#include "LockTable.h"
#include "MouseButton.h"
#include "SerialEntry.h"
#include "Text.h"
#include "Timer.h"
#include "Words.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// Menus of F12 that open over the grid.
enum class F12Menu : std::uint8_t {
    F12_del, ///< F12_delete
    FGK12_AN ///< SNA_save, SNA_Input, SNA_Function
};

/// Window F12, the locks: FGK12 is the working copy of six files. Load fills every cell, save rewrites every record.
struct F12 {
    F12(Kern& kernel, const AdapterListe& adapters);

    static constexpr int LongestName = 19;
    static constexpr int TintInterval = 10; ///< ms of Timer1
    static constexpr std::string_view InfoTitle = "INFO", PrioTitle = "PRIO.";

    Kern& kern;
    const AdapterListe& Adapter;

    Window Fenster;
    Label Label1;               ///< what the window is for
    LockTable Tabelle;          ///< with LockDirty
    Grid& FGK12{Tabelle.FGK12}; ///< rows and columns: LockGrid, LockColumn
    GridSelection Auswahl{FGK12, GridSelection::Unit::Cells, nullptr, LockGrid::FirstRow, LockColumn::Name};
    GridUndo Verlauf{FGK12};
    Label Schlosszahl; ///< status line: locks, and rows that are free
    Label Doppelt;     ///< status line: which other locks have the serial number of the current one
    Label Hinweis;     ///< status line: what became of the last action; empty: nothing to say

    // Editors, one of which lies over the grid's current cell while it is visible.
    TextBox Text1;      ///< of a name
    SerialEntry Serie;  ///< Text3 to Text6, of a serial number
    ListBox List1;      ///< of a priority
    ListBox List2;      ///< of an adapter
    ListBox List3;      ///< of a lock timer group
    ListBox List4;      ///< of an offset group
    ListBox List5;      ///< of a door mode
    int OpenColumn = 0; ///< whose editor is open; 0: none

    std::array<ToolButton, 5> Toolbar1{
        {{.Key = u8"Zurück"_w}, {.Key = "CSV-Print"}, {.Key = "Speichern"}, {.Key = "Neu"}, {.Key = "Initial"}}};
    MenuEntry F12_Extras, F12_COURon, F12_COURoff, F12_Import, F12_Undo, F12_Redo; ///< menu bar
    /// Menu bar too. The reports call the locks as the table does, saved or not.
    Berichtsmenue Berichte{kern, {ReportKind::People, ReportKind::Persons}};
    MenuEntry F12_delete;
    MenuEntry SNA_save, SNA_Input, SNA_Function;

    Timer Timer1; ///< tints the head of the row under the mouse
    Timer Timer2; ///< looks where the mouse is

    std::function<void(int lock)> Suche_Starten;           ///< the radio scan for the lock's serial number
    std::function<bool(int lock)> F20_Oeffnen;             ///< the units of the lock; false: it did not open
    std::function<void(F12Menu which)> Menue_Zeigen;       ///< opens a menu over the current cell
    std::function<bool(int& row, int& column)> Maus_Zelle; ///< the cell under the mouse

    /// Loads the six files and those of others, and shows the window. What cannot be read is told; such a table is not
    /// saved.
    void F12_FormLaden();
    /// Words from the catalogue anew, in cells too that show such words. Undo begins anew where those change.
    void Texte_Setzen();
    /// One key of the tool bar. An open editor is left first, as by any click elsewhere.
    void Toolbar1_ButtonClick(std::string_view key);
    /// "Zurück", and the window's own close button: asks while there is something to save.
    void F12_Schliessen();

    /// A mouse button was released on the cell, which becomes the current one. A menu opens, or a switch is toggled. A
    /// larger block that holds the cell stays; no switch is toggled then. The heading does nothing.
    void FGK12_MouseUp(MouseButton button, int row, int column);
    /// Opens the editor of the cell with its text.
    void FGK12_DblClick(int row, int column);
    /// The cell has an editor.
    bool Beschreibbar(int row, int column);
    /// A text for the cell at once, as if it had been typed over the old one and confirmed with Return; in a column
    /// with a list one of its entries, of which another text changes nothing. A name that another lock has stays in the
    /// open editor.
    void FGK12_Eintragen(int row, int column, std::string_view text);
    /// One key on the current cell, Tab too: see the table in docs/decisions/lock-window.md.
    void FGK12_KeyPress(int key);
    /// The key for a context menu: the menu of the current cell, whichever button opens it with the mouse.
    void FGK12_Kontext();

    /// The text of Text1 as the view holds it; what is not allowed in it is left out.
    void Text1_Change(std::string_view text);
    /// Tab and Return take the open box or list over, Escape puts the old text back.
    void Editor_KeyPress(int key);
    /// Text1 was left by a click elsewhere: it is taken over without a comparison. A list is closed.
    void Editor_LostFocus();
    void Serie_Change(std::size_t box, std::string_view text) { Serie.Getippt(box, text); }
    void Serie_KeyPress(std::size_t box, int key) { Serie.Taste(box, key); }
    /// The boxes were left by a click elsewhere: what was typed is taken over, but the EMI state stays.
    void Serie_LostFocus() { Serie.Verlassen(); }

    /// Takes a spreadsheet into the table as one step, behind a question that shows what it changes. That locks are to
    /// change their channel, as they get another serial number, is on the disk at once.
    void F12_Import_Click();
    /// Saves a report as PDF, or prints it.
    void F12_Bericht_Click(ReportKind kind, ReportWay way);
    void F12_COURon_Click();
    void F12_COURoff_Click();
    /// Clears the selected rows. Their units and EMI states are gone from the disk at once.
    void F12_delete_Click();
    /// Reads the serial number of the current row from the air.
    void SNA_save_Click();
    void SNA_Input_Click();
    void SNA_Function_Click();
    /// The scan has found the lock of this row.
    /// @param unitType three letters for column 11
    void Serie_Uebernehmen(int row, std::string_view serial, std::string_view unitType);
    /// The units window has another setting for the lock of this row, which stands on the disk already.
    void Unit_Uebernehmen(int row, std::string_view unitType);
    /// A window that stood over this one has gone.
    void F12_Freigeben() { Fenster.Enabled = true; }

    /// Does what changes cells, as one step of undo that is named so, and notes that there is something to save. False
    /// when no cell became another one.
    bool Aendern(Word what, const std::function<void()>& change);
    /// Takes the last step back, or does it again; what of it is on the disk already stays, and Hinweis says so.
    void F12_Undo_Click();
    void F12_Redo_Click();

    /// Width of a column in twips, of which the proportions count; 0: hidden.
    int Breite(int column) const;
    /// What a heading says that shows a picture alone (row 0), and a serial number that another lock has, too. Empty
    /// elsewhere.
    std::string Tip(int row, int column) const;
    /// What a picture of columns 4 to 8 and 10 says; empty for none of them.
    std::string Bildtext(int picture) const;

private:
    /// Words of the catalogue that cells hold.
    struct Zellworte {
        std::array<std::string, 2> Door;
        std::array<std::string, 3> Unit;
        bool operator==(const Zellworte&) const = default;
    };
    struct Place {
        int Row = 0, Column = 0;
    };

    Zellworte Worte_Der_Zellen() const;
    void Zellen_Uebersetzen();
    void Stand_Zeigen();
    std::optional<Report> Bericht_Erstellen(ReportKind kind) const;
    void Doppelte_Suchen();
    std::string Andere(int row) const;
    void Schritt_Gehen(std::optional<UndoStep> (GridUndo::*way)(), Word told);
    bool Speichern();
    void Neu();
    void Initial();
    void Csv_Schreiben();

    void Editor_Oeffnen(int key);
    void Name_Oeffnen(int key);
    void Serie_Oeffnen(int key);
    void Liste_Oeffnen();
    std::vector<std::string> Eintraege(int column);
    int Eintrag_Der_Zelle(const std::vector<std::string>& entries) const;
    void Editor_Schliessen();
    ListBox* Liste_Von(int column);
    /// Takes the open editor over with what is asked and compared. A name that another lock has keeps it open.
    void Editor_Bestaetigen();
    /// The same as a click elsewhere does it.
    void Editor_Uebernehmen();
    void Serie_Schreiben(int row, const std::string& serial, bool emi);
    void Eintrag_Waehlen(Place cell, int entry);
    void Prioritaet_Waehlen(int row, int entry);
    void Adapter_Waehlen(int row, int entry);
    void Offset_Waehlen(int row, int entry);
    void Tuermodus_Waehlen(int row, int entry);

    bool Menue_Oeffnen(int column, MouseButton button);
    void Block_Schalten();
    void Zelle_Schalten(int row, int column);
    void Zeile_Leeren(int row, bool group);
    bool Platte_Leeren(const std::vector<int>& rows);

    void Maus_Verfolgen();
    void Zeile_Toenen();
    void Toenung_Loeschen();

    Place edited_{};           ///< the cell under the editor
    std::string typed_;        ///< text of Text1, as it was allowed last
    std::vector<int> offered_; ///< of each entry of List4: which offset; 0: none
    Zellworte cellWords_;
    int mouseRow_ = 0, tintedRow_ = 0;     ///< 0: none
    std::vector<std::vector<int>> others_; ///< by row: which other rows have its serial number
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
