#include "LockWindows.h"

namespace qvm {

void LockWindows::Verbinden() {
    F12.F20_Oeffnen = [this](int lock) { return F20.F20_FormLaden(lock, F12.FGK12.Text(lock, LockColumn::Name)); };
    F20.Uebernommen = [this](int lock, std::string_view unitType) { F12.Unit_Uebernehmen(lock, unitType); };
    F20.Zurueck = [this] { F12.F12_Freigeben(); };
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

} // namespace qvm
