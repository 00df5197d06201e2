#include "ListenTime.h"

#include "Text.h"
#include "Units.h"

#include <string>
#include <string_view>
#include <vector>

namespace qvm {
namespace {

/// Entries 0 to `last`, each number with the unit of time behind it.
std::vector<std::string> Eintraege(int last, std::string_view unit) {
    std::vector<std::string> entries;
    for (int n = 0; n <= last; ++n) {
        entries.push_back(Ziffern(n) + std::string(unit));
    }
    return entries;
}

} // namespace

void Lauschzeit_Fuellen(const ListenControls& controls) {
    controls.Hours.Entries = Eintraege(LastListenHour, " Std.");
    controls.Minutes.Entries = Eintraege(LastListenMinute, " min.");
    controls.Seconds.Entries = Eintraege(LastListenMinute, " sec.");
}

void Lauschzeit_Zeigen(const ListenControls& controls, const UnitSettings& settings) {
    controls.Hours.Selected = settings.HourEntry;
    controls.Minutes.Selected = settings.MinuteEntry;
    controls.Seconds.Selected = settings.SecondEntry;
    controls.Always.Checked = settings.AlwaysOnChecked;
    for (ListBox* list : {&controls.Hours, &controls.Minutes, &controls.Seconds}) {
        list->Enabled = settings.TimeControls && !settings.AlwaysOnChecked;
    }
    controls.Always.Enabled = settings.TimeControls;
}

void Lauschzeit_Immer(UnitSettings& settings, bool on) {
    settings.AlwaysOnChecked = on;
    settings.AlwaysOn = on ? "1" : "0";
    if (!on) {
        settings.SecondEntry = SecondsAtFirst;
        settings.Seconds = Ziffern(SecondsAtFirst);
    }
}

} // namespace qvm
