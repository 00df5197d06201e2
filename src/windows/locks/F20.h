#pragma once

#include "Controls.h"
#include "Grid.h"
#include "GridSelection.h"
#include "GridUndo.h"
#include "Kern.h"
#include "ListenTime.h"
#include "MouseButton.h"
#include "SerialEntry.h"
#include "Timer.h"
#include "UnitSettings.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace qvm {

/// Menus of F20 that open over the grid.
enum class F20Menu : std::uint8_t {
    F20_Loe,   ///< F20_deleate, and undo and redo
    FGK20PopUP ///< SN_Asave with F20_Keypad and F20_Readunit, SN_Msave, SN_Codechange
};

/// Window F20: how the units of one lock listen, and up to five units. FGK20 is the working copy of its record, which
/// is written when the operator accepts.
struct F20 {
    explicit F20(Kern& kernel);

    static constexpr int FirstRow = 1, LastRow = 5;
    static constexpr int LongestName = 30;
    static constexpr int AskDelay = 500; ///< ms of Timer1
    static constexpr std::string_view InfoTitle = "INFO";

    Kern& kern;

    Window Fenster;
    Label Schloss;    ///< whose units they are
    Grid FGK20{6, 5}; ///< columns: UnitColumn
    GridSelection Auswahl{FGK20, GridSelection::Unit::Cells, nullptr, FirstRow, UnitColumn::Name};
    GridUndo Verlauf{FGK20};
    UnitSettings Einstellung;
    int Lock = 0; ///< whose record it is, 1 to 200

    ListBox Combo1;                 ///< mode: threshold or time window
    ListBox Combo2, Combo3, Combo4; ///< listen time: hours, minutes, seconds
    ListBox Combo5;                 ///< signal threshold
    CheckBox Check1;                ///< always on
    CheckBox Check2;                ///< flag beside the threshold
    Label Label1, Label2, Label3, Frame1, Frame2;
    ProgressBar F20Prg01; ///< channels of a scan
    Label Suchstand;      ///< how far the scan is, and what it has found so far; empty without one
    Button Command1;      ///< cancel
    Button Command2;      ///< accept
    Label Hinweis;        ///< what became of the last action; empty: nothing to say

    TextBox Text1;      ///< editor of a name
    SerialEntry Serie;  ///< Text3 to Text6, of a serial number
    int OpenColumn = 0; ///< whose editor is open; 0: none

    MenuEntry F20_deleate, F20_Undo, F20_Redo;
    MenuEntry SN_Asave, F20_Keypad, F20_Readunit, SN_Msave, SN_Codechange;

    Timer Timer1; ///< asks for the code of a unit that has just been entered

    std::function<void(int row)> Keypad_Suchen;   ///< the scan of the channels by the adapter
    std::function<void(int row)> Readunit_Suchen; ///< the scan by logins, through the start dialog
    /// The window for the code of a unit. `channel`: on which it listens.
    std::function<void(std::string_view serial, int channel)> Code_Aendern;
    std::function<void()> Suche_Abbrechen;                                ///< the scan is to end
    std::function<void()> Umzug_Abbrechen;                                ///< the unit that moves is left alone
    std::function<void(int lock, std::string_view unitType)> Uebernommen; ///< the record was written
    std::function<void()> Zurueck;                                        ///< closed: back to the locks
    std::function<void(F20Menu which)> Menue_Zeigen;                      ///< opens a menu over the current cell

    /// Loads the record of the lock and shows the window. False, with a message, when it could not be read.
    bool F20_FormLaden(int lock, std::string_view name);
    /// Words from the catalogue anew.
    void Texte_Setzen();
    /// Accepts: writes the record, tells the lock window and closes. Stays open where that is refused.
    void Command2_Click();
    /// Cancels: closes without saving. A unit that still moves is told to end its session. While a scan is on it ends
    /// that instead, and the window stays.
    void Command1_Click();
    /// A window that stood over this one has gone.
    void F20_Freigeben() { Fenster.Enabled = true; }
    /// A scan is on this channel, 1 to 12, and `state` tells what it has found so far. Until its end the window does
    /// nothing but end it.
    void Suche_Zeigen(int channel, const std::string& state);
    /// The scan is over. `hint`: why nothing came of it; may be empty.
    void Suche_Endet(const std::string& hint);
    /// A unit gets its new code, and then moves. Until it has, nothing else goes out, and nothing is accepted.
    void Unit_Unterwegs();
    /// That is over. `channel`: on which the unit listens from now on; 0: nobody knows.
    void Unit_Angekommen(std::string_view serial, int channel);

