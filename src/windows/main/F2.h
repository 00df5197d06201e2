#pragma once

#include "AdapterListe.h"
#include "Bestand.h"
#include "Controls.h"
#include "Link.h"
#include "PortFault.h"
#include "RunState.h"
#include "Text.h"
#include "Timer.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// Colours of the link light, 0xBBGGRR.
namespace Lampe {
inline constexpr Colour Rot = 0x0000FF;   ///< no port
inline constexpr Colour Gelb = 0x00FFFF;  ///< port open and searching
inline constexpr Colour Gruen = 0x00FF00; ///< adapter found
} // namespace Lampe

/// What F2 needs of the rest of the program, beside the windows that it opens by WindowBoard.
struct F2Hooks {
    std::function<void()> Ende;         ///< the program ends, after the shut-down
    std::function<bool()> Ende_Erlaubt; ///< what closed windows still hold is saved or dropped; false: no end
    /// Leads into the virtual building, as the demonstration or as a copy of the data files, and out of it. The program
    /// ends for it. Empty: there is none.
    std::function<void(bool demonstration)> Gebaeude;
    std::function<void()> Gebaeude_Zeigen;     ///< its window, when the program is in it
    std::function<void()> F9_Schliessen;       ///< the progress window, for the reply guard
    std::function<void()> Lauf_Timer_Anhalten; ///< the timers of a run, when F2 opens
    std::function<bool()> Listenzeile_Laeuft;  ///< a row of a list run holds the port
    std::function<bool()> Davor_Offen;         ///< the lock grid, the run list or F60 stands in F2's place
    std::function<void()> Anschluss_Geaendert; ///< ports came or went: for an open list of locks
    std::function<Bestand()> Bestand_Lesen;    ///< what the data files hold, read anew
    std::function<std::vector<Historiendatei>()> Historien_Lesen;  ///< the latest histories, the newest first
    std::function<void(const std::string& path)> Historie_Oeffnen; ///< F7 with this file; it hides F2 itself
};

/// Window F2, the frame of the program: menus, tool bar, link light, port arrival and removal, adapter supervision.
///
/// It opens the other windows by their names. The key or entry of one that does not exist stands disabled; "F2_Kalend"
/// and "F2_Schaltuhr" are the menus of two keys, popped up until they are closed. F2 hides or disables itself, but for
/// F7, which asks for a file first; a window that did not open after all gives F2 back by WindowBoard::BackToMain.
struct F2 {
    F2(Link& serialLink, AdapterListe& adapters);
    ~F2();
    F2(const F2&) = delete;
    F2& operator=(const F2&) = delete;

    Link& link;
    Kern& kern;
    AdapterListe& Adapter;

    Window Fenster;
    Label Label1;         ///< link light, by its ForeColor
    Label Label3, Label6; ///< successful connections and scans, hidden
    Label Label7;         ///< the adapter's name beside Picture1, shown while an adapter is known
    Picture Picture1;
    Label Gebaeudezeile; ///< strip below the menus: that nothing is real; empty outside of the virtual building
    /// Status bar: why the keys do nothing while a search takes its time; empty when they act. It stands before
    /// Meldezeile.
    Label Suchzeile;
    Label Meldezeile; ///< status bar: why the port is not open, empty when it is; also the light's tool tip
    MenuEntry F2_Datei, F2_Schnittstelle, F2_Sprache, F2_Ende, F2_Einzel, F2_Perm, F2_PersonB, F2_SchlossB,
        F2_Gasttimer, F2_Help, F2_Version, F2_Pc;
    MenuEntry F2_Gebaeude;                            ///< opens the virtual building; in it, shows its window
    MenuEntry F2_Gebaeude_Ende;                       ///< without text outside of it
    std::array<MenuEntry, LetzteHistorien> Historien; ///< the latest histories; those without text are none

    /// The facts that the window tells.
    enum class Angabe : std::uint8_t { Adapter, Anschluss, Funkkanal, Personen, Schloesser, Kanalwechsel };
    std::array<Fact, 6> Uebersicht; ///< by Angabe

    std::array<ToolButton, 13> Toolbar1{{{.Key = "Ende", .Number = 1},
                                         {.Key = "INFO", .Number = 3},
                                         {.Key = u8"Öffnen"_w, .Number = 5},
                                         {.Key = "Speichern", .Number = 7},
                                         {.Key = "EYE", .Number = 9},
                                         {.Key = "636I259", .Number = 11},
                                         {.Key = "Schaltuhr", .Number = 13},
                                         {.Key = "x1504", .Number = 15},
                                         {.Key = "Neu", .Number = 17},
                                         {.Key = "GastCard", .Number = 19},
                                         {.Key = "PROG", .Number = 21},
                                         {.Key = "lock4", .Number = 23},
                                         {.Key = "RfidCard", .Number = 25}}};
    Timer Timer1;       ///< reply guard; no step starts it
    Timer Timer2;       ///< adapter supervision
    Timer Suchanzeige;  ///< one shot: the search under way takes so long that it is told
    Timer Wiederholung; ///< tries again a port that may be free or allowed in a moment, or one that a run held

    int Verbunden = 0;      ///< 1 when the adapter has answered and the tool bar is live
    int ScanLaeuft = 0;     ///< 1 while Timer2's scan runs
    int AdapterVersion = 0; ///< as the adapter told it, 0 unknown

    F2Hooks Hooks;

