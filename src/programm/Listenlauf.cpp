// What the list run needs of the other windows, and what run and network route tell it.

#include "Programm.h"

namespace qvm {

void Programm::Liste_Verbinden() {
    F13.Listenzeile_Uebernehmen = [this](int gridRow, int listRow) {
        F91.Listenzeile_Uebernehmen(F13.FGK13, gridRow, listRow);
    };
    F13.Liste_Leeren = [this] { F91.Liste_Leeren(); };
    F13.Gescheiterte_Schloesser = [this] { return F91.Gescheiterte_Schloesser(); };
    F11.F13_Verbergen = [this] { F13.F13_Verbergen(); };
    F11.Liste_Starten = [this] {
        F91.Geduld = F11.Geduld_Sekunden();
        F91.Liste_Starten(F13.DelayedStart);
    };
    F11.Adapter_Test = [this](const AdapterSatz& adapter) {
        Adapter_Test(Netz, {adapter.Adresse, adapter.Name});
        return Netz.NetAdapter == NetAdapterMark;
    };
    F11.Netzlauf_Starten = [this] {
        F91.Einzelnes_Schloss_Starten(F13.FGK13, F11.LockRowOfGrid, F11.Gewaehlter_Adapter());
    };
    F91.Schlossgitter_Schliessen = [this] { F13.Fuer_Netzlauf_Verbergen(); };
    F91.Schlossgitter_Freigeben = [this] { F13.F13_Freigeben(); };
    F91.F92_Zeigen = [this] { F92.F92_Laden(); };
    F91.F92_Schliessen = [this] { F92.Fenster.Visible = false; };
    F92.Gewaehlt = [this](const DateTime& start) { F91.Startzeit_Setzen(start); };
    F92.Verworfen = [this] { F91.Command2_Click(); };
    F2.Hooks.Listenzeile_Laeuft = [this] { return F91.Arbeit() != F91::Work::None; };
    F2.Hooks.Anschluss_Geaendert = [this] { F91.Anschluss_Geaendert(); };
}

void Programm::Liste_Ansicht_Verbinden() {
    Lauf.Liste = ListView{
        .Zeile_Markieren = [this](const std::string& mark,
                                  const std::string& text) { F91.Direkt_Markieren(mark, text); },
        .Naechste_Zeile = [this] { F91.Direkt_Naechste_Zeile(); },
        .Stoppen = [this] { F91.Stoppen(); },
    };
    Netz.Ansicht = NetView{
        .Status = [this](int line, int second) { F91.Status_Zeigen(line, second); },
        .Blinken = [this](bool on) { F91.Blinken(on); },
        .Balken = [this](int maximum, int value, bool visible) { F91.Balken_Zeigen(maximum, value, visible); },
        .Zeile_Markieren = [this](std::string_view mark, int line) { F91.Zeile_Markieren(mark, kern.Zeile(line)); },
        .Zeile_Melden = [this](std::string_view mark, const std::string& text) { F91.Zeile_Markieren(mark, text); },
        .Naechste_Zeile = [this](std::string_view step) { F91.Naechste_Zeile(step); },
        .Programmieren_Planen = [this] { F91.Programmieren_Planen(); },
        .Stillstand = [this](NetStandstill reason) { F91.Stillstand(reason); },
        .Weiter = [this] { F91.Weiter(); },
        .Frist = [this](int minutes) { F91.Frist_Zeigen(minutes); },
    };
}

} // namespace qvm
