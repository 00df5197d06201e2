#include "Tables.h"

#include "AdapterRecord.h"
#include "Konfiguration.h"
#include "LockRecords.h"
#include "TimeRecords.h"
#include "UnitRecords.h"
#include "UserRecords.h"

#include <algorithm>
#include <array>

namespace qvm {

namespace {

constexpr std::array Tables{
    &UserRecord::Record,     &ChannelRecord::Record,      &TemplateRecord::Record,  &LockRecord::Record,
    &LockPrioRecord::Record, &LockEmiRecord::Record,      &LockGroupRecord::Record, &LockAdapterRecord::Record,
    &DoorModeRecord::Record, &WirelessUnitRecord::Record, &TimeSlot::Record,        &TimeGroup::Record,
    &LockTimeGroup::Record,  &CalendarEntry::Record,      &GuestOffset::Record,     &AdapterRecord::Record,
};

// PERMSELECT.RFS: a date, a line for each of at most 200 doors, "ENDE".
constexpr std::array LineFiles{
    LineFile{SettingsFile, 4, &Einstellungen_Pruefen},
    LineFile{AdapterSettingsFile, 6, &Adapterdatei_Pruefen},
    LineFile{"OFSTSETUPDT.FST", 5},
    LineFile{"ASWTIMQVMLCK.FSN", 11},
    LineFile{"ObJNR09DAT.OBN", 3},
    LineFile{"PERMSELECT.RFS", 202},
};

} // namespace

std::span<const RecordLayout* const> Satztabellen() {
    return Tables;
}

std::span<const LineFile> Zeilendateien() {
    return LineFiles;
}

const RecordLayout* Tabelle_Suchen(std::string_view name) {
    const auto* const found =
        std::find_if(Tables.begin(), Tables.end(), [&](const RecordLayout* layout) { return layout->Name == name; });
    return found == Tables.end() ? nullptr : *found;
}

const LineFile* Zeilendatei_Suchen(std::string_view file) {
    const auto* const found =
        std::find_if(LineFiles.begin(), LineFiles.end(), [&](const LineFile& entry) { return entry.File == file; });
    return found == LineFiles.end() ? nullptr : found;
}

FileTrouble Zeilendatei_Pruefen(const LineFile& entry, std::string_view bytes) {
    return entry.Examine == nullptr ? FileTrouble{} : entry.Examine(bytes);
}

const RecordField* Feld_Suchen(const RecordLayout& layout, std::string_view name) {
    for (const RecordField& field : layout.Fields) {
        if (field.Name == name) {
            return &field;
        }
    }
    return nullptr;
}

bool Feld_Ist_Maske(const RecordField& field) {
    return field.Name == UserRecord::LockMask.Name;
}

} // namespace qvm
