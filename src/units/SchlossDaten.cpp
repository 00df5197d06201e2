#include "SchlossDaten.h"

#include "Kern.h"
#include "LockRecords.h"
#include "Record.h"
#include "UnitRecords.h"
#include "Units.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace qvm {
namespace {

struct Datei {
    RecordFile Before, After;
};

/// The file with this record for each of the locks. Nothing when it cannot be read.
std::optional<Datei> Vorbereiten(const Kern& kern, const RecordLayout& layout, std::span<const int> locks,
                                 std::string_view record) {
    RecordFile before(layout);
    if (before.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return std::nullopt;
    }
    RecordFile after = before;
    // As many as every writer leaves: a shorter file would count as damaged.
    for (int n = after.Count() + 1; n <= layout.Least; ++n) {
        after.SetRecord(n, record);
    }
    for (const int lock : locks) {
        if (lock >= layout.First && lock <= layout.Last) {
            after.SetRecord(lock, record);
        }
    }
    return Datei{std::move(before), std::move(after)};
}

} // namespace

bool SchlossDaten_Leeren(const Kern& kern, std::span<const int> locks) {
    UnitRecord none;
    none.AlwaysOn = none.Reserved1 = "9"; // nobody has set them
    const auto emi = Vorbereiten(kern, LockEmiRecord::Record, locks, " ");
    const auto units = Vorbereiten(kern, WirelessUnitRecord::Record, locks, Unit_Satz(none));
    if (!emi || !units || !emi->After.Speichern(kern.Welt.Files, kern.DatPfad())) {
        return false;
    }
    if (units->After.Speichern(kern.Welt.Files, kern.DatPfad())) {
        return true;
    }
    emi->Before.Speichern(kern.Welt.Files, kern.DatPfad());
    return false;
}

} // namespace qvm
