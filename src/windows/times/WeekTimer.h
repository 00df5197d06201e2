#pragma once

#include "CheckList.h"
#include "Controls.h"
#include "FileTrouble.h"
#include "Grid.h"
#include "GridPointer.h"
#include "GridSelection.h"
#include "GridUndo.h"
#include "GroupTable.h"
#include "InfoPbS.h"
#include "Kern.h"
#include "MouseButton.h"
#include "Text.h"
#include "Timer.h"
#include "WeekChart.h"
#include "Words.h"
#include "Zeitfenster.h"
#include "Zeitgruppen.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// What the windows of the two weekly switch clocks do not share.
struct WeekTimerTraits {
    std::string_view Window;            ///< its name
    std::string_view Menu, DeleteEntry; ///< names of the menu over the groups and of its entry
    SlotRange Slots;                    ///< records of the slot file
    int Groups;                         ///< rows of the group grid
    int FirstFree;                      ///< row of the first group that is not fixed
    int LessAfterDelete;                ///< behind a delete, row n is numbered n less this; by a load always n
    bool StopsTimers;                   ///< when it is left by "Zurück"
    int InfoRows;                       ///< for which the info grid has room
    int Purpose;                        ///< catalogue line of the title
    std::string_view GroupFile;         ///< named when it cannot be read
    GroupTable (*Vorgabe)();            ///< the table before a file is read
    bool (*Laden)(Kern& kern, GroupTable& groups, Grid& grid);
    bool (*Speichern)(Kern& kern, const GroupTable& groups);
};
extern const WeekTimerTraits PersonClockTraits; ///< F4
extern const WeekTimerTraits LockClockTraits;   ///< F41

/// The windows F4 and F41: the weekly switch clocks of persons and of locks, slots and groups of them. The grids and
/// the group table are the working copy of two files; load fills them, save rewrites the clock's records.
struct WeekTimer {
    WeekTimer(Kern& kernel, const WeekTimerTraits& traits);

    static constexpr int FirstRow = 1;
    static constexpr std::string_view InfoTitle = "INFO";
    /// Intervals of Timer2 in ms: at first, behind a rest of the mouse, behind a delete; and of Timer1.
    static constexpr int HoverFirst = 400, HoverNext = 600, HoverDeleted = 800, Flash = 500;

    enum class Menu : std::uint8_t { Slots, Groups };

    Kern& kern;
    const WeekTimerTraits& Traits;

    Window Fenster;
    Label Label1, Label3; ///< what the slots are, what the groups are
    Grid FGK1;            ///< slots; columns: SlotColumn
    Grid FGK3;            ///< groups; columns: GroupColumn
    GroupTable Gruppen;   ///< as it is saved
    InfoPbS Info;         ///< FGK3i and Label2: the slots of the group under the pointer
    WeekPictureBox Woche; ///< the same as a picture, beside FGK3i
    GridSelection SlotAuswahl{FGK1, GridSelection::Unit::Cells, nullptr, FirstRow, SlotColumn::Day};
    GridSelection GruppenAuswahl{FGK3, GridSelection::Unit::Cells, nullptr, FirstRow, GroupColumn::Name};
    Label Belegung;   ///< status line: slots that are on, groups that are named
    Label Verwendung; ///< status line: groups that hold the current slot; empty: none
    Label Hinweis;    ///< status line: what became of the last action; empty: nothing to say

    // Editors, one of which lies over the current cell of its grid while it is visible.
    ListBox List1;   ///< days, over FGK1
    TextBox Text1;   ///< times, over FGK1
    TextBox Text2;   ///< names, over FGK3
    CheckList List2; ///< slots of a group, over FGK3

    std::array<ToolButton, 4> Toolbar1{
        {{.Key = u8"Zurück"_w}, {.Key = "Neu", .Visible = false}, {.Key = "CSV-Print"}, {.Key = "Speichern"}}};
    MenuEntry Loeschen;
    MenuEntry Rueckgaengig, Wiederholen;

    bool Geaendert = false;           ///< some edit happened since the last save
    int AktZeile = 0, AktSpalte = 0;  ///< the cell that was activated last, of either grid
    bool EditAktiv = false;           ///< a cell of the slots is being edited: Escape has something to put back
    std::string AlterText, AlterName; ///< of the cell when its editor opened: of a time, of a name
    int TasteZeit = 0, TasteName = 0; ///< key that starts the editor; 0: none
    std::vector<bool> SlotWahl;       ///< one flag for each slot: is it chosen in List2
    int MenueZeile = 0;               ///< group row on which the menu was opened; 0: none

    Timer Timer1; ///< flashes the title; nothing starts it
    Timer Timer2; ///< watches where the pointer rests

    std::function<void(Menu which)> Menue_Zeigen; ///< opens a menu over the current cell
    std::function<GridPointer()> Maus;            ///< over the group grid
    std::function<bool()> Tastatur_Da;            ///< the keyboard is on the groups or on their picture

