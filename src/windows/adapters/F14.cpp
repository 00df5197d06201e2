#include "F14.h"

#include "AdapterWorte.h"
#include "Fragen.h"
#include "Kanal.h"

#include <utility>
#include <vector>

namespace qvm {
namespace {

constexpr int Channels = 12;

} // namespace

F14::F14(Kern& kernel) : kern(kernel) {
    kern.Windows.Open["F14"] = [this] { F14_Laden(); };
}

void F14::F14_Laden() {
    channelAtOpen_ = kern.Config.RadioChannel;
    Fenster.Title = std::string(SystemTitle);
    Texte_Setzen();
    Combo1.Selected = kern.Config.Funkkanal() - 1;
    Dirty = false;
    Fenster.Visible = true;
}

void F14::Texte_Setzen() {
    std::vector<std::string> entries;
    for (int channel = 1; channel <= Channels; ++channel) {
        entries.push_back(kern.Zeile(Line::RadioChannel) + "-" + Ziffern(channel));
    }
    Combo1.Entries = std::move(entries);
    Toolbar_Beschriften(kern, Toolbar1);
}

void F14::Combo1_Click(int index) {
    if (index < 0 || index >= Channels || index == Combo1.Selected) {
        return;
    }
    Combo1.Selected = index;
    Dirty = true;
}

void F14::Toolbar1_ButtonClick(std::string_view key) {
    if (key == Toolbar1[1].Key) {
        Speichern();
        return;
    }
    if (key != Toolbar1[0].Key) {
        return;
    }
    const Verlassen choice = Dirty ? Verlassen_Fragen(kern, kern.Zeile(Line::RadioChannel)) : Verlassen::Verwerfen;
    if (choice == Verlassen::Bleiben) {
        return;
    }
    if (choice == Verlassen::Speichern) {
        Speichern();
        if (Dirty) {
            return; // it could not be saved: the choice is not to be lost
        }
    }
    Dirty = false;
    Fenster.Visible = false;
    kern.Windows.BackToMain();
}

void F14::Speichern() {
    const int before = kern.Config.Funkkanal();
    const FileTrouble damage = kern.Config.EinstellungenMangel;
    const int channel = Combo1.Selected + 1;
    kern.Config.RadioChannel = Ziffern(channel);
    if (!Konfiguration_Speichern(kern, ConfigChoice::Channel)) {
        kern.Config.RadioChannel = channelAtOpen_;
        Konfiguration_Speichern(kern); // one of the files may hold the new channel already
        kern.Meldung(kern.Zeile(Line::SettingsNotSaved), Buttons::Ok, Icon::Exclamation);
        return;
    }
    // A channel that came from a damaged file says nothing about what the locks were scheduled for.
    const bool plan = channel != before || !damage.File.empty();
    if (plan && !Kanal_Umstellen(kern, channel)) {
        // Locks and keys would never be moved to a channel that they were not scheduled for.
        kern.Config.RadioChannel = channelAtOpen_;
        if (damage.File.empty()) {
            Konfiguration_Speichern(kern);
        } else {
            kern.Config.EinstellungenMangel = damage; // the channel at open was none to go back to
        }
        kern.Meldung(kern.Zeile(Line::SettingsNotSaved), Buttons::Ok, Icon::Exclamation);
        return;
    }
    channelAtOpen_ = kern.Config.RadioChannel;
    Dirty = false;
}

} // namespace qvm
