#include "AdapterRecord.h"
#include "Adapterklasse.h"
#include "F12_Laden.h"
#include "Kern.h"
#include "Text.h"
#include "TimeRecords.h"
#include "UnitRecords.h"

#include <utility>

namespace qvm {

namespace {

/// The list of adapters has a record more than a lock is offered.
constexpr int LastOffered = 19;

std::string Unit_Kuerzel(const Kern& kern, std::string_view mode) {
    static_assert(Line::UnitAE == Line::UnitTA + 1 && Line::UnitSTE == Line::UnitTA + 2);
    if (mode.size() != 1 || mode[0] < '1' || mode[0] > '3') {
        return std::string(LockText::NoUnit);
    }
    return std::string(Mid(kern.Zeile(Line::UnitTA + mode[0] - '1'), 1, 3));
}

LockAdapter Adapter_Eintrag(const RecordFile& adapters, int record) {
    LockAdapter entry;
    entry.Record = record;
    entry.Adresse = adapters.Text(record, AdapterRecord::Adresse);
    entry.Name = adapters.Text(record, AdapterRecord::Name);
    entry.Text = entry.Name.starts_with(EnrolmentClass) ? std::string(LockText::NoAdapter)
                                                        : std::string(Trim(entry.Name + " [" + entry.Adresse + "]"));
    return entry;
}

} // namespace

bool Offsetnamen_Laden(Kern& kern, LockTable& table) {
    RecordFile offsets(GuestOffset::Record);
    if (offsets.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        table.LoadFailed = true; // else a save would drop every lock's offset group
        return false;
    }
    table.Offsets = {};
    for (int n = GuestOffset::Record.First; n <= GuestOffset::Record.Last; ++n) {
        OffsetEntry& entry = table.Offsets[static_cast<std::size_t>(n)];
        entry.Name = offsets.Text(n, GuestOffset::Name);
        entry.Id = offsets.Text(n, GuestOffset::OffsetId);
        if (entry.Id.empty()) { // the identifiers never change, but a first save of the offsets has left them blank
            entry.Id = std::string(GuestOffset::IdPrefix) + Ziffern(n);
        }
    }
    return true;
}

bool Schlossgruppen_Laden(Kern& kern, LockTable& table) {
    RecordFile groups(LockTimeGroup::Record);
    if (groups.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        table.LoadFailed = true; // else a save would drop every lock's group
        return false;
    }
    table.GroupTableLock = {};
    for (int n = LockTimeGroup::Record.First; n <= LockTimeGroup::LastUsed; ++n) {
        table.GroupTableLock[static_cast<std::size_t>(n)] = {
            groups.Text(n, LockTimeGroup::Num), groups.Text(n, LockTimeGroup::Name),
            groups.Text(n, LockTimeGroup::Days), groups.Text(n, LockTimeGroup::Count),
            groups.Text(n, LockTimeGroup::PbId)};
    }
    return true;
}

bool UnitTypen_Laden(Kern& kern, LockTable& table) {
    RecordFile units(WirelessUnitRecord::Record);
    const bool good = units.Laden(kern.Welt.Files, kern.DatPfad()) != ReadStatus::Error;
    for (int row = LockGrid::FirstRow; row <= LockGrid::LastRow; ++row) {
        const bool serial = !Trim(table.FGK12.Text(row, LockColumn::Serial)).empty();
        Cell cell = table.FGK12.At(row, LockColumn::UnitType);
        cell.Text =
            serial ? Unit_Kuerzel(kern, units.Text(row, WirelessUnitRecord::UnitMode)) : std::string(LockText::NoUnit);
        cell.ForeColor = LockLook::Set;
        cell.FontSize = LockLook::UnitTypeSize;
        cell.Bold = true;
        table.FGK12.Set(row, LockColumn::UnitType, cell);
    }
    return good;
}

bool AdapterAuswahl_Laden(Kern& kern, LockTable& table) {
    RecordFile adapters(AdapterRecord::Record);
    const bool good = adapters.Laden(kern.Welt.Files, kern.DatPfad()) != ReadStatus::Error;
    table.Adapters.clear();
    bool offersNone = false;
    for (int n = AdapterRecord::Record.First; n <= LastOffered; ++n) {
        LockAdapter entry = Adapter_Eintrag(adapters, n);
        if (entry.Name.empty() && entry.Adresse.empty()) {
            continue;
        }
        offersNone = offersNone || entry.Text == LockText::NoAdapter;
        table.Adapters.push_back(std::move(entry));
    }
    if (!offersNone) {
        table.Adapters.insert(table.Adapters.begin(), LockAdapter{std::string(LockText::NoAdapter), 0, {}, {}});
    }
    return good;
}

} // namespace qvm
