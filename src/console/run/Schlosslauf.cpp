#include "Schlosslauf.h"

#include "Netzzeile.h"
#include "RunProgress.h"
#include "Takt.h"
#include "Text.h"
#include "TransferWindows.h"

namespace qvm {

Schlosslauf::Schlosslauf(Laufsitzung& session, Fortschritt& progress)
    : session_(session), program_(session.program), order_(session.Auftrag), progress_(progress),
      operator_(program_, order_,
                [this](const std::string& text) {
                    messages_.push_back(text);
                    progress_.Meldung(text);
                }),
      watch_(program_.kern.Welt, WatchMs) {
    watch_.Ticked = [this] { Tick(); };
}

bool Schlosslauf::Starten(int lock) {
    program_.Transfer->F13.FGK13_Click(lock, order_.HistoryOnly ? F13Column::History : F13Column::Program);
    return operator_.Starten();
}

LockResult Schlosslauf::Ausfuehren(int lock) {
    LockResult result = Schloss_Beschreiben(program_, lock);
    Netzzeile row(program_, order_, progress_, result, operator_);
    messages_.clear();
    silent_ = false;
    operator_.Abbruch_Vorbei();
    const int telegrams = session_.Telegramme;
    progress_.Beginnen("Lock " + std::to_string(lock) + " \"" + result.Name + "\"");
    const std::int64_t begun = program_.kern.Welt.Milliseconds();
    if (!Starten(lock)) {
        result.End = LockEnd::Fault;
        result.Text = messages_.empty() ? "the run could not be started" : messages_.back();
    } else if (program_.Transfer->F91.Fenster.Visible) {
        row.Abwarten();
    } else {
        Warten();
        result.Route = "direct";
        result.End = Ende_Bestimmen();
        Bericht_Fuellen(result);
    }
    result.Seconds = static_cast<double>(program_.kern.Welt.Milliseconds() - begun) / 1000.0;
    result.Telegrams = session_.Telegramme - telegrams;
    result.Messages = messages_;
    progress_.Beenden();
    // Back to the grid, as with the close button.
    program_.Transfer->F18.F18_Schliessen();
    program_.Transfer->F9.Command2_Click();
    return result;
}

void Schlosslauf::Warten() {
    watch_.Start();
    while (!program_.Run.Gesamtende) {
        program_.kern.Welt.ProcessEvents();
    }
    watch_.Stop();
}

void Schlosslauf::Tick() {
    Anzeigen();
    if (operator_.Unterbrochen()) {
        progress_.Meldung(std::string(operator_.Abbruch_Text()));
        Abbrechen();
    }
    const std::int64_t silence = Lauf_Stille(program_.Run);
    if (!operator_.Bricht_Ab() && order_.TimeoutSeconds > 0 && silence >= std::int64_t{1000} * order_.TimeoutSeconds) {
        silent_ = true;
        progress_.Meldung("No answer for " + std::to_string(order_.TimeoutSeconds) + " s; the run is given up.");
        Abbrechen();
    }
    if (operator_.Abbruch_Ueberfaellig()) {
        program_.Transfer->F18.F18_Schliessen();
        program_.Transfer->F9.Command2_Click();
    }
}

void Schlosslauf::Abbrechen() {
    if (!operator_.Bricht_Ab()) {
        operator_.Abbruch_Beginnen();
        program_.Transfer->F9.Command1_Click();
    }
}

void Schlosslauf::Anzeigen() {
    std::string status = Anzeige_Aus_1252(program_.Transfer->F9.StatusLabel.Text());
    const std::int64_t silence = Lauf_Stille(program_.Run);
    // Seconds change too often for plain lines.
    if (program_.Transfer->F9.StilleLabel.Visible && silence >= 5000) {
        status = "no answer for " + std::to_string(silence / 5000 * 5) + " s";
    } else if (program_.Transfer->F18.Fenster.Visible) {
        status = "searching channel " + std::to_string(program_.link.TargetChannel);
    }
    const RunProgress run = Lauf_Fortschritt(program_.Run);
    progress_.Zeigen(run.Percent, status, Anzeige_Aus_1252(Schritt_Text(program_.kern, run)));
}

LockEnd Schlosslauf::Ende_Bestimmen() const {
    const LockEnd end = Ende_Des_Laufs(program_.Run.Bericht.End, program_.Run.Bericht.HistoryLost);
    return end == LockEnd::Cancelled && silent_ ? LockEnd::Silent : end;
}

void Schlosslauf::Bericht_Fuellen(LockResult& result) const {
    const RunReport& report = program_.Run.Bericht;
    if (result.End == LockEnd::Silent) {
        result.Text = "no answer for " + std::to_string(order_.TimeoutSeconds) + " s";
    } else if (result.End != LockEnd::Done) {
        result.Text = Anzeige_Aus_1252(report.Text);
    }
    Bericht_Uebernehmen(program_, report, order_.HistoryOnly, order_.HistoryOnly || order_.HistoryFirst, result);
}

} // namespace qvm
