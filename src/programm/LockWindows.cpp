#include "LockWindows.h"

namespace qvm {

void LockWindows::Verbinden() {
    F12.F20_Oeffnen = [this](int lock) { return F20.F20_FormLaden(lock, F12.FGK12.Text(lock, LockColumn::Name)); };
    F20.Uebernommen = [this](int lock, std::string_view unitType) { F12.Unit_Uebernehmen(lock, unitType); };
    F20.Zurueck = [this] { F12.F12_Freigeben(); };
}

} // namespace qvm
