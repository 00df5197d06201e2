#include "F12_Speichern.h"
#include "LocksFixture.h"

namespace qvm {
namespace {

using namespace std::string_literals;

struct F12_Speichern_Nach : test::LocksFixture {
    /// A row with everything set.
    void Voll(int row) {
        grid.SetText(row, 1, "Haupteingang");
        grid.SetText(row, 2, "0A.1B.2C.3D");
        for (const int column : {4, 6, 8}) {
            grid.SetPicture(row, column, LockPicture::On);
        }
        for (const int column : {5, 7}) {
            grid.SetPicture(row, column, LockPicture::Off);
        }
        grid.SetText(row, 9, "5");
        grid.SetPicture(row, 10, LockPicture::Off);
        grid.SetText(row, 12, "Nacht");
        grid.SetText(row, 13, "/10/0/0/7");
        grid.SetText(row, 14, "PROGSTATION Foyer");
        grid.SetText(row, 15, "Spaet");
        grid.SetText(row, 16, "OFST0x02");
        grid.SetText(row, 17, "Zimmer");
        grid.SetText(row, 18, "9560");
        table.GroupTableLock[3] = {"3", "Nacht", "X----", "1", "PB_700000001"};
    }

    std::string Satz(const char* file, std::size_t length, std::size_t n) {
        return files[file].substr((n - 1) * length, length);
    }
};

TEST_F(F12_Speichern_Nach, a_full_row_gives_these_bytes_in_the_lock_file) {
    Voll(2);
    EXPECT_TRUE(Tuereinstellung_Speichern(kern, table));
    EXPECT_EQ(Satz(Locks, 45, 2), "Haupteingang\0\0\0\0\0\0\0\0"
                                  "OFST0x02"
                                  "0A 1B 2C 3D "
                                  "X X X"s);
    EXPECT_EQ(files[Locks].size(), 9000U); // 200 x 45
}

TEST_F(F12_Speichern_Nach, an_empty_row_gives_blanks_in_the_lock_file) {
    EXPECT_TRUE(Tuereinstellung_Speichern(kern, table));
    EXPECT_EQ(Satz(Locks, 45, 200), std::string(45, ' '));
}

TEST_F(F12_Speichern_Nach, a_name_is_cut_behind_twenty_characters_and_loses_blanks_behind_it) {
    grid.SetText(1, 1, "123456789012345678901");
    grid.SetText(2, 1, "Tor  ");
    EXPECT_TRUE(Tuereinstellung_Speichern(kern, table));
    EXPECT_EQ(Satz(Locks, 45, 1).substr(0, 28), "12345678901234567890        ");
    EXPECT_EQ(Satz(Locks, 45, 2).substr(0, 20), "Tor\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"s);
}

TEST_F(F12_Speichern_Nach, a_priority_is_followed_by_three_threes) {
    Voll(1);
    grid.SetText(2, 9, "");
    EXPECT_TRUE(Prioritaet_Speichern(kern, table));
    EXPECT_EQ(Satz(Priorities, 12, 1), "5  3  3  3  ");
    EXPECT_EQ(Satz(Priorities, 12, 2), "3  3  3  3  ");
    EXPECT_EQ(files[Priorities].size(), 2400U);
}

TEST_F(F12_Speichern_Nach, the_emi_state_is_one_character_a_lock) {
    grid.SetPicture(1, 10, LockPicture::On);
    grid.SetPicture(2, 10, LockPicture::Off);
    grid.SetPicture(3, 10, LockPicture::NotApplicable);
    EXPECT_TRUE(Emi_Speichern(kern, table));
    EXPECT_EQ(files[Emi], "XY" + std::string(198, ' '));
}

TEST_F(F12_Speichern_Nach, a_group_is_stored_with_identifier_and_name) {
    Voll(1);
    grid.SetText(2, 12, "-");
    EXPECT_TRUE(SchlossZeitGruppe_Speichern(kern, table));
    EXPECT_EQ(Satz(Bindings, 55, 1), "PB_700000001   "
                                     "Nacht                                   ");
    EXPECT_EQ(Satz(Bindings, 55, 2), "-              "
                                     "-                                       ");
    EXPECT_EQ(files[Bindings].size(), 11000U);
}

TEST_F(F12_Speichern_Nach, a_group_that_is_not_there_and_an_empty_text_are_stored_as_none) {
    grid.SetText(1, 12, "Unbekannt");
    grid.SetText(2, 12, ""); // the unused entries have empty names, too
    grid.SetText(3, 12, "Ohne");
    table.GroupTableLock[8] = {"8", "Ohne", "", "", ""};
    EXPECT_TRUE(SchlossZeitGruppe_Speichern(kern, table));
    EXPECT_EQ(Satz(Bindings, 55, 1).substr(0, 16), "-              U");
    EXPECT_EQ(Satz(Bindings, 55, 2).substr(0, 16), "-               ");
    EXPECT_EQ(Satz(Bindings, 55, 3).substr(0, 16), "-              O");
}

TEST_F(F12_Speichern_Nach, a_group_is_found_by_the_trimmed_text_in_any_of_eight_entries) {
    grid.SetText(1, 12, "  Letzte ");
    table.GroupTableLock[8] = {"8", "Letzte", "", "", "PB_8"};
    EXPECT_TRUE(SchlossZeitGruppe_Speichern(kern, table));
    EXPECT_EQ(Satz(Bindings, 55, 1).substr(0, 15), "PB_8           ");
}

TEST_F(F12_Speichern_Nach, an_adapter_is_stored_with_the_serial_of_its_lock) {
    Voll(1);
    EXPECT_TRUE(SchlossAdapter_Speichern(kern, table));
    EXPECT_EQ(Satz(LockAdapters, 48, 1), "/10/0/0/7       "
                                         "PROGSTATION Foyer   "
                                         "0A 1B 2C 3D ");
    EXPECT_EQ(files[LockAdapters].size(), 9600U);
}

TEST_F(F12_Speichern_Nach, the_adapter_of_a_row_without_a_serial_is_stored_blank) {
    grid.SetText(1, 13, "/10/0/0/7");
    grid.SetText(1, 14, "PROGSTATION Foyer");
    EXPECT_TRUE(SchlossAdapter_Speichern(kern, table));
    EXPECT_EQ(Satz(LockAdapters, 48, 1), std::string(48, ' '));
}

TEST_F(F12_Speichern_Nach, the_two_door_modes_are_AA_and_BB) {
    Voll(1);
    grid.SetText(2, 2, "0A.1B.2C.3E");
    grid.SetText(2, 17, "Gemeinschaft");
    EXPECT_TRUE(Tuermodus_Speichern(kern, table));
    EXPECT_EQ(Satz(Doors, 30, 1), "AA0A 1B 2C 3D 9560            ");
    EXPECT_EQ(Satz(Doors, 30, 2), "BB0A 1B 2C 3E                 ");
    EXPECT_EQ(Satz(Doors, 30, 3), std::string(30, ' '));
    EXPECT_EQ(files[Doors].size(), 6000U);
}

TEST_F(F12_Speichern_Nach, a_serial_passes_unchanged_through_the_three_files_that_hold_it) {
    Voll(7);
    grid.SetText(7, 2, "0E.6E.90.01");
    table.Offsets[2] = {"Spaet", "OFST0x02"};
    EXPECT_TRUE(F12_Speichern(kern, table));
    EXPECT_EQ(Satz(Locks, 45, 7).substr(28, 12), "0E 6E 90 01 ");
    EXPECT_EQ(Satz(LockAdapters, 48, 7).substr(36), "0E 6E 90 01 ");
    EXPECT_EQ(Satz(Doors, 30, 7).substr(2, 12), "0E 6E 90 01 ");
    EXPECT_TRUE(Laden());
    EXPECT_EQ(Text(7, 2), "0E.6E.90.01");
    EXPECT_EQ(Text(7, 14), "PROGSTATION Foyer");
    EXPECT_EQ(Text(7, 17), "Zimmer");
}

TEST_F(F12_Speichern_Nach, what_stands_behind_record_200_stays) {
    files[Locks] = std::string(9000, 'x') + "tail of locks";
    files[Priorities] = std::string(2400, 'x') + "tail";
    files[Emi] = std::string(200, 'x') + "t";
    files[Bindings] = std::string(11000, 'x') + "tail";
    files[LockAdapters] = std::string(9600, 'x') + "tail";
    files[Doors] = std::string(6000, 'x') + "tail";
    EXPECT_TRUE(F12_Speichern(kern, table));
    EXPECT_EQ(files[Locks].substr(9000), "tail of locks");
    EXPECT_EQ(files[Priorities].substr(2400), "tail");
    EXPECT_EQ(files[Emi].substr(200), "t");
    EXPECT_EQ(files[Bindings].substr(11000), "tail");
    EXPECT_EQ(files[LockAdapters].substr(9600), "tail");
    EXPECT_EQ(files[Doors].substr(6000), "tail");
    EXPECT_EQ(files[Locks].find('x'), std::string::npos);
    EXPECT_EQ(files[Doors].find('x'), std::string::npos);
}

TEST_F(F12_Speichern_Nach, exactly_six_files_are_written_and_the_changed_flag_falls) {
    table.LockDirty = true;
    EXPECT_TRUE(F12_Speichern(kern, table));
    EXPECT_FALSE(table.LockDirty);
    EXPECT_EQ(files.size(), 6U);
}

TEST_F(F12_Speichern_Nach, a_table_that_was_not_loaded_completely_is_not_saved) {
    files[Locks] = "as it was";
    disk.FailAt = 6; // the lock file
    EXPECT_FALSE(Laden());
    disk.FailAt = 0;
    table.LockDirty = true;
    EXPECT_FALSE(F12_Speichern(kern, table));
    EXPECT_FALSE(Tuereinstellung_Speichern(kern, table));
    EXPECT_FALSE(Prioritaet_Speichern(kern, table));
    EXPECT_FALSE(Emi_Speichern(kern, table));
    EXPECT_FALSE(SchlossZeitGruppe_Speichern(kern, table));
    EXPECT_FALSE(SchlossAdapter_Speichern(kern, table));
    EXPECT_FALSE(Tuermodus_Speichern(kern, table));
    EXPECT_TRUE(table.LockDirty);
    EXPECT_EQ(files, (std::map<std::string, std::string>{{Locks, "as it was"}}));
}

} // namespace
} // namespace qvm
