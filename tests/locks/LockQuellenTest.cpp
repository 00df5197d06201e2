#include "LocksFixture.h"

namespace qvm {
namespace {

using namespace std::string_literals;
using test::Breit;

struct Offsetnamen_Laden_Aus : test::LocksFixture {
    std::string Satz(const std::string& name, const std::string& id) {
        return Breit(name, 20) + "00:00" + "00:00" + Breit(id, 8);
    }
};

TEST_F(Offsetnamen_Laden_Aus, four_records_give_name_and_identifier) {
    files[Offsets] = Satz("Eins", "OFST0x01") + Satz("Zwei", "OFST0x02") + Satz("Drei", "OFST0x03") +
                     Satz("Vier", "OFST0x04") + Satz("Zuviel", "OFST0x05");
    EXPECT_TRUE(Offsetnamen_Laden(kern, table));
    EXPECT_EQ(table.Offsets[0], (OffsetEntry{"", ""}));
    EXPECT_EQ(table.Offsets[1], (OffsetEntry{"Eins", "OFST0x01"}));
    EXPECT_EQ(table.Offsets[2], (OffsetEntry{"Zwei", "OFST0x02"}));
    EXPECT_EQ(table.Offsets[3], (OffsetEntry{"Drei", "OFST0x03"}));
    EXPECT_EQ(table.Offsets[4], (OffsetEntry{"Vier", "OFST0x04"}));
}

// The first save of the offsets writes blank identifiers over the defaults.
TEST_F(Offsetnamen_Laden_Aus, a_blank_identifier_is_that_of_its_record_number) {
    files[Offsets] = Satz("", "") + Satz("", "") + Satz("", "") + Satz("", "");
    EXPECT_TRUE(Offsetnamen_Laden(kern, table));
    EXPECT_EQ(table.Offsets[1].Id, "OFST0x01");
    EXPECT_EQ(table.Offsets[4].Id, "OFST0x04");
}

TEST_F(Offsetnamen_Laden_Aus, a_short_file_and_a_missing_one_keep_the_identifiers) {
    files[Offsets] = Satz("Eins", "OFST0x01") + "Zwe";
    EXPECT_TRUE(Offsetnamen_Laden(kern, table));
    EXPECT_EQ(table.Offsets[2], (OffsetEntry{"Zwe", "OFST0x02"}));
    EXPECT_EQ(table.Offsets[3], (OffsetEntry{"", "OFST0x03"}));
    files.clear();
    EXPECT_TRUE(Offsetnamen_Laden(kern, table));
    EXPECT_EQ(table.Offsets[1], (OffsetEntry{"", "OFST0x01"}));
}

struct Schlossgruppen_Laden_Aus : test::LocksFixture {
    std::string Satz(const std::string& name, const std::string& id) {
        return Breit("1", 3) + Breit(name, 40) + "X----" + Breit("1", 3) + Breit(id, 15);
    }
};

TEST_F(Schlossgruppen_Laden_Aus, five_records_are_read_and_the_rest_is_empty) {
    table.GroupTableLock[7].Name = "alt";
    for (const char* name : {"Eins", "Zwei", "Drei", "Vier", "Fuenf", "Sechs"}) {
        files[Groups] += Satz(name, "PB_"s + name);
    }
    EXPECT_TRUE(Schlossgruppen_Laden(kern, table));
    EXPECT_EQ(table.GroupTableLock[1].Name, "Eins");
    EXPECT_EQ(table.GroupTableLock[1].Days, "X----");
    EXPECT_EQ(table.GroupTableLock[5].PbId, "PB_Fuenf");
    EXPECT_EQ(table.GroupTableLock[6].Name, "");
    EXPECT_EQ(table.GroupTableLock[7].Name, "");
}

TEST_F(Schlossgruppen_Laden_Aus, a_missing_file_leaves_no_group) {
    table.GroupTableLock[1].Name = "alt";
    EXPECT_TRUE(Schlossgruppen_Laden(kern, table));
    EXPECT_EQ(table.GroupTableLock[1].Name, "");
}

struct UnitTypen_Laden_Aus : test::LocksFixture {
    void Modi(const std::string& modes) {
        for (const char mode : modes) {
            files[Units] += mode + Breit("", 240);
        }
        for (int row = 1; row <= 5; ++row) {
            grid.SetText(row, 2, "0A.1B.2C.3D");
        }
        EXPECT_TRUE(UnitTypen_Laden(kern, table));
    }
};

TEST_F(UnitTypen_Laden_Aus, the_classes_show_the_first_three_letters_of_their_lines) {
    Modi("123");
    EXPECT_EQ(Text(1, 11), "TA ");
    EXPECT_EQ(Text(2, 11), "AE ");
    EXPECT_EQ(Text(3, 11), "STE");
}

TEST_F(UnitTypen_Laden_Aus, every_other_class_is_a_dash) {
    Modi("40 9x");
    for (int row = 1; row <= 5; ++row) {
        EXPECT_EQ(Text(row, 11), " - ") << row;
    }
}

TEST_F(UnitTypen_Laden_Aus, a_row_without_a_serial_is_a_dash) {
    files[Units] = std::string(241 * 5, '1');
    Modi("1");
    EXPECT_EQ(Text(6, 11), " - ");
}

TEST_F(UnitTypen_Laden_Aus, the_cell_is_blue_bold_and_of_12_points) {
    Modi("1");
    EXPECT_EQ(grid.At(1, 11).ForeColor, 0xFF0000U);
    EXPECT_EQ(grid.At(1, 11).FontSize, 12);
    EXPECT_TRUE(grid.At(1, 11).Bold);
    EXPECT_TRUE(grid.At(200, 11).Bold);
}

struct AdapterAuswahl_Laden_Aus : test::LocksFixture {
    std::string Satz(const std::string& address, const std::string& name) {
        return Breit(address, 16) + Breit(name, 20) + "3 " + Breit("", 10) + std::string(17, '\0');
    }
    std::vector<std::string> Texte() {
        EXPECT_TRUE(AdapterAuswahl_Laden(kern, table));
        std::vector<std::string> texts;
        for (const LockAdapter& entry : table.Adapters) {
            texts.push_back(entry.Text);
        }
        return texts;
    }
};

TEST_F(AdapterAuswahl_Laden_Aus, an_entry_is_name_and_address_and_keeps_its_record) {
    files[Adapters] =
        Satz("", "") + Satz("/10/0/0/7", "PROGSTATION Foyer") + Satz("", "") + Satz("/10/0/0/9", "PROGSTATION Keller");
    EXPECT_EQ(Texte(),
              (std::vector<std::string>{" - ", "PROGSTATION Foyer [/10/0/0/7]", "PROGSTATION Keller [/10/0/0/9]"}));
    EXPECT_EQ(table.Adapters[2].Record, 4);
    EXPECT_EQ(table.Adapters[2].Adresse, "/10/0/0/9");
    EXPECT_EQ(table.Adapters[2].Name, "PROGSTATION Keller");
    EXPECT_EQ(table.Adapters[0].Record, 0);
}

TEST_F(AdapterAuswahl_Laden_Aus, the_enrolment_device_serves_no_lock) {
    files[Adapters] = Satz("/10/0/0/7", "PROGSTATION Foyer") + Satz("/10/0/0/8", "ENROLLMENT1 Buero");
    EXPECT_EQ(Texte(), (std::vector<std::string>{"PROGSTATION Foyer [/10/0/0/7]", " - "}));
}

TEST_F(AdapterAuswahl_Laden_Aus, without_a_file_there_is_only_the_way_to_unset_one) {
    EXPECT_EQ(Texte(), (std::vector<std::string>{" - "}));
}

TEST_F(AdapterAuswahl_Laden_Aus, an_adapter_without_an_address_has_empty_brackets) {
    files[Adapters] = Satz("", "PROGSTATION Neu");
    EXPECT_EQ(Texte(), (std::vector<std::string>{" - ", "PROGSTATION Neu []"}));
}

TEST_F(AdapterAuswahl_Laden_Aus, the_twentieth_record_is_not_offered) {
    for (int n = 1; n <= 20; ++n) {
        files[Adapters] += Satz("/1", "P" + std::to_string(n));
    }
    const auto texts = Texte();
    ASSERT_EQ(texts.size(), 20U); // with the one that unsets
    EXPECT_EQ(texts[19], "P19 [/1]");
}

TEST_F(AdapterAuswahl_Laden_Aus, a_second_load_does_not_double_the_list) {
    files[Adapters] = Satz("/1", "P");
    Texte();
    EXPECT_EQ(Texte(), (std::vector<std::string>{" - ", "P [/1]"}));
}

TEST_F(AdapterAuswahl_Laden_Aus, a_record_cut_short_shows_what_it_has) {
    files[Adapters] = Satz("/1", "PROG").substr(0, 18);
    EXPECT_EQ(Texte(), (std::vector<std::string>{" - ", "PR [/1]"}));
}

} // namespace
} // namespace qvm
