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
    static constexpr std::size_t UnitBytes = 241, ChannelBytes = 15;
    std::string channels, units; ///< the two files that are written at once, as they must be
    std::mt19937 dice{20261122};
    const std::array<std::string, 2> groupNames{"Nachts", "Sonntags zu"};
    const std::array<std::string, 2> offsetNames{"Abends", "Morgens"};

    void SetUp() override {
        files.LockGroup(1, groupNames[0], "X----", "SBS_1");
        files.LockGroup(4, groupNames[1], "-X---", "SBS_4");
        AddOffset(1, offsetNames[0]);
        AddOffset(4, offsetNames[1]);
        files.Put("COMSETUPADAPTER.ADP", 65, 1, 0, 36, "/1/2/3/4        PROGSTATION-1       ");
        for (int n = 0; n < 250; ++n) {
            channels += Of({"1  ", "7  ", "12 ", "   "}) + Of({"1  ", "5  "}) + Of({"1  ", "9  "}) +
                        Of({"0  ", "1  "}) + Of({"0  ", "1  ", "   "});
        }
        File(Channels) = channels;
        units = std::string(std::size_t{200} * UnitBytes, ' ');
        File(Units) = units;
        Open();
    }
    std::string Of(const std::vector<std::string>& texts) { return texts[Below(texts.size())]; }
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
        ASSERT_EQ(File(Channels), channels);
        ASSERT_EQ(File(Units), units);
    }
    using Look = std::vector<std::pair<std::string, int>>;
    /// Texts and pictures; without column 11, which shows what stands on the disk.
    Look Whole() {
        Look all;
        all.reserve(200 * 17);
        for (int row = 1; row <= 200; ++row) {
            for (int column = 1; column <= 18; column += column == 10 ? 2 : 1) {
                // Behind a deletion no group is empty until it is loaded.
                const bool noGroup = column == 12 && Text(row, column).empty();
                all.emplace_back(noGroup ? "-" : Text(row, column), Picture(row, column));
            }
        }
        return all;
    }
    /// Types a serial number, behind which the lock's channel is open.
    void NumberAnew(int lock) {
        EnterSerial(lock, Digits(8));
        channels.replace(static_cast<std::size_t>(lock - 1) * ChannelBytes + 9, 3, "1  ");
    }
    void Clear(int lock) {
        Go(lock, 1);
        Window().F12_delete_Click();
        units.replace(static_cast<std::size_t>(lock - 1) * UnitBytes, UnitBytes, Filled(" 99", UnitBytes));
    }
    /// One unit in a row of the open unit window: what its place in the record becomes.
    std::string FillUnit(int row) {
        struct F20& window = programm->Locks->F20;
        const bool module1 = Below(2) == 0;
        const std::string name = Below(4) == 0 ? "" : "U" + std::to_string(row) + std::string(Below(28), 'n');
        const std::string tail = "0" + Digits(1) + Digits(1) + "1";
        window.FGK20_Eintragen(row, 1, name);
        window.FGK20_Eintragen(row, 2, (module1 ? "0160" : "0010") + tail);
        const std::string number = std::to_string(1 + Below(12));
        window.FGK20.SetText(row, 4, number);
        return Filled(name, 30) + (module1 ? "01 60 " : "00 10 ") + tail.substr(0, 2) + " " + tail.substr(2) + " " +
               (module1 ? "1" : "2") + Filled(number, 2);
    }
    std::string UnitTexts() {
        std::string texts;
        for (int row = 1; row <= 5; ++row) {
            for (int column = 1; column <= 4; ++column) {
                texts += programm->Locks->F20.FGK20.Text(row, column) + "|";
            }
        }
        return texts;
    }
    /// Sets the units of a lock in their window and accepts.
    void SetUnits(int lock) {
        struct F20& window = programm->Locks->F20;
        const bool time = Below(2) == 0, always = Below(2) == 0, flag = Below(2) == 0;
        const int hours = static_cast<int>(Below(18)), minutes = static_cast<int>(Below(60));
        const int seconds = 1 + static_cast<int>(Below(59));
        const std::size_t level = Below(5);
        Go(lock, 2);
        Window().SNA_Function_Click();
        window.Combo1_Click(1);
        window.Check1_Click(false);
        window.Combo2_Click(hours);
        window.Combo3_Click(minutes);
        window.Combo4_Click(seconds);
        if (always) {
            window.Check1_Click(true);
        }
        window.Combo1_Click(0);
        window.Combo5_Click(static_cast<int>(level));
        window.Check2_Click(flag);
        window.Combo1_Click(time ? 1 : 0);
        constexpr std::array<const char*, 5> levels{"090", "130", "170", "210", "255"};
        std::string record = std::string(time ? "3" : "2") + (always ? "1" : "0") + "000 ";
        for (const int part : {hours, minutes, seconds}) {
            record += Filled(std::to_string(part), 2);
        }
        record += std::string(flag ? "1" : "0") + levels[level];
        for (int row = 1; row <= 5; ++row) {
            record += FillUnit(row);
        }
        units.replace(static_cast<std::size_t>(lock - 1) * UnitBytes, UnitBytes, record);
        const std::string typed = UnitTexts();
        window.Command2_Click();
        Go(lock, 2);
        Window().SNA_Function_Click();
        ASSERT_EQ(UnitTexts(), typed);
        ASSERT_EQ(window.Combo1.Selected(), time ? 1 : 0);
        window.Command1_Click();
    }
    void SaveAndLoad(int tables) {
        for (int row = 1; row <= 200; ++row) {
            FillRow(row);
        }
        for (int table = 0; table < tables; ++table) {
            for (std::size_t n = 1 + Below(12); n > 0; --n) {
                FillRow(1 + static_cast<int>(Below(200)));
            }
            NumberAnew(1 + static_cast<int>(Below(200)));
            if (Below(4) == 0) {
                ASSERT_NO_FATAL_FAILURE(SetUnits(1 + static_cast<int>(Below(200)))) << table;
            }
            if (Below(8) == 0) {
                Clear(1 + static_cast<int>(Below(200)));
            }
            Window().Tabelle.LockDirty = true;
            Press("Speichern");
            ASSERT_NO_FATAL_FAILURE(ExpectFiles()) << table;
            const Look grid = Whole();
            Window().F12_FormLaden();
            ASSERT_TRUE(Whole() == grid) << table;
            for (int row = 1; row <= 200; ++row) {
                const char mode = units[static_cast<std::size_t>(row - 1) * UnitBytes];
                ASSERT_EQ(Text(row, 11), mode == ' ' || Text(row, 2).empty() ? " - " : "L15") << table << "/" << row;
            }
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
