// The virtual building in the main window: the way in and out, and that all the while it is told.

#include "F2.h"
#include "Fragen.h"
#include "Words.h"

namespace qvm {

void F2::Gebaeude_Texte() {
    const std::string name = Wort(kern, Word::BuildingEntry);
    F2_Gebaeude.Text = name;
    F2_Pc.Text = Wort(kern, Word::PcCheck);
    F2_Gebaeude.Enabled =
        kern.ImGebaeude ? static_cast<bool>(Hooks.Gebaeude_Zeigen) : static_cast<bool>(Hooks.Gebaeude);
    F2_Gebaeude_Ende.Text = kern.ImGebaeude ? Wort(kern, Word::BuildingLeave) : std::string();
    F2_Gebaeude_Ende.Enabled = kern.ImGebaeude;
    Gebaeudezeile.Text = kern.ImGebaeude ? Wort(kern, Word::BuildingStrip) : std::string();
    Fenster.Title = kern.ImGebaeude ? Fenstertitel(name) : std::string(SystemTitle);
}

void F2::F2_Gebaeude_Click() {
    if (kern.ImGebaeude) {
        Rufen(Hooks.Gebaeude_Zeigen);
        return;
    }
    if (!Hooks.Gebaeude || beendet_) {
        return;
    }
    Uebersicht_Lesen();
    const bool empty = bestand_.Leer();
    const std::string what = Wort(kern, empty ? Word::BuildingAskEmpty : Word::BuildingAskStart);
    if (kern.Meldung(what + "\r\n\r\n" + Wort(kern, Word::BuildingQuestion), Buttons::YesNo, Icon::Question,
                     Wort(kern, Word::BuildingEntry)) == Answer::Yes) {
        Hooks.Gebaeude(empty);
    }
}

void F2::F2_Gebaeude_Ende_Click() {
    if (kern.ImGebaeude && Hooks.Gebaeude &&
        Verlust_Hinnehmen(kern, Wort(kern, Word::BuildingAskLeave), Wort(kern, Word::BuildingEntry))) {
        Hooks.Gebaeude(false);
    }
}

} // namespace qvm
