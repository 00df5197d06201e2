#pragma once

#include "AdapterListe.h"
#include "Controls.h"
#include "DatensatzDateien.h"
#include "F11.h"
#include "Gitterzeile.h"
#include "Grid.h"
#include "GridFilter.h"
#include "GridJump.h"
#include "GridSelection.h"
#include "Programmierlauf.h"
#include "Record.h"
#include "Text.h"
#include "Timer.h"

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qvm {

/// Window F13: all locks; every transfer begins here. It holds no data of its own.
struct F13 {
    F13(Programmierlauf& programmierlauf, F11& start, AdapterListe& adapters);

    static constexpr int CallerCode = 3;

    Programmierlauf& run;
    Kern& kern;
    F11& f11;
    AdapterListe& Adapter;

    Window Fenster;
    Grid FGK13{201, F13Column::Count};
    GridFilter Filter;     ///< by name and serial
    GridSelection Auswahl; ///< the rows that Space marks
    GridJump Sprung;       ///< typed letters, to the next name
    Label Markenzahl;      ///< how many locks are marked, and how many of them the filter hides; empty: none
    Button Command1;       ///< marks what the last list did not finish; hidden while there is nothing of the kind
    std::array<ToolButton, 3> Toolbar1{
        {{.Key = u8"Zurück"_w, .Number = 11}, {.Key = "Prog.", .Number = 1}, {.Key = "SaveHistory", .Number = 3}}};
    int Aufrufer = 0;          ///< 3 while the window is open
    bool DelayedStart = false; ///< of a list run
    Timer Timer1;              ///< mouse tracking
    Timer Timer2;

    std::function<bool(int& row, int& column)> Maus_Zelle; ///< the cell under the mouse
    /// The code change window. While it is empty the cells of its column stay white.
    std::function<void()> F17_Oeffnen;
    /// Copies a marked row into the run list. While it is empty the two list keys stand disabled.
    std::function<void(int gridRow, int listRow)> Listenzeile_Uebernehmen;
    std::function<void()> Liste_Leeren; ///< clears the run list, and its third timer stops
    /// Numbers of the locks that failed or were passed over in the last list.
    std::function<std::vector<int>()> Gescheiterte_Schloesser;

    void F13_FormLaden();
    /// Headings and tips from the catalogue anew; cells stay.
    void Texte_Setzen();
    void TuerInfo_laden();
    void RFk_IconLoad();
    void Adapter_Spalten_Laden();
    void Del_FGK13_ICON(int row, int column);
    /// A click on a cell, by column: program, history, change code, mark.
    void FGK13_Click(int row, int column);
    /// A character typed in the grid: the next lock whose name begins so becomes the current one.
    void FGK13_KeyPress(int key);
    /// Marks every row of the selection that has name and serial and is shown; clears them when all are marked already.
    void Auswahl_Markieren();
    /// Marks the locks that failed or were passed over in the last list, beside those that are marked.
    void Command1_Click();
    void Marke_Setzen(int row, bool on);
    /// The start dialog was left without a start: the window is free again, and what a list key had taken is marked.
    void F11_Verlassen();
    /// "Zurück", which asks first while locks are marked, "Prog." or "SaveHistory".
    void Toolbar1_ButtonClick(std::string_view key);
    /// The window goes, with its marks, and the main window comes back.
    void F13_Schliessen();
    /// The window goes for a run that the main window follows. Its marks come back with it.
    void F13_Verbergen();
    /// The same for one lock over the network, which comes back without its mark, as behind the direct route.
    void Fuer_Netzlauf_Verbergen();
    /// A run leaves the window to the operator again.
    void F13_Freigeben() { Fenster.Enabled = true; }
    /// The same; the run may have moved its lock to another channel.
    void Hinter_Lauf_Freigeben();
    void Datum_Uhrzeit_akt(int row);
    /// The files that a run of the lock in this row rests on and that cannot be relied on.
    std::vector<FileTrouble> Dateien_Pruefen(int row) const;
    /// The lock's port, or KeinPort. `stop` is set when the message was shown and the click ends.
    int Adapter_Port(int row, bool& stop);

private:
    void Programmieren(int row);
    void Historie(int row);
    void Code_Aendern(int row);
    bool Markierbar(int row) const;
    bool Markiert(int row) const;
    void Marke_Umschalten(int row);
    std::vector<int> Markierte_Zeilen() const;
    void Marken_Zaehlen();
    void Marken_Zurueckholen();
    /// True when there are no marks to lose, or the operator wants to lose them.
    bool Marken_Hinnehmen() const;
    void Liste(bool historyOnly);
    void Liste_Uebernehmen(const std::vector<int>& rows);
    std::vector<int> Gescheiterte_Zeilen() const;
    void Zeile_Fuellen(int row);
    void Listentasten_Freigeben();
    bool Serie_Gueltig(int row) const;
    /// The order for the lock of the row, whose dataset stands where it is to get one.
    void Beauftragen(int row, RunTask what, int channel, bool search);
    /// Which lock stands in the row, for a message box.
    std::string Schloss(int row) const;
    bool Historie_Fragen(bool& first, const std::string& about);
    bool Datensatz(int row);
    bool Dateien_Hinnehmen(int row) const;
    /// False, with a message, when one of the files cannot be read.
    bool Lesbar(const std::vector<FileTrouble>& troubles) const;
    /// The same of the file that says where the locks listen.
    bool Kanaele_Lesbar() const;
    void F11_Oeffnen(int row);
    bool Port_Vorbereiten(int row);
    void Maus_Verfolgen();
    void Lesen(RecordFile& file);

    std::vector<FileTrouble> unread_; ///< files of the grid that could not be read when the window opened
    int hoverRow_ = -1;
    int hoverColumn_ = -1;
    std::vector<int> listRows_; ///< whose marks went into the list that the start dialog is open for
    std::vector<std::pair<int, std::string>> kept_; ///< rows and serials that were marked when the window was hidden
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
