#include "F18.h"

#include "Words.h"

namespace qvm {

F18::F18(Programmierlauf& programmierlauf)
    : run(programmierlauf), kern(programmierlauf.kern), Wache(programmierlauf.kern.Welt, 1000) {
    Balken.Minimum = 100;
    Balken.Maximum = 200;
    Balken.Value = 100;
    Wache.Ticked = [this] {
        const bool waits = Code_Wird_Geprueft() || Wird_Abgesucht();
        pulled_ = Lauf_Ohne_Adapter(run) || (waits && !kern.Welt.Port.IsOpen());
        Text_Setzen();
    };
}

void F18::F18_Zeigen() {
    Balken.Value = 100;
    textLine_ = 81;
    state_.clear();
    pulled_ = false;
    Texte_Setzen();
    Command1.Enabled = true;
    Fenster.Visible = true;
    Wache.Start();
}

void F18::F18_Schliessen() {
    Wache.Stop();
    Fenster.Visible = false;
}

void F18::Text_Zeigen(int line) {
    textLine_ = line;
    pulled_ = false;
    Text_Setzen();
}

void F18::Suchstand_Zeigen(int channel, const std::string& state) {
    constexpr int first = 100, step = 6;
    Balken.Value = first + step * channel;
    state_ = state;
    Text_Setzen();
}

void F18::Text_Setzen() {
    Text.Text = pulled_ ? Wort(kern, Word::AdapterPulled) : !state_.empty() ? state_ : kern.Zeile(textLine_);
}

void F18::Texte_Setzen() {
    Fenster.Title = Fenstertitel(Code_Wird_Geprueft() ? kern.Zeile(Line::ChangeCode) : Wort(kern, Word::ChannelSearch));
    Text_Setzen();
    Schloss.Text = Lauf_Schloss(run);
    Command1.Text = kern.Zeile(Line::Cancel);
}

void F18::Command1_Click() {
    if (Code_Wird_Geprueft()) {
        Rufen(Anmeldung_Abbrechen); // closes the box
        return;
    }
    if (Wird_Abgesucht()) {
        Rufen(Suche_Abbrechen); // and so does this
        return;
    }
    if (Lauf_Ohne_Adapter(run)) {
        Lauf_Aufgeben(run, RunOutcome::Cancelled); // closes the box
        run.Ansicht.Fertig(Line::Cancelled);
        return;
    }
    run.link.Lauf.Chain.KanalIndex = 12;
    F18_Schliessen();
    // No reply may come any more: some window must be left to close the run with.
    if (!run.Gesamtende) {
        Rufen(F9_Zeigen);
    }
}

} // namespace qvm
