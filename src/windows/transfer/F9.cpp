#include "F9.h"

#include "Pictures.h"
#include "RunProgress.h"
#include "Text.h"
#include "Words.h"
#include "Zeit.h"

#include <utility>

namespace qvm {
namespace {

constexpr int SilenceShownAfterMs = 5000;

/// Only German steps begin in upper case by themselves; they stand behind a percentage as a rule.
std::string Zeilenanfang(const std::string& text) {
    return text.empty() ? text : GrossText(text.substr(0, 1)) + text.substr(1);
}

int Endzeichen(const RunReport& report) {
    if (report.AllGood()) {
        return RunSign::Done;
    }
    if (report.HistoryLost != HistoryLoss::None) {
        return RunSign::Failed;
    }
    switch (report.End) {
    case RunOutcome::Open:
    case RunOutcome::PassedOver:
        return RunSign::None;
    case RunOutcome::Refused:
    case RunOutcome::NotReached:
    case RunOutcome::NoPort:
        // A unit may fail while the lock has all it needs.
        return report.Lock == LockData::Complete ? RunSign::Attention : RunSign::Failed;
    case RunOutcome::Done: // but a unit refused
    case RunOutcome::Cancelled:
    case RunOutcome::GivenUp:
    case RunOutcome::Incomplete:
        break;
    }
    return RunSign::Attention;
}

std::string Zeichenname(const Kern& kern, int sign) {
    switch (sign) {
    case RunSign::Done:
        return Wort(kern, Word::SignDone);
    case RunSign::Attention:
        return Wort(kern, Word::SignAttention);
    case RunSign::Failed:
        return Wort(kern, Word::SignFailed);
    default:
        return {};
    }
}

std::string Folge_Text(const Kern& kern, LockData lock) {
    return lock == LockData::Incomplete ? Wort(kern, Word::LockIncomplete)
           : lock == LockData::Complete ? Wort(kern, Word::LockDone)
                                        : std::string();
}

} // namespace

F9::F9(Programmierlauf& programmierlauf)
    : run(programmierlauf), kern(programmierlauf.kern), Stille(programmierlauf.kern.Welt, 1000) {
    Balken1.Maximum = 1500;
    Balken2.Maximum = 30;
    Command2.Enabled = false;
    Label15.Visible = false;
    StilleLabel.Visible = false;
    Stille.Ticked = [this] { Stille_Zeigen(); };
}

void F9::F9_Vorbereiten(int progressTotal) {
    RunState& lauf = run.link.Lauf;
    lauf.Progress.ProgressMaximum = progressTotal > 30 ? progressTotal + 20 : 160;
    lauf.Progress.TelegramCounter = lauf.Progress.ProgressValue = lauf.Progress.SecondProgress = 0;
    Balken1.Value = 0;
    Balken1.Visible = true;
    Balken2.Value = 0;
    Balken2.Visible = true;
    NameLabel.Text = run.link.Lauf.Order.LockName;
    Status_Zeigen(0);
    Zeichen_Setzen(RunSign::None);
    Folge_Zeigen(LockData::Untouched);
    searchEnds_ = false;
    StilleLabel.Visible = false;
    SchrittLabel.Text = std::string();
    Label15.Visible = false;
    Zustandsbild.Id = StatePicture::None;
    Command1.Enabled = true;
    Command2.Enabled = false;
    Beendet = false;
    begin_ = kern.Welt.Now();
    Texte_Setzen();
    DeviceParameterSetup();
}

void F9::DeviceParameterSetup() {
    const bool programming = run.link.Lauf.Chain.HistoryOnly == 0;
    for (std::size_t n = 0; n < Check.size(); ++n) {
        Check[n].Checked = false;
        const std::string name = n == 0        ? run.link.Lauf.Order.LockName
                                 : programming ? run.Daten.Units[n - 1].Name
                                               : std::string();
        Check[n].Text = name;
        Check[n].Enabled = !name.empty();
    }
}

void F9::F9_Zeigen() {
    if (std::exchange(searchEnds_, false)) {
        Status_Zeigen(0);
    }
    Fenster.Title = run.link.Lauf.Order.LockName;
    InListe = run.link.Lauf.List.RunRows != 0;
    Fenster.Visible = true;
    Stille.Start(1000);
}

void F9::Im_Lauf_Zeigen() {
    F9_Zeigen();
    Command2.Enabled = run.Gesamtende || Lauf_Abgebrochen(run);
}

void F9::F9_Schliessen() {
    Stille.Stop();
    Fenster.Visible = false;
}

void F9::Suche_Endet() {
    F9_Zeigen();
    searchEnds_ = true;
    Text_Zeigen(Wort(kern, Word::SearchEnds, {kern.Zeile(Line::Back)}));
    Command2.Enabled = true;
}

void F9::Uhr_Beschriften() {
    const bool clock = run.link.Lauf.Values.FlagSetClock == 1;
    const DateTime& now = begin_;
    DatumLabel.Text = kern.Zeile(Line::Date) + " : " + (clock ? Datum_Text(Heute(now)) : "--.--.----");
    ZeitLabel.Text =
        kern.Zeile(Line::Time) + " : " +
        (clock ? Ziffern(now.Hour, 2) + ":" + Ziffern(now.Minute, 2) + ":" + Ziffern(now.Second, 2) : "--:--:--");
}

void F9::Fortschritt() {
    Balken2.Value = run.link.Lauf.Progress.SecondProgress;
    const RunProgress progress = Lauf_Fortschritt(run);
    if (progress.Total > 0) {
        Balken1.Maximum = progress.Endless ? 0 : progress.Total;
        Balken1.Value = progress.Endless ? 0 : progress.Done;
    }
    SchrittLabel.Text = run.Gesamtende ? std::string() : Zeilenanfang(Fortschritt_Text(kern, progress));
}

void F9::Status_Zeigen(int line) {
    statusLine_ = line;
    statusText_.clear();
    pulled_ = false;
    Status_Setzen();
}

void F9::Text_Zeigen(const std::string& text) {
    statusText_ = text;
    pulled_ = false;
    Status_Setzen();
}

void F9::Status_Setzen() {
    StatusLabel.Text = pulled_               ? Wort(kern, Word::AdapterPulled)
                       : statusText_.empty() ? kern.Zeile(statusLine_)
                                             : statusText_;
}

void F9::Texte_Setzen() {
    Status_Setzen();
    Zeichen_Setzen(Zeichen.Id);
    Folge_Zeigen(folge_);
    Command1.Text = kern.Zeile(Line::Cancel);
    Command2.Text = kern.Zeile(Line::Back);
    Uhr_Beschriften();
    if (StilleLabel.Visible) {
        Stille_Zeigen();
    }
}

void F9::Zeichen_Setzen(int sign) {
    Zeichen.Id = sign;
    Zeichen.Name = Zeichenname(kern, sign);
}

void F9::Folge_Zeigen(LockData lock) {
    folge_ = lock;
    FolgeLabel.Text = Folge_Text(kern, lock);
}

void F9::Urteil_Zeigen(int line) {
    if (line != 0) {
        Status_Zeigen(line);
    } else {
        Text_Zeigen(run.Bericht.Text);
    }
    Zeichen_Setzen(Endzeichen(run.Bericht));
    Folge_Zeigen(run.Bericht.AllDone() ? LockData::Untouched : run.Bericht.Lock);
    Fortschritt();
    Balken2.Visible = false;
    StilleLabel.Visible = false;
    Stille.Stop();
}

void F9::Abschliessen() {
    Schliessen_Freigeben();
    Beendet = true;
}

void F9::Fertig(int line) {
    Urteil_Zeigen(line);
    Abschliessen();
}

void F9::Lauf_Fertig(int line) {
    run.Ansicht.Wartebox_Schliessen();
    if (!Fenster.Visible) {
        F9_Zeigen();
    }
    Fertig(line);
}

void F9::Schliessen_Freigeben() {
    Command1.Enabled = false;
    Command2.Enabled = true;
}

void F9::Zustand_Zeigen(std::uint8_t highNibble, const std::string& text) {
    // 0x10 shows the fifth picture, 0x50 the first.
    const int step = highNibble >> 4;
    Zustandsbild.Id = step >= 1 && step <= 5 ? 6 - step : StatePicture::None;
    Label15.Text = text;
    Label15.Visible = true;
}

void F9::Ankreuzen(int box) {
    if (box >= 1 && box <= static_cast<int>(Check.size())) {
        Check[static_cast<std::size_t>(box - 1)].Checked = true;
    }
}

void F9::Kaestchen_Beschriften(int box, const std::string& text) {
    if (box >= 1 && box <= static_cast<int>(Check.size())) {
        Check[static_cast<std::size_t>(box - 1)].Text = text;
    }
}

void F9::Command1_Click() {
    // The window's frame comes here, too, between two rows of a list.
    if (!Command1.Enabled) {
        return;
    }
    if (Lauf_Ohne_Adapter(run)) {
        Lauf_Aufgeben(run, RunOutcome::Cancelled);
        Fertig(Line::Cancelled);
        return;
    }
    Lauf_Abbrechen(run);
    Label15.Visible = false;
    Status_Zeigen(Line::Cancelled);
    StilleLabel.Visible = false;
    Fortschritt(); // without a time left
    if (Konto_Schloss(run.Konto) == LockData::Incomplete) {
        Folge_Zeigen(LockData::Incomplete);
    }
    // A silent lock would never let the run end by itself.
    Command2.Enabled = true;
}

void F9::Command2_Click() {
    Stille.Stop();
    if (!run.Gesamtende) {
        Lauf_Aufgeben(run, RunOutcome::Cancelled);
    }
    F9_Schliessen();
    Rufen(F13_Freigeben);
}

void F9::Stille_Zeigen() {
    Fortschritt(); // the time left goes on by itself
    const bool cancelled = Lauf_Abgebrochen(run);
    if (Lauf_Ohne_Adapter(run) && !cancelled) {
        pulled_ = true;
        StilleLabel.Visible = false;
        Status_Setzen();
        Zeichen_Setzen(RunSign::Attention);
        return;
    }
    if (std::exchange(pulled_, false) && !cancelled) {
        // Something was sent through the adapter that was plugged in again.
        Status_Setzen();
        Zeichen_Setzen(RunSign::None);
    }
    const auto silence = cancelled || searchEnds_ ? 0 : Lauf_Stille(run);
    if (silence > SilenceShownAfterMs) {
        StilleLabel.Text = kern.Zeile(Line::NoAnswerFor) + " " + Ziffern(silence / 1000) + " s";
        StilleLabel.Visible = true;
    } else {
        StilleLabel.Visible = false;
    }
}

} // namespace qvm
