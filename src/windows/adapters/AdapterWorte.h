#pragma once

#include "Controls.h"
#include "Kern.h"

#include <array>

namespace qvm {

/// The tips of the keys "Zurück" and "Speichern".
inline void Toolbar_Beschriften(const Kern& kern, std::array<ToolButton, 2>& toolbar) {
    toolbar[0].Tip = kern.Zeile(Line::Back);
    toolbar[1].Tip = kern.Zeile(Line::Save);
}

} // namespace qvm
