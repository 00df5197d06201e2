// What a guest card needs beside the guest's dates: its three files, byte by byte.

#include "Gastzeiten.h"

#include "TimeFixture.h"

#include <gtest/gtest.h>
#include <random>

namespace qvm::test {
namespace {

/// Today is 05.03.2026.
struct Gastzeiten : TimeFixture {
    static constexpr const char *Offsets = "/qvm/DAT/T4OFFSETGST.FST", *Setup = "/qvm/DAT/OFSTSETUPDT.FST",
                                *Selection = "/qvm/DAT/ASWTIMQVMLCK.FSN";
    Grid grid{OffsetRows + 1, OffsetColumn::Count};
    DefaultTimes times;
    GuestSelection selection;

    std::string& File(const char* path) { return files[path]; }
    bool There(const char* path) const { return files.contains(path); }
    void Row(int row, std::string_view name, std::string_view time, std::string_view base, std::string_view id) {
        grid.SetText(row, 1, name);
        grid.SetText(row, 2, time);
        grid.SetText(row, 3, base);
        grid.SetText(row, 4, id);
    }
};

TEST_F(Gastzeiten, make_the_file_of_the_offsets_and_leave_the_grid_blank_until_the_next_load) {
    ASSERT_TRUE(Offsets_Laden(kern, grid));
    EXPECT_EQ(File(Offsets), "OFF                 00:0000:00OFST0x01"
                             "OFF                 00:0000:00OFST0x02"
                             "OFF                 00:0000:00OFST0x03"
                             "OFF                 00:0000:00OFST0x04");
    EXPECT_EQ(grid.Text(1, 1), "");
    ASSERT_TRUE(Offsets_Laden(kern, grid));
    EXPECT_EQ(grid.Text(4, 1), "OFF");
    EXPECT_EQ(grid.Text(4, 2), "00:00");
    EXPECT_EQ(grid.Text(4, 3), "00:00");
    EXPECT_EQ(grid.Text(4, 4), "OFST0x04");
}

TEST_F(Gastzeiten, take_a_blank_identifier_as_that_of_the_record) {
    File(Offsets) = std::string(38, ' ') + Breit("Brunch", 20) + "01:0009:30        " + std::string(76, ' ');
    ASSERT_TRUE(Offsets_Laden(kern, grid));
    EXPECT_EQ(grid.Text(1, 4), "OFST0x01");
    EXPECT_EQ(grid.Text(2, 1), "Brunch");
    EXPECT_EQ(grid.Text(2, 4), "OFST0x02");
}

TEST_F(Gastzeiten, give_these_bytes) {
    Row(1, "Brunch", "01:30", "09:30", "OFST0x01");
    Row(2, "A name of twenty-three.", "23:59", "15:00", "OFST0x02");
    Row(3, "", "", "", "");
    Row(4,
        "\xDC"
        "ber",
        "00:00", "00:00", "OFST0x04");
    selection.Hotel = false;
    selection.Slots[0] = selection.Slots[7] = true;
    ASSERT_TRUE(Gastzeiten_Speichern(kern, {"08:15", "22:45"}, grid, selection));
    EXPECT_EQ(File(Offsets), "Brunch              01:3009:30OFST0x01"
                             "A name of twenty-thr23:5915:00OFST0x02" +
                                 std::string(38, ' ') +
                                 "\xDC"
                                 "ber                00:0000:00OFST0x04");
    EXPECT_EQ(File(Setup), "05.03.2026\r\n08:15\r\n22:45\r\n00\r\n01\r\n");
    EXPECT_EQ(File(Selection), "05.03.2026\r\nOBJEKT\r\nX\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\nX\r\nENDE\r\n");
}

TEST_F(Gastzeiten, without_a_selection_hold_eight_zeros) {
    ASSERT_TRUE(Gastzeiten_Speichern(kern, times, grid, selection));
    EXPECT_EQ(File(Selection), "05.03.2026\r\nHOTEL\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\nENDE\r\n");
}

TEST_F(Gastzeiten, are_half_past_nine_and_three_without_a_file_which_is_not_made) {
    times = {"01:00", "02:00"};
    ASSERT_TRUE(OffsetSetup_Laden(kern, times));
    EXPECT_EQ(times.CheckIn, "09:30");
    EXPECT_EQ(times.CheckOut, "15:00");
    EXPECT_FALSE(There(Setup));
}

TEST_F(Gastzeiten, are_read_from_the_second_and_third_line) {
    File(Setup) = "anything\r\n 10:00 \r\n16:20\r\n00\r\n01\r\n";
    ASSERT_TRUE(OffsetSetup_Laden(kern, times));
    EXPECT_EQ(times.CheckIn, "10:00");
    EXPECT_EQ(times.CheckOut, "16:20");
}

TEST_F(Gastzeiten, give_way_to_the_default_where_a_line_is_no_time) {
    for (const char* text : {"x\r\n25:00\r\n", "x\r\n1:00\r\n", "x\r\n10000000000000000000\r\n", "", "x", "\xFF\xFE"}) {
        File(Setup) = text;
        ASSERT_TRUE(OffsetSetup_Laden(kern, times)) << text;
        EXPECT_EQ(times.CheckIn, "09:30") << text;
        EXPECT_EQ(times.CheckOut, "15:00") << text;
    }
}

TEST_F(Gastzeiten, mean_a_hotel_without_a_file_and_an_object_by_any_other_word) {
    ASSERT_TRUE(Auswahl_Laden(kern, selection));
    EXPECT_TRUE(selection.Hotel);
    EXPECT_EQ(selection.Mode(), 0x80);
    EXPECT_FALSE(There(Selection));
    for (const char* text : {"d\r\n\r\nX\r\n", "d\r\nOBJEKT\r\nX\r\n", "d\r\nHotel\r\nX\r\n", "", "d\r\nHOTELS\r\n"}) {
        File(Selection) = text;
        ASSERT_TRUE(Auswahl_Laden(kern, selection));
        EXPECT_FALSE(selection.Hotel) << text;
        EXPECT_EQ(selection.Mode(), 0x81);
    }
    File(Selection) = "d\r\n HOTEL \r\n X\r\n0\r\nx\r\nXX\r\nX \r\n";
    ASSERT_TRUE(Auswahl_Laden(kern, selection));
    EXPECT_TRUE(selection.Hotel);
    EXPECT_EQ(selection.Slots, (std::array<bool, 8>{true, false, false, false, true, false, false, false}));
}

TEST_F(Gastzeiten, know_the_first_eight_slots_of_persons_and_make_no_file_for_them) {
    GuestSlots slots;
    ASSERT_TRUE(Gastslots_Laden(kern, slots));
    EXPECT_EQ(slots[7].Day, 0);
    EXPECT_EQ(slots[7].From, "00:00");
    EXPECT_FALSE(There(Slots));
    std::string& file = File(Slots);
    for (char n = 1; n <= 9; ++n) {
        file += std::string(1, n) + "0" + std::string(1, static_cast<char>('0' + n)) + ":1520:00";
    }
    ASSERT_TRUE(Gastslots_Laden(kern, slots));
    EXPECT_EQ(slots[0].Day, 1);
    EXPECT_EQ(slots[7].Day, 8);
    EXPECT_EQ(slots[7].From, "08:15");
    EXPECT_EQ(slots[7].To, "20:00");
}

TEST_F(Gastzeiten, are_switched_off_from_a_day_on_that_does_not_exist) {
    File(Slots) = "\x01"
                  "08:0009:00" +
                  std::string("\xC8") + "08:0009:00" +
                  "\x02"
                  "08:0009:00";
    GuestSlots slots;
    const SlotLoad load = Gastslots_Laden(kern, slots);
    EXPECT_TRUE(load.Read);
    EXPECT_EQ(load.Damaged, 2);
    EXPECT_EQ(slots[0].Day, 1);
    EXPECT_EQ(slots[1].Day, 0);
    EXPECT_EQ(slots[2].Day, 0);
    File(Slots)[11] = '\x0B'; // the last place of the day table: no day, and no end
    EXPECT_EQ(Gastslots_Laden(kern, slots).Damaged, 0);
    EXPECT_EQ(slots[1].Day, 11);
    EXPECT_EQ(slots[2].Day, 2);
}

TEST_F(Gastzeiten, are_all_new_or_all_old_whichever_operation_fails) {
    for (const bool fresh : {true, false}) {
        for (const bool forGood : {false, true}) {
            bool saved = false;
            for (int operation = 1; !saved; ++operation) {
                ASSERT_LT(operation, 40);
                files.clear();
                if (!fresh) {
                    ASSERT_TRUE(Gastzeiten_Speichern(kern, {"01:01", "02:02"}, grid, {}));
                }
                const auto before = files;
                Row(1, "New", "11:11", "08:00", "OFST0x01");
                disk.FailAt = disk.Operations + operation;
                disk.FailFromThere = forGood;
                saved = Gastzeiten_Speichern(kern, {"08:00", "09:00"}, grid, {.Hotel = false, .Slots = {}});
                disk.FailAt = 0;
                disk.FailFromThere = false;
                if (!saved && !forGood) {
                    EXPECT_EQ(files, before) << operation;
                }
                for (const auto& [path, bytes] : files) {
                    EXPECT_FALSE(bytes.empty()) << path;
                }
                Row(1, "", "", "", "");
            }
            EXPECT_EQ(files.size(), 3U);
        }
    }
}

TEST_F(Gastzeiten, come_back_from_a_thousand_random_files_as_an_independent_writer_wrote_them) {
    std::mt19937 dice{42};
    const auto below = [&](int n) { return static_cast<int>(dice() % static_cast<unsigned>(n)); };
    const auto time = [&] {
        const int hour = below(24), minute = below(60);
        return std::string{static_cast<char>('0' + hour / 10), static_cast<char>('0' + hour % 10), ':',
                           static_cast<char>('0' + minute / 10), static_cast<char>('0' + minute % 10)};
    };
    for (int round = 0; round < 1000; ++round) {
        std::string offsets, setup = "05.03.2026\r\n", marks = "05.03.2026\r\n";
        const std::string in = time(), out = time();
        setup += in + "\r\n" + out + "\r\n00\r\n01\r\n";
        selection.Hotel = below(2) == 0;
        marks += selection.Hotel ? "HOTEL\r\n" : "OBJEKT\r\n";
        for (bool& slot : selection.Slots) {
            slot = below(2) == 0;
            marks += slot ? "X\r\n" : "0\r\n";
        }
        marks += "ENDE\r\n";
        std::vector<std::string> texts;
        for (int row = 1; row <= 4; ++row) {
            const std::string name =
                "N" + std::string(static_cast<std::size_t>(below(19)), static_cast<char>('a' + below(26)));
            texts.insert(texts.end(), {name, below(5) == 0 ? "" : time(), below(2) == 0 ? in : out,
                                       "OFST0x0" + std::to_string(row)});
            Row(row, texts[texts.size() - 4], texts[texts.size() - 3], texts[texts.size() - 2], texts.back());
            offsets += Breit(name, 20) + Breit(texts[texts.size() - 3], 5) + texts[texts.size() - 2] + texts.back();
        }
        ASSERT_TRUE(Gastzeiten_Speichern(kern, {in, out}, grid, selection));
        ASSERT_EQ(File(Offsets), offsets);
        ASSERT_EQ(File(Setup), setup);
        ASSERT_EQ(File(Selection), marks);
        Grid loaded(OffsetRows + 1, OffsetColumn::Count);
        GuestSelection back;
        ASSERT_TRUE(Offsets_Laden(kern, loaded) && OffsetSetup_Laden(kern, times) && Auswahl_Laden(kern, back));
        for (std::size_t n = 0; n < texts.size(); ++n) {
            ASSERT_EQ(loaded.Text(static_cast<int>(n / 4) + 1, static_cast<int>(n % 4) + 1), texts[n]);
        }
        ASSERT_EQ(times.CheckIn, in);
        ASSERT_EQ(times.CheckOut, out);
        ASSERT_EQ(back.Hotel, selection.Hotel);
        ASSERT_EQ(back.Slots, selection.Slots);
    }
}

} // namespace
} // namespace qvm::test
