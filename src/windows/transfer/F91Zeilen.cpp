// The rows of the list: their check, what a run needs of them, and their marks.

#include "AdapterScan.h"
#include "DatensatzDateien.h"
#include "F91.h"
#include "F91Takt.h"
#include "ListMark.h"
#include "Pictures.h"
#include "Text.h"

#include <algorithm>
#include <utility>

namespace qvm {
namespace {

constexpr int PassedOverDelay = 1000;
constexpr std::uint8_t OnlyHistory = 0x80;

} // namespace

void F91::Zeilen_Pruefen(Check check) {
    check_ = check;
    checkRow_ = 1;
    results_.assign(static_cast<std::size_t>(FGK91.Rows()), {});
    rowNotes_.assign(results_.size(), {});
    badFiles_.clear();
    StatusLabel.ForeColor = CheckColour;
    Status_Zeigen(Line::CheckingRows, 0);
    Pruefung.Start(1);
}

void F91::Tick_Pruefung() {
    if (checkRow_ > 0 && checkRow_ <= run.link.Lauf.List.RunRows) {
        Zeile_Pruefen(checkRow_);
        ++checkRow_;
        return;
    }
    Pruefung.Stop();
    if (checkRow_ == 0) {
        return;
    }
    if (Adapter.SucheLaeuft || Notizen_Melden()) {
        Pruefung.Start(ListTakt::SearchPoll);
        return;
    }
    checkRow_ = 0;
    StatusLabel.ForeColor = Black;
    Status_Zeigen(0, 0);
    if (check_ == Check::BeforeStart) {
        Adapter_Bereithalten(run.link, Adapter);
        if (!running_) {
            return; // stopped meanwhile
        }
        Adapter_Merken();
        run.link.Lauf.List.RunRow = 1;
        Naechster_Datensatz();
    } else {
        Restzeit();
    }
}

void F91::Zeile_Pruefen(int row) {
    if (Zeile_Zeigen) {
        Zeile_Zeigen(row);
    }
    const bool events = run.link.Lauf.List.Wish.What == RunTask::HistoryOnly;
    const int status = Zeile_Laden(row, events ? RunTask::HistoryOnly : RunTask::Program);
    const std::string text = Statustext(status);
    const bool good = status == DatasetStatus::Good;
    results_[static_cast<std::size_t>(row)] = {.End = good ? RunOutcome::Open : RunOutcome::PassedOver, .Text = text};
    if (status == DatasetStatus::BadFiles) {
        badFiles_.insert(row);
    }
    FGK91.SetText(row, F91Column::Mark, good ? ListMark::Waiting : ListMark::PassedOver);
    Notizen_Sammeln(row);
    FGK91.SetText(row, F91Column::StateText, Mit_Notizen(row, text));
}

std::string F91::Statustext(int status) const {
    return status == DatasetStatus::BadFiles ? fileText_ : kern.Zeile(Datensatz_Statuszeile(status));
}

int F91::Zeile_Laden(int row, RunTask what) {
    RunState& lauf = run.link.Lauf;
    Lauf_Ruecksetzen(run);
    run.Daten.Notes.clear();
    const LockRow data = Gitterzeile_Lesen(FGK91, row);
    // Events are read without the files; a damaged one must not keep them in the lock.
    if (what != RunTask::HistoryOnly && !filesAsked_) {
        const auto troubles = Datensatz_Dateien_Pruefen(kern, data);
        const auto counted = run.SchadenHinnehmen ? Unlesbare(troubles) : troubles;
        if (fileText_ = Dateimaengel_Text(kern, counted); !fileText_.empty()) {
            return DatasetStatus::BadFiles;
        }
    }
    const int status = Datensatz_Laden(kern, run.Daten, data, DatasetVariant::Network);
    if (status != DatasetStatus::Good) {
        return status;
    }
    RunOrder wish = lauf.List.Wish;
    wish.TargetChannel = static_cast<std::uint8_t>(kern.Config.Funkkanal());
    wish.Search = lauf.List.Wish.What == RunTask::Program;
    wish.What = what;
    // A serial that is none has no dataset.
    if (const auto order = Lauf_Auftrag(wish, data, run.Daten)) {
        Lauf_Vorbereiten(run, *order);
    }
    netz.LockName = data.Name;
    netz.SerialText = data.Serial;
    return status;
}

bool F91::Zeile_Suchen(int& runRow, bool programming) {
    for (; runRow <= run.link.Lauf.List.RunRows; ++runRow) {
        const std::string& mark = FGK91.Text(runRow, F91Column::Mark);
        if (mark == ListMark::Waiting || (programming && mark == ListMark::HistoryRead)) {
            return true;
        }
        RowResult passed{.End = RunOutcome::PassedOver, .Text = Ergebnis(runRow).Text};
        passed.Skipped = !passed.Text.empty();
        // Which file is damaged has to stay to be seen; that the row was passed over its mark says.
        const std::string shown = badFiles_.contains(runRow) ? passed.Text : kern.Zeile(Line::Skipped);
        if (!passed.Skipped) {
            passed.Text = shown;
        }
        Mark_Setzen(runRow, ListMark::PassedOver, std::move(passed), shown);
    }
    return false;
}

void F91::Mark_Setzen(int row, std::string_view mark, RowResult result) {
    const std::string shown = result.Text;
    Mark_Setzen(row, mark, std::move(result), shown);
}

void F91::Mark_Setzen(int row, std::string_view mark, RowResult result, std::string_view shown) {
    results_.resize(std::max(results_.size(), static_cast<std::size_t>(row) + 1));
    results_[static_cast<std::size_t>(row)] = std::move(result);
    FGK91.SetText(row, F91Column::Mark, mark);
    // Who has heard the notes one by one is not told them again.
    FGK91.SetText(row, F91Column::StateText, Zeile_Notiz ? std::string(shown) : Mit_Notizen(row, shown));
    const bool failed = mark == ListMark::Failed;
    FGK91.SetPicture(row, F91Column::StateText, failed ? ListPicture::Failed : ListPicture::None);
    for (const int column : {F91Column::Mark, F91Column::StateText}) {
        FGK91.SetBackColor(row, column, failed ? FailedColour : White);
    }
    Stand_Zeigen();
    if (Zeile_Fertig) {
        Zeile_Fertig(row);
    }
}

void F91::Gescheiterte_Nachtragen() {
    const std::string& mark = FGK91.Text(1, F91Column::Mark);
    const bool events =
        run.link.Lauf.List.NetMode != 0 && (mark == ListMark::HistoryRead || mark == ListMark::Programmed);
    if (unfinishedEvents_ ? events : mark == ListMark::Programmed) {
        std::erase(unfinished_, static_cast<int>(Zahlwert(FGK91.Text(1, F91Column::Number))));
    }
}

void F91::Gescheiterte_Merken() {
    unfinished_.clear();
    unfinishedEvents_ = run.link.Lauf.List.NetMode == OnlyHistory;
    for (int row = 1; row < FGK91.Rows(); ++row) {
        const std::string& mark = FGK91.Text(row, F91Column::Mark);
        if (mark == ListMark::Failed || mark == ListMark::PassedOver) {
            unfinished_.push_back(static_cast<int>(Zahlwert(FGK91.Text(row, F91Column::Number))));
        }
    }
}

const RowResult& F91::Ergebnis(int row) const {
    static const RowResult none;
    const auto at = static_cast<std::size_t>(row);
    return row > 0 && at < results_.size() ? results_[at] : none;
}

void F91::Zeile_Uebergehen(int& runRow, std::string_view mark, RowResult result) {
    Mark_Setzen(runRow, mark, std::move(result));
    work_ = Work::None;
    if (runRow >= run.link.Lauf.List.RunRows) {
        Ende(Line::ListCompleted);
        return;
    }
    ++runRow;
    Knoepfe_Setzen();
    Step_Planen(StepPrgFehler, PassedOverDelay);
}

void F91::Zeile_Markieren(std::string_view mark, RowResult result) {
    if (work_ != Work::None) {
        Mark_Setzen(run.link.Lauf.List.RunRow, mark, std::move(result));
    }
}

} // namespace qvm
