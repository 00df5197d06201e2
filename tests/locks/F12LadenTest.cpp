#include "F12_Laden.h"
#include "LocksFixture.h"

namespace qvm {
namespace {

using namespace std::string_literals;
using test::Breit;
using test::LockBytes;

constexpr int On = LockPicture::On, Off = LockPicture::Off, None = LockPicture::None,
              NotApplicable = LockPicture::NotApplicable;

struct F12_Laden_Aus : test::LocksFixture {};

TEST_F(F12_Laden_Aus, no_files_200_rows_show_switches_on_priority_3_and_no_emi) {
    EXPECT_TRUE(Laden());
    for (int row = 1; row <= 200; ++row) {
        ASSERT_EQ(Schalter(row), (std::vector<int>{On, On, On, On, On})) << row;
        ASSERT_EQ(Text(row, 9), "3") << row;
        ASSERT_EQ(grid.At(row, 9).ForeColor, 0xFF0000U) << row;
        ASSERT_EQ(grid.At(row, 9).FontSize, 16) << row;
        ASSERT_EQ(Bild(row, 10), NotApplicable) << row;
        ASSERT_EQ(Text(row, 1) + Text(row, 2) + Text(row, 15) + Text(row, 16) + Text(row, 17) + Text(row, 18), "");
        ASSERT_EQ(Text(row, 12), "-") << row;
        ASSERT_EQ(Text(row, 11), " - ") << row;
    }
    EXPECT_TRUE(files.empty());
    EXPECT_FALSE(table.LoadFailed);
}

TEST_F(F12_Laden_Aus, headers_and_lock_numbers_are_written) {
    EXPECT_TRUE(Laden());
    EXPECT_EQ(Text(0, 0), "Nr.");
    EXPECT_EQ(Text(0, 1), "Bezeichnung");
    EXPECT_EQ(Text(0, 2), "Serien-Nr.");
    EXPECT_EQ(Text(0, 12), "Sperrgruppe");
    EXPECT_EQ(Text(0, 13), "Adapter");
    EXPECT_EQ(Text(0, 15), "Offset");
    EXPECT_EQ(Text(0, 17), "Modus");
    EXPECT_EQ(Text(1, 0), "1");
    EXPECT_EQ(Text(200, 0), "200");
}

TEST_F(F12_Laden_Aus, what_stood_in_the_grid_before_is_gone) {
    grid.SetText(7, 1, "alt");
    grid.SetText(7, 13, "alt");
    table.LockDirty = true;
    EXPECT_TRUE(Laden());
    EXPECT_EQ(Text(7, 1), "");
    EXPECT_EQ(Text(7, 13), "");
    EXPECT_FALSE(table.LockDirty);
}

TEST_F(F12_Laden_Aus, empty_files_count_as_missing_ones) {
    for (const char* file : {Locks, Priorities, Emi, Bindings, LockAdapters, Doors, Offsets, Groups, Units, Adapters}) {
        files[file] = "";
    }
    EXPECT_TRUE(Laden());
    EXPECT_EQ(Schalter(200), (std::vector<int>{On, On, On, On, On}));
    EXPECT_EQ(Text(200, 9), "3");
    EXPECT_EQ(Text(200, 12), "-");
    EXPECT_EQ(Bild(200, 10), NotApplicable);
}

TEST_F(F12_Laden_Aus, a_whole_installation_fills_every_column) {
    files[Locks] = LockBytes("Haupteingang", "OFST0x02", "0A 1B 2C 3D ", "X X X");
    files[Priorities] = "5  3  3  3  ";
    files[Emi] = "X";
    files[Bindings] = Breit("PB_700000001", 15) + Breit("Alter Name", 40);
    files[LockAdapters] = Breit("/10/0/0/7", 16) + Breit("PROGSTATION Foyer", 20) + "0A 1B 2C 3D ";
    files[Doors] = "AA0A 1B 2C 3D " + Breit("9560", 16);
    files[Offsets] = Breit("Frueh", 20) + "08:0009:30OFST0x01" + Breit("Spaet", 20) + "14:0015:00OFST0x02";
    files[Groups] = Breit("1", 3) + Breit("Nacht", 40) + "X----" + Breit("1", 3) + Breit("PB_700000001", 15);
    files[Units] = "3" + Breit("", 240);
    found = {"PROGSTATION Foyer", "PROGSTATION Keller"};

    EXPECT_TRUE(Laden());
    EXPECT_EQ(Text(1, 1), "Haupteingang");
    EXPECT_EQ(Text(1, 2), "0A.1B.2C.3D");
    EXPECT_EQ(Schalter(1), (std::vector<int>{On, Off, On, Off, On}));
    EXPECT_EQ(Text(1, 9), "5");
    EXPECT_EQ(Bild(1, 10), On);
    EXPECT_EQ(Text(1, 11), "STE");
    EXPECT_EQ(Text(1, 12), "Nacht");
    EXPECT_EQ(Text(1, 13), "/10/0/0/7");
    EXPECT_EQ(Text(1, 14), "PROGSTATION Foyer");
    EXPECT_EQ(Text(1, 15), "Spaet");
    EXPECT_EQ(Text(1, 16), "OFST0x02");
    EXPECT_EQ(Text(1, 17), "Zimmer");
    EXPECT_EQ(Text(1, 18), "9560");
    EXPECT_EQ(Text(2, 1), "");
    EXPECT_EQ(Text(2, 12), "-");
}

// A file error ends the routine of its file only; a table that lacks something is not saved.
TEST_F(F12_Laden_Aus, each_file_that_cannot_be_read_is_reported_and_the_others_are_shown) {
    for (int operation = 1; operation <= 10; ++operation) {
        files[Locks] = LockBytes("Tor", "", "0A 1B 2C 3D ", "X    ");
        disk.Operations = 0;
        disk.FailAt = operation;
        EXPECT_FALSE(Laden()) << operation;
        const bool saveNeedsIt = operation != 7 && operation != 8; // units and adapter list
        EXPECT_EQ(table.LoadFailed, saveNeedsIt) << operation;
        EXPECT_EQ(Text(1, 1), operation == 6 ? "" : "Tor") << operation;
    }
    disk.Operations = 0;
    disk.FailAt = 11;
    EXPECT_TRUE(Laden());
    EXPECT_EQ(disk.Operations, 10);
}

struct Tuereinstellung_laden_Aus : test::LocksFixture {
    void Laden(const std::string& bytes) {
        files[Locks] = bytes;
        table.Offsets[1] = {"Frueh", "OFST0x01"};
        table.Offsets[4] = {"Nacht", "OFST0x04"};
        EXPECT_TRUE(Tuereinstellung_laden(kern, table));
    }
};

TEST_F(Tuereinstellung_laden_Aus, a_lock_with_a_name_but_no_serial_shows_empty_switches) {
    grid.SetText(1, 9, "5");
    Laden(LockBytes("Lager", "", "", "XXXXX"));
    EXPECT_EQ(Text(1, 1), "Lager");
    EXPECT_EQ(Text(1, 2), "");
    EXPECT_EQ(Schalter(1), (std::vector<int>{None, None, None, None, None}));
    EXPECT_EQ(Text(1, 9), "5");
}

TEST_F(Tuereinstellung_laden_Aus, a_row_without_name_and_serial_gets_switches_on_and_priority_3) {
    grid.SetText(1, 9, "5");
    Laden(LockBytes("", "", "", "     "));
    EXPECT_EQ(Schalter(1), (std::vector<int>{On, On, On, On, On}));
    EXPECT_EQ(Text(1, 9), "3");
}

TEST_F(Tuereinstellung_laden_Aus, a_serial_counts_when_its_second_and_third_part_are_set) {
    Laden(LockBytes("A", "", "   1B 2C    ", "X    ") + LockBytes("B", "", "0A    2C 3D ", "X    ") +
          LockBytes("C", "", "0A 1B    3D ", "X    "));
    EXPECT_EQ(Text(1, 2), ".1B.2C.");
    EXPECT_EQ(Schalter(1), (std::vector<int>{On, Off, Off, Off, Off}));
    EXPECT_EQ(Text(2, 2), "");
    EXPECT_EQ(Text(3, 2), "");
}

TEST_F(Tuereinstellung_laden_Aus, only_X_is_on) {
    Laden(LockBytes("A", "", "0A 1B 2C 3D ", "Xx-\0Y"s));
    EXPECT_EQ(Schalter(1), (std::vector<int>{On, Off, Off, Off, Off}));
}

TEST_F(Tuereinstellung_laden_Aus, a_known_offset_shows_its_name_and_identifier) {
    Laden(LockBytes("A", "OFST0x04", "0A 1B 2C 3D ", ""));
    EXPECT_EQ(Text(1, 15), "Nacht");
    EXPECT_EQ(Text(1, 16), "OFST0x04");
}

TEST_F(Tuereinstellung_laden_Aus, a_blank_identifier_matches_no_offset_and_an_unknown_one_neither) {
    grid.SetText(1, 15, "alt");
    grid.SetText(1, 16, "alt");
    Laden(LockBytes("A", "", "0A 1B 2C 3D ", "") + LockBytes("B", "OFST0x09", "0A 1B 2C 3E ", ""));
    EXPECT_EQ(Text(1, 15) + Text(1, 16), ""); // entries 2 and 3 of the table are empty
    EXPECT_EQ(Text(2, 15) + Text(2, 16), "");
}

TEST_F(Tuereinstellung_laden_Aus, the_name_stops_at_zero_and_keeps_blanks_in_front) {
    Laden(" Tor 2  \0Rest.......OFST0x01            XXXXX"s);
    EXPECT_EQ(Text(1, 1), " Tor 2");
}

TEST_F(Tuereinstellung_laden_Aus, a_name_of_twenty_characters_is_shown_whole) {
    Laden(LockBytes("12345678901234567890", "", "0A 1B 2C 3D ", ""));
    EXPECT_EQ(Text(1, 1), "12345678901234567890");
}

TEST_F(Tuereinstellung_laden_Aus, a_last_record_cut_short_gives_what_it_has) {
    Laden(LockBytes("A", "", "0A 1B 2C 3D ", "XXXXX") +
          LockBytes("B", "OFST0x01", "0A 1B 2C 3E ", "XXXXX").substr(0, 41));
    EXPECT_EQ(Text(2, 1), "B");
    EXPECT_EQ(Text(2, 2), "0A.1B.2C.3E");
    EXPECT_EQ(Schalter(2), (std::vector<int>{On, Off, Off, Off, Off}));
    EXPECT_EQ(Schalter(3), (std::vector<int>{On, On, On, On, On}));
}

TEST_F(Tuereinstellung_laden_Aus, what_stands_behind_record_200_is_not_looked_at) {
    std::string bytes;
    for (int n = 0; n < 200; ++n) {
        bytes += LockBytes("A", "", "0A 1B 2C 3D ", "XXXXX");
    }
    Laden(bytes + LockBytes("B", "", "0A 1B 2C 3D ", "XXXXX"));
    EXPECT_EQ(Text(200, 1), "A");
    EXPECT_EQ(grid.Rows(), 201);
}

TEST_F(Tuereinstellung_laden_Aus, bytes_of_any_kind_do_no_harm) {
    Laden(std::string(9000, '\xFF'));
    EXPECT_EQ(Text(200, 1), std::string(20, '\xFF'));
    EXPECT_EQ(Text(200, 2), "\xFF\xFF\xFF.\xFF\xFF\xFF.\xFF\xFF\xFF.\xFF\xFF\xFF");
    EXPECT_EQ(Schalter(200), (std::vector<int>{Off, Off, Off, Off, Off}));
}

struct Prioritaet_Laden_Aus : test::LocksFixture {};

TEST_F(Prioritaet_Laden_Aus, the_first_field_is_shown_blue_and_large) {
    files[Priorities] = "1  3  3  3  5  9  9  9  ";
    EXPECT_TRUE(Prioritaet_Laden(kern, table));
    EXPECT_EQ(Text(1, 9), "1");
    EXPECT_EQ(Text(2, 9), "5");
    EXPECT_EQ(grid.At(2, 9).ForeColor, 0xFF0000U);
    EXPECT_EQ(grid.At(2, 9).FontSize, 16);
}

TEST_F(Prioritaet_Laden_Aus, an_empty_value_and_a_missing_record_give_3) {
    files[Priorities] = "   3  3  3  \0\0\0\0\0"s;
    EXPECT_TRUE(Prioritaet_Laden(kern, table));
    EXPECT_EQ(Text(1, 9), "3");
    EXPECT_EQ(Text(2, 9), "3");
    EXPECT_EQ(Text(200, 9), "3");
}

struct Emi_Laden_Aus : test::LocksFixture {};

TEST_F(Emi_Laden_Aus, X_is_on_Y_is_off_and_any_other_is_not_applicable) {
    files[Emi] = "XY xy\0X"s;
    EXPECT_TRUE(Emi_Laden(kern, table));
    EXPECT_EQ(Bild(1, 10), On);
    EXPECT_EQ(Bild(2, 10), Off);
    EXPECT_EQ(Bild(3, 10), NotApplicable);
    EXPECT_EQ(Bild(4, 10), NotApplicable);
    EXPECT_EQ(Bild(5, 10), NotApplicable);
    EXPECT_EQ(Bild(6, 10), NotApplicable);
    EXPECT_EQ(Bild(7, 10), On);
    EXPECT_EQ(Bild(8, 10), NotApplicable);
}

TEST_F(Emi_Laden_Aus, a_missing_file_is_not_applicable_for_all) {
    EXPECT_TRUE(Emi_Laden(kern, table));
    EXPECT_EQ(Bild(1, 10), NotApplicable);
    EXPECT_EQ(Bild(200, 10), NotApplicable);
}

TEST_F(Emi_Laden_Aus, a_byte_behind_the_200th_is_not_looked_at) {
    files[Emi] = std::string(200, 'Y') + "X";
    EXPECT_TRUE(Emi_Laden(kern, table));
    EXPECT_EQ(Bild(200, 10), Off);
}

struct SchlossZeitGruppe_Laden_Aus : test::LocksFixture {
    std::string Gezeigt(const std::string& id, const std::string& name) {
        table.GroupTableLock[1] = {"1", "Nacht", "X----", "1", "PB_1"};
        table.GroupTableLock[5] = {"5", "Wochenende", "-X---", "1", "PB_5"};
        files[Bindings] = Breit(id, 15) + Breit(name, 40);
        EXPECT_TRUE(SchlossZeitGruppe_Laden(kern, table));
        return Text(1, 12);
    }
};

TEST_F(SchlossZeitGruppe_Laden_Aus, the_present_name_of_the_group_is_shown_not_the_stored_one) {
    EXPECT_EQ(Gezeigt("PB_5", "Name von frueher"), "Wochenende");
}

TEST_F(SchlossZeitGruppe_Laden_Aus, a_group_that_has_been_deleted_reads_as_none) {
    EXPECT_EQ(Gezeigt("PB_3", "Nacht"), "-");
}

TEST_F(SchlossZeitGruppe_Laden_Aus, an_empty_identifier_matches_no_unused_entry) {
    EXPECT_EQ(Gezeigt("", ""), "-");
    EXPECT_EQ(Gezeigt("-", "-"), "-");
}

TEST_F(SchlossZeitGruppe_Laden_Aus, an_identifier_cut_by_the_end_of_the_file_is_compared_as_it_stands) {
    EXPECT_EQ(Gezeigt("PB_1", "Nacht"), "Nacht");
    files[Bindings] += "PB_";
    EXPECT_TRUE(SchlossZeitGruppe_Laden(kern, table));
    EXPECT_EQ(Text(2, 12), "-");
}

TEST_F(SchlossZeitGruppe_Laden_Aus, a_missing_file_gives_a_dash_in_every_row) {
    EXPECT_TRUE(SchlossZeitGruppe_Laden(kern, table));
    EXPECT_EQ(Text(1, 12), "-");
    EXPECT_EQ(Text(200, 12), "-");
}

struct SchlossAdapter_Laden_Aus : test::LocksFixture {
    void Laden() {
        files[LockAdapters] = Breit("/10/0/0/7", 16) + Breit("PROGSTATION Foyer", 20) + "0A 1B 2C 3D ";
        EXPECT_TRUE(SchlossAdapter_Laden(kern, table, found));
    }
};

TEST_F(SchlossAdapter_Laden_Aus, an_adapter_that_was_not_found_is_red_on_white) {
    grid.SetText(1, 2, "0A.1B.2C.3D");
    grid.SetBackColor(1, 13, 0xC0FFFF);
    found = {"PROGSTATION Keller"};
    Laden();
    EXPECT_EQ(Text(1, 13), "/10/0/0/7");
    EXPECT_EQ(Text(1, 14), "PROGSTATION Foyer");
    EXPECT_EQ(grid.At(1, 13).ForeColor, 0x0000FFU);
    EXPECT_EQ(grid.At(1, 13).BackColor, 0xFFFFFFU);
}

TEST_F(SchlossAdapter_Laden_Aus, one_that_was_found_is_dark_blue) {
    grid.SetText(1, 2, "0A.1B.2C.3D");
    found = {"PROGSTATION Keller", "PROGSTATION Foyer"};
    Laden();
    EXPECT_EQ(grid.At(1, 13).ForeColor, 0x800000U);
}

TEST_F(SchlossAdapter_Laden_Aus, a_row_without_a_serial_is_left_alone) {
    Laden();
    EXPECT_EQ(Text(1, 13) + Text(1, 14), "");
    EXPECT_EQ(grid.At(1, 13).ForeColor, Black);
}

TEST_F(SchlossAdapter_Laden_Aus, a_blank_name_is_never_found) {
    grid.SetText(2, 2, "0A.1B.2C.3E");
    found = {""};
    Laden();
    EXPECT_EQ(Text(2, 13), "");
    EXPECT_EQ(grid.At(2, 13).ForeColor, 0x0000FFU);
}

TEST_F(SchlossAdapter_Laden_Aus, the_columns_have_a_width_from_two_adapters_on) {
    Laden();
    EXPECT_FALSE(table.AdapterSpalten);
    found = {"PROGSTATION Foyer"};
    Laden();
    EXPECT_FALSE(table.AdapterSpalten);
    found = {"PROGSTATION Foyer", "PROGSTATION Keller"};
    Laden();
    EXPECT_TRUE(table.AdapterSpalten);
}

struct Tuermodus_Laden_Aus : test::LocksFixture {
    void Laden(const std::string& bytes) {
        files[Doors] = bytes;
        EXPECT_TRUE(Tuermodus_Laden(kern, table));
    }
};

TEST_F(Tuermodus_Laden_Aus, mode_and_date_are_shown_for_the_row_of_that_serial) {
    grid.SetText(1, 2, "0A.1B.2C.3D");
    grid.SetText(2, 2, "0A.1B.2C.3E");
    Laden("AA0A 1B 2C 3D " + Breit("9560", 16) + "BB0A 1B 2C 3E " + Breit("", 16));
    EXPECT_EQ(Text(1, 17), "Zimmer");
    EXPECT_EQ(Text(1, 18), "9560");
    EXPECT_EQ(Text(2, 17), "Gemeinschaft");
    EXPECT_EQ(Text(2, 18), "");
}

TEST_F(Tuermodus_Laden_Aus, a_record_of_another_serial_shows_nothing) {
    grid.SetText(1, 2, "0A.1B.2C.3D");
    grid.SetText(1, 17, "alt");
    grid.SetText(1, 18, "alt");
    Laden("AA0A 1B 2C 3E " + Breit("9560", 16));
    EXPECT_EQ(Text(1, 17) + Text(1, 18), "");
}

TEST_F(Tuermodus_Laden_Aus, any_other_mode_shows_none) {
    grid.SetText(1, 2, "0A.1B.2C.3D");
    Laden("CC0A 1B 2C 3D " + Breit("9560", 16));
    EXPECT_EQ(Text(1, 17), "");
    EXPECT_EQ(Text(1, 18), "9560");
}

TEST_F(Tuermodus_Laden_Aus, a_record_cut_behind_its_serial_has_no_date) {
    grid.SetText(1, 2, "0A.1B.2C.3D");
    Laden("AA0A 1B 2C 3D ");
    EXPECT_EQ(Text(1, 17), "Zimmer");
    EXPECT_EQ(Text(1, 18), "");
}

} // namespace
} // namespace qvm
