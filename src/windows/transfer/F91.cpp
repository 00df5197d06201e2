#include "F91.h"

#include "AdapterScan.h"
#include "F91Takt.h"
#include "Fragen.h"
#include "ListMark.h"
#include "LockRecords.h"
#include "Text.h"
#include "Words.h"

#include <algorithm>

namespace qvm {
namespace {

/// Columns that the run list has of the lock grid.
constexpr bool Wird_Kopiert(int column) {
    return column <= F91Column::SetClock || (column >= F91Column::Status && column <= F91Column::AdapterName);
}

} // namespace

F91::F91(Programmierlauf& programmierlauf, Netzlauf& network, F9& progress, AdapterListe& adapters)
    : run(programmierlauf), netz(network), kern(programmierlauf.kern), f9(progress), Adapter(adapters),
      Filter(kern, FGK91, {F91Column::Name, F91Column::Serial}), Auswahl(FGK91, GridSelection::Unit::Rows, &Filter),
      Timer1(kern.Welt, ListTakt::StartDelay), Timer2(kern.Welt, 800), Timer3(kern.Welt, 5000), Pruefung(kern.Welt, 1),
      Nachlauf(kern.Welt, 100), Adaptersuche(kern.Welt, 200), Notizbox(kern.Welt, 1),
      Wache(kern.Welt, ListTakt::Watch) {
    Filter.Changed = [this] {
        Auswahl.FilterChanged();
        if (underWay_ > 0) {
            Stand_Zeigen();
        }
    };
    Balken.Visible = false;
    Balken.Maximum = BarMaximum;
    Uhren_Zeigen(false);
    Knoepfe_Setzen();
    // While the operator is asked whether to leave it, the list waits for the answer.
    const auto step = [this](void (F91::*tick)()) {
        return [this, tick] {
            if (!asking_) {
                (this->*tick)();
            }
        };
    };
    Timer1.Ticked = step(&F91::Tick_Timer1);
    Timer2.Ticked = [this] { StatusLabel.Visible = !StatusLabel.Visible(); };
    Timer3.Ticked = step(&F91::Tick_Timer3);
    Pruefung.Ticked = step(&F91::Tick_Pruefung);
    Adaptersuche.Ticked = [this] { Tick_Adaptersuche(); };
    Nachlauf.Ticked = step(&F91::Tick_Nachlauf);
    Wache.Ticked = step(&F91::Tick_Wache);
    Notizbox.Ticked = [this] { Tick_Notizbox(); };
}

void F91::Liste_Leeren() {
    Timer3.Stop();
    Notizbox.Stop();
    notes_.clear();
    FGK91.Resize(1, F91Column::Count);
    underWay_ = 0;
    results_.clear();
    rowNotes_.clear();
    badFiles_.clear();
}

void F91::Listenzeile_Uebernehmen(const Grid& lockGrid, int gridRow, int listRow) {
    if (listRow < 1 || listRow > LockRecord::Record.Last) {
        return;
    }
    FGK91.Resize(std::max(FGK91.Rows(), listRow + 1), F91Column::Count);
    for (int column = 0; column < F91Column::Count; ++column) {
        FGK91.SetText(listRow, column, Wird_Kopiert(column) ? lockGrid.Text(gridRow, column) : "");
    }
}

void F91::F91_FormLaden(bool delayed) {
    Fenster.Enabled = true;
    Timer_Anhalten();
    work_ = Work::None;
    running_ = true;
    stopped_ = told_ = filesAsked_ = waitChecked_ = Steht = portsNew_ = adapterGone_ = false;
    adapterSeen_.clear();
    Adapter_Merken();
    checkRow_ = 0;
    underWay_ = rowsEnded_ = 0;
    worked_ = 0;
    StandLabel.Text = "";
    start_.reset();
    ProgStep.clear();
    Balken.Visible = false;
    Balken.Value = 0;
    Uhren_Zeigen(false);
    Blinken(false);
    StatusLabel.ForeColor = Black;
    Status_Zeigen(0, 0);
    hint_.reset();
    Texte_Setzen();
    Filter.Set("");
    Knoepfe_Setzen();
    Fenster.Visible = true;
    if (delayed) {
        Timer3.Start(5000);
    }
}

void F91::Texte_Setzen() {
    Fenster.Title = Fenstertitel(kern.Zeile(run.link.Lauf.List.NetMode == 0x80 ? Line::History : Line::ProgramMarked));
    FGK91.SetText(0, F91Column::Number, kern.Zeile(Line::Number));
    FGK91.SetText(0, F91Column::Name, kern.Zeile(Line::DoorLock));
    FGK91.SetText(0, F91Column::Serial, kern.Zeile(Line::RadioAddress));
    FGK91.SetText(0, F91Column::Mark, "Prg");
    FGK91.SetText(0, F91Column::StateText, "Status");
    Command1.Text = kern.Zeile(Line::Back);
    Command2.Text = kern.Zeile(Line::Cancel);
    Status_Zeigen(statusLine_, statusSecond_);
    Hinweis_Zeigen(hint_, hintPlace_);
    if (!StandLabel.Text().empty()) {
        Stand_Zeigen();
    }
}

void F91::Liste_Starten(bool delayed) {
    single_ = false;
    F91_FormLaden(delayed);
    ProgStep = StepPrgStart;
    if (delayed) {
        Rufen(F92_Zeigen);
    } else {
        Timer1.Start(ListTakt::StartDelay);
    }
}

void F91::Einzelnes_Schloss_Starten(const Grid& lockGrid, int gridRow, const AdapterSatz* adapter) {
    RunState& lauf = run.link.Lauf;
    Liste_Leeren();
    single_ = true;
    Geduld = 0; // the operator is at hand
    Listenzeile_Uebernehmen(lockGrid, gridRow, 1);
    if (adapter != nullptr) {
        FGK91.SetText(1, F91Column::AdapterId, adapter->Adresse);
        FGK91.SetText(1, F91Column::AdapterName, adapter->Name);
    }
    FGK91.SetText(1, F91Column::Mark, ListMark::Waiting);
    lauf.List.RunRow = lauf.List.RunRows = 1;
    Rufen(Schlossgitter_Schliessen);
    F91_FormLaden(false);
    // Its dataset was gathered, and its messages shown, when the lock was clicked.
    told_ = filesAsked_ = true;
    if (lauf.List.NetMode != 0) {
        NetHistLesen(lauf.List.RunRow);
    } else {
        ProgQvmUnits(lauf.List.RunRow);
    }
}

void F91::Tick_Nachlauf() {
    Nachlauf.Stop();
    ProgQvmUnits(run.link.Lauf.List.RunRow);
}

void F91::Command1_Click() {
    if (work_ != Work::None || asking_) {
        return;
    }
    asking_ = true;
    const bool leave = !running_ || Verlust_Hinnehmen(kern, Wort(kern, Word::LeaveList));
    asking_ = false;
    if (leave) {
        F91_Schliessen();
    }
}

void F91::F91_Schliessen() {
    if (work_ != Work::None) {
        return;
    }
    Command2_Click();
    if (!run.Gesamtende) {
        // A cancelled lock that has not closed its session yet.
        Lauf_Aufgeben(run, RunOutcome::Cancelled);
    }
    f9.F9_Schliessen();
    Liste_Leeren();
    run.link.Lauf.List = {};
    Fenster.Visible = false;
    Rufen(Schlossgitter_Freigeben);
    kern.Windows.BackToMain();
}

void F91::Escape() {
    if (work_ != Work::Direct || !stopped_) {
        Command1_Click();
    } else if (f9.Command2.Enabled) {
        f9.Command2_Click();
    } else {
        f9.Command1_Click();
    }
}

void F91::Command2_Click() {
    if (!running_) {
        return;
    }
    Timer_Anhalten();
    Suche_Abbrechen(run.link, Adapter);
    if (work_ == Work::Direct) {
        stopped_ = true;
        Status_Zeigen(Line::Cancelled, 0);
        Stand_Zeigen();
        Knoepfe_Setzen();
        return;
    }
    if (work_ == Work::Network) {
        Net_Abbrechen(netz);
        Zeile_Markieren(ListMark::Failed, {.End = RunOutcome::Cancelled, .Text = kern.Zeile(Line::Cancelled)});
    }
    Ende(Line::Cancelled);
}

void F91::Direkt_Markieren(std::string_view mark, std::string_view text) {
    if (work_ != Work::Network) {
        Zeile_Markieren(mark, {.End = run.Bericht.End, .Text = std::string(text)});
    }
}

void F91::Net_Markieren(std::string_view mark, std::string_view text) {
    Zeile_Markieren(mark, {.End = netz.End, .Text = std::string(text)});
}

void F91::Direkt_Naechste_Zeile() {
    if (work_ != Work::Network) {
        Naechste_Zeile(StepPrgNextDataset);
    }
}

void F91::Balken_Zeigen(int maximum, int value, bool visible) {
    Balken.Maximum = maximum;
    Balken.Value = value;
    Balken.Visible = visible;
}

void F91::Stoppen() {
    if (work_ == Work::None) {
        return;
    }
    Timer_Anhalten();
    Zeile_Markieren(ListMark::Failed, {.End = RunOutcome::Cancelled, .Text = kern.Zeile(Line::Cancelled)});
    Ende(Line::Cancelled);
}

void F91::Ende(int line) {
    Timer_Anhalten();
    if (single_) {
        Gescheiterte_Nachtragen();
    } else {
        Gescheiterte_Merken();
    }
    work_ = Work::None;
    running_ = false;
    Unterwegs_Setzen(0);
    netz.TransferKey.Loeschen();
    Geheimnisse_Vergessen(run.link);
    stopped_ = Steht = false;
    checkRow_ = 0;
    ProgStep.clear();
    Blinken(false);
    Balken.Visible = false;
    Uhren_Zeigen(false);
    StatusLabel.ForeColor = Black;
    Status_Zeigen(line, 0);
    Frist_Zeigen(0);
    Rufen(F92_Schliessen);
    Knoepfe_Setzen();
    if (f9.Fenster.Visible && run.Gesamtende) {
        f9.Abschliessen(); // it shows the verdict of the last run, whatever rows were passed over behind it
    }
}

void F91::Timer_Anhalten() {
    for (Timer* timer : {&Timer1, &Timer2, &Timer3, &Pruefung, &Nachlauf, &Adaptersuche}) {
        timer->Stop();
    }
    StatusLabel.Visible = true;
}

void F91::Knoepfe_Setzen() {
    Command1.Enabled = work_ == Work::None;
    Command2.Enabled = running_ && !stopped_;
}

void F91::Uhren_Zeigen(bool on) {
    for (Label* label : {&StartLabel, &JetztLabel, &RestLabel}) {
        label->Visible = on;
    }
}

void F91::Status_Zeigen(int line, int second) {
    statusLine_ = line;
    statusSecond_ = second;
    StatusLabel.Text = kern.Zeile(line) + (second != 0 ? ". " + kern.Zeile(second) : "");
}

void F91::Hinweis_Zeigen(std::optional<Word> word, const std::string& place) {
    hint_ = word;
    hintPlace_ = place;
    Hinweis.Text = word ? Wort(kern, *word, {place}) : std::string();
}

void F91::Blinken(bool on) {
    Timer2.Stop();
    StatusLabel.Visible = true;
    if (on) {
        Timer2.Start(800);
    }
}

} // namespace qvm
