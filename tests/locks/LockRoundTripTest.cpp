#include "F12_Laden.h"
#include "F12_Speichern.h"
#include "Kern.h"
#include "LockRecords.h"
#include "VirtualPlatform.h"

#include <gtest/gtest.h>
#include <map>
#include <rapidcheck.h>
#include <string>

namespace qvm {
namespace {

/// One row as it can be set by hand.
struct Zeile {
    std::string Name, Serial, Priority, Group, AdapterId, AdapterName, DoorDays;
    int OffsetNumber = 0, DoorMode = 0, Emi = 0;
    std::string Switches; ///< five of "X" and " "
};

rc::Gen<std::string> Wort(int most) {
    const auto letter = rc::gen::oneOf(rc::gen::inRange('!', '~'), rc::gen::elementOf(std::string("\xE4\xF6\xFC\xDF")));
    return rc::gen::mapcat(rc::gen::inRange(0, most + 1), [letter](int length) {
        return rc::gen::container<std::string>(static_cast<std::size_t>(length), letter);
    });
}

rc::Gen<std::string> Serie() {
    const auto pair = rc::gen::container<std::string>(2, rc::gen::elementOf(std::string("0123456789ABCDEF")));
    return rc::gen::map(rc::gen::tuple(pair, pair, pair, pair), [](const auto& parts) {
        return std::get<0>(parts) + "." + std::get<1>(parts) + "." + std::get<2>(parts) + "." + std::get<3>(parts);
    });
}

Zeile Beliebige_Zeile() {
    Zeile row;
    row.Name = *Wort(20);
    row.Serial = *Serie();
    row.Priority = *rc::gen::elementOf(std::string("12345")) + std::string{};
    row.Group = *rc::gen::element<std::string>("-", "Nacht", "Wochenende");
    row.AdapterId = *Wort(16);
    row.AdapterName = *Wort(20);
    row.DoorDays = std::to_string(*rc::gen::inRange(0, 99999));
    row.OffsetNumber = *rc::gen::inRange(0, 5);
    row.DoorMode = *rc::gen::inRange(0, 3);
    row.Emi = *rc::gen::element(LockPicture::On, LockPicture::Off, LockPicture::NotApplicable);
    row.Switches = *rc::gen::container<std::string>(5, rc::gen::elementOf(std::string("X ")));
    return row;
}

struct Anlage {
    test::VirtualPlatform welt;
    Kern kern{welt.World};

    Anlage() {
        kern.AppPath = "/qvm/";
        kern.Sprache.LanguageText[218] = "Zimmer";
        kern.Sprache.LanguageText[219] = "Gemeinschaft";
        auto& files = welt.Disk.Files;
        for (const char* name : {"Eins", "Zwei", "Drei", "Vier"}) {
            std::string record = name;
            record.resize(38, ' '); // identifiers left blank, as a first save does
            files["/qvm/DAT/T4OFFSETGST.FST"] += record;
        }
        files["/qvm/DAT/TIMGRP44T8_S.SBS"] = Gruppe("Nacht", "PB_1") + Gruppe("Wochenende", "PB_2");
    }

    static std::string Gruppe(std::string name, std::string id) {
        name.resize(40, ' ');
        id.resize(15, ' ');
        return "1  " + name + "X----1  " + id;
    }
};

void Setzen(Grid& grid, int row, const Zeile& values) {
    grid.SetText(row, 1, values.Name);
    grid.SetText(row, 2, values.Serial);
    for (int n = 0; n < 5; ++n) {
        const bool on = values.Switches[static_cast<std::size_t>(n)] == 'X';
        grid.SetPicture(row, 4 + n, on ? LockPicture::On : LockPicture::Off);
    }
    grid.SetText(row, 9, values.Priority);
    grid.SetPicture(row, 10, values.Emi);
    grid.SetText(row, 12, values.Group);
    grid.SetText(row, 13, values.AdapterId);
    grid.SetText(row, 14, values.AdapterName);
    if (values.OffsetNumber > 0) {
        const char* const names[] = {"", "Eins", "Zwei", "Drei", "Vier"};
        grid.SetText(row, 15, names[values.OffsetNumber]);
        grid.SetText(row, 16, "OFST0x0" + std::to_string(values.OffsetNumber));
    }
    const char* const modes[] = {"", "Zimmer", "Gemeinschaft"};
    grid.SetText(row, 17, modes[values.DoorMode]);
    grid.SetText(row, 18, values.DoorDays);
}

TEST(LockTable, what_is_saved_is_what_is_loaded) {
    const bool holds = rc::check([] {
        Anlage anlage;
        LockTable saved, loaded;
        RC_ASSERT(F12_Laden(anlage.kern, saved, {}));
        for (const int row : {1, 100, 200}) {
            Setzen(saved.FGK12, row, Beliebige_Zeile());
        }
        RC_ASSERT(F12_Speichern(anlage.kern, saved));
        RC_ASSERT(F12_Laden(anlage.kern, loaded, {}));
        for (int row = 1; row <= 200; ++row) {
            for (int column = 0; column < 19; ++column) {
                if (column != 11) { // unit types are not the table's own
                    RC_ASSERT(loaded.FGK12.Text(row, column) == saved.FGK12.Text(row, column));
                    RC_ASSERT(loaded.FGK12.At(row, column).Picture == saved.FGK12.At(row, column).Picture);
                }
            }
        }
    });
    EXPECT_TRUE(holds);
}

TEST(LockTable, a_second_save_changes_no_byte) {
    const bool holds = rc::check([] {
        Anlage anlage;
        LockTable first, second;
        RC_ASSERT(F12_Laden(anlage.kern, first, {}));
        Setzen(first.FGK12, 1, Beliebige_Zeile());
        RC_ASSERT(F12_Speichern(anlage.kern, first));
        const auto files = anlage.welt.Disk.Files;
        RC_ASSERT(F12_Laden(anlage.kern, second, {}));
        RC_ASSERT(F12_Speichern(anlage.kern, second));
        RC_ASSERT(anlage.welt.Disk.Files == files);
    });
    EXPECT_TRUE(holds);
}

// Whatever the files hold: a table that was loaded and saved once stays the same from then on.
TEST(LockTable, damaged_files_load_and_come_to_rest_after_one_save) {
    const bool holds = rc::check([] {
        Anlage anlage;
        auto& files = anlage.welt.Disk.Files;
        for (const RecordLayout* layout :
             {&LockRecord::Record, &LockPrioRecord::Record, &LockEmiRecord::Record, &LockGroupRecord::Record,
              &LockAdapterRecord::Record, &DoorModeRecord::Record}) {
            const auto bytes = *rc::gen::container<std::string>(rc::gen::arbitrary<char>());
            files["/qvm/DAT/" + std::string(layout->File)] = bytes;
        }
        LockTable table;
        RC_ASSERT(F12_Laden(anlage.kern, table, {}));
        RC_ASSERT(F12_Speichern(anlage.kern, table));
        RC_ASSERT(F12_Laden(anlage.kern, table, {}));
        RC_ASSERT(F12_Speichern(anlage.kern, table));
        const auto settled = files;
        RC_ASSERT(F12_Laden(anlage.kern, table, {}));
        RC_ASSERT(F12_Speichern(anlage.kern, table));
        RC_ASSERT(files == settled);
    });
    EXPECT_TRUE(holds);
}

} // namespace
} // namespace qvm
