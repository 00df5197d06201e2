// The scans of the radio channels as commands, in this process and in virtual time: what they take, and what they leave
// alone.

#include "Datendateien.h"
#include "Hauptprogramm.h"
#include "RunBinary.h"
#include "VirtualLine.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

namespace qvm::test {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr std::string_view LockRecords_{"C64UX12H3D.EBW"}, UnitRecords_{"T6WRSSISN.TSD"},
    ChannelRecords_{"RFCHANDIF12.RFX"};
constexpr std::size_t LockBytes = 45, UnitBytes = 241, ChannelBytes = 15, UnitSlot = 45;

/// Keypads on channels 1 and 7 and a lock on channel 5. The data files are in memory, in a directory that is there.
struct Command_Scan : testing::Test {
    TempDirectory Directory;
    VirtualPlatform world;
    Datendateien files{world.Disk, Directory.Path()};
    VirtualWorld devices;
    std::set<int> Sent; ///< codes of all telegrams of the last command

    Command_Scan() {
        std::filesystem::create_directory(Directory.Path() + "DAT");
        world.World.ShowMessage = [](const Message& message) {
            return message.Choice == Buttons::Ok ? Answer::Ok : Answer::No;
        };
        files.Lock(1, "Tor", "00.0A.10.01");
        files.Lock(2, "Lager", "00.0A.10.02");
        files.Lock(4, "Ohne", "           ");
        files.File("EST7CSB29A.I_1") = "English\r\n1\r\nUSB-Port1\r\n5\r\n";
        files.File("CHEUSB25C.I_2") = "RESET\r\n";
        Unit({1, 0x60, 0, 5}, 1, 90);
        Unit({1, 0x60, 0, 9}, 7, 40);
        VirtualLock lock;
        lock.Serial = {0, 0x0A, 0x10, 1};
        lock.Channel = 5;
        devices.Locks.push_back(lock);
    }
    VirtualUnit& Unit(DeviceAddress serial, int channel, std::uint8_t signal) {
        VirtualUnit unit;
        unit.Serial = serial;
        unit.Channel = channel;
        unit.Air.Signal = signal;
        devices.Units.push_back(unit);
        return devices.Units.back();
    }
    void Nobody() {
        devices.Locks.clear();
        devices.Units.clear();
    }
    RunResult Scan(std::vector<std::string> words, const std::string& code = {}) {
        words.insert(words.begin(), "qvmctl");
        if (!code.empty()) {
            words.insert(words.end(), {"--code-from", Directory.Write("code", code + "\n")});
        }
        std::vector<const char*> arguments;
        for (const std::string& word : words) {
            arguments.push_back(word.c_str());
        }
        std::ostringstream out, err;
        int exitCode = 0;
        const auto options = Befehlszeile_Lesen(static_cast<int>(arguments.size()), arguments.data(),
                                                {.Year = 2026, .Month = 3, .Day = 5}, out, err, exitCode);
        if (!options) {
            return {exitCode, out.str(), err.str()};
        }
        VirtualSystem system(devices, LineOf(world));
        world.OnWrite = [&system](std::span<const std::uint8_t> bytes) { system.Receive(bytes); };
        const Umgebung surroundings{.Welt = world.World, .AppPath = Directory.Path()};
        const ExitCode code_ =
            Befehl_Ausfuehren(surroundings, {.Out = out, .Err = err, .Json = options->Json}, *options);
        world.OnWrite = {};
        const auto codes = system.Codes();
        Sent = std::set<int>(codes.begin(), codes.end());
        EXPECT_EQ(system.JudgementLines(), "");
        return {static_cast<int>(code_), out.str(), err.str()};
    }
    std::string Field(std::string_view file, std::size_t at, std::size_t width) {
        const std::string& bytes = files.File(std::string(file));
        std::string text = at < bytes.size() ? bytes.substr(at, width) : std::string();
        text.erase(text.find_last_not_of(std::string_view(" \0", 2)) + 1);
        return text;
    }
    std::string Serial(std::string_view file, std::size_t at) {
        return Field(file, at, 3) + "." + Field(file, at + 3, 3) + "." + Field(file, at + 6, 3) + "." +
               Field(file, at + 9, 3);
    }
    /// Serial number, class and channel of a unit.
    std::string StoredUnit(int lock, int unit) {
        const std::size_t at =
            (static_cast<std::size_t>(lock) - 1) * UnitBytes + 16 + (static_cast<std::size_t>(unit) - 1) * UnitSlot;
        return Serial(UnitRecords_, at + 30) + " " + Field(UnitRecords_, at + 42, 1) + " " +
               Field(UnitRecords_, at + 43, 2);
    }
};

TEST_F(Command_Scan, that_finds_nobody_says_so_and_takes_nothing) {
    Nobody();
    const auto before = world.Disk.Files;
    const RunResult result = Scan({"scan"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_EQ(result.Out, "Nobody answered on any channel.\n");
    const RunResult taken = Scan({"scan", "--units", "2", "--take", "01.60.00.09"});
    EXPECT_EQ(taken.Code, 3) << taken.Err;
    EXPECT_EQ(taken.Out, "01.60.00.09 did not answer; nothing was taken.\n");
    EXPECT_EQ(world.Disk.Files, before);
}

TEST_F(Command_Scan, takes_a_unit_into_the_first_free_row_and_its_record_holds_it) {
    const RunResult first = Scan({"scan", "--units", "2", "--take", "01.60.00.09"});
    EXPECT_EQ(first.Code, 0) << first.Err;
    EXPECT_THAT(first.Out, HasSubstr("Lock 2 unit 1: 01.60.00.09 on channel 7 was taken\n"));
    EXPECT_EQ(StoredUnit(2, 1), "01.60.00.09 1 7");
    const RunResult second = Scan({"--json", "scan", "--units", "2", "--take", "1.60.0.5"});
    EXPECT_EQ(second.Code, 0) << second.Err;
    const auto document = nlohmann::json::parse(second.Out);
    EXPECT_EQ(document["unit"], 2);
    EXPECT_EQ(StoredUnit(2, 1), "01.60.00.09 1 7");
    EXPECT_EQ(StoredUnit(2, 2), "01.60.00.05 1 1");
    EXPECT_EQ(StoredUnit(2, 3), "...  ");
}

TEST_F(Command_Scan, takes_a_unit_into_the_row_that_is_named_or_that_has_it) {
    files.Unit(1, 4, "Alt", "00002001", '2', "9");
    EXPECT_EQ(Scan({"scan", "--units", "1", "--take", "01.60.00.05", "--row", "4"}).Code, 0);
    EXPECT_EQ(StoredUnit(1, 4), "01.60.00.05 1 1") << "whatever stood there";
    devices.Units[0].Channel = 3;
    const RunResult again = Scan({"scan", "--units", "1", "--take", "01.60.00.05"});
    EXPECT_THAT(again.Out, HasSubstr("Lock 1 unit 4: 01.60.00.05 on channel 3 was taken\n"));
    EXPECT_EQ(StoredUnit(1, 4), "01.60.00.05 1 3");
    EXPECT_EQ(StoredUnit(1, 1), "...  ") << "and no second row";
}

TEST_F(Command_Scan, for_a_lock_with_five_units_scans_nothing_but_for_one_that_it_has) {
    for (int unit = 1; unit <= 5; ++unit) {
        files.Unit(1, unit, "Unit " + std::to_string(unit), "0160010" + std::to_string(unit), '1', "5");
    }
    files.Unit(1, 3, "Mitte", "01600009", '1', "5");
    const auto before = world.Disk.Files;
    const RunResult full = Scan({"scan", "--units", "1", "--take", "01.60.00.05"});
    EXPECT_EQ(full.Code, 1);
    EXPECT_EQ(full.Out, "");
    EXPECT_EQ(full.Err, "Lock 1 has five units; --row replaces one of them.\n");
    EXPECT_THAT(Sent, testing::IsEmpty());
    EXPECT_EQ(world.Disk.Files, before);
    EXPECT_EQ(Scan({"scan", "--units", "1", "--take", "01.60.00.09"}).Code, 0);
    EXPECT_EQ(StoredUnit(1, 3), "01.60.00.09 1 7");
    EXPECT_EQ(Scan({"scan", "--units", "1", "--take", "01.60.00.05", "--row", "5"}).Code, 0);
    EXPECT_EQ(StoredUnit(1, 5), "01.60.00.05 1 1");
    EXPECT_EQ(StoredUnit(1, 4), "01.60.01.04 1 5");
}

TEST_F(Command_Scan, takes_nothing_when_the_serial_number_did_not_answer) {
    EXPECT_EQ(Scan({"scan", "--units", "1", "--take", "01.60.00.05"}).Code, 0);
    const auto before = world.Disk.Files;
    const RunResult result = Scan({"scan", "--units", "1", "--take", "01.60.00.77"});
    EXPECT_EQ(result.Code, 3) << result.Err;
    EXPECT_THAT(result.Out, HasSubstr("01.60.00.77 did not answer; nothing was taken.\n"));
    EXPECT_EQ(world.Disk.Files, before);
}

TEST_F(Command_Scan, takes_no_unit_that_a_lock_cannot_have) {
    Unit({0x0C, 0, 0, 1}, 9, 50);
    const auto before = world.Disk.Files;
    const RunResult result = Scan({"scan", "--units", "2", "--take", "0C.00.00.01"});
    EXPECT_EQ(result.Code, 2) << result.Err;
    EXPECT_THAT(result.Out, HasSubstr("0C.00.00.01 is no unit of a lock; nothing was taken.\n"));
    EXPECT_EQ(world.Disk.Files, before);
}

TEST_F(Command_Scan, finds_and_takes_a_lock_whose_code_is_another_one_as_it_has_answered) {
    const RunResult result = Scan({"scan", "--lock", "4", "--take", "00.0A.10.01"}, "999999");
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_THAT(result.Out, HasSubstr("Channel 5: 00.0A.10.01, "));
    EXPECT_THAT(result.Out, HasSubstr("Lock 4: 00.0A.10.01 on channel 5 was taken\n"));
    EXPECT_EQ(Serial(LockRecords_, 3 * LockBytes + 28), "00.0A.10.01");
    EXPECT_EQ(Field(LockRecords_, 3 * LockBytes, 20), "Ohne") << "its name stays";
    EXPECT_EQ(Field(ChannelRecords_, 3 * ChannelBytes, 3), "5");
    EXPECT_THAT(result.Out + result.Err, Not(HasSubstr("999999")));
}

TEST_F(Command_Scan, with_a_code_that_is_none_sends_nothing) {
    const auto before = world.Disk.Files;
    const RunResult result = Scan({"scan", "--lock", "4", "--take", "00.0A.10.01"}, "12345");
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Err, HasSubstr("The administrator code must have six digits"));
    EXPECT_THAT(Sent, testing::IsEmpty());
    EXPECT_EQ(world.Disk.Files, before);
}

TEST_F(Command_Scan, for_units_wants_an_adapter_that_knows_it_and_for_a_lock_does_not) {
    devices.Adapter.Version = 11;
    const auto before = world.Disk.Files;
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"scan"},
          std::vector<std::string>{"scan", "--units", "1", "--take", "01.60.00.05"}}) {
        const RunResult result = Scan(words);
        EXPECT_EQ(result.Code, 1) << result.Err;
        EXPECT_EQ(result.Out, "The scan could not be begun.\n");
        EXPECT_THAT(result.Err, HasSubstr("adapter"));
        EXPECT_THAT(Sent, Not(testing::Contains(0x6B)));
        EXPECT_THAT(Sent, Not(testing::Contains(0x4B)));
        EXPECT_EQ(world.Disk.Files, before);
    }
    EXPECT_EQ(Scan({"scan", "--lock", "4", "--take", "00.0A.10.01"}, "123456").Code, 0);
    EXPECT_EQ(Serial(LockRecords_, 3 * LockBytes + 28), "00.0A.10.01");
}

