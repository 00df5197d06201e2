#pragma once

#include "AdapterListe.h"
#include "Controls.h"
#include "Doctor.h"
#include "Grid.h"
#include "GridSelection.h"
#include "Link.h"
#include "Timer.h"

#include <functional>
#include <string>
#include <vector>

namespace qvm {

/// Columns of the list of checks.
namespace PcColumn {
inline constexpr int Verdict = 0, Check = 1, Finding = 2, ToDo = 3, Count = 4;
}

/// What the window needs of the PC and of the rest of the program.
struct PcHaken {
    /// What the PC is found to be, with these ports; opens none. Empty: nothing can be told of the PC itself.
    std::function<PcFacts(const std::vector<int>& ports)> Ansehen;
    /// Mends. Empty when done, else why not, UTF-8.
    std::function<std::string(const DoctorFix& fix)> Beheben;
    /// A run, or whatever else works with the port, is under way: the adapter is not asked then.
    std::function<bool()> Belegt;
};

/// Whether the PC is fit for the program: a line for each check, with its verdict, its proof and the one thing to do.
/// It looks in steps, so that the window never stands still. The adapter is asked as every search asks it, through the
/// one port of the program, and not while anything works with it.
struct PcFenster {
    PcFenster(Link& serialLink, AdapterListe& adapters);

    static constexpr int FirstRow = 1;

    Link& link;
    Kern& kern;
    AdapterListe& Adapter;

    Window Fenster;
    Label Stand; ///< that the PC is being checked, then what came of it
    Grid FGK{FirstRow, PcColumn::Count};
    GridSelection Auswahl{FGK, GridSelection::Unit::Rows};
    Label Einzelheit; ///< finding of the chosen line, and what to do, whole
    Button Erneut, Kopieren, Beheben, Zurueck;
    PcHaken Haken;

    /// Opens the window and checks.
    void Pc_Laden();
    void Texte_Setzen();
    /// Back to the main window; a question to the adapter ends before.
    void Schliessen();
    void Erneut_Click();
    /// Asks once for all that needs no judgement, mends it, tells what could not be mended, and checks anew.
    void Beheben_Click();
    /// The report has gone to the clipboard.
    void Kopiert();
    /// All lines as text, in code page 1252.
    std::string Bericht() const;
    /// Width of a column, in the units of the other grids.
    static int Breite(int column);

private:
    enum class Schritt { Ports, Pc, Files, Ask, Done };

    void Pruefen();
    void Weiter();
    void Ansehen();
    bool Fragbar() const;
    void Fragen();
    void Antworten_Uebernehmen(bool answered, const std::vector<int>& asked);
    void Lesen(Schritt step);
    void Abschluss();
    void Schlimmste_Waehlen();
    void Zeigen();
    void Zeile_Zeigen(int row, const DoctorLine& line);
    void Auswahl_Zeigen();
    bool Behebbar() const;
    std::string Zeilenname(const DoctorLine& line) const;
    DoctorWords Worte() const { return DoctorWords(kern.Config.Sprache); }

    Schritt schritt_ = Schritt::Done;
    bool fragt_ = false;     ///< the adapter is being asked: events go on meanwhile
    bool schliesst_ = false; ///< the window closes as soon as that has ended
    PcFacts facts_;
    std::vector<DoctorLine> ports_, pc_, files_; ///< as Doctor_Pruefen orders them
    Timer takt_;
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
