#pragma once

#include "SeriellesProtokoll.h"
#include "Zeit.h"

#include <string>

/// Days, times and slots as the console tells them.
namespace qvm {

/// "off", "Mon" to "Sun", "Mon-Fri", "Sat-Sun", "Mon-Sun" for a selector 0 to 10; "?" outside.
std::string Tag_Wort(int selector);
/// "Mon-Fri 08:00-17:00", or "off".
std::string Slot_Text(const TimerRow& row);
/// "Mon 23.11.2026".
std::string Tag_Text(const Datum& day);

} // namespace qvm
