#include "Units_Umstellen.h"

#include "Umstellung.h"
#include "UnitRecords.h"

#include <array>

namespace qvm {

namespace {

constexpr int Records = 201;

constexpr std::array Copies{FieldCopy{UnitRecordOld::UnitMode, WirelessUnitRecord::UnitMode},
                            FieldCopy{UnitRecordOld::AlwaysOn, WirelessUnitRecord::AlwaysOn},
                            FieldCopy{UnitRecordOld::Hours, WirelessUnitRecord::Hours},
                            FieldCopy{UnitRecordOld::Minutes, WirelessUnitRecord::Minutes},
                            FieldCopy{UnitRecordOld::Seconds, WirelessUnitRecord::Seconds}};

} // namespace

bool Units_Umstellen(Kern& kern) {
    return Datei_Umstellen(kern, {UnitRecordOld::Record, WirelessUnitRecord::Record, Records, Copies, " / Stp_03"});
}

} // namespace qvm