/// A disk that refuses one operation after the other.
struct Command_ScanDisk : Command_Scan {
    std::map<std::string, std::string> Old, New;
    int Operations = 0, Faults = 0;

    std::map<std::string, std::string> Only(const std::map<std::string, std::string>& all,
                                            const std::set<std::string_view>& names) const {
        std::map<std::string, std::string> some;
        for (const auto& [path, bytes] : all) {
            const std::string name = path.substr(path.rfind('/') + 1);
            if (names.count(name) != 0) {
                some[name] = bytes;
            }
        }
        return some;
    }
    /// What comes of the command where nothing is refused.
    void Learn(const std::vector<std::string>& words, const std::string& code = {}) {
        Old = world.Disk.Files;
        world.Disk.Operations = 0;
        EXPECT_EQ(Scan(words, code).Code, 0);
        Operations = world.Disk.Operations;
        New = world.Disk.Files;
    }
    /// One operation refused: a fault is told, and each group of files is as before or as it should be.
    void Refuse(int operation, const std::vector<std::set<std::string_view>>& groups,
                const std::vector<std::string>& words, const std::string& code = {}) {
        SCOPED_TRACE(operation);
        world.Disk.Files = Old;
        world.Disk.Operations = 0;
        world.Disk.FailAt = operation;
        const RunResult result = Scan(words, code);
        world.Disk.FailAt = 0;
        EXPECT_TRUE(result.Code == 0 || result.Code == 1) << result.Out;
        Faults += result.Code;
        bool all = true;
        for (const auto& group : groups) {
            const auto now = Only(world.Disk.Files, group);
            all = all && now == Only(New, group);
            EXPECT_TRUE(now == Only(Old, group) || now == Only(New, group)) << *group.begin() << " " << result.Out;
        }
        EXPECT_EQ(all, result.Code == 0) << result.Out << result.Err;
        EXPECT_EQ(result.Out.find("was taken") != std::string::npos, result.Code == 0) << result.Out;
        EXPECT_NE(result.Code == 0 ? "-" : result.Out + result.Err, "");
    }
};

