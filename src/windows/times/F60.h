#pragma once

#include "AdapterListe.h"
#include "Controls.h"
#include "Gastkarte.h"
#include "Grid.h"
#include "GridSelection.h"
#include "GridUndo.h"
#include "Kern.h"
#include "Link.h"
#include "MouseButton.h"
#include "Text.h"
#include "Timer.h"
#include "Words.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// Columns of the grid of the doors. Those from the offset's name on are hidden.
namespace CardColumn {
inline constexpr int Number = 0, Name = 1, Serial = 2, Mark = 3, OffsetName = 4, OffsetId = 5, Mode = 6, Room = 7,
                     Count = 8;
}

namespace CardLook {
inline constexpr Colour Marked = 0x808080;
inline constexpr int MarkSize = 16;          ///< points
inline constexpr Colour Reversed = 0x0000FF; ///< of a check-out before the check-in
} // namespace CardLook

/// What was read from a card.
struct KartenLesung {
    std::array<std::vector<std::uint8_t>, 3> Teile; ///< of the answers, from index 4 on
    std::array<std::uint8_t, 4> Batterie{};
    bool Fertig = false;

    /// The validity, "dd.mm.yyyy hh:mm"; empty unless both ends are moments. In which order a card's answers hold its
    /// data is not known for certain: it is looked for where the telegram that writes it has it.
    std::string Gueltig_Ab() const { return Moment(0); }
    std::string Gueltig_Bis() const { return Moment(1); }

private:
    std::string Moment(std::size_t which) const;
};

/// What became of the last writing or reading.
enum class KartenErgebnis : std::uint8_t {
    Offen,       ///< nothing was begun, or it is under way
    Geschrieben, ///< sub-code D1
    Gelesen,
    Ohne_Tuer,    ///< no door is marked for this card
    Ohne_Raum,    ///< the first such door has no room number
    Ungelesen,    ///< a file that tells what is on a card could not be read
    Ohne_Adapter, ///< there is none, or its port cannot be opened
    Abgelehnt,    ///< another sub-code, or a refusal
    Getrennt,     ///< the adapter was pulled out
    Stumm,        ///< it did not answer
};

/// Window F60: guest cards. The doors come from the lock table; times and mode from those of F42.
struct F60 {
    F60(Kern& kernel, Link& serialLink, AdapterListe& adapters);

    static constexpr int FirstRow = 1, LastRow = 200;
    static constexpr int Groups = 255;
    /// For one answer, in ms, and how often the adapter is looked at meanwhile.
    static constexpr int PatienceMs = 15000, LookMs = 500;

    Kern& kern;
    Link& link;
    AdapterListe& Adapter;

    Window Fenster;
    Label Label1;                 ///< what the window is for
    Label Frame1, Label2, Label3; ///< caption of the default times, beside Text1, Text2
    Label Label4, Label5;         ///< "hh:mm" behind them
    Label Frame2, Label6, Label7; ///< caption of the stay, beside Label10, Label11
    Label Label8;                 ///< beside List1
    Label Label10, Label11;       ///< the dates of check-in and check-out
    Label Label12;                ///< a card is being written or read
    TextBox Text1, Text2;         ///< times of check-in and check-out
    TextBox Text3;                ///< part of a door's name
    ListBox List1;                ///< object groups 0 to 254
    Button Command1;              ///< search
    Button Command2;              ///< write
    Button Command3;              ///< new object group
    Button Command4;              ///< read
    Grid FGK60{LastRow + 1, CardColumn::Count};
    GridSelection Auswahl{FGK60, GridSelection::Unit::Cells, nullptr, FirstRow, CardColumn::Name};

    Observed<Datum> CheckIn, CheckOut; ///< that MV1, MV2 show
    Label Aufenthalt;                  ///< the stay: dates with weekdays, nights
    Label Mangel;                      ///< status line: what is odd; empty: nothing
    Label Markiert;                    ///< status line: how many doors
    Label Hinweis;                     ///< status line: what became of the last action; empty: nothing to say

    MenuEntry Rueckgaengig, Wiederholen; ///< of the menu M_FGK60

    std::array<ToolButton, 2> Toolbar1{{{.Key = u8"Zurück"_w}, {.Key = "Speichern"}}};

    int GruppenNr = 0; ///< the current object group
    bool Objekt = false;
    bool Geaendert = false;  ///< there is something to save
    int Geduld = PatienceMs; ///< for one answer, in ms
    KartenErgebnis Ergebnis = KartenErgebnis::Offen;
    KartenLesung Lesung;

