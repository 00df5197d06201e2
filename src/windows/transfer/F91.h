#pragma once

#include "AdapterListe.h"
#include "Controls.h"
#include "F9.h"
#include "Gitterzeile.h"
#include "Grid.h"
#include "GridFilter.h"
#include "GridSelection.h"
#include "ListMark.h"
#include "Network_USB.h"
#include "Programmierlauf.h"
#include "Timer.h"
#include "Words.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qvm {

/// What became of a row.
struct RowResult {
    RunOutcome End = RunOutcome::Open; ///< Open: it waits
    std::string Text{};                ///< why, code page 1252; the row may show it with notes
    bool Silent = false;               ///< given up because nobody answered
    bool Skipped = false;              ///< for what its check has found before the list
};

/// What a mark means, in the language in use; empty for a text that is none.
std::string Marke_Erklaeren(const Kern& kern, std::string_view mark);
/// All marks with what they mean, a line each.
std::string Marken_Legende(const Kern& kern);

/// Step keys of the list run, beside those of the network route.
inline constexpr std::string_view StepPrgStart = "PrgStart", StepPrgFehler = "PrgFehler",
                                  StepTxDNetzwDaten = "TxDNetzwDaten", StepRxDNetHistory = "RxDNetHistory";

/// Window F91: works a list of locks off, one after the other, each directly or through a network adapter. One row is
/// under way at a time; what comes from the line afterwards changes nothing in the list.
struct F91 {
    F91(Programmierlauf& programmierlauf, Netzlauf& network, F9& progress, AdapterListe& adapters);

    /// What is under way with the present row.
    enum class Work : std::uint8_t { None, Direct, Network };

    static constexpr Colour CheckColour = 0x0000FF;  ///< red, of the label while the rows are checked
    static constexpr Colour FailedColour = 0xC0C0FF; ///< light red, behind mark and text of a row that failed
    static constexpr Colour UnderWayColour =
        0xFFE0C8; ///< light blue, behind number, name and serial of the row under way
    static constexpr int BarMaximum = 38;

    Programmierlauf& run;
    Netzlauf& netz;
    Kern& kern;
    F9& f9;
    AdapterListe& Adapter;

    Window Fenster;
    Grid FGK91{1, F91Column::Count};
    GridFilter Filter;     ///< by name and serial
    GridSelection Auswahl; ///< rows, to be copied
    Label StatusLabel;
    Label StandLabel; ///< "lock 3 of 26", which one while the filter hides it, how many are done and failed, and an
                      ///< estimate of the time left
    Label StartLabel, JetztLabel, RestLabel; ///< delayed start: chosen time, present time, time left
    Label Hinweis;                           ///< what the operator should know of the adapters; empty when nothing
    ProgressBar Balken;                      ///< of a network row
    Button Command1;                         ///< close
    Button Command2;                         ///< stop
    Timer Timer1;                            ///< the steps between rows
    Timer Timer2;                            ///< blinking of the status label
    Timer Timer3;                            ///< delayed start
    Timer Pruefung;                          ///< row check, one row a tick
    Timer Nachlauf;                          ///< one shot: programming behind a network row's history
    Timer Adaptersuche;                      ///< one shot: ports came or went
    Timer Notizbox;                          ///< one shot: what the row check has noted
    Timer Wache;                             ///< each second of a row: the time left, and a direct lock's silence
    int Geduld = 0;                          ///< seconds of silence after which a direct row is given up; 0: never

    std::string ProgStep;
    bool Steht = false; ///< the present network row goes on no more by itself; the operator has to stop it

    std::function<void()> Schlossgitter_Freigeben;  ///< F13 is the operator's again when it opens
    std::function<void()> Schlossgitter_Schliessen; ///< F13 leaves the screen
    std::function<void()> F92_Zeigen;               ///< asks for the time of a delayed start
    std::function<void()> F92_Schliessen;
    std::function<void(int row)> Zeile_Zeigen; ///< the view scrolls to this row; cell and block stay
    /// The row check has something to say of a row. When it is filled there is no box at the end of the check.
    std::function<void(int row, const std::string& note)> Zeile_Notiz;
    std::function<void(int row)> Zeile_Fertig;  ///< a row has its final mark
    std::function<void(int row)> Zeile_Beginnt; ///< the session with this row's lock begins

    // ---- the list

