#include "Reihenlauf.h"

#include "AdapterKunde.h"
#include "RunProgress.h"
#include "Takt.h"
#include "Text.h"
#include "TransferWindows.h"

#include <algorithm>

namespace qvm {

Reihenlauf::Reihenlauf(Laufsitzung& session, const std::optional<DateTime>& at, Tafel& table)
    : session_(session), program_(session.program), order_(session.Auftrag), at_(at), table_(table),
      operator_(program_, order_, [this](const std::string& text) { Melden(text); }),
      watch_(program_.kern.Welt, WatchMs) {
    operator_.Ja = [this] {
        // By their order: without a language file they have no words. A list of histories asks for the delay only.
        const bool delay = order_.HistoryOnly || questions_++ > 0;
        return delay ? at_.has_value() : order_.HistoryFirst;
    };
    watch_.Ticked = [this] { Tick(); };
    program_.Transfer->F91.Zeile_Beginnt = [this](int row) { Zeile_Beginnt(row); };
    program_.Transfer->F91.Zeile_Fertig = [this](int row) { Zeile_Fertig(row); };
    program_.Transfer->F91.Zeile_Notiz = [this](int row, const std::string& note) {
        const std::string text = Anzeige_Aus_1252(note);
        Ergebnis(row).Messages.push_back(text);
        table_.Meldung(text);
    };
    program_.Transfer->F91.Hinweis.Text.Changed = [this] {
        if (const std::string& text = program_.Transfer->F91.Hinweis.Text(); !text.empty()) {
            table_.Meldung(Anzeige_Aus_1252(text));
        }
    };
    program_.Adapter.Suche_Zeigen = [this](const SuchSchritt& step) { table_.Meldung(Suchzeile(step, order_.Device)); };
    if (program_.kern.Welt.OnPortChange) {
        program_.kern.Welt.OnPortChange([this](PortChange change) { Anschluss_Geaendert(change); });
    }
}

Reihenlauf::~Reihenlauf() {
    program_.Transfer->F91.Zeile_Beginnt = {};
    program_.Transfer->F91.Zeile_Fertig = {};
    program_.Transfer->F91.Zeile_Notiz = {};
    program_.Transfer->F91.Hinweis.Text.Changed = {};
    program_.Adapter.Suche_Zeigen = {};
    if (program_.kern.Welt.OnPortChange) {
        program_.kern.Welt.OnPortChange(nullptr);
    }
    program_.Transfer->F91.F91_Schliessen();
}

void Reihenlauf::Melden(const std::string& text) {
    if (LockResult* result = Zeile_Der_Meldung()) {
        result->Messages.push_back(text);
    }
    table_.Meldung(text);
}

LockResult* Reihenlauf::Zeile_Der_Meldung() {
    // The row check comes before all rows, and goes through all of them.
    const int checked = program_.Transfer->F91.Prueft();
    const int row = checked > 0 ? checked : program_.link.Lauf.List.RunRow;
    return row >= 1 && row <= static_cast<int>(results_.size()) ? &Ergebnis(row) : nullptr;
}

void Reihenlauf::Anschluss_Geaendert(PortChange change) {
    if (change == PortChange::Removed && program_.Transfer->F91.Arbeit() == F91::Work::None) {
        program_.Adapter.Ports_Vergessen();
    }
    program_.Transfer->F91.Anschluss_Geaendert();
}

bool Reihenlauf::Starten() {
    F13& grid = program_.Transfer->F13;
    for (const int lock : session_.Locks) {
        grid.FGK13.SetText(lock, F13Column::Mark, "X");
    }
    grid.Toolbar1_ButtonClick(order_.HistoryOnly ? "SaveHistory" : "Prog.");
    if (!operator_.Starten()) {
        return false;
    }
    program_.Transfer->F91.Geduld = order_.TimeoutSeconds;
    if (at_ && program_.Transfer->F92.Fenster.Visible) {
        program_.Transfer->F92.Tag_Waehlen({.Year = at_->Year, .Month = at_->Month, .Day = at_->Day});
        program_.Transfer->F92.Zeit_Waehlen(at_->Hour, at_->Minute);
        program_.Transfer->F92.OK_Click();
    }
    return program_.Transfer->F91.Laeuft();
}

void Reihenlauf::Ausfuehren() {
    std::vector<std::string> lines;
    for (const int lock : session_.Locks) {
        results_.push_back(Schloss_Beschreiben(program_, lock));
    }
    const bool running = Starten();
    for (std::size_t n = 0; n < results_.size(); ++n) {
        lines.push_back(Zeile(static_cast<int>(n) + 1));
    }
    table_.Beginnen(lines);
    if (running) {
        watch_.Start();
        while (program_.Transfer->F91.Laeuft() || !program_.Run.Gesamtende) {
            program_.kern.Welt.ProcessEvents();
        }
        watch_.Stop();
    }
    Anzeigen();
    table_.Beenden();
    Erzaehlen(true);
}

void Reihenlauf::Zeile_Beginnt(int row) {
    if (Ergebnis(row).Route.empty()) {
        rowBegun_ = program_.kern.Welt.Milliseconds();
        telegramsBefore_ = session_.Telegramme;
    }
    Ergebnis(row).Route = program_.Transfer->F91.Arbeit() == F91::Work::Network ? "network" : "direct";
    Anzeigen();
}

void Reihenlauf::Zeile_Fertig(int row) {
    if (row < 1 || row > static_cast<int>(results_.size())) {
        return;
    }
    LockResult& result = Ergebnis(row);
    Zeile_Uebernehmen(program_, order_, row, result);
    if (program_.Transfer->F91.Arbeit() != F91::Work::None) {
        result.Seconds = static_cast<double>(program_.kern.Welt.Milliseconds() - rowBegun_) / 1000.0;
        result.Telegrams = session_.Telegramme - telegramsBefore_;
    }
    Anzeigen();
}

void Reihenlauf::Erzaehlen(bool all) {
    // A row that was read may still be programmed: it stands once the list has gone on.
    const int done = all ? static_cast<int>(results_.size()) : program_.link.Lauf.List.RunRow - 1;
    while (static_cast<int>(told_) < std::min(done, static_cast<int>(results_.size()))) {
        session_.Melden(results_[told_++]);
    }
}

void Reihenlauf::Tick() {
    Anzeigen();
    if (program_.link.Lauf.List.RunRows != 0) {
        Erzaehlen(false);
    }
    if (operator_.Unterbrochen()) {
        Abbrechen();
    }
    // A direct row the list gives up by itself.
    if (!operator_.Bricht_Ab() && Netzzeile_Stumm(program_, order_)) {
        program_.Transfer->F91.Zeile_Aufgeben();
    }
    if (operator_.Abbruch_Ueberfaellig()) {
        program_.Transfer->F9.Command2_Click();
    }
}

void Reihenlauf::Abbrechen() {
    table_.Meldung(std::string(operator_.Abbruch_Text()));
    operator_.Abbruch_Beginnen();
    if (program_.Transfer->F91.Arbeit() == F91::Work::Direct) {
        program_.Transfer->F9.Command1_Click();
    } else {
        program_.Transfer->F91.Command2_Click();
    }
}

std::string Reihenlauf::Zeile(int row) const {
    const Grid& list = program_.Transfer->F91.FGK91;
    const LockResult& result = results_[static_cast<std::size_t>(row - 1)];
    const auto padded = [](std::string text, std::size_t width) {
        const auto characters = static_cast<std::size_t>(std::count_if(
            text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
        return text + std::string(width - std::min(width, characters), ' ');
    };
    return padded(std::to_string(result.Lock), 4) + padded(result.Name, 21) + padded(result.Serial, 13) +
           padded(Anzeige_Aus_1252(list.Text(row, F91Column::Mark)), 3) +
           Anzeige_Aus_1252(list.Text(row, F91Column::StateText));
}

std::string Reihenlauf::Fuss() const {
    const F91& list = program_.Transfer->F91;
    if (list.RestLabel.Visible) {
        return Anzeige_Aus_1252(list.StartLabel.Text() + "   " + list.RestLabel.Text());
    }
    if (list.Arbeit() == F91::Work::Direct) {
        const std::int64_t silence = Lauf_Stille(program_.Run) / 5000 * 5;
        return "Lock " + std::to_string(program_.link.Lauf.Order.LockNumber) + ": " +
               Anzeige_Aus_1252(Fortschritt_Text(program_.kern, Lauf_Fortschritt(program_.Run))) +
               (silence > 0 ? "  no answer for " + std::to_string(silence) + " s" : "");
    }
    return Anzeige_Aus_1252(list.StatusLabel.Text());
}

void Reihenlauf::Anzeigen() {
    for (int row = 1; row <= static_cast<int>(results_.size()); ++row) {
        table_.Setzen(static_cast<std::size_t>(row - 1), Zeile(row));
    }
    table_.Fusszeile(Fuss());
}

} // namespace qvm
