// What leads from the main window to the others and back.

#include "Bestandslese.h"
#include "Programm.h"

namespace qvm {

void Programm::Hauptfenster_Verbinden() {
    F2_Zeigen = [this] { F2.F2_Zeigen(); };
    F2.Hooks.F1_Oeffnen = [this] { F1.F1_Laden(F2.AdapterVersion); };
    F2.Hooks.F6_Oeffnen = [this] { F6.F6_Laden(); };
    F2.Hooks.F7_Oeffnen = [this] { F7.F7_Datei_Waehlen(); };
    F2.Hooks.F13_Oeffnen = [this] { F13.F13_FormLaden(); };
    F2.Hooks.F14_Oeffnen = [this] { F14.F14_Laden(); };
    F2.Hooks.F15_Oeffnen = [this] { F15.F15_Laden(); };
    F2.Hooks.Bestand_Lesen = [this] { return Bestand_Lesen(kern); };
    F2.Hooks.Historien_Lesen = [this] { return Historien_Liste(kern); };
    F2.Hooks.Historie_Oeffnen = [this](const std::string& path) { F7.F7_Oeffnen(path); };
    F2.Hooks.F9_Schliessen = [this] { F9.F9_Schliessen(); };
    F2.Hooks.Lauf_Timer_Anhalten = [this] { Lauf_Timer_Ruecksetzen(Lauf); };
    F6.Port_Eingerichtet = [this] { F2.Port_Einrichten_Anzeigen(); };
    F6.Zurueck = [this] { Rufen(F2_Zeigen); };
    F7.Hauptfenster_Verbergen = [this] { F2.Fenster.Visible = false; };
    F7.Zurueck = [this] {
        // At the end of a run the windows that it was started from still stand open.
        if (!F13.Fenster.Visible && !F9.Fenster.Visible && !F91.Fenster.Visible) {
            Rufen(F2_Zeigen);
        }
    };
    F7.F8_Oeffnen = [this] { F8.F8_Laden(); };
    F7.F8_Schliessen = [this] { F8.F8_Schliessen(); };
    F14.Zurueck = [this] { Rufen(F2_Zeigen); };
    F15.Sprache_Gewechselt = [this] { Texte_Setzen(); };
}

void Programm::Texte_Setzen() {
    F2.Texte_Setzen();
    F1.Texte_Setzen();
    F15.Texte_Setzen();
    if (F6.Fenster.Visible) {
        F6.Texte_Setzen();
    }
    if (F14.Fenster.Visible) {
        F14.Texte_Setzen();
    }
    if (F7.Fenster.Visible) {
        F7.Texte_Setzen();
    }
    if (F8.Fenster.Visible) {
        F8.Texte_Setzen();
    }
    if (F13.Fenster.Visible) {
        F13.Texte_Setzen();
    }
    if (F11.Fenster.Visible) {
        F11.Texte_Setzen();
    }
    if (F9.Fenster.Visible) {
        F9.Texte_Setzen();
    }
    if (F18.Fenster.Visible) {
        F18.Texte_Setzen();
    }
    if (F91.Fenster.Visible) {
        F91.Texte_Setzen();
    }
    if (F92.Fenster.Visible) {
        F92.Texte_Setzen();
    }
}

} // namespace qvm
