#include "F15.h"

#include "Text.h"
#include "TextSlots.h"
#include "Words.h"
#include "Worte.h"

#include <algorithm>

namespace qvm {
namespace {

/// As the languages call themselves. One file name, and with it the configuration, does without its cedilla.
std::vector<std::string> Eigennamen() {
    std::vector<std::string> names(SprachNamen.begin(), SprachNamen.end());
    const std::string_view french = u8"Français"_w;
    std::replace(names.begin(), names.end(), std::string("Francais"), std::string(french));
    return names;
}

} // namespace

F15::F15(Kern& kernel) : kern(kernel) {
    kern.Windows.Open["F15"] = [this] { F15_Laden(); };
}

void F15::F15_Laden() {
    Sprachen.Entries = Eigennamen();
    const auto* const found = std::find(SprachNamen.begin(), SprachNamen.end(), Trim(kern.Config.Sprache));
    Sprachen.Selected = found == SprachNamen.end() ? -1 : static_cast<int>(found - SprachNamen.begin());
    Texte_Setzen();
    Fenster.Visible = true;
}

void F15::Texte_Setzen() {
    Fenster.Title = Fenstertitel(kern.Zeile(Line::Language));
    OK.Text = Wort(kern, Line::Ok, "OK");
    Cancel.Text = Wort(kern, Line::Cancel, "Abbrechen");
}

void F15::OK_Click() {
    const int index = Sprachen.Selected;
    Fenster.Visible = false;
    if (index < 0 || index >= static_cast<int>(SprachNamen.size())) {
        return;
    }
    const std::string before = kern.Config.Sprache;
    kern.Config.Sprache = SprachNamen[static_cast<std::size_t>(index)];
    if (Sprachdatei_Laden(kern) == SprachdateiStatus::Fehlt) {
        // A language without words would leave the next start without any.
        kern.Meldung(Wort(kern, Line::FileNotFound, "Datei nicht gefunden:") + " QVM_" + kern.Config.Sprache + ".DAT",
                     Buttons::Ok, Icon::Exclamation);
        kern.Config.Sprache = before;
        return;
    }
    const bool saved = Konfiguration_Speichern(kern);
    kern.Windows.WordsChanged();
    if (!saved) {
        kern.Meldung(Wort(kern, Line::SettingsNotSaved, u8"Die Einstellungen konnten nicht gespeichert werden!"_w),
                     Buttons::Ok, Icon::Exclamation);
    }
}

} // namespace qvm
