#include "Gebaeudewelt.h"

#include "AdapterRecord.h"
#include "F12_Laden.h"
#include "Kanal.h"
#include "Kern.h"
#include "Seriennummer.h"
#include "Text.h"
#include "UnitSettings.h"

#include <algorithm>
#include <set>
#include <utility>

namespace qvm {
namespace {

constexpr int LastChannel = 12;
constexpr int ReplyMs = 20; ///< about what telegram and reply take on the line
constexpr std::string_view Programming = "PROGSTATION", Enrolment = "ENROLLMENT1";

int Kanal_Von(std::string_view text) {
    const int channel = Zahlwert(text);
    return channel >= 1 && channel <= LastChannel ? channel : 1;
}

void Units_Von(const Kern& kern, int lock, std::set<Address>& known, VirtualWorld& world) {
    constexpr int firstRow = 1, rows = 6, columns = 5;
    UnitSettings settings;
    Grid units(rows, columns);
    if (!Units_Laden(kern, lock, settings, units)) {
        return;
    }
    for (int row = firstRow; row < rows; ++row) {
        const auto serial = Serie_Zerlegen(units.Text(row, UnitColumn::Serial));
        if (!serial || !known.insert(*serial).second) {
            continue;
        }
        VirtualUnit unit;
        unit.Label = NachUtf8(Trim(units.Text(row, UnitColumn::Name)));
        unit.Serial = *serial;
        unit.Type = Trim(units.Text(row, UnitColumn::Module)) == "2" ? 2 : 1;
        unit.Channel = Kanal_Von(units.Text(row, UnitColumn::UnitNo));
        world.Units.push_back(std::move(unit));
    }
}

} // namespace

VirtualWorld Gebaeude_Welt(Kern& kern) {
    VirtualWorld world;
    world.ReplyMs = ReplyMs;
    LockTable table;
    F12_Laden(kern, table, {});
    std::set<Address> known;
    for (int row = LockGrid::FirstRow; row <= LockGrid::LastRow; ++row) {
        const auto serial = Serie_Zerlegen(table.FGK12.Text(row, LockColumn::Serial));
        if (!serial || !known.insert(*serial).second) {
            continue;
        }
        VirtualLock lock;
        lock.Label = NachUtf8(Trim(table.FGK12.Text(row, LockColumn::Name)));
        lock.Serial = *serial;
        lock.Channel = Kanal_Stand(kern, row).Channel;
        world.Locks.push_back(std::move(lock));
    }
    for (int row = LockGrid::FirstRow; row <= LockGrid::LastRow; ++row) {
        Units_Von(kern, row, known, world);
    }
    return world;
}

std::vector<VirtualAdapter> Gebaeude_Adapter(const Kern& kern) {
    std::vector<VirtualAdapter> adapters;
    RecordFile file(AdapterRecord::Record);
    if (file.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Ok) {
        for (int n = AdapterRecord::Record.First; n <= AdapterRecord::Record.Last; ++n) {
            VirtualAdapter adapter;
            adapter.Name = Trim(file.Text(n, AdapterRecord::Name));
            const auto address = Serie_Zerlegen(file.Text(n, AdapterRecord::Adresse));
            if (address && (adapter.Name.starts_with(Programming) || adapter.Name.starts_with(Enrolment))) {
                adapter.Address = *address;
                adapters.push_back(std::move(adapter));
            }
        }
    }
    for (const std::string_view name : {Programming, Enrolment}) {
        if (std::none_of(adapters.begin(), adapters.end(),
                         [name](const VirtualAdapter& adapter) { return adapter.Name.starts_with(name); })) {
            VirtualAdapter adapter;
            adapter.Name = std::string(name) + (name == Programming ? " 1" : "");
            adapter.Address.back() = name == Programming ? 40 : 41;
            adapters.push_back(std::move(adapter));
        }
    }
    std::stable_partition(adapters.begin(), adapters.end(),
                          [](const VirtualAdapter& adapter) { return !adapter.Enrolment(); });
    return adapters;
}

} // namespace qvm
