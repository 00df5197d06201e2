#include "TransferWindows.h"

#include "LockWindows.h"
#include "MainWindows.h"
#include "TimeWindows.h"

namespace qvm {

void TransferWindows::Verbinden() {
    Hauptfenster_Verbinden();
    Lauf_Verbinden();
    Liste_Verbinden();
    Listenlauf_Verbinden();
    Codeaenderung_Verbinden();
    F9.F13_Freigeben = [this] { F13.Hinter_Lauf_Freigeben(); };
    F18.F9_Zeigen = [this] { F9.Suche_Endet(); };
    F11.Zurueck = [this] { F13.F11_Verlassen(); };
    F11.Marke_Loeschen = [this](int row) { F13.Marke_Setzen(row, false); };
}

void TransferWindows::Hauptfenster_Verbinden() {
    F2Hooks& main = programm.Main->F2.Hooks;
    main.F9_Schliessen = [this] { F9.F9_Schliessen(); };
    main.Davor_Offen = [this] { return Offen() || programm.Times->F60.Fenster.Visible; };
    main.Listenzeile_Laeuft = [this] { return F91.Arbeit() != F91::Work::None; };
    main.Anschluss_Geaendert = [this] { F91.Anschluss_Geaendert(); };
}

void TransferWindows::Lauf_Verbinden() {
    programm.Run.Ansicht = RunView{
        .Fortschritt = [this] { F9.Fortschritt(); },
        .F9_Zeigen = [this] { F9.Im_Lauf_Zeigen(); },
        .Status = [this](int line) { F9.Status_Zeigen(line); },
        .Fertig = [this](int line) { F9.Lauf_Fertig(line); },
        .F9_Schliessen_Freigeben = [this] { F9.Schliessen_Freigeben(); },
        .Historie_Beschriften = [this] { F9.Status_Zeigen(Line::ReadingHistory); },
        .Zustand = [this](std::uint8_t state, const std::string& text) { F9.Zustand_Zeigen(state, text); },
        .Kaestchen = [this](int box) { F9.Ankreuzen(box); },
        .Kaestchen_Beschriften = [this](int box, const std::string& text) { F9.Kaestchen_Beschriften(box, text); },
        .Wartebox_Schliessen = [this] { F18.F18_Schliessen(); },
        .Wartebox_Balken = [this](int value) { F18.Balken.Value = value; },
        .Wartebox_Text =
            [this](int line) {
                F18.Text_Zeigen(line);
                F9.Status_Zeigen(line);
            },
        .Zum_Schlossgitter =
            [this] {
                F9.F9_Schliessen();
                F18.F18_Schliessen();
                Schlossgitter_Freigeben(true);
            },
        .Schlossgitter_Freigeben = [this] { Schlossgitter_Freigeben(false); },
        .Historie_Oeffnen =
            [this](const std::string& path) {
                if (programm.F7_Oeffnen) {
                    programm.F7_Oeffnen(path);
                }
            },
        .Hauptfenster_Freigeben = [this] { programm.Main->F2.F2_Freigeben(); },
    };
}

/// While the code change stands over the grid, that is what the operator comes back to.
void TransferWindows::Schlossgitter_Freigeben(bool moved) {
    if (moved) {
        F13.RFk_IconLoad();
    }
    if (!F17.Fenster.Visible) {
        F13.F13_Freigeben();
    }
}

void TransferWindows::F17_Anbieten() {
    F13.F17_Oeffnen = [this] { F17.F17_FormLoad(); };
    programm.Locks->F20.Code_Aendern = [this](std::string_view serial, int channel) {
        F17.F17_Unit_Laden(serial, channel);
    };
}

void TransferWindows::Codeaenderung_Verbinden() {
    F17.Zu_F13 = [this] { F13.F13_Freigeben(); };
    F18.Anmeldung_Abbrechen = [this] { F17.Abbrechen(); };
    WindowHooks& replies = programm.Run.Fenster;
    replies.Code_Angemeldet = [this] { F17.Angemeldet(); };
    replies.Code_Gesucht = [this] { F17.Gesucht(); };
    replies.Code_Abgelehnt = [this](RunOutcome why) { F17.Abgelehnt(why); };
    replies.Code_Beantwortet = [this] { F17.Beantwortet(); };
    replies.Unit_Umgezogen = [this] { F17.Umgezogen(); };
    replies.Unit_Umzug_Gescheitert = [this] { F17.Umzug_Gescheitert(); };
}

void TransferWindows::Liste_Verbinden() {
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
        Adapter_Test(programm.Netz, {adapter.Adresse, adapter.Name});
        return programm.Netz.NetAdapter == NetAdapterMark;
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
}

void TransferWindows::Listenlauf_Verbinden() {
    programm.Run.Liste = ListView{
        .Zeile_Markieren = [this](std::string_view mark, const std::string& text) { F91.Direkt_Markieren(mark, text); },
        .Naechste_Zeile = [this] { F91.Direkt_Naechste_Zeile(); },
        .Stoppen = [this] { F91.Stoppen(); },
    };
    programm.Netz.Ansicht = NetView{
        .Status = [this](int line, int second) { F91.Status_Zeigen(line, second); },
        .Blinken = [this](bool on) { F91.Blinken(on); },
        .Balken = [this](int maximum, int value, bool visible) { F91.Balken_Zeigen(maximum, value, visible); },
        .Zeile_Markieren = [this](std::string_view mark,
                                  int line) { F91.Net_Markieren(mark, programm.kern.Zeile(line)); },
        .Zeile_Melden = [this](std::string_view mark, const std::string& text) { F91.Net_Markieren(mark, text); },
        .Naechste_Zeile = [this](std::string_view step) { F91.Naechste_Zeile(step); },
        .Programmieren_Planen = [this] { F91.Programmieren_Planen(); },
        .Stillstand = [this](NetStandstill reason) { F91.Stillstand(reason); },
        .Weiter = [this] { F91.Weiter(); },
        .Frist = [this](int minutes) { F91.Frist_Zeigen(minutes); },
    };
}

} // namespace qvm