    /// No rows; the delayed start is off.
    void Liste_Leeren();
    /// Copies a row of the lock grid to row `listRow`, 1 to 200.
    void Listenzeile_Uebernehmen(const Grid& lockGrid, int gridRow, int listRow);
    /// The start dialog has the code: begins with step PrgStart in 1000 ms, or asks for the time of a delayed start.
    /// RunRows rows stand in the list.
    void Liste_Starten(bool delayed);
    /// A single lock through a network adapter: the only row, already checked. ListState says what it is to get.
    void Einzelnes_Schloss_Starten(const Grid& lockGrid, int gridRow, const AdapterSatz* adapter);
    /// The time of a delayed start, by F92; the waiting begins.
    void Startzeit_Setzen(const DateTime& start);

    void F91_FormLaden(bool delayed);
    /// Words from the catalogue anew; the texts of rows stay.
    void Texte_Setzen();
    /// Close: not while a row is under way, and with a question while something of the list is still to come; until it
    /// is answered no row begins.
    void Command1_Click();
    /// The same without a question.
    void F91_Schliessen();
    /// Close; but in a list that is stopped and still waits for a lock, what the progress window's own keys would do:
    /// that window does not have the keyboard in a list.
    void Escape();
    /// Stop: nothing follows. A network row is given up, a direct one still comes to its end.
    void Command2_Click();
    /// A row that nobody answers: it fails, and the list goes on. The session with a direct lock is closed before, as
    /// by a cancel. Does nothing while no row is under way.
    void Zeile_Aufgeben();
    /// Something of the list is still to come.
    bool Laeuft() const { return running_; }
    /// None between two rows and before the first: the port is free then.
    Work Arbeit() const { return work_; }
    /// The row that the row check is at; 0 while there is none.
    int Prueft() const { return checkRow_; }
    /// Ports came or went, and who heard of it has forgotten what was known of adapters, if that has to be. Searches in
    /// a moment, and says when an adapter that a row waits for is gone or back. A row under way keeps its port; the
    /// next one searches before it begins. Does nothing while there is no list.
    void Anschluss_Geaendert();
    /// What became of a row so far; it stands when Zeile_Fertig is called.
    const RowResult& Ergebnis(int row) const;
    /// Numbers of the locks that the last list left marked as failed or passed over; kept when its rows are cleared. A
    /// single lock is no list: it is only taken out when it was done now.
    const std::vector<int>& Gescheiterte_Schloesser() const { return unfinished_; }

    // ---- steps

    /// The next row from `runRow` on that is to be programmed; passes over the others.
    void ProgQvmUnits(int& runRow);
    /// The same for a history.
    void NetHistLesen(int& runRow);

    // ---- what runs and network route report

    /// Final mark of the present row. Ignored while none is under way.
    void Zeile_Markieren(std::string_view mark, RowResult result);
    /// The present row is done: raises RunRow and plans `step`, or ends the list.
    void Naechste_Zeile(std::string_view step);
    /// The same two by the direct run. What comes late over the serial route is no news of a row that a network adapter
    /// has.
    void Direkt_Markieren(std::string_view mark, std::string_view text);
    void Direkt_Naechste_Zeile();
    /// A mark by the network route.
    void Net_Markieren(std::string_view mark, std::string_view text);
    /// The operator cancelled the direct run of the present row.
    void Stoppen();
    void Programmieren_Planen();
    /// Status label: catalogue line, followed by ". " and line `second` when that is not 0.
    void Status_Zeigen(int line, int second);
    void Blinken(bool on);
    void Balken_Zeigen(int maximum, int value, bool visible);
    void Stillstand(NetStandstill reason);
    /// A row that stood still goes on, as a late reply came.
    void Weiter();
    /// The network adapter has so many minutes for what it does now.
    void Frist_Zeigen(int minutes);

private:
    enum class Check : std::uint8_t { BeforeWaiting, BeforeStart };