    /// F4_FormLaden, F41_FormLaden: loads the files and shows the window. One that was closed by its own close control
    /// comes back as it was. A file that cannot be read is told; nothing is saved then.
    void FormLaden();
    /// Words from the catalogue anew, those of the days in the cells too. Undo begins anew where those change.
    void Texte_Setzen();
    /// One key of the tool bar. An open editor is left first.
    void Toolbar1_ButtonClick(std::string_view key);
    /// "Zurück": asks while there is something to save.
    void Schliessen();
    /// The window's own close control: hidden without a question, and nothing is lost.
    void Verbergen();
    /// The end of the program, which would lose changes of a window that was closed by its own close control: asks as
    /// "Zurück" does. False: the end is not wanted, or the save failed.
    bool Ende_Erlaubt();

    /// A mouse button was released on a slot's cell, which becomes the current one. The right one opens the menu; a
    /// larger block that holds the cell stays then.
    void FGK1_MouseUp(MouseButton button, int row, int column);
    /// Activates a slot's cell: a day opens the list of days, a time its editor.
    void FGK1_DblClick(int row, int column);
    /// Return activates the current cell; a digit starts its editor with that digit, any other key with 0.
    void FGK1_KeyPress(int key);
    void FGK1_Kontext();
    bool FGK1_Beschreibbar(int row, int column) const;
    /// A text for the cell at once, as if it had been chosen or typed and confirmed. One that is no day and no time
    /// changes nothing.
    void FGK1_Eintragen(int row, int column, std::string_view text);
    /// A day of the list was picked.
    void List1_Waehlen(int entry);
    void Text1_KeyPress(int key);
    /// Takes the time over. An end before its start is told, and becomes 00:00. Nothing while the editor is closed.
    void Text1_Uebernehmen();

    /// As that of FGK1, and closes what is open. The right button opens the menu on the name of a group that is not
    /// fixed.
    void FGK3_MouseUp(MouseButton button, int row, int column);
    /// Activates a group's cell: a name opens its editor, the number of slots their list. Fixed groups do nothing.
    void FGK3_DblClick(int row, int column);
    /// Activates the current cell; a character starts the name anew.
    void FGK3_KeyPress(int key);
    void FGK3_Kontext();
    bool FGK3_Beschreibbar(int row, int column) const;
    /// As that of FGK1, for a name.
    void FGK3_Eintragen(int row, int column, std::string_view text);
    /// The text of Text2 as the view holds it; what no text can hold is left out.
    void Text2_Change(std::string_view text);
    /// Tab and Return take the name over. Escape puts the old one back into the editor, which stays open; once more, it
    /// closes.
    void Text2_KeyPress(int key);
    /// Takes the name over unless it is empty. One that another group has is told, and the editor stays open.
    void Text2_Uebernehmen();
    /// An entry of List2 was checked or unchecked. A slot that is off is told and comes out of the choice.
    void List2_Schalten(int entry, bool checked);
    /// The chosen slots become those of the group.
    void List2_Uebernehmen();
    /// A list goes without a choice.
    void Listen_Schliessen();
    /// Deletes the group of MenueZeile, and those of a larger block that holds it; the others close up by their names.
    void Loeschen_Click();

    void Undo_Click();
    void Redo_Click();

    /// Widths of columns in twips, of which the proportions count; 0: hidden.
    static int SlotBreite(int column);
    static int GruppenBreite(int column);

private:
    /// What is wrong with the files, if anything is.
    std::optional<FileTrouble> Laden();
    bool Speichern();
    /// Asks while there is something to save. True when nothing is left of it, the next opening reads the files.
    bool Abgeschlossen(std::string_view title);
    void Csv_Schreiben();
    std::string CsvText() const;
    bool Aendern(Word what, const std::function<void()>& change);
    void Schritt_Gehen(std::optional<UndoStep> (GridUndo::*way)(), Word told);
    void Schritt_Finden(const UndoStep& step);
    void Stand_Merken();
    void Stand_Herstellen();
    void Editor_Verlassen();
    void Zellen_Uebersetzen();
    void Stand_Zeigen();
    void Koepfe_Setzen();

    void Slot_Aktivieren(int row, int column);
    void Zeit_Schreiben(const std::string& time);
    void Gruppe_Aktivieren(int row, int column);
    void Name_Zuruecklegen();
    bool Name_Vergeben(std::string_view name) const;
    void SlotListe_Fuellen();
    void Kennung_Geben(int row);
    std::vector<int> Zu_Loeschen() const;
    void Gruppen_Ordnen();
    GroupEntry& Gruppe(int row) { return Gruppen[static_cast<std::size_t>(row)]; }

    GridPointer Zeiger();
    void Ruhe_Pruefen();
    void Info_Zeigen(int row);
    void Info_Verbergen();
    void Titel_Blinken();

    bool loaded_ = false;  ///< the grids hold what was loaded or edited, also while the window is hidden
    bool unread_ = false;  ///< they are not all that stands on the disk
    bool escaped_ = false; ///< the last key in Text2 was Escape
    std::string refused_;  ///< name that was told to be taken; empty: none since Text2 was opened
    Grid kept_;            ///< both grids and the table one below the other, as the last step left them
    GridUndo steps_{kept_};
    GridPointer mouse_, pointer_;       ///< where the mouse was, and what counts as pointed at
    int keyRow_ = 0;                    ///< current group row at the last tick
    bool byKeys_ = false;               ///< the keyboard moved last, not the mouse
    int idle_ = 0;                      ///< ticks without a move
    int infoRow_ = 0;                   ///< group that the info grid shows; 0: none, or no more as it is
    std::vector<std::string> cellDays_; ///< the days as the cells have them
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