    std::function<void()> Zu_F5;        ///< the user window is told that it may go on
    std::function<void()> Menue_Zeigen; ///< opens M_FGK60 over the current cell

    /// Loads everything and shows the window. What cannot be read is told; then nothing is saved and no card written.
    void F60_FormLaden();
    /// Words from the catalogue anew.
    void Texte_Setzen();
    void Toolbar1_ButtonClick(std::string_view key);
    /// "Zurück", and the window's own close button: asks while there is something to save.
    void Schliessen();

    /// A click on a cell, which becomes the current one. One on the mark goes on: none, "X", "P", none. While a card is
    /// being written the marks stay as they are: its end takes away those of the doors that it holds.
    void FGK60_Click(int row, int column);
    /// Return or the space bar does the same for the current row.
    void FGK60_KeyPress(int key);
    /// The right button on a cell, which becomes the current one, or the key for a context menu.
    void FGK60_Kontext(int row, int column);
    /// Marks of doors, a step each. What a card took away when it was written does not come back.
    void Undo_Click();
    void Redo_Click();
    /// Dates that a card cannot hold, before 2000 and behind 2099, are refused with a message.
    void MV1_Waehlen(const Datum& day);
    void MV2_Waehlen(const Datum& day);
    /// A key in a time. Return in the first one goes to the second.
    void Text1_KeyPress(int key);
    void Text2_KeyPress(int key);
    void Text3_Change(const std::string& text) { Text3.Text = text; }
    /// Return searches.
    void Text3_KeyPress(int key);
    /// The last door whose name holds the text, whatever its case, becomes the current one. An empty text finds none.
    void Command1_Click();
    /// Writes the card.
    void Command2_Click();
    /// Asks, then begins a new object group.
    void Command3_Click();
    /// Reads the card.
    void Command4_Click();
    /// A group was chosen. One above the current group is refused.
    void List1_Waehlen(int index);

    // What comes back. The link has seen to it that it was asked for.
    void Karte_Quittung();
    void Karte_Start();
    void Karte_Block();
    /// A refusal. The operator is told elsewhere when it says that there is no card.
    void Karte_Abgelehnt();
    /// An answer is awaited.
    bool Wartet() const { return Wache.Running(); }
    /// It is one to a card that is being written.
    bool Schreibt() const { return Wartet() && part_ != 0; }

    /// The card as it would be written now.
    GastKarte Karte() const;
    /// What the heading of the marks says, which shows no text. Empty elsewhere.
    std::string Tip(int row, int column) const;
    /// Width of a column in twips, of which the proportions count; 0: hidden.
    static int Breite(int column);

private:
    // Loading.
    void Laden();
    bool Offsets_Lesen();
    bool Schloesser_Lesen();
    bool Tuermodus_Lesen();
    bool Auswahl_Lesen();
    bool Dauertueren_Zeigen();
    void Betriebsart_Zeigen();
    bool PermSelect_Speichern();
    /// Everything was read. If not, the operator is told that nothing is saved and written.
    bool Gelesen() const;

    // The exchange.
    bool Port_Bereit();
    void Warten(bool sent);
    void Enden(KartenErgebnis result);
    void Nachsehen();
    void Folge_Senden(const GastKarte::Folge& part);
    void Block_Anfordern(int block);
    void Geschrieben();
    void Lesung_Abbrechen();
    void Lesung_Zeigen();

    void Markieren(int row, std::string_view mark);
    void Schritt_Gehen(std::optional<UndoStep> (GridUndo::*way)(), Word told);
    void Schritte_Vergessen();
    std::vector<int> Dauertueren() const; ///< rows of the doors that are marked as permanent
    void Gespeichert();
    void Tag_Waehlen(Observed<Datum>& which, const Datum& day);
    void Zeit_Tippen(TextBox& box, int key, bool goesOn);
    void Stand_Zeigen();
    void Aufenthalt_Zeigen();

    GridUndo steps_{FGK60};
    std::array<KartenOffset, KartenOffsets> offsets_;
    std::array<std::string, KartenOffsets> offsetNames_;
    std::array<std::string, 2> standard_; ///< DefaultZeit1, DefaultZeit2
    std::vector<int> saved_;              ///< permanent doors as the file has them
    std::uint8_t slotMask_ = 0;
    bool unread_ = false; ///< what is shown is not what stands on the disk
    GastKarte card_;      ///< being written
    int part_ = 0;        ///< of it that went out last, from 1; 0: a card is being read
    int block_ = 0;       ///< of the reading that is due; 3: the battery
    int stand_ = 0;       ///< of the adapters when the exchange began
    int waited_ = 0;      ///< ms
    Timer Wache;
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