    void Combo1_Click(int entry);
    void Combo2_Click(int entry);
    void Combo3_Click(int entry);
    void Combo4_Click(int entry);
    void Combo5_Click(int entry);
    void Check1_Click(bool on);
    void Check2_Click(bool on);

    /// A mouse button was released on the cell, which becomes the current one. A menu may open.
    void FGK20_MouseUp(MouseButton button, int row, int column);
    /// Opens the editor of the cell with its text.
    void FGK20_DblClick(int row, int column);
    /// One key on the current cell: opens its editor, with the key as its first character.
    void FGK20_KeyPress(int key);
    /// The cell has an editor.
    bool Beschreibbar(int row, int column) const;
    /// A text for the cell at once, as if it had been typed over the old one and confirmed with Return. A name that
    /// another unit has stays in the open editor.
    void FGK20_Eintragen(int row, int column, std::string_view text);
    /// The key for a context menu.
    void FGK20_Kontext();
    /// The text of Text1 as the view holds it.
    void Text1_Change(std::string_view text);
    void Text1_KeyPress(int key);
    /// Text1 was left by a click elsewhere: it is taken over as by Return.
    void Text1_LostFocus();
    void Serie_Change(std::size_t box, std::string_view text) { Serie.Getippt(box, text); }
    void Serie_KeyPress(std::size_t box, int key) { Serie.Taste(box, key); }
    /// The boxes were left by a click elsewhere: what was typed is taken over, and nothing where nothing was.
    void Serie_LostFocus() { Serie.Verlassen(); }

    void F20_deleate_Click();
    void SN_Msave_Click();
    void SN_Codechange_Click();
    void F20_Keypad_Click();
    void F20_Readunit_Click();
    void F20_Undo_Click();
    void F20_Redo_Click();
    /// A scan has found the unit of this row. False, behind a message, when it is none that a lock can have: serial and
    /// address of the row stay, its class says that it was refused.
    /// @param unitNo its address, decimal text
    bool Unit_Uebernehmen(int row, std::string_view serial, std::string_view unitNo);

    /// Width of a column in twips, of which the proportions count; 0: hidden.
    static int Breite(int column);

private:
    bool Aendern(Word what, const std::function<void()>& change);
    void Schritt_Gehen(std::optional<UndoStep> (GridUndo::*way)(), Word told);
    /// A control of the settings was touched; while the window is not to be used it shows them as they are.
    void Einstellen(const std::function<void()>& change);
    void Regler_Zeigen();
    void Regler_Freigeben();
    void Editor_Oeffnen(int key);
    void Text1_Oeffnen(int key);
    void Serie_Oeffnen(int key);
    void Editor_Schliessen();
    /// Takes the open editor over. False when it stays open.
    bool Editor_Uebernehmen();
    void Serie_Schreiben(int row, const std::string& serial);
    bool Menue_Oeffnen(int column, MouseButton button);
    /// Neither does another window stand over this one nor is a scan on.
    bool Bedienbar() const { return Fenster.Enabled && !scanning_; }
    void Klasse_Pruefen(int row, std::string_view module);
    /// Column 4 of each unit that was heard while the window is open.
    void Kanaele_Eintragen();
    /// True, and the status line says why, while a unit moves.
    bool Funk_Belegt();
    void Code_Fragen();
    void Code_Oeffnen(int row);
    void Schliessen();

    int row_ = 0;      ///< of the open editor
    int askedRow_ = 0; ///< of the unit that Timer1 asks for
    std::string askedSerial_;
    std::map<std::string, std::string, std::less<>> heardOn_; ///< by serial number: the channel, as column 4 has it
    bool scanning_ = false;
    bool moving_ = false; ///< a unit is between its new code and its new channel
    std::string typed_;   ///< text of Text1, as it was allowed last
    std::string oldText_; ///< what stood in its cell
    std::string name_;    ///< of the lock
    ListenControls listen_{Combo2, Combo3, Combo4, Check1};
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
