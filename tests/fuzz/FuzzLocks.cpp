// Files of the lock table and of its neighbours. Input: a byte a record file saying how many of the next bytes are its
// contents, counted in sixteens; a table that was loaded and saved must come back the same.

#include "AdapterRecord.h"
#include "F12_Laden.h"
#include "F12_Speichern.h"
#include "Kern.h"
#include "LockRecords.h"
#include "MemoryFiles.h"
#include "Schloss.h"
#include "Schlossregeln.h"
#include "Schlossserie.h"
#include "TimeRecords.h"
#include "UnitRecords.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using namespace qvm;

void Verlangen(bool condition) {
    if (!condition) {
        std::abort();
    }
}

void Dateien_Fuellen(test::MemoryFiles& disk, std::string_view input) {
    for (const RecordLayout* layout :
         {&LockRecord::Record, &LockPrioRecord::Record, &LockEmiRecord::Record, &LockGroupRecord::Record,
          &LockAdapterRecord::Record, &DoorModeRecord::Record, &GuestOffset::Record, &LockTimeGroup::Record,
          &AdapterRecord::Record, &WirelessUnitRecord::Record}) {
        if (input.empty()) {
            return;
        }
        const std::size_t length = static_cast<std::size_t>(static_cast<unsigned char>(input[0])) * 16;
        input.remove_prefix(1);
        disk.Files["/DAT/" + std::string(layout->File)] = input.substr(0, length);
        input.remove_prefix(std::min(length, input.size()));
    }
}

void Laden_Und_Speichern(Kern& kern, LockTable& table) {
    Verlangen(F12_Laden(kern, table, {}));
    Verlangen(F12_Speichern(kern, table));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    test::MemoryFiles disk;
    Platform world;
    world.Files = disk.Store();
    Kern kern(world);
    kern.AppPath = "/";
    Dateien_Fuellen(disk, input);

    RecordFile locks(LockRecord::Record);
    locks.Laden(world.Files, kern.DatPfad());
    for (int n = 0; n <= 201; ++n) {
        Verlangen(Schloss_Lesen(locks, n).Serial.size() != 1);
    }
    Verlangen(Serie_Wert(input) <= 0xFFFFFFFF);
    Verlangen(Prioritaet_Code(input) <= 4);
    Verlangen(Emi_Bild(input) != LockPicture::On);

    LockTable table;
    Laden_Und_Speichern(kern, table); // drops what the table does not keep
    Laden_Und_Speichern(kern, table); // drops switches of a row that has lost its name
    const auto settled = disk.Files;
    Laden_Und_Speichern(kern, table);
    Verlangen(disk.Files == settled);
    return 0;
}
