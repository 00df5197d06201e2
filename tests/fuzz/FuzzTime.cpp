// Files of the clocks and calendars: the same bytes as each of the four files. A load never fails on what a file holds,
// a save never shortens it, and a table that was loaded and saved comes back the same.

#include "InfoPbS.h"
#include "Kalender.h"
#include "Kern.h"
#include "MemoryFiles.h"
#include "Zeitfenster.h"
#include "Zeitgruppen.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <string>

namespace {

using namespace qvm;

void Verlangen(bool condition) {
    if (!condition) {
        std::abort();
    }
}

void Uhren(Kern& kern) {
    Grid groups(8, 5);
    GroupTable table;
    InfoPbS info;
    for (const SlotRange& range : {PersonSlots, LockSlots}) {
        Grid slots(range.Count + 1, SlotColumn::Count);
        Zeitfenster_Normalisieren(kern, slots);
        Verlangen(Zeitfenster_Laden(kern, slots, range).Read);
        Zeitfenster_EndePruefen(slots.Text(1, SlotColumn::From), slots.Text(1, SlotColumn::To));
        Verlangen(Zeitfenster_Speichern(kern, slots, range));
        PersonGruppen_Laden(kern, table);
        for (int row = 0; row <= 9; ++row) {
            Verlangen(InfoPbS_Anzeigen(kern, slots, table, false, row, info) <= range.Count);
        }
    }
    Verlangen(SperrGruppen_Laden(kern, table, groups) && SperrGruppen_Speichern(kern, table));
    Verlangen(PersonGruppen_Laden(kern, table, groups) && PersonGruppen_Speichern(kern, table));
}

void Kalender(Kern& kern) {
    for (const KalenderBlock block : {KalenderBlock::Einzel, KalenderBlock::Permanent}) {
        Grid grid(21, 6);
        Verlangen(Kalender_Laden(kern, grid, block) && Kalender_Speichern(kern, grid, block));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    test::MemoryFiles disk;
    Platform world;
    world.Files = disk.Store();
    Kern kern(world);
    kern.AppPath = "/";
    for (const char* name : {"TX33Y98BSG9.TBW", "TIMGRP33T7.PBG", "TIMGRP44T8_S.SBS", "KL10X49WTTI.CBW"}) {
        disk.Files[std::string("/DAT/") + name] = bytes;
    }
    Uhren(kern);
    Kalender(kern); // a row that lacks something leaves its place in the block empty
    Kalender(kern); // and the rows behind it move up
    for (const auto& file : disk.Files) {
        Verlangen(file.second.size() >= bytes.size());
    }
    const std::map<std::string, std::string> settled = disk.Files;
    Uhren(kern);
    Kalender(kern);
    Verlangen(disk.Files == settled);
    return 0;
}
