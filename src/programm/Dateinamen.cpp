#include "Dateinamen.h"

#include "AdapterRecord.h"
#include "Konfiguration.h"
#include "LockRecords.h"
#include "TimeRecords.h"
#include "UnitRecords.h"
#include "UserRecords.h"

#include <array>

namespace qvm {

namespace {

constexpr std::array Namen{
    UserRecord::Record.File,
    UserRecordV1::Record.File,
    UserRecordV2::Record.File,
    ChannelRecord::Record.File,
    TemplateRecord::Record.File,
    LockRecord::Record.File,
    LockPrioRecord::Record.File,
    LockEmiRecord::Record.File,
    LockGroupRecord::Record.File,
    LockAdapterRecord::Record.File,
    DoorModeRecord::Record.File,
    WirelessUnitRecord::Record.File,
    UnitRecordOld::Record.File,
    TimeSlot::Record.File,
    TimeGroup::Record.File,
    LockTimeGroup::Record.File,
    CalendarEntry::Record.File,
    GuestOffset::Record.File,
    AdapterRecord::Record.File,
    SettingsFile,
    AdapterSettingsFile,
    std::string_view("OFSTSETUPDT.FST"),
    std::string_view("ASWTIMQVMLCK.FSN"),
    std::string_view("ObJNR09DAT.OBN"),
    std::string_view("PERMSELECT.RFS"),
};

} // namespace

std::span<const std::string_view> Dateinamen() {
    return Namen;
}

void Reste_Entfernen(const FileStore& files, const std::string& directory) {
    if (!files.Sweep) {
        return;
    }
    files.Sweep(directory, Namen);
    for (const std::string& name : files.List(directory)) {
        if (name.starts_with(BackupPrefix)) {
            files.Sweep(directory + name + "/", Namen);
        }
    }
}

} // namespace qvm
