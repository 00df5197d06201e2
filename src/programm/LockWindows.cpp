#include "LockWindows.h"

#include "MainWindows.h"
#include "TransferWindows.h"

namespace qvm {

void LockWindows::Verbinden() {
    Suche_Verbinden();
    F12.F20_Oeffnen = [this](int lock) { return F20.F20_FormLaden(lock, F12.FGK12.Text(lock, LockColumn::Name)); };
    F20.Uebernommen = [this](int lock, std::string_view unitType) { F12.Unit_Uebernehmen(lock, unitType); };
    F20.Zurueck = [this] { F12.F12_Freigeben(); };
    qvm::F17& code = programm.Transfer->F17;
    code.Zu_F20 = [this] { F20.F20_Freigeben(); };
    code.Unit_Beginnt = [this] { F20.Unit_Unterwegs(); };
    code.Unit_Endet = [this](std::string_view serial, int channel) { F20.Unit_Angekommen(serial, channel); };
    F20.Umzug_Abbrechen = [&code] { code.Umzug_Abbrechen(); };
    F19.An_Schloesser = [this](int lock, std::string_view serial, std::string_view unitType) {
        F12.Serie_Uebernehmen(lock, serial, unitType);
    };
    F19.An_Units = [this](int row, std::string_view serial, std::string_view unitNo) {
        F20.Unit_Uebernehmen(row, serial, unitNo);
    };
    F19.Zurueck = [this](F19Opener opener) {
        if (opener == F19Opener::Locks) {
            F12.F12_Freigeben();
        } else {
            F20.F20_Freigeben();
        }
    };
}

void LockWindows::Suche_Verbinden() {
    qvm::F11& login = programm.Transfer->F11;
    qvm::F18& box = programm.Transfer->F18;
    Suche.AdapterVersion = [this] { return programm.Main->F2.AdapterVersion; };
    Suche.Anmelden = [&login](F19Opener opener, const std::string& adapter) {
        login.F11_Laden(opener == F19Opener::Locks ? F11Opener::F12 : F11Opener::F20, adapter);
    };
    login.Suche_Beauftragt = [this](const RunOrder& order) { Suche.Angemeldet(order); };
    login.Suche_Verworfen = [this] { Suche.Verworfen(); };
    Suche.Wartebox_Zeigen = [&box] { box.F18_Zeigen(); };
    Suche.Wartebox_Stand = [&box](int channel, const std::string& state) { box.Suchstand_Zeigen(channel, state); };
    Suche.Wartebox_Schliessen = [&box] { box.F18_Schliessen(); };
    box.Suche_Abbrechen = [this] { Suche.Abbrechen(); };
    F20.Suche_Abbrechen = [this] { Suche.Abbrechen(); };
    F19.Suche_Beenden = [this] { Funde_Vergessen(Scan); };
}

void LockWindows::Suche_Anbieten() {
    F12.Suche_Starten = [this](int lock) { Suche.Schloss_Suchen(lock); };
    F20.Keypad_Suchen = [this](int row) { Suche.Keypad_Suchen(row); };
    F20.Readunit_Suchen = [this](int row) { Suche.Unit_Suchen(row); };
}

} // namespace qvm
