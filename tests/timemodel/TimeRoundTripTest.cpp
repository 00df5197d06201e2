#include "Kalender.h"
#include "Kern.h"
#include "VirtualPlatform.h"
#include "Wochentage.h"
#include "Zeitfenster.h"
#include "Zeitgruppen.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <string>

namespace qvm {
namespace {

struct Anlage {
    test::VirtualPlatform welt;
    Kern kern{welt.World};
    Anlage() { kern.AppPath = "/qvm/"; }
};

std::string Zweistellig(int value) {
    return (value < 10 ? "0" : "") + std::to_string(value);
}

rc::Gen<std::string> Uhrzeit() {
    return rc::gen::map(rc::gen::pair(rc::gen::inRange(0, 24), rc::gen::inRange(0, 60)),
                        [](const auto& time) { return Zweistellig(time.first) + ":" + Zweistellig(time.second); });
}

rc::Gen<std::string> Tag() {
    return rc::gen::map(rc::gen::tuple(rc::gen::inRange(1, 32), rc::gen::inRange(1, 13), rc::gen::inRange(2000, 2100)),
                        [](const auto& day) {
                            return Zweistellig(std::get<0>(day)) + "." + Zweistellig(std::get<1>(day)) + "." +
                                   std::to_string(std::get<2>(day));
                        });
}

rc::Gen<std::string> Wort(int most) {
    return rc::gen::mapcat(rc::gen::inRange(1, most + 1), [](int length) {
        return rc::gen::container<std::string>(static_cast<std::size_t>(length), rc::gen::inRange('!', '~'));
    });
}

bool Gleich(const Grid& a, const Grid& b) {
    for (int row = 0; row < a.Rows(); ++row) {
        for (int column = 0; column < a.Columns(); ++column) {
            if (a.Text(row, column) != b.Text(row, column)) {
                return false;
            }
        }
    }
    return true;
}

TEST(Rundreise, slots_that_are_saved_are_those_that_are_loaded) {
    EXPECT_TRUE(rc::check([] {
        Anlage anlage;
        Grid saved(11, 4), loaded(11, 4);
        const SlotRange range = *rc::gen::arbitrary<bool>() ? PersonSlots : LockSlots;
        for (int row = 1; row <= range.Count; ++row) {
            saved.SetText(row, 1, Wochentag_Text(anlage.kern, *rc::gen::inRange(0, 11)));
            saved.SetText(row, 2, *Uhrzeit());
            saved.SetText(row, 3, *Uhrzeit());
        }
        RC_ASSERT(Zeitfenster_Speichern(anlage.kern, saved, range));
        RC_ASSERT(Zeitfenster_Laden(anlage.kern, loaded, range));
        RC_ASSERT(Gleich(saved, loaded));
    }));
}

TEST(Rundreise, groups_that_are_saved_are_those_that_are_loaded) {
    EXPECT_TRUE(rc::check([] {
        Anlage anlage;
        GroupTable persons = PersonGruppen_Vorgabe(), locks, loaded;
        for (std::size_t n = 1; n <= 7; ++n) {
            const GroupEntry entry{std::to_string(n), *Wort(40), "X-X-X", "3", *Wort(15)};
            if (n > 2) {
                persons[n] = entry;
            }
            if (n <= 5) {
                locks[n] = entry;
            }
        }
        Grid grid(8, 5);
        RC_ASSERT(PersonGruppen_Speichern(anlage.kern, persons));
        RC_ASSERT(SperrGruppen_Speichern(anlage.kern, locks));
        const auto same = [](const GroupTable& a, const GroupTable& b) {
            for (std::size_t n = 1; n <= 8; ++n) {
                if (a[n].Num != b[n].Num || a[n].Name != b[n].Name || a[n].Days != b[n].Days ||
                    a[n].Count != b[n].Count || a[n].PbId != b[n].PbId) {
                    return false;
                }
            }
            return true;
        };
        RC_ASSERT(PersonGruppen_Laden(anlage.kern, loaded));
        RC_ASSERT(same(persons, loaded));
        RC_ASSERT(SperrGruppen_Laden(anlage.kern, loaded, grid));
        RC_ASSERT(same(locks, loaded));
    }));
}

TEST(Rundreise, calendars_that_are_saved_are_those_that_are_loaded) {
    EXPECT_TRUE(rc::check([] {
        Anlage anlage;
        const bool permanent = *rc::gen::arbitrary<bool>();
        const auto block = permanent ? KalenderBlock::Permanent : KalenderBlock::Einzel;
        Grid saved(21, 4), loaded(21, 4);
        for (int row = 1; row <= 20; ++row) {
            if (!*rc::gen::arbitrary<bool>()) {
                continue;
            }
            for (const int column : {1, 2}) {
                const std::string day = *Tag();
                saved.SetText(row, column, permanent ? day.substr(0, 6) + " - -" : day);
            }
            const bool second = permanent || *rc::gen::arbitrary<bool>();
            saved.SetText(row, 3, second ? "Perm. Feiertage" : "Einzelfeiertage");
        }
        RC_ASSERT(Kalender_Speichern(anlage.kern, saved, block)); // sorts the grid
        RC_ASSERT(Kalender_Laden(anlage.kern, loaded, block));
        RC_ASSERT(Gleich(saved, loaded));
    }));
}

// Whatever a file holds, loading does no harm and a save keeps the length that it had.
TEST(Rundreise, damaged_files_load_and_a_save_never_shortens_them) {
    EXPECT_TRUE(rc::check([] {
        Anlage anlage;
        auto& files = anlage.welt.Disk.Files;
        const auto bytes = *rc::gen::container<std::string>(rc::gen::arbitrary<char>());
        const char* const names[] = {"/qvm/DAT/TX33Y98BSG9.TBW", "/qvm/DAT/TIMGRP33T7.PBG", "/qvm/DAT/TIMGRP44T8_S.SBS",
                                     "/qvm/DAT/KL10X49WTTI.CBW"};
        for (const char* name : names) {
            files[name] = bytes;
        }
        Grid grid(21, 6);
        GroupTable groups;
        RC_ASSERT(Zeitfenster_Laden(anlage.kern, grid, LockSlots));
        RC_ASSERT(Zeitfenster_Speichern(anlage.kern, grid, LockSlots));
        RC_ASSERT(PersonGruppen_Laden(anlage.kern, groups, grid));
        RC_ASSERT(PersonGruppen_Speichern(anlage.kern, groups));
        RC_ASSERT(SperrGruppen_Laden(anlage.kern, groups, grid));
        RC_ASSERT(SperrGruppen_Speichern(anlage.kern, groups));
        RC_ASSERT(Kalender_Laden(anlage.kern, grid, KalenderBlock::Permanent));
        RC_ASSERT(Kalender_Speichern(anlage.kern, grid, KalenderBlock::Permanent));
        for (const char* name : names) {
            RC_ASSERT(files[name].size() >= bytes.size());
        }
    }));
}

} // namespace
} // namespace qvm
