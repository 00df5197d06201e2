#pragma once

#include "Controls.h"
#include "Programmierlauf.h"
#include "Timer.h"

#include <array>
#include <functional>
#include <string>

namespace qvm {

/// Window F9: progress of one lock's run.
struct F9 {
    explicit F9(Programmierlauf& programmierlauf);

    Programmierlauf& run;
    Kern& kern;

    Window Fenster;
    Label NameLabel; ///< the lock's name
    Label StatusLabel;
    Picture Zeichen;  ///< RunSign: how the run ended; before its end none, unless the adapter is gone
    Label FolgeLabel; ///< below the status: what the lock now holds, where the status does not say it
    Label DatumLabel; ///< "Datum : dd.mm.yyyy", or dashes when the clock is not sent
    Label ZeitLabel;
    Label SchrittLabel; ///< percent, step and time left; empty before the first telegram and at the end
    Label StilleLabel;  ///< how long the lock has been silent, once that is more than 5 seconds; not behind a cancel
    Label Label15;      ///< first state report of a history
    Picture Zustandsbild;
    ProgressBar Balken1;           ///< telegrams acknowledged; a maximum of 0: nobody knows how many there will be
    ProgressBar Balken2;           ///< running indicator, 0 to 30
    std::array<CheckBox, 6> Check; ///< the lock and its five units, ticked when done
    Button Command1;               ///< cancel
    Button Command2;               ///< close
    Observed<bool> Beendet{false}; ///< the finished state: what the window shows now is the run's result
    Observed<bool> InListe{false}; ///< shows a row of a list: the list's window keeps the keyboard
    Timer Stille;                  ///< looks at the silence once a second

    std::function<void()> F13_Freigeben; ///< the close button gives the grid back

    void F9_Zeigen();
    /// The same in the middle of a run. The wait box may have been left before a channel answered: only a run that has
    /// ended, or was cancelled, can be closed.
    void Im_Lauf_Zeigen();
    void F9_Schliessen();
    /// A channel search was cancelled, and no channel has answered yet: shown with its close button live.
    void Suche_Endet();
    /// Bars, check boxes and labels at the start of a run. ProgressMaximum, where the count of telegrams begins anew,
    /// is the dataset's total plus 20 when that is above 30, else 160.
    void F9_Vorbereiten(int progressTotal);
    void DeviceParameterSetup();
    /// Catalogue line `line` as the status, 0: none.
    void Status_Zeigen(int line);
    /// Words from the catalogue anew.
    void Texte_Setzen();
    /// A telegram has gone out, or time has passed.
    void Fortschritt();
    /// How the run ended: status line, or with 0 the text of the run's report; sign, what the lock holds, bars stopped.
    /// A list shows it behind each of its rows.
    void Urteil_Zeigen(int line);
    /// Finished state behind that: cancel disabled, close enabled.
    void Abschliessen();
    /// Both.
    void Fertig(int line);
    /// A run has ended: also one that ends during a channel search shows how, in place of the wait box.
    void Lauf_Fertig(int line);
    /// Only the close button is live.
    void Schliessen_Freigeben();
    /// First state report of a history: its text and one of five pictures.
    void Zustand_Zeigen(std::uint8_t highNibble, const std::string& text);
    /// Ticks check box 1 (the lock) to 6.
    void Ankreuzen(int box);
    /// Another caption than the name, until the next run.
    void Kaestchen_Beschriften(int box, const std::string& text);
    void Command1_Click();
    void Command2_Click();

private:
    void Uhr_Beschriften();
    void Stille_Zeigen();
    /// A status of its own, which stays until the next one.
    void Text_Zeigen(const std::string& text);
    /// That status, or in its place that the adapter is gone.
    void Status_Setzen();
    void Zeichen_Setzen(int sign);
    void Folge_Zeigen(LockData lock);

    int statusLine_ = 0;
    std::string statusText_; ///< in place of that line
    LockData folge_ = LockData::Untouched;
    bool searchEnds_ = false; ///< Suche_Endet, until the window is shown anew
    bool pulled_ = false;     ///< the adapter is gone, and that stands in place of the status
    DateTime begin_;          ///< of the run
    Listener words_ = Worte_Folgen(*this);
};

} // namespace qvm
