#include "F18.h"

#include "Words.h"

namespace qvm {

void F18::F18_Zeigen() {
    Balken.Value = 100;
    textLine_ = 81;
    Texte_Setzen();
    Command1.Enabled = true;
    Fenster.Visible = true;
}

void F18::Text_Zeigen(int line) {
    textLine_ = line;
    Text.Text = run.kern.Zeile(line);
}

void F18::Texte_Setzen() {
    Fenster.Title = Fenstertitel(Wort(run.kern, Word::ChannelSearch));
    Text.Text = run.kern.Zeile(textLine_);
    Schloss.Text = Lauf_Schloss(run);
    Command1.Text = run.kern.Zeile(83);
}

void F18::Command1_Click() {
    run.link.Lauf.KanalIndex = 12;
    F18_Schliessen();
    // No reply may come any more: some window must be left to close the run with.
    if (!run.Gesamtende) {
        Rufen(F9_Zeigen);
    }
}

} // namespace qvm
