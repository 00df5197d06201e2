// The steps of the list, from row to row.

#include "F91.h"
#include "F91Takt.h"
#include "ListMark.h"
#include "Text.h"
#include "Words.h"

namespace qvm {
namespace {

constexpr int BetweenRows = 3000;
constexpr int BeforeFirstBlock = 2000;
constexpr int BehindHistory = 100;
constexpr int HistoryProgress = 4000;
constexpr int MinutesOfDay = 24 * 60;

} // namespace

void F91::Step_Planen(std::string_view step, int ms) {
    ProgStep = step;
    Timer1.Start(ms);
}

void F91::Tick_Timer1() {
    Timer1.Stop();
    if (Adapter.SucheLaeuft) {
        Timer1.Start(ListTakt::SearchPoll);
        return;
    }
    RunState& lauf = run.link.Lauf;
    if (ProgStep == StepPrgStart) {
        Zeilen_Pruefen(Check::BeforeStart);
    } else if (ProgStep == StepPrgNextDataset || ProgStep == StepPrgFehler) {
        Naechster_Datensatz();
    } else if (ProgStep == StepTxDNetzwDaten) {
        Net_Programmieren_Beginnen(netz);
    } else if (ProgStep == StepRxDNetHistory) {
        Net_Historie_Beginnen(netz);
    } else if (ProgStep == StepNexHstRead && lauf.List.NetMode != 0) {
        NetHistLesen(lauf.List.RunRow);
    }
}

void F91::Naechster_Datensatz() {
    RunState& lauf = run.link.Lauf;
    if (lauf.List.NetMode != 0) {
        NetHistLesen(lauf.List.RunRow);
    } else {
        ProgQvmUnits(lauf.List.RunRow);
    }
}

bool F91::Zeile_Bereitmachen(int& runRow, RunTask what) {
    if (!Zeile_Suchen(runRow, what == RunTask::Program)) {
        Timer_Anhalten();
        kern.Meldung(Fester_Text(kern, Word::ListHasNoRow), Buttons::Ok, Icon::Exclamation,
                     "Muss noch bearbeitet werden!");
        Ende(Line::ListCompleted);
        return false;
    }
    if (const int status = Zeile_Laden(runRow, what); status != DatasetStatus::Good) {
        // Its files have changed since the check.
        Zeile_Uebergehen(runRow, ListMark::PassedOver, {.End = RunOutcome::PassedOver, .Text = Statustext(status)});
        return false;
    }
    if (Zeile_Zeigen) {
        Zeile_Zeigen(runRow);
    }
    return Adapter_Waehlen(runRow);
}

void F91::ProgQvmUnits(int& runRow) {
    if (!Zeile_Bereitmachen(runRow, RunTask::Program)) {
        return;
    }
    if (netz.NetAdapter == NetAdapterMark) {
        Net_Beginnen(StepTxDNetzwDaten);
    } else {
        Direkt_Beginnen(runRow);
    }
}

void F91::NetHistLesen(int& runRow) {
    // Of a lock that is programmed as well, a direct run reads the history first.
    if (!Zeile_Bereitmachen(runRow, run.link.Lauf.List.Wish.What)) {
        return;
    }
    if (netz.NetAdapter == NetAdapterMark) {
        Net_Beginnen(StepRxDNetHistory);
    } else {
        Direkt_Beginnen(runRow);
    }
}

void F91::Net_Beginnen(std::string_view step) {
    work_ = Work::Network;
    Unterwegs_Setzen(run.link.Lauf.List.RunRow);
    Steht = false;
    Adapter_Gut();
    f9.Stille.Stop();
    f9.Fenster.Visible = false;
    Knoepfe_Setzen();
    if (Zeile_Beginnt) {
        Zeile_Beginnt(run.link.Lauf.List.RunRow);
    }
    Wache.Start();
    Step_Planen(step, BeforeFirstBlock);
}

void F91::Direkt_Beginnen(int row) {
    const RunOrder order = run.link.Lauf.Order;
    work_ = Work::Direct;
    Unterwegs_Setzen(row);
    Adapter_Gut();
    Balken.Visible = false;
    Status_Zeigen(Line::PleaseWait, 0);
    Knoepfe_Setzen();
    f9.F9_Vorbereiten(order.What == RunTask::HistoryOnly ? HistoryProgress : run.Daten.ProgressStored);
    f9.F9_Zeigen();
    if (Zeile_Beginnt) {
        Zeile_Beginnt(row);
    }
    Wache.Start();
    Lauf_Beginnen(run, order);
}

void F91::Naechste_Zeile(std::string_view step) {
    if (work_ == Work::None) {
        return;
    }
    if (work_ == Work::Direct) {
        f9.Urteil_Zeigen(run.Bericht.AllGood() ? Line::Finished : 0);
    }
    work_ = Work::None;
    ++rowsEnded_;
    worked_ += kern.Welt.Milliseconds() - rowBegun_ + BetweenRows;
    Unterwegs_Setzen(0);
    Steht = false;
    Blinken(false);
    Status_Zeigen(0, 0);
    Frist_Zeigen(0);
    // Between two rows there is nothing to cancel.
    f9.Command1.Enabled = false;
    RunState& lauf = run.link.Lauf;
    ++lauf.List.RunRow;
    if (stopped_) {
        Ende(Line::Cancelled);
    } else if (lauf.List.RunRow > lauf.List.RunRows) {
        Ende(Line::ListCompleted);
    } else {
        Step_Planen(step, BetweenRows);
        Knoepfe_Setzen();
    }
}

void F91::Programmieren_Planen() {
    if (work_ == Work::Network) {
        Nachlauf.Start(BehindHistory);
    }
}

void F91::Stillstand(NetStandstill reason) {
    if (work_ != Work::Network) {
        return;
    }
    if (reason == NetStandstill::TooLong) {
        const std::string minutes = Ziffern(netz.FristMinuten);
        Net_Abbrechen(netz);
        Zeile_Markieren(ListMark::Failed, {.End = Net_Fehlschlag(netz),
                                           .Text = kern.Zeile(Line::ConnectionFailed) + "  /  " +
                                                   Wort(kern, Word::NetTooLong, {minutes})});
        Naechste_Zeile(StepPrgNextDataset);
        return;
    }
    if (reason != NetStandstill::NoReply) {
        // The next row may have another port.
        const bool untouched = reason == NetStandstill::NoPort && Unberuehrt(run.link.Lauf.List.RunRow);
        Net_Abbrechen(netz);
        Zeile_Markieren(ListMark::Failed,
                        {.End = untouched ? RunOutcome::NoPort : Net_Fehlschlag(netz),
                         .Text = kern.Zeile(untouched ? Line::PortNotOpened : Line::ConnectionFailed)});
        Naechste_Zeile(StepPrgNextDataset);
        return;
    }
    Steht = true;
    Blinken(false);
    Status_Zeigen(Line::ConnectionFailed, 0);
}

void F91::Weiter() {
    if (Steht) {
        Steht = false;
        Status_Zeigen(Line::PleaseWait, 0);
    }
}

void F91::Frist_Zeigen(int minutes) {
    if (minutes > 0) {
        const DateTime now = kern.Welt.Now();
        const int end = (60 * now.Hour + now.Minute + minutes) % MinutesOfDay;
        Hinweis_Zeigen(Word::NetTimeLimit, Ziffern(end / 60, 2) + ":" + Ziffern(end % 60, 2));
    } else if (hint_ == Word::NetTimeLimit) {
        Hinweis_Zeigen(adapterGone_ ? std::optional(Word::AdapterGone) : std::nullopt);
    }
}

} // namespace qvm
