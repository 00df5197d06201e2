#include "LockResult.h"

#include "Text.h"
#include "TransferWindows.h"

namespace qvm {

namespace {

/// That a unit was not reached is worse than that it refused: nobody knows what it holds.
ExitCode Units_Code(const std::vector<LockResult::Unit>& units) {
    ExitCode code = ExitCode::Good;
    for (const LockResult::Unit& unit : units) {
        if (unit.End == UnitReport::State::Done) {
            continue;
        }
        if (!unit.Refused) {
            return ExitCode::NotReached;
        }
        code = ExitCode::Refused;
    }
    return code;
}

} // namespace

LockResult Schloss_Beschreiben(const Programm& program, int lock) {
    const Grid& grid = program.Transfer->F13.FGK13;
    LockResult result;
    result.Lock = lock;
    result.Name = Anzeige_Aus_1252(grid.Text(lock, F13Column::Name));
    result.Serial = Anzeige_Aus_1252(grid.Text(lock, F13Column::Serial));
    return result;
}

LockEnd Ende_Des_Laufs(RunOutcome end, HistoryLoss lost) {
    switch (end) {
    case RunOutcome::Done:
        return LockEnd::Done;
    case RunOutcome::Refused:
        return LockEnd::Refused;
    case RunOutcome::NotReached:
        return LockEnd::NotReached;
    case RunOutcome::GivenUp:
        return lost != HistoryLoss::None ? LockEnd::Failed : LockEnd::Busy;
    case RunOutcome::Incomplete:
        return LockEnd::Failed;
    case RunOutcome::NoPort:
    case RunOutcome::PassedOver:
        return LockEnd::Fault;
    case RunOutcome::Open:
    case RunOutcome::Cancelled:
        break;
    }
    return LockEnd::Cancelled;
}

void Bericht_Uebernehmen(const Programm& program, const RunReport& report, bool historyOnly, bool historyWanted,
                         LockResult& result) {
    if (report.HistoryLost == HistoryLoss::Unwritten && historyWanted) {
        result.Faults.emplace_back("the history could not be written");
    }
    result.HistoryLost = report.HistoryLost;
    if (report.ChannelUnsaved) {
        result.Faults.emplace_back("the radio channel could not be recorded");
    }
    if (program.link.Lauf.Chain.HistoryFileOpen != 0) {
        // A directory in UTF-8 and a name in code page 1252, which the platform puts on the disk as UTF-8.
        const std::string& path = program.link.Lauf.Chain.HistoryFileName;
        const std::size_t name = program.kern.HistPfad().size();
        result.HistoryFile = path.substr(0, name) + NachUtf8(path.substr(name));
    }
    result.Wanted = report.Telegrams;
    result.Acknowledged = report.Acknowledged;
    result.Missing = report.Missing;
    result.EraseConfirmed = report.EraseConfirmed;
    if (historyOnly) {
        return;
    }
    for (std::size_t n = 0; n < report.Units.size(); ++n) {
        const ProgUnit& unit = program.Run.Daten.Units[n];
        if (unit.UnitPresent) {
            result.Units.push_back({.Name = Anzeige_Aus_1252(unit.Name),
                                    .End = report.Units[n].End,
                                    .Note = Anzeige_Aus_1252(report.Units[n].Note),
                                    .Refused = report.Units[n].Refused,
                                    .Scanner = unit.Type == '2',
                                    .Progress = report.Units[n].Progress});
        }
    }
}

std::string_view Ende_Text(LockEnd end, bool historyOnly) {
    switch (end) {
    case LockEnd::Done:
        return historyOnly ? "history read" : "programmed";
    case LockEnd::Fault:
        return "not begun, nothing was sent";
    case LockEnd::Refused:
        return "refused by the lock";
    case LockEnd::NotReached:
        return "not reached";
    case LockEnd::Silent:
        return "given up, the lock kept silent";
    case LockEnd::Busy:
        return "given up, the lock stayed busy";
    case LockEnd::Failed:
        return "not finished";
    case LockEnd::Cancelled:
        return "cancelled";
    case LockEnd::Untried:
        break;
    }
    return "not tried";
}

std::string_view Ende_Wort(LockEnd end) {
    switch (end) {
    case LockEnd::Done:
        return "done";
    case LockEnd::Fault:
        return "fault";
    case LockEnd::Refused:
        return "refused";
    case LockEnd::NotReached:
        return "not-reached";
    case LockEnd::Silent:
        return "silent";
    case LockEnd::Busy:
        return "busy";
    case LockEnd::Failed:
        return "failed";
    case LockEnd::Cancelled:
        return "cancelled";
    case LockEnd::Untried:
        break;
    }
    return "untried";
}

ExitCode Ende_Code(const LockResult& result) {
    switch (result.End) {
    case LockEnd::Done:
        return result.Faults.empty() ? Units_Code(result.Units) : ExitCode::Fault;
    case LockEnd::Failed:
        return result.Faults.empty() ? ExitCode::NotReached : ExitCode::Fault;
    case LockEnd::Fault:
        return ExitCode::Fault;
    case LockEnd::Refused:
        return ExitCode::Refused;
    default:
        return ExitCode::NotReached;
    }
}

} // namespace qvm