TEST_F(Command_ScanDisk, that_refuses_is_told_and_a_unit_is_stored_or_not) {
    const std::vector<std::string> words{"scan", "--units", "1", "--take", "01.60.00.05"};
    Learn(words);
    for (int operation = 1; operation <= Operations; ++operation) {
        Refuse(operation, {{UnitRecords_}}, words);
    }
    EXPECT_GE(Faults, 3) << "reading the locks, reading the units, writing them";
}

TEST_F(Command_ScanDisk, that_refuses_is_told_and_a_lock_is_stored_with_its_channel_or_not) {
    const std::vector<std::string> words{"scan", "--lock", "4", "--take", "00.0A.10.01"};
    files.Unit(4, 5, "Alt", "00002001", '2', "9");
    Learn(words, "123456");
    EXPECT_EQ(StoredUnit(4, 5), "...  ") << "the units of the lock before it are gone";
    for (int operation = 1; operation <= Operations; ++operation) {
        Refuse(operation,
               {{UnitRecords_, ChannelRecords_},
                {LockRecords_, "CPRT88X3FDA.PRT", "LSOEMIPART.LMT", "SBSCLKZU.SB1", "LOCKCLASSCOMX.CMB",
                 "DOOR1MODEDT.DTA"}},
               words, "123456");
    }
    EXPECT_GE(Faults, 8) << "units, channel and the six files of the table are written";
}

} // namespace
} // namespace qvm::test
