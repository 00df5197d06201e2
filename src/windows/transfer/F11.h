#pragma once

#include "AdapterListe.h"
#include "CodeEntry.h"
#include "Controls.h"
#include "F18.h"
#include "F9.h"
#include "Programmierlauf.h"
#include "Timer.h"
#include "Zeit.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace qvm {

/// Which window opened the start dialog.
enum class F11Opener { F13, F12, F20 };

/// Window F11: administrator code, cut-off date, adapter; starts a run.
struct F11 {
    F11(Programmierlauf& programmierlauf, F9& progress, F18& wait, AdapterListe& adapters);

    static constexpr int CodeLength = CodeEntry::Length;

    Programmierlauf& run;
    Kern& kern;
    F9& f9;
    F18& f18;
    AdapterListe& Adapter;

    Window Fenster;
    Label Schloss; ///< which lock is to be run; empty for a list
    Label Prompt;
    TextBox Text1;    ///< one "*" for each character typed
    Label Anzahl;     ///< how many stand
    Label CutoffText; ///< `Line::HistoryFrom`
    Label CutoffDate; ///< "dd.mm.yyyy", or dashes when no history is read
    CheckBox Check1;  ///< checked: option 0 of the erase telegram
    ListBox Combo1;   ///< adapters; hidden unless the adapter mode is on
    Label GeduldText;
    ListBox Geduld; ///< how long a list waits for a silent lock; hidden unless a list is begun
    Button OK, Cancel;
    Timer Fokus; ///< gives the code box the focus, 500 ms after opening

    int LockRowOfGrid = 0;         ///< row of F13 that the run belongs to
    std::function<void()> Zurueck; ///< cancel: back to F13
    std::function<void()> F13_Verbergen;
    std::function<void(int row)> Marke_Loeschen;          ///< clears the "X" of the lock's row
    std::function<void()> Antworttabelle_Leeren;          ///< the unit answer table
    std::function<void()> Liste_Starten;                  ///< the list run takes over
    std::function<bool(const AdapterSatz&)> Adapter_Test; ///< true: a network adapter
    std::function<void()> Netzlauf_Starten;               ///< the network route for one lock
    std::function<void(const RunOrder& order)>
        Suche_Beauftragt;                  ///< OK for F12 or F20: a scan, with the code in `order`
    std::function<void()> Suche_Verworfen; ///< cancel for them

    /// `adapterName`: the adapter remembered for the lock, to be preselected.
    void F11_Laden(F11Opener opener, const std::string& adapterName);
    /// Words from the catalogue anew.
    void Texte_Setzen();
    /// One key in the code box. A key that stands for no digit changes nothing.
    void Text1_KeyPress(int key);
    void OK_Click();
    void Cancel_Click();
    /// A date picked in the month view; only up to today.
    void Datum_Waehlen(const Datum& date);
    /// The last day that can be picked.
    Datum Letzter_Tag() const;
    /// The day from which events are read; nothing when no history is read.
    std::optional<Datum> Stichtag() const { return stichtag_; }
    int Stellen() const { return code_.Stellen(); }
    /// Seconds after which a list gives up a silent lock; 0: never.
    int Geduld_Sekunden() const;
    /// The adapter of the chosen list entry; nullptr when there is none.
    const AdapterSatz* Gewaehlter_Adapter() const;

private:
    void Eingabe_Leeren();
    void Stichtag_Setzen(const std::optional<Datum>& day);
    std::string Schlosszeile() const;
    void Geduld_Anbieten();
    void Adapter_Fuellen(F11Opener opener, const std::string& adapterName);
    /// False, behind a message, when the adapter that was chosen is gone.
    bool Port_Bereitmachen(bool& network);
    /// The order of the window that opened the dialog, with code, cut-off and erase option; clears the entry. With
    /// fewer than six characters only a message is shown, and nothing given.
    std::optional<RunOrder> Auftrag_Vollenden();
    /// The same as the wish of a list, or of a lock that a network adapter has; closes the dialog.
    bool Liste_Beauftragen();
    void Direkt_Starten();
    void Suche_Beauftragen();
    void Schliessen();

    F11Opener opener_ = F11Opener::F13;
    CodeEntry code_{Text1};
    std::optional<Datum> stichtag_;
    std::vector<std::string> offered_; ///< address of the adapter of each entry
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
