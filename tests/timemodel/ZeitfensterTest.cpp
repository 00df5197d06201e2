#include "Zeitfenster.h"

#include "TimeFixture.h"

namespace qvm {
namespace {

using namespace std::string_literals;
using test::Zeile;

/// A record as it stands in the file.
std::string Slot(int day, const std::string& times) {
    return std::string(1, static_cast<char>(day)) + times;
}

const std::string OffSlot = "\0"
                            "00:0000:00"s;

std::string Mal(int count, const std::string& text) {
    std::string out;
    for (int n = 0; n < count; ++n) {
        out += text;
    }
    return out;
}

struct Zeitfenster : test::TimeFixture {
    Grid persons{11, 4}, locks{6, 4};

    Zeitfenster() {
        Zeitfenster_Normalisieren(kern, persons);
        Zeitfenster_Normalisieren(kern, locks);
    }
    void Setzen(Grid& grid, int row, const std::string& day, const std::string& from, const std::string& to) {
        grid.SetText(row, 1, day);
        grid.SetText(row, 2, from);
        grid.SetText(row, 3, to);
    }
    /// Fifteen slots on selector 1, each starting at its own number's minute.
    std::string Voll() {
        std::string bytes;
        for (int n = 10; n < 25; ++n) {
            bytes += Slot(1, "08:" + std::to_string(n) + "17:00");
        }
        return bytes;
    }
};

TEST_F(Zeitfenster, a_new_installation_gets_fifteen_slots_that_are_switched_off) {
    EXPECT_TRUE(Zeitfenster_Laden(kern, persons, PersonSlots));
    EXPECT_EQ(files[Slots], Mal(15, OffSlot));
    EXPECT_EQ(files[Slots].size(), 165U);
}

TEST_F(Zeitfenster, after_that_the_person_window_shows_ten_rows_and_the_lock_window_five) {
    EXPECT_TRUE(Zeitfenster_Laden(kern, persons, PersonSlots));
    EXPECT_TRUE(Zeitfenster_Laden(kern, locks, LockSlots));
    for (int row = 1; row <= 10; ++row) {
        EXPECT_EQ(Zeile(persons, row), "OFF|00:00|00:00") << row;
    }
    for (int row = 1; row <= 5; ++row) {
        EXPECT_EQ(Zeile(locks, row), "OFF|00:00|00:00") << row;
    }
}

TEST_F(Zeitfenster, a_missing_file_leaves_the_grid_as_it_is) {
    Setzen(persons, 1, "Montag", "08:00", "17:00");
    EXPECT_TRUE(Zeitfenster_Laden(kern, persons, PersonSlots));
    EXPECT_EQ(Zeile(persons, 1), "Montag|08:00|17:00");
}

TEST_F(Zeitfenster, each_window_reads_its_own_records) {
    files[Slots] = Voll();
    EXPECT_TRUE(Zeitfenster_Laden(kern, persons, PersonSlots));
    EXPECT_TRUE(Zeitfenster_Laden(kern, locks, LockSlots));
    EXPECT_EQ(Zeile(persons, 1), "Montag|08:10|17:00");
    EXPECT_EQ(Zeile(persons, 10), "Montag|08:19|17:00");
    EXPECT_EQ(Zeile(locks, 1), "Montag|08:20|17:00");
    EXPECT_EQ(Zeile(locks, 5), "Montag|08:24|17:00");
}

TEST_F(Zeitfenster, all_eleven_day_selectors_are_read) {
    files[Slots] = Slot(0, "00:0000:00") + Slot(1, "01:0002:00") + Slot(10, "03:0004:00");
    EXPECT_TRUE(Zeitfenster_Laden(kern, persons, PersonSlots));
    EXPECT_EQ(Zeile(persons, 1), "OFF|00:00|00:00");
    EXPECT_EQ(Zeile(persons, 2), "Montag|01:00|02:00");
    EXPECT_EQ(Zeile(persons, 3), "Montag - Sonntag|03:00|04:00");
}

TEST_F(Zeitfenster, selector_11_is_empty_and_the_load_goes_on) {
    files[Slots] = Slot(11, "01:0002:00") + Slot(2, "03:0004:00");
    EXPECT_TRUE(Zeitfenster_Laden(kern, persons, PersonSlots));
    EXPECT_EQ(Zeile(persons, 1), "|01:00|02:00");
    EXPECT_EQ(Zeile(persons, 2), "Dienstag|03:00|04:00");
}

TEST_F(Zeitfenster, a_selector_above_11_ends_the_load_at_its_record) {
    files[Slots] = Slot(1, "01:0002:00") + Slot(12, "03:0004:00") + Slot(1, "05:0006:00");
    const SlotLoad load = Zeitfenster_Laden(kern, persons, PersonSlots);
    EXPECT_TRUE(load.Read);
    EXPECT_EQ(load.Damaged, 2);
    EXPECT_EQ(Zeile(persons, 1), "Montag|01:00|02:00");
    EXPECT_EQ(Zeile(persons, 2), "OFF|00:00|00:00");
    EXPECT_EQ(Zeile(persons, 3), "OFF|00:00|00:00");
    files[Slots][11] = '\xFF';
    EXPECT_TRUE(Zeitfenster_Laden(kern, persons, PersonSlots));
    EXPECT_EQ(Zeile(persons, 3), "OFF|00:00|00:00");
}

TEST_F(Zeitfenster, an_empty_file_and_the_rows_behind_its_end_leave_the_grid) {
    files[Slots] = "";
    EXPECT_TRUE(Zeitfenster_Laden(kern, persons, PersonSlots));
    EXPECT_EQ(Zeile(persons, 1), "OFF|00:00|00:00");
    EXPECT_EQ(files[Slots], "");
    files[Slots] = Slot(1, "01:0002:00");
    EXPECT_TRUE(Zeitfenster_Laden(kern, persons, PersonSlots));
    EXPECT_TRUE(Zeitfenster_Laden(kern, locks, LockSlots));
    EXPECT_EQ(Zeile(persons, 2), "OFF|00:00|00:00");
    EXPECT_EQ(Zeile(locks, 1), "OFF|00:00|00:00");
}

TEST_F(Zeitfenster, a_last_record_cut_short_gives_what_it_has) {
    files[Slots] = Slot(1, "01:0002:00") + Slot(2, "03:000");
    EXPECT_TRUE(Zeitfenster_Laden(kern, persons, PersonSlots));
    EXPECT_EQ(Zeile(persons, 2), "Dienstag|03:00|0");
}

TEST_F(Zeitfenster, a_record_is_selector_start_and_end) {
    Setzen(persons, 1, "Samstag - Sonntag", "07:30", "18:45");
    Setzen(locks, 1, "Montag - Sonntag", "06:00", "22:15");
    EXPECT_TRUE(Zeitfenster_Speichern(kern, persons, PersonSlots));
    EXPECT_TRUE(Zeitfenster_Speichern(kern, locks, LockSlots));
    EXPECT_EQ(files[Slots], "\x09"
                            "07:3018:45" +
                                Mal(9, OffSlot) +
                                "\x0A"
                                "06:0022:15" +
                                Mal(4, OffSlot));
}

TEST_F(Zeitfenster, an_unknown_day_keeps_the_selector_of_the_row_before) {
    Setzen(persons, 1, "Dienstag", "01:00", "02:00");
    Setzen(persons, 2, "Tuesday", "03:00", "04:00");
    Setzen(persons, 3, "Wednesday", "05:00", "06:00");
    EXPECT_TRUE(Zeitfenster_Speichern(kern, persons, PersonSlots));
    EXPECT_EQ(files[Slots].substr(0, 44), "\x02"
                                          "01:0002:00"
                                          "\x02"
                                          "03:0004:00"
                                          "\x02"
                                          "05:0006:00" +
                                              OffSlot);
}

TEST_F(Zeitfenster, an_unknown_day_in_the_first_row_is_off) {
    Setzen(persons, 1, "Monday", "01:00", "02:00");
    EXPECT_TRUE(Zeitfenster_Speichern(kern, persons, PersonSlots));
    EXPECT_EQ(files[Slots].substr(0, 11), "\0"
                                          "01:0002:00"s);
}

TEST_F(Zeitfenster, a_save_after_a_change_of_the_language_repeats_the_last_known_selector) {
    files[Slots] = Slot(3, "01:0002:00") + Slot(0, "00:0000:00") + Slot(4, "03:0004:00");
    EXPECT_TRUE(Zeitfenster_Laden(kern, persons, PersonSlots));
    for (int day = 1; day <= 10; ++day) {
        kern.Sprache.TagTexte[static_cast<std::size_t>(day)] = "day " + std::to_string(day);
    }
    EXPECT_TRUE(Zeitfenster_Speichern(kern, persons, PersonSlots));
    EXPECT_EQ(files[Slots].substr(0, 33),
              OffSlot.substr(0, 1) + "01:0002:00" + OffSlot + OffSlot.substr(0, 1) + "03:0004:00");
}

TEST_F(Zeitfenster, record_16_and_beyond_are_never_touched) {
    files[Slots] = Voll() + "tail of the file";
    EXPECT_TRUE(Zeitfenster_Speichern(kern, persons, PersonSlots));
    EXPECT_TRUE(Zeitfenster_Speichern(kern, locks, LockSlots));
    EXPECT_EQ(files[Slots], Mal(15, OffSlot) + "tail of the file");
}

TEST_F(Zeitfenster, the_records_of_the_other_window_are_not_touched) {
    files[Slots] = Voll();
    EXPECT_TRUE(Zeitfenster_Speichern(kern, locks, LockSlots));
    EXPECT_EQ(files[Slots], Voll().substr(0, 110) + Mal(5, OffSlot));
    files[Slots] = Voll();
    EXPECT_TRUE(Zeitfenster_Speichern(kern, persons, PersonSlots));
    EXPECT_EQ(files[Slots], Mal(10, OffSlot) + Voll().substr(110));
}

TEST_F(Zeitfenster, records_that_a_short_file_lacks_become_slots_that_are_off) {
    files[Slots] = Slot(1, "08:0017:00") + Slot(1, "09:");
    EXPECT_TRUE(Zeitfenster_Speichern(kern, locks, LockSlots));
    EXPECT_EQ(files[Slots], Slot(1, "08:0017:00") + Slot(1, "09:0000:00") + Mal(13, OffSlot));
}

TEST_F(Zeitfenster, a_failing_file_ends_the_load_with_the_grid_as_it_was) {
    files[Slots] = Voll();
    Brechen(1);
    EXPECT_FALSE(Zeitfenster_Laden(kern, persons, PersonSlots));
    EXPECT_EQ(Zeile(persons, 1), "OFF|00:00|00:00");
}

TEST_F(Zeitfenster, a_file_that_cannot_be_created_is_reported) {
    Brechen(2);
    EXPECT_FALSE(Zeitfenster_Laden(kern, persons, PersonSlots));
    EXPECT_TRUE(files.empty());
}

TEST_F(Zeitfenster, a_save_that_breaks_leaves_the_old_file) {
    for (const int operation : {1, 2}) {
        files[Slots] = Voll();
        Brechen(operation);
        EXPECT_FALSE(Zeitfenster_Speichern(kern, persons, PersonSlots)) << operation;
        EXPECT_EQ(files[Slots], Voll()) << operation;
    }
    Brechen(3);
    EXPECT_TRUE(Zeitfenster_Speichern(kern, persons, PersonSlots));
    EXPECT_EQ(disk.Operations, 2);
}

struct Zeitfenster_Normalisieren_Von : test::TimeFixture {
    Grid grid{4, 4};
};

TEST_F(Zeitfenster_Normalisieren_Von, an_empty_grid_is_numbered_and_switched_off) {
    Zeitfenster_Normalisieren(kern, grid);
    EXPECT_EQ(grid.Text(1, 0), "1");
    EXPECT_EQ(grid.Text(3, 0), "3");
    EXPECT_EQ(Zeile(grid, 3), "OFF|00:00|00:00");
    EXPECT_EQ(Zeile(grid, 0), "||");
}

TEST_F(Zeitfenster_Normalisieren_Von, a_row_that_is_OFF_loses_its_times) {
    grid.SetText(1, 1, " OFF ");
    grid.SetText(1, 2, "08:00");
    grid.SetText(1, 3, "17:00");
    Zeitfenster_Normalisieren(kern, grid);
    EXPECT_EQ(Zeile(grid, 1), "OFF|00:00|00:00");
}

TEST_F(Zeitfenster_Normalisieren_Von, a_row_with_an_empty_start_is_switched_off) {
    grid.SetText(1, 1, "Montag");
    grid.SetText(1, 2, "  ");
    grid.SetText(1, 3, "17:00");
    Zeitfenster_Normalisieren(kern, grid);
    EXPECT_EQ(Zeile(grid, 1), "OFF|00:00|00:00");
}

TEST_F(Zeitfenster_Normalisieren_Von, a_slot_in_use_stays) {
    grid.SetText(2, 1, "Montag");
    grid.SetText(2, 2, "00:00");
    Zeitfenster_Normalisieren(kern, grid);
    EXPECT_EQ(Zeile(grid, 2), "Montag|00:00|");
}

TEST_F(Zeitfenster_Normalisieren_Von, the_word_for_off_is_that_of_the_language) {
    kern.Sprache.TagTexte[0] = "AUS";
    Zeitfenster_Normalisieren(kern, grid);
    EXPECT_EQ(Zeile(grid, 1), "AUS|00:00|00:00");
}

TEST(Zeitfenster_EndePruefen_Von, an_end_before_the_start_is_refused) {
    EXPECT_EQ(Zeitfenster_EndePruefen("08:00", "07:59"), SlotEnde::Verkehrt);
    EXPECT_EQ(Zeitfenster_EndePruefen("22:00", "06:00"), SlotEnde::Verkehrt);
    EXPECT_EQ(Zeitfenster_EndePruefen("08:00", "00:00"), SlotEnde::Verkehrt);
}

TEST(Zeitfenster_EndePruefen_Von, an_end_equal_to_the_start_passes) {
    EXPECT_EQ(Zeitfenster_EndePruefen("08:00", "08:00"), SlotEnde::Gut);
    EXPECT_EQ(Zeitfenster_EndePruefen("00:00", "00:00"), SlotEnde::Gut);
    EXPECT_EQ(Zeitfenster_EndePruefen("08:00", "23:59"), SlotEnde::Gut);
}

TEST(Zeitfenster_EndePruefen_Von, what_is_no_time_of_day_is_told) {
    for (const char* text : {"", "0800", "24:00", "08:60", "8.00", "-1:00", "08:000", "a:00", ":"}) {
        EXPECT_EQ(Zeitfenster_EndePruefen(text, "23:59"), SlotEnde::Unlesbar) << text;
        EXPECT_EQ(Zeitfenster_EndePruefen("00:00", text), SlotEnde::Unlesbar) << text;
    }
}

} // namespace
} // namespace qvm
