#include "UnitSettings.h"

#include "UnitsFixture.h"

namespace qvm {
namespace {

using test::Blanks;
using test::HeadOnly;
using test::Nulls;

// ---- load

struct Units_Laden : test::UnitWorld {
    bool Load(int lock = 1) { return qvm::Units_Laden(kern, lock, settings, FGK20); }
    void ExpectDefaults() {
        EXPECT_EQ(settings.Mode, 0);
        EXPECT_EQ(settings.HourEntry, 0);
        EXPECT_EQ(settings.MinuteEntry, 0);
        EXPECT_EQ(settings.SecondEntry, 0);
        EXPECT_FALSE(settings.AlwaysOnChecked);
        EXPECT_FALSE(settings.SignalChecked);
        EXPECT_EQ(settings.LevelEntry, 4);
        EXPECT_EQ(settings.Hours, "00");
        EXPECT_EQ(settings.Minutes, "00");
        EXPECT_EQ(settings.Seconds, "00");
        EXPECT_EQ(settings.AlwaysOn, "0");
        EXPECT_EQ(settings.SignalFlag, "0");
        EXPECT_EQ(settings.RssiLevel, "000");
        EXPECT_FALSE(settings.TimeControls);
        EXPECT_TRUE(settings.SignalControls);
        for (int row = 1; row <= 5; ++row) {
            for (int column = 1; column <= 4; ++column) {
                EXPECT_EQ(FGK20.Text(row, column), "");
            }
        }
    }
    /// Everything on, so that a load must put it back.
    void Disturb() {
        settings = {"3", "1", "0", "44", "1", "2", "3", "1", "090", 1, 1, 2, 3, 0, true, true, true, false};
        for (int row = 1; row <= 5; ++row) {
            for (int column = 1; column <= 4; ++column) {
                FGK20.SetText(row, column, "alt");
            }
        }
    }
};

TEST_F(Units_Laden, a_missing_file_gives_the_defaults) {
    Disturb();
    EXPECT_TRUE(Load());
    ExpectDefaults();
}

TEST_F(Units_Laden, an_empty_file_and_a_gap_give_the_defaults) {
    File(UnitFile) = "";
    Disturb();
    EXPECT_TRUE(Load());
    ExpectDefaults();
    File(UnitFile) = Nulls(482);
    Disturb();
    EXPECT_TRUE(Load(2));
    ExpectDefaults();
}

TEST_F(Units_Laden, mode_1_turns_both_groups_of_controls_off) {
    File(UnitFile) = HeadOnly("10000 1 2 3 1090");
    EXPECT_TRUE(Load());
    EXPECT_EQ(settings.UnitMode, "1");
    EXPECT_EQ(settings.Mode, 0);
    EXPECT_FALSE(settings.TimeControls);
    EXPECT_FALSE(settings.SignalControls);
    EXPECT_EQ(settings.LevelEntry, 4);
    EXPECT_FALSE(settings.SignalChecked);
}

TEST_F(Units_Laden, mode_2_shows_level_and_flag) {
    File(UnitFile) = HeadOnly("20000 1 2 3 1170");
    EXPECT_TRUE(Load());
    EXPECT_EQ(settings.Mode, 0);
    EXPECT_FALSE(settings.TimeControls);
    EXPECT_TRUE(settings.SignalControls);
    EXPECT_EQ(settings.LevelEntry, 2);
    EXPECT_EQ(settings.RssiLevel, "170");
    EXPECT_TRUE(settings.SignalChecked);
    EXPECT_EQ(settings.SignalFlag, "1");
    EXPECT_EQ(settings.HourEntry, 0); // times belong to mode 3
}

TEST_F(Units_Laden, an_unknown_level_shows_level_5) {
    File(UnitFile) = HeadOnly("20000 0 0 0 0123");
    EXPECT_TRUE(Load());
    EXPECT_EQ(settings.LevelEntry, 4);
}

TEST_F(Units_Laden, mode_3_shows_times_and_check) {
    File(UnitFile) = HeadOnly("31000 17595 0000");
    EXPECT_TRUE(Load());
    EXPECT_EQ(settings.Mode, 1);
    EXPECT_TRUE(settings.TimeControls);
    EXPECT_FALSE(settings.SignalControls);
    EXPECT_EQ(settings.HourEntry, 17);
    EXPECT_EQ(settings.MinuteEntry, 59);
    EXPECT_EQ(settings.SecondEntry, 5);
    EXPECT_TRUE(settings.AlwaysOnChecked);
    EXPECT_EQ(settings.AlwaysOn, "1");
}

TEST_F(Units_Laden, a_clear_check_does_not_touch_the_seconds) {
    File(UnitFile) = HeadOnly("30000 0 0 0 0000");
    EXPECT_TRUE(Load());
    EXPECT_FALSE(settings.AlwaysOnChecked);
    EXPECT_EQ(settings.SecondEntry, 0);
}

TEST_F(Units_Laden, a_time_that_its_list_does_not_have_shows_as_the_first_entry) {
    File(UnitFile) = HeadOnly("30000 1860-50000");
    EXPECT_TRUE(Load());
    EXPECT_EQ(settings.HourEntry, 0);
    EXPECT_EQ(settings.MinuteEntry, 0);
    EXPECT_EQ(settings.SecondEntry, 0);
}

TEST_F(Units_Laden, an_unknown_mode_is_like_no_record) {
    File(UnitFile) = HeadOnly("90000 1 2 3 1090");
    Disturb();
    EXPECT_TRUE(Load());
    ExpectDefaults();
}

TEST_F(Units_Laden, fills_the_five_rows_of_the_lock) {
    File(UnitFile) = HeadOnly("2") + "20000 0 0 0 0000" + "Leser" + Blanks(25) + "01 60 A1 F4 " + "1" + "1 " +
                     Blanks(135) + "Tastatur" + Blanks(22) + "00 00 2C CD " + "2" + "12";
    ASSERT_EQ(File(UnitFile).size(), 482U);
    EXPECT_TRUE(Load(2));
    EXPECT_EQ(FGK20.Text(1, 1), "Leser");
    EXPECT_EQ(FGK20.Text(1, 2), "01.60.A1.F4");
    EXPECT_EQ(FGK20.Text(1, 3), "1");
    EXPECT_EQ(FGK20.Text(1, 4), "1");
    EXPECT_EQ(FGK20.Text(2, 2), "");
    EXPECT_EQ(FGK20.Text(5, 1), "Tastatur");
    EXPECT_EQ(FGK20.Text(5, 2), "00.00.2C.CD");
    EXPECT_EQ(FGK20.Text(5, 4), "12");
}

TEST_F(Units_Laden, a_partial_record_counts_as_far_as_it_goes) {
    File(UnitFile) = "30000 1 2";
    EXPECT_TRUE(Load());
    EXPECT_EQ(settings.Mode, 1);
    EXPECT_EQ(settings.HourEntry, 1);
    EXPECT_EQ(settings.MinuteEntry, 2);
    EXPECT_EQ(settings.SecondEntry, 0);
    EXPECT_EQ(FGK20.Text(1, 1), "");
}

TEST_F(Units_Laden, a_damaged_file_is_shown_as_it_reads) {
    File(UnitFile) = std::string(241, '\xFF');
    EXPECT_TRUE(Load());
    EXPECT_EQ(settings.Mode, 0);
    EXPECT_EQ(FGK20.Text(1, 1), std::string(30, '\xFF'));
}

TEST_F(Units_Laden, a_lock_that_does_not_exist_or_a_file_error_changes_nothing) {
    Disturb();
    EXPECT_FALSE(Load(0));
    EXPECT_FALSE(Load(201));
    Welt.Disk.FailAt = Welt.Disk.Operations + 1;
    EXPECT_FALSE(Load(1));
    EXPECT_EQ(settings.Mode, 1);
    EXPECT_EQ(FGK20.Text(1, 1), "alt");
}

TEST_F(Units_Laden, a_longer_file_is_no_fault) {
    File(UnitFile) = Nulls(241 * 199) + HeadOnly("20000 0 0 0 0130") + "behind";
    EXPECT_TRUE(Load(200));
    EXPECT_EQ(settings.LevelEntry, 1);
}

// ---- accept and save

struct Units_Speichern : test::UnitWorld {
    void Unit1(const char* name, const char* serial, const char* module, const char* number) {
        FGK20.SetText(1, 1, name);
        FGK20.SetText(1, 2, serial);
        FGK20.SetText(1, 3, module);
        FGK20.SetText(1, 4, number);
    }
    bool Save(int lock = 1) { return qvm::Units_Speichern(kern, lock, settings, FGK20); }
};

TEST_F(Units_Speichern, the_record_byte_for_byte_at_the_place_of_its_lock) {
    settings.Mode = 1;
    settings.HourEntry = 17;
    settings.MinuteEntry = 0;
    settings.SecondEntry = 5;
    settings.SignalFlag = "0";
    settings.RssiLevel = "000";
    Unit1("Leser Eingang", "01.60.A1.F4", "1", "1");
    FGK20.SetText(5, 1, "Tastatur");

    ASSERT_TRUE(Units_Uebernehmen(settings));
    EXPECT_TRUE(Save(3));

    const std::string expected = "3"
                                 "0"
                                 "0"
                                 "00 "
                                 "17"
                                 "0 "
                                 "5 "
                                 "0"
                                 "000" +                          //   0
                                 ("Leser Eingang" + Blanks(17)) + //  16
                                 "01 60 A1 F4 " +
                                 "1" + "1 " +                          //  46
                                 Blanks(135) +                         //  61
                                 "Tastatur" + Blanks(22) + Blanks(15); // 196
    ASSERT_EQ(expected.size(), 241U);
    EXPECT_EQ(File(UnitFile), Nulls(482) + expected);
}

TEST_F(Units_Speichern, leaves_the_other_locks_and_what_lies_behind) {
    File(UnitFile) = std::string(241, 'a') + std::string(241, 'b') + std::string(241 * 198, 'c') + "behind";
    settings.UnitMode = "2";
    EXPECT_TRUE(Save(2));
    EXPECT_EQ(File(UnitFile).substr(0, 241), std::string(241, 'a'));
    EXPECT_EQ(File(UnitFile)[241], '2');
    EXPECT_EQ(File(UnitFile).substr(482), std::string(241 * 198, 'c') + "behind");
}

TEST_F(Units_Speichern, a_refused_serial_has_blank_groups) {
    settings.UnitMode = "2";
    Unit1("Leser", "", "0", "");
    EXPECT_TRUE(Save());
    EXPECT_EQ(File(UnitFile).substr(16, 45), "Leser" + Blanks(25) + Blanks(12) + "0" + "  ");
}

TEST_F(Units_Speichern, what_was_saved_loads_again) {
    settings.Mode = 0;
    settings.RssiLevel = "210";
    settings.SignalFlag = "1";
    Unit1("Leser", "00.00.2C.CD", "2", "7");
    ASSERT_TRUE(Units_Uebernehmen(settings));
    ASSERT_TRUE(Save(200));

    UnitSettings loaded;
    Grid grid{6, 5};
    EXPECT_TRUE(qvm::Units_Laden(kern, 200, loaded, grid));
    EXPECT_EQ(loaded.UnitMode, "2");
    EXPECT_EQ(loaded.LevelEntry, 3);
    EXPECT_TRUE(loaded.SignalChecked);
    EXPECT_EQ(grid.Text(1, 2), "00.00.2C.CD");
    EXPECT_EQ(grid.Text(1, 4), "7");
}

struct Unit_Kanal_Merken : test::UnitWorld {
    /// Lock 2: units 1 and 5 with the same serial number, unit 2 with another; around it other locks.
    std::string Table(const std::string& first, const std::string& fifth) {
        const std::string serial = "01 60 00 05 ";
        return std::string(241, 'a') + "1x9AAABBCCDD1130" + ("Tor" + Blanks(27) + serial + "1" + first) +
               ("Hof" + Blanks(27) + "00 00 20 01 " + "2" + "9 ") + Blanks(90) + (Blanks(30) + serial + "1" + fifth) +
               std::string(241, 'c') + "behind";
    }
};

TEST_F(Unit_Kanal_Merken, changes_the_channel_of_that_serial_number_and_no_other_byte) {
    File(UnitFile) = Table("  ", "12");
    EXPECT_TRUE(qvm::Unit_Kanal_Merken(kern, 2, "01.60.00.05", 7));
    EXPECT_EQ(File(UnitFile), Table("7 ", "7 "));
    EXPECT_TRUE(qvm::Unit_Kanal_Merken(kern, 2, "01.60.00.05", 12));
    EXPECT_EQ(File(UnitFile), Table("12", "12"));
}

TEST_F(Unit_Kanal_Merken, writes_nothing_where_there_is_no_such_unit) {
    EXPECT_TRUE(qvm::Unit_Kanal_Merken(kern, 2, "01.60.00.05", 7));
    EXPECT_FALSE(Has(UnitFile));
    File(UnitFile) = Table("1 ", "1 ").substr(0, 300);
    EXPECT_TRUE(qvm::Unit_Kanal_Merken(kern, 2, "00.00.20.01", 7)) << "cut off before it";
    EXPECT_EQ(File(UnitFile), Table("1 ", "1 ").substr(0, 300));
    EXPECT_FALSE(qvm::Unit_Kanal_Merken(kern, 0, "01.60.00.05", 7));
    EXPECT_FALSE(qvm::Unit_Kanal_Merken(kern, 201, "01.60.00.05", 7));
}

TEST_F(Unit_Kanal_Merken, leaves_the_file_where_the_disk_refuses) {
    File(UnitFile) = Table("1 ", "1 ");
    for (int operation = 1; operation <= 2; ++operation) {
        Welt.Disk.FailAt = Welt.Disk.Operations + operation;
        Welt.Disk.FailFromThere = true;
        EXPECT_FALSE(qvm::Unit_Kanal_Merken(kern, 2, "01.60.00.05", 7)) << operation;
        EXPECT_EQ(File(UnitFile), Table("1 ", "1 ")) << operation;
    }
}

TEST_F(Units_Speichern, refuses_a_time_window_of_no_length) {
    settings.UnitMode = "3";
    settings.AlwaysOn = "0";
    settings.Hours = settings.Minutes = settings.Seconds = "00";
    EXPECT_FALSE(Save());
    EXPECT_FALSE(Has(UnitFile));
}

TEST_F(Units_Speichern, refuses_a_lock_that_does_not_exist) {
    settings.UnitMode = "2";
    EXPECT_FALSE(Save(0));
    EXPECT_FALSE(Save(201));
    EXPECT_FALSE(Has(UnitFile));
}

TEST_F(Units_Speichern, a_write_that_fails_leaves_the_old_file) {
    const std::string old = HeadOnly("30000 1 2 3 0000");
    File(UnitFile) = old;
    settings.UnitMode = "2";
    Welt.Disk.FailAt = 1;
    EXPECT_FALSE(Save());
    EXPECT_EQ(File(UnitFile), old);
    EXPECT_TRUE(Save()); // one operation: the second try is the first that nobody breaks
    EXPECT_EQ(File(UnitFile)[0], '2');
}

struct Units_Uebernehmen : test::UnitWorld {};

TEST_F(Units_Uebernehmen, takes_mode_and_times_from_their_lists) {
    settings.Mode = 1;
    settings.HourEntry = 2;
    settings.MinuteEntry = 30;
    settings.SecondEntry = 0;
    settings.ScanSignal = "44";
    EXPECT_TRUE(qvm::Units_Uebernehmen(settings));
    EXPECT_EQ(settings.UnitMode, "3");
    EXPECT_EQ(settings.Hours, "2");
    EXPECT_EQ(settings.Minutes, "30");
    EXPECT_EQ(settings.Seconds, "0");
    EXPECT_EQ(settings.Reserved1, "0");
    EXPECT_EQ(settings.ScanSignal, "00");
    EXPECT_EQ(settings.AlwaysOn, "0"); // nobody had set it
}

TEST_F(Units_Uebernehmen, mode_1_becomes_2) {
    settings.UnitMode = "1";
    settings.Mode = 0;
    EXPECT_TRUE(qvm::Units_Uebernehmen(settings));
    EXPECT_EQ(settings.UnitMode, "2");
}

TEST_F(Units_Uebernehmen, a_time_window_of_no_length_is_refused) {
    settings.Mode = 1;
    EXPECT_FALSE(qvm::Units_Uebernehmen(settings));
    settings.AlwaysOn = "0";
    EXPECT_FALSE(qvm::Units_Uebernehmen(settings));
}

TEST_F(Units_Uebernehmen, a_time_window_of_no_length_that_is_always_on_is_taken) {
    settings.Mode = 1;
    settings.AlwaysOn = "1";
    EXPECT_TRUE(qvm::Units_Uebernehmen(settings));
    EXPECT_TRUE(qvm::Units_Speichern(kern, 1, settings, FGK20));
    EXPECT_EQ(File(UnitFile).substr(0, 12), "310"
                                            "00 "
                                            "0 0 0 ");
}

TEST_F(Units_Uebernehmen, one_second_is_a_length) {
    settings.Mode = 1;
    settings.SecondEntry = 1;
    EXPECT_TRUE(qvm::Units_Uebernehmen(settings));
}

TEST_F(Units_Uebernehmen, the_threshold_mode_needs_no_time) {
    settings.Mode = 0;
    EXPECT_TRUE(qvm::Units_Uebernehmen(settings));
}

struct Unit_Name_Frei : test::UnitWorld {};

TEST_F(Unit_Name_Frei, two_units_may_not_share_a_name) {
    FGK20.SetText(1, 1, "Leser");
    EXPECT_FALSE(qvm::Unit_Name_Frei(FGK20, 2, "Leser"));
    EXPECT_TRUE(qvm::Unit_Name_Frei(FGK20, 2, "Leser 2"));
    EXPECT_TRUE(qvm::Unit_Name_Frei(FGK20, 1, "Leser"));
}

TEST_F(Unit_Name_Frei, an_empty_name_is_always_free) {
    EXPECT_TRUE(qvm::Unit_Name_Frei(FGK20, 2, ""));
}

TEST_F(Unit_Name_Frei, two_units_may_share_a_serial) {
    settings.UnitMode = "2";
    FGK20.SetText(1, 1, "Leser 1");
    FGK20.SetText(1, 2, "00.00.00.01");
    FGK20.SetText(2, 1, "Leser 2");
    FGK20.SetText(2, 2, "00.00.00.01");
    EXPECT_TRUE(qvm::Unit_Name_Frei(FGK20, 2, "Leser 2"));
    EXPECT_TRUE(qvm::Units_Speichern(kern, 1, settings, FGK20));
    EXPECT_EQ(File(UnitFile).substr(46, 12), "00 00 00 01 ");
    EXPECT_EQ(File(UnitFile).substr(91, 12), "00 00 00 01 ");
}

} // namespace
} // namespace qvm
