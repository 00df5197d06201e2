#include "F2.h"
#include "TextSlots.h"
#include "Worte.h"

#include <algorithm>

namespace qvm {
namespace {

struct Menuetext {
    std::string_view Where;
    MenuEntry F2::*Entry;
    std::string_view Design;
};

constexpr std::array<Menuetext, 11> Entries{{
    {"F2.F2_Datei", &F2::F2_Datei, "Datei"},
    {"F2.F2_Sprache", &F2::F2_Sprache, "Sprache"},
    {"F2.F2_Schnittstelle", &F2::F2_Schnittstelle, "Schnittstelle"},
    {"F2.F2_Ende", &F2::F2_Ende, "Beenden"},
    {"F2.F2_Einzel", &F2::F2_Einzel, "Einzelfeiertage"},
    {"F2.F2_Perm", &F2::F2_Perm, "Perm. Feiertage"},
    {"F2.F2_Gasttimer", &F2::F2_Gasttimer, "Gasttimer"},
    {"F2.F2_Help", &F2::F2_Help, "Hilfe"},
    {"F2.F2_Version", &F2::F2_Version, "Version"},
    {"F2.F2_PersonB", &F2::F2_PersonB, "Personenbezogene Schaltuhr"},
    {"F2.F2_SchlossB", &F2::F2_SchlossB, "Schlossbezogene Schaltuhr"},
}};

struct Tastentext {
    int Number;
    std::string_view Design;
};

constexpr std::array<Tastentext, 9> Tips{{{1, "Programm beenden"},
                                          {9, "Historie anzeigen"},
                                          {11, "Kalender"},
                                          {13, "Schaltuhren"},
                                          {15, "Benutzer verwalten"},
                                          {17, "Funkkanal einstellen"},
                                          {19, "Gastkarte"},
                                          {21, u8"Schlösser programmieren"_w},
                                          {23, u8"Türschlösser einstellen"_w}}};

constexpr std::string_view AdapterDesign = "USB-Funkadapter";
constexpr std::string_view ToolbarSlot = "F2.Toolbar1.", LabelSlot = "F2.Label7";

} // namespace

void F2::Texte_Setzen() {
    for (const TextSlot& slot : TextSlots) {
        if (slot.Where == LabelSlot) {
            Label7.Text = Wort(kern, slot.Line, AdapterDesign);
        } else if (slot.Where.starts_with(ToolbarSlot)) {
            const int number = Zahlwert(slot.Where.substr(ToolbarSlot.size()));
            const auto button = std::find_if(Toolbar1.begin(), Toolbar1.end(),
                                             [number](const ToolButton& key) { return key.Number == number; });
            const auto tip = std::find_if(Tips.begin(), Tips.end(),
                                          [number](const Tastentext& text) { return text.Number == number; });
            if (button != Toolbar1.end() && tip != Tips.end()) {
                button->Tip = Wort(kern, slot.Line, tip->Design);
            }
        } else {
            const auto entry = std::find_if(Entries.begin(), Entries.end(),
                                            [&slot](const Menuetext& text) { return text.Where == slot.Where; });
            if (entry != Entries.end()) {
                (this->*(entry->Entry)).Text = Wort(kern, slot.Line, entry->Design);
            }
        }
    }
    Meldezeile_Setzen();
    Uebersicht_Setzen();
    Gebaeude_Texte();
    Warten_Zeigen(!Suchzeile.Text().empty());
}

/// A fixed port that comes back is not opened by itself: the adapter window does it.
bool F2::Nur_Von_Hand() const {
    using Fault = PortFault::Kind;
    const Fault what = fehler_.What;
    return !kern.Config.AdapterModus() && (what == Fault::NotThere || what == Fault::Broken ||
                                           what == Fault::NotSerial || what == Fault::NoSuchNumber);
}

void F2::Meldezeile_Setzen() {
    switch (grund_) {
    case Grund::Keiner:
        Meldezeile.Text = std::string();
        break;
    case Grund::Stumm:
        Meldezeile.Text = kern.Zeile(Line::NoConnection);
        break;
    case Grund::KeinAdapter:
        Meldezeile.Text = Wort(kern, Line::NoAdapter, "Es ist kein Funkadapter angeschlossen.");
        break;
    case Grund::Anschluss:
        Meldezeile.Text = (fehler_.What == PortFault::Kind::None ? fehlertext_ : PortFault_Text(kern, fehler_)) +
                          (Nur_Von_Hand() ? " (" + F2_Datei.Text() + " > " + F2_Schnittstelle.Text() + ")" : "");
        break;
    }
}

} // namespace qvm
