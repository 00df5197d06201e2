#pragma once

#include "AdapterListe.h"
#include "Controls.h"
#include "DatensatzDateien.h"
#include "F11.h"
#include "Grid.h"
#include "Programmierlauf.h"
#include "Record.h"
#include "Text.h"
#include "Timer.h"

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// Picture ids of the status icon: the lock must still change its channel, or not.
namespace ChannelPicture {
inline constexpr int None = 0, Image7 = 7, Image8 = 8;
}

/// Columns of the lock grid.
namespace F13Column {
inline constexpr int Number = 0, Name = 1, Serial = 2, Offset = 3, PersonTimers = 4, Calendars = 5, LockTimer = 6,
                     CalendarFlag = 7, SetClock = 8, Program = 9, History = 10, Code = 11, Status = 12, AdapterId = 13,
                     AdapterName = 14, Mark = 15, Count = 16;
}

/// Window F13: all locks; every transfer begins here. It holds no data of its own.
struct F13 {
    F13(Programmierlauf& programmierlauf, F11& start, AdapterListe& adapters);

    static constexpr Colour ActionColour = 0xF0F0F0; ///< of a cell that can be clicked; white ones cannot
    static constexpr Colour HoverColour = 0xE0E0E0;
    static constexpr int CallerCode = 3;

    Programmierlauf& run;
    Kern& kern;
    F11& f11;
    AdapterListe& Adapter;

    Window Fenster;
    Grid FGK13{201, F13Column::Count};
    std::array<ToolButton, 3> Toolbar1{
        {{.Key = u8"Zurück"_w, .Number = 11}, {.Key = "Prog.", .Number = 1}, {.Key = "SaveHistory", .Number = 3}}};
    int ProgressTotal = 0;
    int Aufrufer = 0;          ///< 3 while the window is open
    bool DelayedStart = false; ///< of a list run
    Timer Timer1;              ///< mouse tracking
    Timer Timer2;

    std::function<bool(int& row, int& column)> Maus_Zelle; ///< the cell under the mouse
    /// The code change window. While it is empty the cells of its column stay white.
    std::function<void()> F17_Oeffnen;
    /// Copies a marked row into the run list. While it is empty the two list keys stand disabled.
    std::function<void(int gridRow, int listRow)> Listenzeile_Uebernehmen;
    std::function<void()> Liste_Leeren;        ///< clears the run list, and its third timer stops
    std::function<void()> Hauptfenster_Zeigen; ///< the main window comes back and supervises again

    void F13_FormLaden();
    /// Headings and tips from the catalogue anew; cells stay.
    void Texte_Setzen();
    void TuerInfo_laden();
    void RFk_IconLoad();
    void Adapter_Spalten_Laden();
    void Del_FGK13_ICON(int row, int column);
    /// A click on a cell, by column: program, history, change code, mark.
    void FGK13_Click(int row, int column);
    /// "Zurück", "Prog." or "SaveHistory".
    void Toolbar1_ButtonClick(std::string_view key);
    void Datum_Uhrzeit_akt(int row);
    /// The files that a run of the lock in this row rests on and that cannot be relied on.
    std::vector<FileTrouble> Dateien_Pruefen(int row) const;
    /// The lock's port, or KeinPort. `stop` is set when the message was shown and the click ends.
    int Adapter_Port(int row, bool& stop);

private:
    void Programmieren(int row);
    void Historie(int row);
    void Code_Aendern(int row);
    void Marke_Umschalten(int row);
    void Liste(bool historyOnly);
    void Zeile_Fuellen(int row);
    void Listentasten_Freigeben();
    bool Ziel_Setzen(int row);
    bool Historie_Fragen(bool& first);
    bool Datensatz(int row);
    bool Dateien_Hinnehmen(int row) const;
    void F11_Oeffnen(int row);
    bool Port_Vorbereiten(int row);
    void Maus_Verfolgen();
    LockRow Zeilendaten(int row) const;
    void Lesen(RecordFile& file);

    std::vector<FileTrouble> unread_; ///< files of the grid that could not be read when the window opened
    int hoverRow_ = -1;
    int hoverColumn_ = -1;
};

} // namespace qvm
