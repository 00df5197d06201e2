#include "DatensatzDateien.h"

#include "FileLook.h"
#include "Kern.h"
#include "LockRecords.h"
#include "Text.h"
#include "TimeRecords.h"
#include "UnitRecords.h"
#include "UserRecords.h"

#include <algorithm>
#include <iterator>

namespace qvm {
namespace {

/// Every lock's files.
constexpr const RecordLayout* ImmerGelesen[] = {
    &LockRecord::Record,    &ChannelRecord::Record,      &LockAdapterRecord::Record, &LockGroupRecord::Record,
    &LockTimeGroup::Record, &UserRecord::Record,         &TimeGroup::Record,         &LockPrioRecord::Record,
    &LockEmiRecord::Record, &WirelessUnitRecord::Record,
};

/// True when a user opens the lock by a finger whose template goes to it.
bool Hat_Finger(const Kern& kern, int lock) {
    RecordFile users(UserRecord::Record);
    users.Laden(kern.Welt.Files, kern.DatPfad());
    for (int n = 1; n <= users.Count(); ++n) {
        const std::string marks = Feld_Roh(users.Record(n), UserRecord::LockMask);
        if (Mid(marks, static_cast<std::size_t>(lock), 1) == "F" && users.Text(n, UserRecord::FingerFlag) == "FS") {
            return true;
        }
    }
    return false;
}

} // namespace

std::vector<FileTrouble> Datensatz_Dateien_Pruefen(const Kern& kern, const LockRow& row) {
    std::vector<const RecordLayout*> wanted(std::begin(ImmerGelesen), std::end(ImmerGelesen));
    if (!Trim(row.PersonTimers).empty()) {
        wanted.push_back(&TimeSlot::Record);
    }
    if (!Trim(row.Calendars).empty()) {
        wanted.push_back(&CalendarEntry::Record);
    }
    if (row.Number > 0 && Hat_Finger(kern, row.Number)) {
        wanted.push_back(&TemplateRecord::Record);
    }
    std::vector<FileTrouble> found;
    for (const RecordLayout* layout : wanted) {
        if (auto trouble = Satzdatei_Pruefen(*layout, kern.Welt.Files, kern.DatPfad())) {
            found.push_back(std::move(*trouble));
        }
    }
    return found;
}

std::vector<FileTrouble> Unlesbare(const std::vector<FileTrouble>& troubles) {
    std::vector<FileTrouble> found;
    std::copy_if(troubles.begin(), troubles.end(), std::back_inserter(found),
                 [](const FileTrouble& trouble) { return trouble.Fault != FileFault::None; });
    return found;
}

} // namespace qvm
