#include "Units.h"

#include "Text.h"
#include "UnitsFixture.h"

#include <rapidcheck.h>

namespace qvm {
namespace {

using test::Blanks;
using test::Nulls;

using Groups = std::array<std::string, 4>;

// ---- record

UnitRecord FullRecord() {
    UnitRecord units{"3", "0", "0", "00", "1", "30", "5", "0", "130", {}};
    units.Units[0] = {"Leser Eingang", {"01", "60", "A1", "F4"}, "1", "1"};
    units.Units[1] = {std::string(u8"Tür"_w), {"00", "00", "2C", "CD"}, "2", "12"};
    units.Units[4] = {"Dreissig Zeichen, kein Zeichen", {"0AB", "123", "456", "789"}, "0", "99"};
    return units;
}

std::string FullBytes() {
    return "3"
           "0"
           "0"
           "00 "
           "1 "
           "30"
           "5 "
           "0"
           "130" + //   0
           ("Leser Eingang" + Blanks(17)) +
           "01 60 A1 F4 " + "1" + "1 " +                                   //  16 unit 1
           ("T\xFCr" + Blanks(27)) + "00 00 2C CD " + "2" + "12" +         //  61 unit 2
           Blanks(45) +                                                    // 106 unit 3
           Blanks(45) +                                                    // 151 unit 4
           "Dreissig Zeichen, kein Zeichen" + "0AB123456789" + "0" + "99"; // 196 unit 5
}

TEST(Unit_Satz, a_full_record_byte_for_byte) {
    ASSERT_EQ(FullBytes().size(), 241U);
    EXPECT_EQ(Unit_Satz(FullRecord()), FullBytes());
}

TEST(Unit_Satz, an_empty_record_is_241_blanks) {
    EXPECT_EQ(Unit_Satz({}), Blanks(241));
}

TEST(Unit_Satz, texts_are_cut_at_the_width_of_their_field) {
    UnitRecord units;
    units.UnitMode = "34";
    units.Units[0] = {"31 Zeichen sind eines zu viel !X", {"1234", "", "", "ABCD"}, "12", "123"};
    EXPECT_EQ(Unit_Satz(units).substr(0, 63),
              "3" + Blanks(15) + "31 Zeichen sind eines zu viel " + "123" + Blanks(6) + "ABC" + "1" + "12" + "  ");
}

TEST(Unit_Lesen, takes_a_full_record_apart) {
    EXPECT_EQ(Unit_Lesen(FullBytes()), FullRecord());
}

TEST(Unit_Lesen, a_short_record_gives_what_it_has) {
    const UnitRecord units = Unit_Lesen(FullBytes().substr(0, 16 + 13 + 1));
    EXPECT_EQ(units.UnitMode, "3");
    EXPECT_EQ(units.RssiLevel, "130");
    EXPECT_EQ(units.Units[0].Name, "Leser Eingang");
    EXPECT_EQ(units.Units[0].Sn, Groups{});
    EXPECT_EQ(units.Units[1], Unit{});
}

TEST(Unit_Lesen, nulls_are_an_empty_record) {
    EXPECT_EQ(Unit_Lesen(Nulls(241)), UnitRecord{});
}

TEST(Unit_Lesen, gives_back_what_was_written_for_any_text_that_fits) {
    EXPECT_TRUE(rc::check([] {
        const auto text = [](int width) {
            const auto bytes = *rc::gen::container<std::string>(rc::gen::distinctFrom<char>('\0'));
            return std::string(Trim(std::string_view(bytes).substr(0, static_cast<std::size_t>(width))));
        };
        UnitRecord units{text(1), text(1), text(1), text(3), text(2), text(2), text(2), text(1), text(3), {}};
        for (Unit& unit : units.Units) {
            unit = {text(30), {text(3), text(3), text(3), text(3)}, text(1), text(2)};
        }
        const std::string record = Unit_Satz(units);
        RC_ASSERT(record.size() == 241);
        RC_ASSERT(Unit_Lesen(record) == units);
    }));
}

// ---- serial

TEST(Sn_Teilen, splits_at_the_points) {
    EXPECT_EQ(Sn_Teilen("01.60.A1.F4"), (Groups{"01", "60", "A1", "F4"}));
}

TEST(Sn_Teilen, the_fourth_group_is_the_rest) {
    EXPECT_EQ(Sn_Teilen("1.2.3.4.5.6"), (Groups{"1", "2", "3", "4.5.6"}));
}

TEST(Sn_Teilen, groups_may_be_of_any_length) {
    EXPECT_EQ(Sn_Teilen("12345..6.789ABC"), (Groups{"12345", "", "6", "789ABC"}));
}

TEST(Sn_Teilen, ends_early_with_the_text) {
    EXPECT_EQ(Sn_Teilen(""), Groups{});
    EXPECT_EQ(Sn_Teilen("01"), (Groups{"01", "", "", ""}));
    EXPECT_EQ(Sn_Teilen("01.60."), (Groups{"01", "60", "", ""}));
    EXPECT_EQ(Sn_Teilen("..."), Groups{});
}

TEST(Sn_Verbinden, joins_with_points_and_shows_no_serial_as_nothing) {
    EXPECT_EQ(Sn_Verbinden({"01", "60", "A1", "F4"}), "01.60.A1.F4");
    EXPECT_EQ(Sn_Verbinden({"01", "", "", ""}), "01...");
    EXPECT_EQ(Sn_Verbinden({}), "");
}

// ---- level

TEST(Pegel, five_texts_have_their_entries) {
    EXPECT_EQ(Pegel_Eintrag("090"), 0);
    EXPECT_EQ(Pegel_Eintrag("130"), 1);
    EXPECT_EQ(Pegel_Eintrag("170"), 2);
    EXPECT_EQ(Pegel_Eintrag("210"), 3);
    EXPECT_EQ(Pegel_Eintrag("255"), 4);
}

TEST(Pegel, any_other_text_shows_as_the_highest_level) {
    EXPECT_EQ(Pegel_Eintrag("000"), 4);
    EXPECT_EQ(Pegel_Eintrag(""), 4);
    EXPECT_EQ(Pegel_Eintrag("90"), 4);
    EXPECT_EQ(Pegel_Eintrag("xyz"), 4);
}

TEST(Pegel, five_entries_have_their_texts_and_no_entry_is_not_set) {
    EXPECT_EQ(Pegel_Text(0), "090");
    EXPECT_EQ(Pegel_Text(1), "130");
    EXPECT_EQ(Pegel_Text(2), "170");
    EXPECT_EQ(Pegel_Text(3), "210");
    EXPECT_EQ(Pegel_Text(4), "255");
    EXPECT_EQ(Pegel_Text(-1), "000");
    EXPECT_EQ(Pegel_Text(5), "000");
}

// ---- listening time

TEST(Lauschzeit_Sekunden, adds_hours_minutes_and_seconds) {
    UnitRecord record;
    record.Hours = "17";
    record.Minutes = "59";
    record.Seconds = "59";
    EXPECT_EQ(Lauschzeit_Sekunden(record), 64799);
}

TEST(Lauschzeit_Sekunden, a_part_that_its_list_does_not_offer_counts_as_0) {
    UnitRecord record;
    record.Hours = "18";
    record.Minutes = "60";
    record.Seconds = "7";
    EXPECT_EQ(Lauschzeit_Sekunden(record), 7);
}

} // namespace
} // namespace qvm
