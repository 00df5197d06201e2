#pragma once

#include "Controls.h"
#include "Filter.h"
#include "Gastzeiten.h"
#include "Grid.h"
#include "GridSelection.h"
#include "GridUndo.h"
#include "Kern.h"
#include "MouseButton.h"
#include "Text.h"
#include "Timer.h"
#include "WeekChart.h"
#include "Words.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace qvm {

/// Columns of the grid of the guest slots.
namespace GuestSlotColumn {
inline constexpr int Number = 0, Day = 1, From = 2, To = 3, Selection = 4, Count = 5;
}

inline constexpr int OffsetFields = 3; ///< of an offset that can be changed: name, time, base time

namespace GuestSlotLook {
inline constexpr Colour Selected = 0x808080;
inline constexpr int MarkSize = 16; ///< points
} // namespace GuestSlotLook

/// Window F42: default times, offsets, mode, and which person slots apply to guests.
struct F42 {
    explicit F42(Kern& kernel);

    Kern& kern;

    Window Fenster;
    Label Label1;         ///< what the window is for
    Label Frame1, Frame2; ///< captions of the default times, and of the mode with the slots
    Label Label2, Label3; ///< beside Text1, Text2
    Label Label4, Label5; ///< "hh:mm" behind them
    Label Label6, Label7; ///< beside Combo1; above FGK42B
    TextBox Text1, Text2; ///< default times: check-in, check-out
    ListBox Combo1;       ///< mode: 0 "HOTEL", 1 "OBJEKT"
    Grid FGK42{OffsetRows + 1, OffsetColumn::Count};
    Grid FGK42B{GuestSlotRows + 1, GuestSlotColumn::Count};
    GridSelection Auswahl{FGK42, GridSelection::Unit::Cells, nullptr, 1, OffsetColumn::Name};
    ListBox List1;          ///< base times, over the current cell of FGK42
    TextBox Text3, Text4;   ///< time and name of an offset, likewise
    WeekPictureBox Woche;   ///< the slots that are selected
    Label Mangel;           ///< status line: what is odd about the current offset; empty: nothing
    Label Hinweis;          ///< status line: what became of the last action; empty: nothing to say
    bool Geaendert = false; ///< there is something to save

    std::array<ToolButton, 2> Toolbar1{{{.Key = u8"Zurück"_w}, {.Key = "Speichern"}}};
    Timer Uhr;             ///< moves the present moment of Woche on
    MenuEntry F42Loeschen; ///< of the menu M_FGK42
    MenuEntry Rueckgaengig, Wiederholen;

    std::function<void()> Menue_Zeigen; ///< opens M_FGK42 over the current cell

    /// Loads everything and shows the window. What cannot be read is told, and nothing is saved then; a damaged record
    /// of the slots is told, and those from it on are shown as "?".
    void F42_FormLaden();
    /// Words from the catalogue anew.
    void Texte_Setzen();
    /// One key of the tool bar.
    void Toolbar1_ButtonClick(std::string_view key);
    /// "Zurück", and the window's own close button: asks while there is something to save.
    void F42_Schliessen();

    /// A key in the boxes of the default times. Return in the first one goes to the second.
    void Text1_KeyPress(int key);
    void Text2_KeyPress(int key);
    /// The mode was chosen: 0 or 1.
    void Combo1_Click(int entry);

    /// A key on the current cell of the offsets: it opens the cell's editor, with the key in it.
    void FGK42_KeyPress(int key);
    /// Opens the cell's editor with its text, or the list of the base times.
    void FGK42_DblClick(int row, int column);
    /// A mouse button was released on the cell, which becomes the current one. The right one opens the menu on a name.
    void FGK42_MouseUp(MouseButton button, int row, int column);
    /// The key for a context menu.
    void FGK42_Kontext();
    /// The current offset loses name and times. Its identifier stays: locks go by it.
    void F42Loeschen_Click();
    void Undo_Click();
    void Redo_Click();
    /// A key in the editor of a time. Return and Tab store it, Escape gives the cell back its text.
    void Text3_KeyPress(int key);
    /// The name that is being typed is another one.
    void Text4_Change(const std::string& text);
    /// Return or Tab in the editor of a name store it, Escape does not.
    void Text4_KeyPress(int key);
    /// An editor that has lost the keyboard stores what it holds.
    void Editor_LostFocus();
    /// 0: the cell gets the first default time, 1: the second.
    void List1_Waehlen(int entry);
    void List1_Abbrechen() { List1.Visible = false; }

    /// A click on a cell of the guest slots, or Return or the space bar: in the last column it selects, or no more, as
    /// one step.
    void FGK42B_Click(int row, int column);
    /// A cell of the offsets can be given a text.
    bool FGK42_Beschreibbar(int row, int column) const;
    /// A text for the cell at once, as if it had been typed and confirmed, or chosen: a name, a time, one of the
    /// default times. What can be none of these changes nothing.
    void FGK42_Eintragen(int row, int column, const std::string& text);

    /// Widths of the columns in twips, of which the proportions count; 0: hidden.
    static int Breite(int column);
    static int BreiteB(int column);

private:
    void Laden();
    bool Speichern();
    void Slots_Zeigen();
    void Aktivieren(int row, int column, int key);
    void Zelle_Schreiben(const std::string& text);
    void Editor_Uebernehmen();
    /// True when the key ends the entry.
    bool Standardzeit_Taste(TextBox& box, int key);
    bool Aendern(Word what, const std::function<void()>& change);
    void Schritt_Gehen(std::optional<UndoStep> (GridUndo::*way)(), Word told);
    void Stand_Zeigen();
    void Woche_Zeigen();

    void Stand_Merken();
    void Stand_Herstellen();
    void Slot_Markieren(int row, bool selected);

    Grid kept_{OffsetRows + GuestSlotRows, OffsetFields}; ///< offsets and marks, one below the other
    GridUndo steps_{kept_};
    bool unread_ = false;      ///< what is shown is not what stands on the disk
    int firstUnknown_ = 0;     ///< slot from which on the file cannot be believed, from 1; 0: none
    int row_ = 0, column_ = 0; ///< the cell under an editor or the list
    GuestSlots slots_;
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
