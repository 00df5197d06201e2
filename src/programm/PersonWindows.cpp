#include "PersonWindows.h"

namespace qvm {

void PersonWindows::Verbinden() {
    F5.F16_Oeffnen = [this] { F16.F16_Laden(); };
}

} // namespace qvm