    void Tick_Timer1();
    void Tick_Timer3();
    void Tick_Pruefung();
    void Tick_Nachlauf();
    void Tick_Wache();
    void Tick_Notizbox();
    /// Keeps the notes of the row that was just loaded, as one line.
    void Notizen_Sammeln(int row);
    /// A row's text with what the check has noted of it.
    std::string Mit_Notizen(int row, std::string_view text) const;
    /// Has the notes of the check shown, once. True when there are some: the box has to come before what follows.
    bool Notizen_Melden();
    /// Marks this row as the one under way, 0: none, and says how far the list is.
    void Unterwegs_Setzen(int row);
    void Stand_Zeigen();
    /// Milliseconds that so many rows may still take, with the one under way among them; 0 or less: nobody knows.
    std::int64_t Restdauer(int open) const;
    void Restzeit();
    void Naechster_Datensatz();
    void Zeilen_Pruefen(Check check);
    void Zeile_Pruefen(int row);
    /// The row's dataset, and its order. Gives the dataset's status.
    int Zeile_Laden(int row, RunTask what);
    /// What a row says after Zeile_Laden gave this status for it.
    std::string Statustext(int status) const;
    bool Zeile_Suchen(int& runRow, bool programming);
    // ---- adapters (F91Adapter.cpp)

    enum class Anschluss : std::uint8_t { Offen, Zu, ZuHoch, Keiner };

    void Tick_Adaptersuche();
    /// Asks all ports, again when they change meanwhile. Lets events go on; the list may have been stopped behind it.
    void Adapter_Nachsuchen();
    /// Takes down which rows have an adapter that is known.
    void Adapter_Merken();
    /// Says once that the adapter of a row that waits is gone, and once that it is back.
    void Adapter_Melden();
    /// A row begins: that an adapter is back is old news.
    void Adapter_Gut();
    bool War_Da(int row) const;
    /// Adapter and route of the row, and its port opened.
    Anschluss Anschluss_Oeffnen(int row);
    /// The same with a search in between where it helps. False when there is no port, the row is marked then; or when
    /// the list was stopped meanwhile.
    bool Adapter_Waehlen(int& runRow);

    void Direkt_Beginnen(int row);
    void Net_Beginnen(std::string_view step);
    bool Zeile_Bereitmachen(int& runRow, RunTask what);
    void Zeile_Uebergehen(int& runRow, std::string_view mark, RowResult result);
    /// Nothing was sent to the row's lock so far.
    bool Unberuehrt(int row) const { return FGK91.Text(row, F91Column::Mark) != ListMark::HistoryRead; }
    void Step_Planen(std::string_view step, int ms);
    void Timer_Anhalten();
    void Ende(int line);
    void Knoepfe_Setzen();
    void Uhren_Zeigen(bool on);
    /// Nothing, or a word with its place, which follows the language.
    void Hinweis_Zeigen(std::optional<Word> word, const std::string& place = {});
    void Mark_Setzen(int row, std::string_view mark, RowResult result);
    /// The same with a shown text of its own.
    void Mark_Setzen(int row, std::string_view mark, RowResult result, std::string_view shown);
    void Gescheiterte_Merken();
    /// A lock that was done by itself is no failed one of the last list any more.
    void Gescheiterte_Nachtragen();

    Work work_ = Work::None;
    bool running_ = false;
    bool asking_ = false;      ///< whether to leave the list
    bool stopped_ = false;     ///< the row under way is the last one
    bool told_ = false;        ///< the rows' notes were shown
    bool filesAsked_ = false;  ///< the operator was asked about the files of the only row
    bool waitChecked_ = false; ///< the row check of a delayed start was begun
    Check check_ = Check::BeforeStart;
    int checkRow_ = 0; ///< 0: no check is under way
    int statusLine_ = 0, statusSecond_ = 0;
    bool portsNew_ = false;         ///< ports came or went behind the last search
    bool adapterGone_ = false;      ///< and the operator was told
    std::vector<bool> adapterSeen_; ///< by row: its adapter was there
    int underWay_ = 0;              ///< the row that is marked so, 0: none
    std::int64_t rowBegun_ = 0;     ///< milliseconds
    int rowsEnded_ = 0;             ///< that were begun and are over
    std::int64_t worked_ = 0;       ///< milliseconds that these took, each with the wait behind it
    std::optional<Word> hint_;
    std::string hintPlace_;
    std::optional<DateTime> start_;
    std::vector<RowResult> results_;                 ///< by row; shorter while nothing is known of the last ones
    std::vector<std::string> rowNotes_;              ///< by row: what the check has noted of it, on one line
    std::vector<std::pair<int, std::string>> notes_; ///< rows of the check, and what is to be said of them
    std::set<int> badFiles_;                         ///< rows whose check found a file that is not to be relied on
    std::string fileText_;                           ///< what was wrong with the files of the row that was loaded last
    bool single_ = false;                            ///< one lock by itself, and no list
    bool unfinishedEvents_ = false;                  ///< the last list was to read histories alone
    std::vector<int> unfinished_;
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
