#include "Schlosslauf.h"

#include "Netzzeile.h"
#include "RunProgress.h"
#include "Takt.h"
#include "Text.h"
#include "TransferWindows.h"

#include <algorithm>

namespace qvm {

Schlosslauf::Schlosslauf(Programm& program, const LaufAuftrag& order, Fortschritt& progress)
    : program_(program), order_(order), progress_(progress), watch_(program.kern.Welt, WatchMs),
      shownBefore_(program.kern.Welt.ShowMessage) {
    program_.kern.Welt.ShowMessage = [this](const Message& message) { return Antworten(message); };
    watch_.Ticked = [this] { Tick(); };
    program_.Transfer->F13.F13_FormLaden();
    // Nobody moves a mouse over the grid.
    program_.Transfer->F13.Timer1.Stop();
    program_.Transfer->F13.Timer2.Stop();
}

Schlosslauf::~Schlosslauf() {
    program_.kern.Welt.ShowMessage = shownBefore_;
    program_.Transfer->F13.F13_Schliessen();
    if (program_.kern.Welt.Port.IsOpen()) {
        program_.kern.Welt.Port.SetRts(false);
        program_.kern.Welt.Port.Close();
    }
}

Answer Schlosslauf::Antworten(const Message& message) {
    switch (message.Choice) {
    case Buttons::YesNoCancel:
        return order_.HistoryFirst ? Answer::Yes : Answer::No; // the question before programming
    case Buttons::YesNo:
        return Answer::No;
    case Buttons::OkCancel:
        return Answer::Ok; // the question before a history is read
    case Buttons::Ok:
        break;
    }
    const std::string text = Anzeige_Aus_1252(message.Text);
    if (!text.empty()) {
        messages_.push_back(text);
        progress_.Meldung(text);
    }
    return Answer::Ok;
}

std::string Schlosslauf::Hindernis(int lock) const {
    const Grid& grid = program_.Transfer->F13.FGK13;
    if (grid.Text(lock, F13Column::Serial).empty()) {
        return "has no serial number in the lock table";
    }
    Address address{};
    if (Einstellung_AEsn(grid.Text(lock, F13Column::Serial), address) == "FEHLER") {
        return "has a serial number that is not hexadecimal";
    }
    return {};
}

bool Schlosslauf::Starten(int lock) {
    F11& dialog = program_.Transfer->F11;
    program_.Transfer->F13.FGK13_Click(lock, order_.HistoryOnly ? F13Column::History : F13Column::Program);
    if (!dialog.Fenster.Visible) {
        return false;
    }
    dialog.Check1.Checked = order_.Keep;
    if (order_.Since) {
        dialog.Datum_Waehlen(*order_.Since);
    }
    for (const char character : order_.Code) {
        dialog.Text1_KeyPress(static_cast<unsigned char>(character));
    }
    dialog.OK_Click();
    return true;
}

LockResult Schloss_Beschreiben(const Programm& program, int lock) {
    const Grid& grid = program.Transfer->F13.FGK13;
    LockResult result;
    result.Lock = lock;
    result.Name = Anzeige_Aus_1252(grid.Text(lock, F13Column::Name));
    result.Serial = Anzeige_Aus_1252(grid.Text(lock, F13Column::Serial));
    return result;
}

LockResult Schlosslauf::Ausfuehren(int lock) {
    LockResult result = Schloss_Beschreiben(program_, lock);
    Netzzeile row(program_, order_, progress_, result, interrupts_);
    messages_.clear();
    telegrams_ = 0;
    silent_ = cancelling_ = atOnce_ = false;
    progress_.Beginnen("Lock " + std::to_string(lock) + " \"" + result.Name + "\"");
    const std::int64_t begun = program_.kern.Welt.Milliseconds();
    if (!Starten(lock)) {
        result.End = LockEnd::Fault;
        result.Text = messages_.empty() ? "the run could not be started" : messages_.back();
    } else if (program_.Transfer->F91.Fenster.Visible) {
        interrupted_ = row.Abwarten() || interrupted_;
    } else {
        Warten();
        result.Route = "direct";
        result.End = Ende_Bestimmen();
        Bericht_Fuellen(result);
    }
    result.Seconds = static_cast<double>(program_.kern.Welt.Milliseconds() - begun) / 1000.0;
    result.Telegrams = telegrams_;
    result.Messages = messages_;
    progress_.Beenden();
    // Back to the grid, as with the close button.
    program_.Transfer->F18.F18_Schliessen();
    program_.Transfer->F9.Command2_Click();
    return result;
}

void Schlosslauf::Warten() {
    watch_.Start();
    while (!program_.Lauf.Gesamtende) {
        program_.kern.Welt.ProcessEvents();
    }
    watch_.Stop();
}

void Schlosslauf::Tick() {
    Anzeigen();
    const std::int64_t now = program_.kern.Welt.Milliseconds();
    const int interrupts = order_.Interrupts ? order_.Interrupts() : 0;
    if (interrupts > interrupts_) {
        const bool again = interrupted_;
        interrupts_ = interrupts;
        interrupted_ = true;
        progress_.Meldung(again ? "Giving up." : "Cancelling; once more Ctrl-C gives up at once.");
        Abbrechen();
        atOnce_ = again;
    }
    const std::int64_t silence = Lauf_Stille(program_.Lauf);
    if (!cancelling_ && order_.TimeoutSeconds > 0 && silence >= std::int64_t{1000} * order_.TimeoutSeconds) {
        silent_ = true;
        progress_.Meldung("No answer for " + std::to_string(order_.TimeoutSeconds) + " s; the run is given up.");
        Abbrechen();
    }
    cancelSince_ = Abbruch_Wartet_Seit(program_.Lauf, cancelSince_);
    if (cancelling_ && (atOnce_ || now - cancelSince_ >= CancelMs) && !program_.Lauf.Gesamtende) {
        program_.Transfer->F18.F18_Schliessen();
        program_.Transfer->F9.Command2_Click();
    }
}

void Schlosslauf::Abbrechen() {
    if (!cancelling_) {
        cancelling_ = true;
        cancelSince_ = program_.kern.Welt.Milliseconds();
        program_.Transfer->F9.Command1_Click();
    }
}

void Schlosslauf::Anzeigen() {
    std::string status = Anzeige_Aus_1252(program_.Transfer->F9.StatusLabel.Text());
    const std::int64_t silence = Lauf_Stille(program_.Lauf);
    // Seconds change too often for plain lines.
    if (program_.Transfer->F9.StilleLabel.Visible && silence >= 5000) {
        status = "no answer for " + std::to_string(silence / 5000 * 5) + " s";
    } else if (program_.Transfer->F18.Fenster.Visible) {
        status = "searching channel " + std::to_string(program_.link.TargetChannel);
    }
    const RunProgress run = Lauf_Fortschritt(program_.Lauf);
    progress_.Zeigen(run.Percent, status, Anzeige_Aus_1252(Schritt_Text(program_.kern, run)));
}

LockEnd Schlosslauf::Ende_Bestimmen() const {
    const LockEnd end = Ende_Aus_Bericht(program_);
    return end == LockEnd::Cancelled && silent_ ? LockEnd::Silent : end;
}

void Schlosslauf::Bericht_Fuellen(LockResult& result) const {
    const RunReport& report = program_.Lauf.Bericht;
    if (result.End == LockEnd::Silent) {
        result.Text = "no answer for " + std::to_string(order_.TimeoutSeconds) + " s";
    } else if (result.End != LockEnd::Done) {
        result.Text = Anzeige_Aus_1252(report.Text);
    }
    Bericht_Uebernehmen(program_, report, order_.HistoryOnly, order_.HistoryOnly || order_.HistoryFirst, result);
}

std::int64_t Abbruch_Wartet_Seit(const Programmierlauf& run, std::int64_t since) {
    return Lauf_Wartet(run) ? run.kern.Welt.Milliseconds() : std::max(since, run.link.Lauf.Chain.LastAnswer);
}

LockEnd Ende_Aus_Bericht(const Programm& program) {
    switch (program.Lauf.Bericht.End) {
    case RunOutcome::Done:
        return LockEnd::Done;
    case RunOutcome::Refused:
        return LockEnd::Refused;
    case RunOutcome::NotReached:
        return LockEnd::NotReached;
    case RunOutcome::GivenUp:
        return program.Lauf.Bericht.HistoryLost != HistoryLoss::None ? LockEnd::Failed : LockEnd::Busy;
    case RunOutcome::Incomplete:
        return LockEnd::Failed;
    case RunOutcome::NoPort:
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
        const ProgUnit& unit = program.Lauf.Daten.Units[n];
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
