#pragma once

#include "Controls.h"
#include "UnitSettings.h"

/// The controls of the listen time of a unit, the same in F19 and F20.
namespace qvm {

struct ListenControls {
    ListBox& Hours;   ///< Combo2
    ListBox& Minutes; ///< Combo3
    ListBox& Seconds; ///< Combo4
    CheckBox& Always; ///< Check1: the unit listens all the time
};

/// Entry of the seconds for a unit with a listen time, and when the check box is cleared.
inline constexpr int SecondsAtFirst = 2;

/// Fills the three lists: 0 to 17 hours, 0 to 59 minutes and seconds, each number with its unit behind it.
void Lauschzeit_Fuellen(const ListenControls& controls);
/// Shows the settings. The lists have no effect while the unit listens all the time.
void Lauschzeit_Zeigen(const ListenControls& controls, const UnitSettings& settings);
/// What a click on the check box does with the settings.
void Lauschzeit_Immer(UnitSettings& settings, bool on);

} // namespace qvm
