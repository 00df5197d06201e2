// Random lock tables: the files after a save are those that a few independent lines write from the grid's texts, and
// what is loaded from them is the same grid.

#include "F12Fixture.h"

#include <algorithm>
#include <random>
#include <utility>
#include <vector>

namespace qvm::test {
namespace {

std::string Filled(std::string text, std::size_t width, char pad = ' ') {
    text.resize(width, pad);
    return text;
}

struct F12_Zufall : F12Fixture {
    std::mt19937 dice{20261122};
    const std::array<std::string, 2> groupNames{"Nachts", "Sonntags zu"};
    const std::array<std::string, 2> offsetNames{"Abends", "Morgens"};

    void SetUp() override {
        files.LockGroup(1, groupNames[0], "X----", "SBS_1");
        files.LockGroup(4, groupNames[1], "-X---", "SBS_4");
        AddOffset(1, offsetNames[0]);
        AddOffset(4, offsetNames[1]);
        files.Put("COMSETUPADAPTER.ADP", 65, 1, 0, 36, "/1/2/3/4        PROGSTATION-1       ");
        Open();
    }
    std::size_t Below(std::size_t n) { return dice() % n; }
    std::string Digits(std::size_t count) {
        std::string text;
        for (std::size_t n = 0; n < count; ++n) {
            text += "0123456789ABCDEF"[Below(16)];
        }
        return text;
    }
    void FillRow(int row) {
        const std::size_t kind = Below(4); // nothing, a name, a serial, both
        const bool name = kind % 2 == 1;
        const bool serial = kind >= 2;
        const std::string text = "L" + Filled("", Below(15), 'a' + static_cast<char>(Below(26))) + Digits(3);
        Cells().SetText(row, 1, name ? text : "");
        Cells().SetText(row, 2, serial ? Digits(2) + "." + Digits(2) + "." + Digits(2) + "." + Digits(2) : "");
        for (int column = 4; column <= 8; ++column) {
            const int random = Below(2) == 0 ? LockPicture::On : LockPicture::Off;
            Cells().SetPicture(row, column, serial ? random : name ? LockPicture::None : LockPicture::On);
        }
        Cells().SetText(row, 9, name || serial ? std::to_string(1 + Below(5)) : "3");
        Cells().SetPicture(row, 10, LockPicture::On + static_cast<int>(Below(3)));
        const std::size_t group = Below(3);
        Cells().SetText(row, 12, group == 2 ? "-" : groupNames[group]);
        const bool adapter = serial && Below(2) == 0;
        Cells().SetText(row, 13, adapter ? "/1/2/3/4" : "");
        Cells().SetText(row, 14, adapter ? "PROGSTATION-1" : "");
        const std::size_t offset = Below(20);
        Cells().SetText(row, 15, offset < 2 ? offsetNames[offset] : "");
        Cells().SetText(row, 16, offset == 0 ? "OFST0x01" : offset == 1 ? "OFST0x04" : "");
        const std::size_t door = Below(3);
        Cells().SetText(row, 17, door == 0 ? "" : door == 1 ? "L218" : "L219");
        Cells().SetText(row, 18, door == 1 ? std::to_string(Below(10000)) : "");
    }
    /// Four parts of three characters.
    std::string Parts(int row) {
        const std::string& serial = Text(row, 2);
        if (serial.empty()) {
            return std::string(12, ' ');
        }
        return serial.substr(0, 2) + " " + serial.substr(3, 2) + " " + serial.substr(6, 2) + " " + serial.substr(9, 2) +
               " ";
    }
    void ExpectFiles() {
        std::string locks, priorities, emi, groups, adapters, doors;
        for (int row = 1; row <= 200; ++row) {
            const std::string& name = Text(row, 1);
            locks += Filled(name, 20, name.empty() ? ' ' : '\0') + Filled(Text(row, 16), 8) + Parts(row);
            for (int column = 4; column <= 8; ++column) {
                locks += Picture(row, column) == 9 ? 'X' : ' ';
            }
            priorities += Text(row, 9) + "  3  3  3  ";
            emi += Picture(row, 10) == 9 ? 'X' : Picture(row, 10) == 10 ? 'Y' : ' ';
            const std::string& group = Text(row, 12);
            groups += Filled(group == groupNames[0] ? "SBS_1" : group == groupNames[1] ? "SBS_4" : "-", 15);
            groups += Filled(group, 40);
            adapters += Filled(Text(row, 13), 16) + Filled(Text(row, 14), 20) + Parts(row);
            doors += Text(row, 17) == "L218" ? "AA" : Text(row, 17) == "L219" ? "BB" : "  ";
            doors += Parts(row) + Filled(Text(row, 18), 16);
        }
        ASSERT_EQ(File(Locks), locks);
        ASSERT_EQ(File(Priorities), priorities);
        ASSERT_EQ(File(Emi), emi);
        ASSERT_EQ(File(Bindings), groups);
        ASSERT_EQ(File(LockAdapters), adapters);
        ASSERT_EQ(File(Doors), doors);
    }
    using Look = std::vector<std::pair<std::string, int>>;
    /// Texts and pictures.
    Look Whole() {
        Look all;
        all.reserve(200 * 18);
        for (int row = 1; row <= 200; ++row) {
            for (int column = 1; column <= 18; ++column) {
                all.emplace_back(Text(row, column), Picture(row, column));
            }
        }
        return all;
    }
    void SaveAndLoad(int tables) {
        for (int row = 1; row <= 200; ++row) {
            FillRow(row);
        }
        for (int table = 0; table < tables; ++table) {
            for (std::size_t n = 1 + Below(12); n > 0; --n) {
                FillRow(1 + static_cast<int>(Below(200)));
            }
            Window().Tabelle.LockDirty = true;
            Press("Speichern");
            ASSERT_NO_FATAL_FAILURE(ExpectFiles()) << table;
            const Look grid = Whole();
            Window().F12_FormLaden();
            ASSERT_TRUE(Whole() == grid) << table;
        }
    }
};

TEST_F(F12_Zufall, every_save_writes_the_grid_and_every_load_gives_it_back) {
    SaveAndLoad(1000);
}

TEST_F(F12_Zufall, every_save_and_load_does_so_with_other_tables_too) {
    dice.seed(7702);
    SaveAndLoad(1000);
}

/// What an operator does in any order; every step can be taken back to the first state and done again to the last.
TEST_F(F12_Zufall, undo_of_all_steps_gives_the_first_table_and_redo_the_last) {
    for (int row = 1; row <= 200; ++row) {
        FillRow(row);
    }
    Press("Speichern");
    Window().F12_FormLaden();
    for (int round = 0; round < 10; ++round) {
        std::vector<Look> states{Whole()};
        while (Window().Verlauf.Steps() < 90) {
            const int row = 1 + static_cast<int>(Below(200));
            switch (Below(6)) {
            case 0:
                EnterName(row, "N" + Digits(10));
                break;
            case 1:
                EnterSerial(row, Digits(8));
                break;
            case 2:
                Select(row, 4, std::min(row + static_cast<int>(Below(5)), 200), 10);
                Key(' ');
                break;
            case 3:
                world.Answers.push_back({.Text = "L152\r\nL153", .Reply = Below(2) == 0 ? Answer::Yes : Answer::No});
                Choose(row, 9, static_cast<int>(Below(5)));
                break;
            case 4:
                Choose(row, 17, static_cast<int>(Below(3)));
                break;
            default:
                Go(row, 1);
                Window().F12_delete_Click();
            }
            if (Window().Verlauf.Steps() == states.size()) {
                states.push_back(Whole());
            }
        }
        const Look last = Whole();
        for (std::size_t n = states.size(); n-- > 1;) {
            ASSERT_TRUE(Whole() == states[n]) << round << "/" << n;
            Window().F12_Undo_Click();
        }
        ASSERT_TRUE(Whole() == states.front()) << round;
        while (Window().F12_Redo.Enabled()) {
            Window().F12_Redo_Click();
        }
        ASSERT_TRUE(Whole() == last) << round;
        Press("Speichern");
        ASSERT_TRUE(!Window().Tabelle.LockDirty);
        Window().F12_FormLaden();
    }
}

} // namespace
} // namespace qvm::test
