#pragma once

#include "Controls.h"
#include "Kern.h"

#include <array>

namespace qvm {

/// Catalogue lines of the adapter window and of the channel window.
namespace AdapterWort {
inline constexpr int Back = 119, Save = 289, NotSaved = 287;
inline constexpr int AutomaticSearch = 278, SearchAdapters = 279, DeviceManager = 280;
} // namespace AdapterWort

/// The tips of the keys "Zurück" and "Speichern".
inline void Toolbar_Beschriften(const Kern& kern, std::array<ToolButton, 2>& toolbar) {
    toolbar[0].Tip = kern.Zeile(AdapterWort::Back);
    toolbar[1].Tip = kern.Zeile(AdapterWort::Save);
}

} // namespace qvm
