#pragma once

#include "Controls.h"
#include "Grid.h"
#include "GridSelection.h"
#include "Kern.h"
#include "ListenTime.h"
#include "UnitScan.h"
#include "UnitSettings.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace qvm {

/// Which window a scan was begun from.
enum class F19Opener : std::uint8_t { Locks, Units };

/// Columns of FGK19; the bar takes all from Bar on.
namespace ScanColumn {
inline constexpr int Channel = 0, Serial = 1, Type = 2, Spare = 3, Signal = 4, Bar = 5;
}

/// Colours of columns 3 and 4.
namespace ScanLook {
inline constexpr Colour Well = 0x008000, Poor = 0x0000FF;
}

/// Window F19: the units that a scan of the channels found, one of which the operator takes.
struct F19 {
    explicit F19(Kern& kernel);

    Kern& kern;

    Window Fenster;
    Grid FGK19{UnitScan::Channels + 1, ScanColumn::Bar + BarCells}; ///< row n: channel n; row 0 the headers
    GridSelection Auswahl{FGK19, GridSelection::Unit::Rows};
    UnitSettings Einstellung; ///< how the chosen unit is to listen
    int GewaehlteZeile = 0;   ///< the chosen row, 1 to 12; 0: none
    std::string UnitSn;       ///< its serial, as shown
    std::string UnitTyp;      ///< its short label, three letters

    ListBox Combo2, Combo3, Combo4; ///< listen time: hours, minutes, seconds
    CheckBox Check1;                ///< always on
    Label Label1;                   ///< the chosen unit
    Label Label2, Label3, Frame1;
    Button Command1; ///< cancel
    Button Command2; ///< accept
    Label Hinweis;   ///< why nothing was taken; empty: nothing to say

    /// The records of the lock are written: its row in the lock window.
    std::function<void(int lock, std::string_view serial, std::string_view unitType)> An_Schloesser;
    /// The unit goes into a row of the unit window, which judges it. `unitNo`: its channel, decimal text.
    std::function<void(int row, std::string_view serial, std::string_view unitNo)> An_Units;
    std::function<void()> Suche_Beenden;           ///< nothing of the scan is left behind
    std::function<void(F19Opener opener)> Zurueck; ///< closed: back to the window that called

    /// Shows what was found, the best unit chosen.
    /// @param target the lock that was scanned for, or the row of the unit window
    void F19_FormLaden(const UnitScan& scan, F19Opener opener, int target);
    /// Words from the catalogue anew; the choice and the times stay.
    void Texte_Setzen();
    /// Chooses the row in place of the best one. A row without a unit changes nothing.
    void FGK19_DblClick(int row);
    /// One key on the current row: space chooses it, and so does Return, which accepts where it has nothing to choose.
    void FGK19_KeyPress(int key);
    void Combo2_Click(int entry);
    void Combo3_Click(int entry);
    void Combo4_Click(int entry);
    void Check1_Click(bool on);
    /// Takes the chosen unit and closes. Stays open, and says why, without a choice, without a listen time where one is
    /// needed, and when the disk refuses.
    void Command2_Click();
    /// Cancels: nothing is taken.
    void Command1_Click();

    /// What the columns without a text say: their headings (row 0), and the bar in words. Empty elsewhere.
    std::string Tip(int row, int column) const;
    /// What a picture of column Spare says: how a unit answered; empty for none of them.
    std::string Bildtext(int picture) const;
    /// Width of a column in twips, of which the proportions count; 0: hidden. The bar stands in its first column.
    static int Breite(int column);

private:
    const ScanEntry& Fund(int row) const;
    void Zeile_Fuellen(int row);
    void Balken_Zeichnen(int row, int signal);
    void Waehlen(int row);
    void Gewaehlte_Zeigen();
    void Regler_Zeigen();
    /// False, with a message, when the window has to stay open.
    bool Beim_Schloss_Speichern();
    void Schliessen();

    UnitScan scan_;
    F19Opener opener_ = F19Opener::Units;
    int target_ = 0;
    ListenControls listen_{Combo2, Combo3, Combo4, Check1};
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
