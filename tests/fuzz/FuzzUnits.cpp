// The unit table and the conversion of its older file over arbitrary bytes.
#include "Kern.h"
#include "MemoryFiles.h"
#include "UnitSettings.h"
#include "Units.h"
#include "Units_Umstellen.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

using namespace qvm;

void Expect(bool holds) {
    if (!holds) {
        std::abort();
    }
}

bool InRange(const UnitSettings& settings) {
    return settings.HourEntry >= 0 && settings.HourEntry <= 17 && settings.MinuteEntry >= 0 &&
           settings.MinuteEntry <= 59 && settings.SecondEntry >= 0 && settings.SecondEntry <= 59 &&
           settings.LevelEntry >= 0 && settings.LevelEntry <= 4;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    test::MemoryFiles disk;
    Platform world;
    world.Files = disk.Store();
    world.ShowMessage = [](const Message&) { return Answer::Ok; };
    Kern kern(world);

    // The first byte names the file, the second the lock; the rest is the file.
    const bool old = data[0] % 2 == 1;
    disk.Files[old ? "DAT/DEVRSSISN.TSD" : "DAT/T6WRSSISN.TSD"] = std::string(data + 2, data + size);
    const int lock = data[1] % 200 + 1;

    Units_Umstellen(kern);
    UnitSettings settings;
    Grid grid(6, 5);
    Expect(Units_Laden(kern, lock, settings, grid));
    Expect(InRange(settings));
    if (Units_Uebernehmen(settings)) {
        Expect(Units_Speichern(kern, lock, settings, grid));
        UnitSettings again;
        Grid second(6, 5);
        Expect(Units_Laden(kern, lock, again, second));
        Expect(again.UnitMode == settings.UnitMode);
        Expect(second.Text(1, UnitColumn::Name) == grid.Text(1, UnitColumn::Name));
    }
    return 0;
}
