#include "MainWindows.h"

#include "Bestandslese.h"

namespace qvm {

void MainWindows::Verbinden() {
    programm.kern.Windows.Open["F1"] = [this] { F1.F1_Laden(F2.AdapterVersion); };
    F2.Hooks.Bestand_Lesen = [this] { return Bestand_Lesen(programm.kern); };
    F2.Hooks.Historien_Lesen = [this] { return Historien_Liste(programm.kern); };
    F2.Hooks.Lauf_Timer_Anhalten = [this] { Lauf_Timer_Ruecksetzen(programm.Run); };
    programm.link.Hooks.Adapter_Erkannt = [this] { F2.Adapter_Erkannt(); };
    Pc.Haken.Belegt = [this] { return F2.Leitung_Belegt(); };
    F6.Port_Eingerichtet = [this] { F2.Port_Einrichten_Anzeigen(); };
}

} // namespace qvm
