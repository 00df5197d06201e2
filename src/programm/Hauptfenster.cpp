// What leads from the main window to the others and back.

#include "Bestandslese.h"
#include "Programm.h"

namespace qvm {

void Programm::Hauptfenster_Verbinden() {
    kern.Windows.Open["F1"] = [this] { F1.F1_Laden(F2.AdapterVersion); };
    F2.Hooks.Bestand_Lesen = [this] { return Bestand_Lesen(kern); };
    F2.Hooks.Historien_Lesen = [this] { return Historien_Liste(kern); };
    F2.Hooks.Historie_Oeffnen = [this](const std::string& path) { F7.F7_Oeffnen(path); };
    F2.Hooks.F9_Schliessen = [this] { F9.F9_Schliessen(); };
    F2.Hooks.Lauf_Timer_Anhalten = [this] { Lauf_Timer_Ruecksetzen(Lauf); };
    F2.Hooks.Davor_Offen = [this] { return F13.Fenster.Visible || F91.Fenster.Visible; };
    F6.Port_Eingerichtet = [this] { F2.Port_Einrichten_Anzeigen(); };
    F7.Hauptfenster_Verbergen = [this] { F2.Fenster.Visible = false; };
    F7.Dahinter_Offen = [this] { return F13.Fenster.Visible || F9.Fenster.Visible || F91.Fenster.Visible; };
    F7.F8_Oeffnen = [this] { F8.F8_Laden(); };
    F7.F8_Schliessen = [this] { F8.F8_Schliessen(); };
}

} // namespace qvm