    /// Open: words, hidden labels, timers stopped; on the first call the port is made ready, Timer2 started, and port
    /// arrival and removal are heard from then on.
    void F2_Laden();
    /// Words from the catalogue anew; where it has none, those of the design.
    void Texte_Setzen();
    /// Which keys and entries stand enabled, by the windows that exist. A key without a task is hidden, too.
    void Tasten_Freigeben();
    /// Back from an editor: shown and enabled, and the supervision goes on; at once when the port was made ready
    /// meanwhile. Does nothing before F2 was opened.
    void F2_Zeigen();
    /// The same, but not in the middle of a run nor beside the lock grid or the run list.
    void F2_Freigeben();

    /// One key. During a scan none does anything.
    void Toolbar1_ButtonClick(std::string_view key);
    /// During a scan the window opens when the scan is over, as both need the port.
    void F2_Schnittstelle_Click();
    void F2_Sprache_Click();
    void F2_Ende_Click() { Beenden(); }
    void F2_Einzel_Click();
    void F2_Perm_Click();
    void F2_PersonB_Click();
    void F2_SchlossB_Click();
    void F2_Gasttimer_Click();
    /// The manual in the language in use, by the program that the system has for it.
    void F2_Help_Click();
    void F2_Version_Click();
    /// The check of the PC; not in the virtual building, which has no PC.
    void F2_Pc_Click();
    /// A run, a scan of the channels or the session of a unit has the port.
    bool Leitung_Belegt() const { return Lauf_Aktiv(); }
    /// Asks, then leads into the virtual building; inside it, shows its window.
    void F2_Gebaeude_Click();
    /// Asks, then leads out of it.
    void F2_Gebaeude_Ende_Click();
    /// The entries of the latest histories anew: before their menu opens.
    void Historien_Lesen();
    /// Opens history `number` from 0 on, with an adapter or without.
    void Historie_Click(std::size_t number);

    Fact& Zeile(Angabe which) { return Uebersicht[static_cast<std::size_t>(which)]; }
    /// Opens the window where a fact is changed, as its key or menu entry does.
    void Angabe_Click(Angabe which);
    /// The facts anew, with the data files read: whenever the window comes into sight.
    void Uebersicht_Lesen();

    /// The keys say why they do nothing while a search takes its time, or act again.
    void Warten_Zeigen(bool on);

    /// Device events. A run under way keeps its port: what has to be done is done when the run has ended.
    void Port_Geaendert(PortChange change);
    /// The adapter's identification came.
    void Adapter_Erkannt();
    /// The port was made ready anew: light and supervision accordingly. One that another program holds is tried again,
    /// but not while a window in front of F2 has the port.
    void Port_Einrichten_Anzeigen();
    /// Shut-down; the front end ends the program through Hooks.Ende. Only the first call acts.
    void Beenden();

private:
    /// What becomes of F2 while another window is open.
    enum class Weiter { Offen, Gesperrt, Verborgen };
    struct Taste;

    static const Taste* Taste_Finden(std::string_view key);
    bool Taste_Belegt(std::string_view key) const;
    void Taste_Ausfuehren(const Taste& key);
    bool Weg_Da(std::string_view window) const { return static_cast<bool>(kern.Windows.Weg(window)); }
    void Oeffnen(std::string_view window, bool stopTimer, Weiter then);
    void Oeffnen(const std::function<void()>& way, bool stopTimer, Weiter then);
    void Uebersicht_Setzen();
    void Gebaeude_Texte();
    void Anschluss_Setzen();
    void Anzahl_Setzen(Angabe which, const Anzahl& number);
    void Angaben_Freigeben();
    void Nachsuchen();
    void Suche_Beginnt();
    void Suchen();
    void Scan_Fertig();
    void Port_Bereiten();
    void Anschluss_Zeigen();
    void Wiederholung_Starten();
    bool Da() const { return Fenster.Visible && Fenster.Enabled; }
    /// A run, a scan of the channels or the session of a unit behind its code: the port belongs to it.
    bool Lauf_Aktiv() const {
        const ChainState& chain = link.Lauf.Chain;
        const bool scan = chain.SuchMarke != 0 || chain.SuchLauf != 0;
        return chain.Phase != RunPhase::None || scan || chain.LaufZiel == "F22" ||
               (Hooks.Listenzeile_Laeuft && Hooks.Listenzeile_Laeuft());
    }
    /// Why there is no adapter.
    enum class Grund { Keiner, Stumm, KeinAdapter, Anschluss };

    Grund Anschlussgrund() const;
    void Port_Verloren(Grund reason);
    void Melden(Grund reason);
    bool Nur_Von_Hand() const;
    void Meldezeile_Setzen();
    void Timer1_Timer();
    void Timer2_Timer();
    void Wiederholung_Timer();

    bool geladen_ = false;
    bool beendet_ = false;
    bool schnittstelleWartet_ = false;
    bool nachholen_ = false; ///< a port came or went while a run held the port
    Grund grund_ = Grund::Keiner;
    PortFault fehler_;       ///< of the port when grund_ was told
    std::string fehlertext_; ///< the same in the words of the port
    int versuche_ = 0;       ///< of Wiederholung
    int rueckkehr_ = 0;      ///< how often F2 came back
    Bestand bestand_;        ///< as it was read last
    std::vector<Historiendatei> historien_;
    Listener words_ = kern.Windows.WordsChanged.Listen([this] { Texte_Setzen(); });
    Listener back_ = kern.Windows.BackToMain.Listen([this] { F2_Zeigen(); });
};

/// Configuration saved, port closed, request-to-send off. False when the configuration was not saved.
bool Herunterfahren(Kern& kern);

} // namespace qvm
