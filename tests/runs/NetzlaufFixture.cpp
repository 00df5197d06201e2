#include "NetzlaufFixture.h"

#include <algorithm>
#include <sstream>

namespace qvm::test {

NetzlaufFixture::NetzlaufFixture() {
    NetDevices.Adapter.Name = "PROGSTATION N";
    NetDevices.Adapter.Address = {3, 224, 0, 1};
    for (std::size_t n = 0; n < 16; ++n) {
        NetDevices.Adapter.Key[n] = static_cast<std::uint8_t>(0x31 + 7 * n);
    }
}

void NetzlaufFixture::BeginNet(const std::vector<int>& network) {
    BeginList(network);
    NetDevices.Locks = devices.Locks;
    NetDevices.Units = devices.Units;
    programm->Adapter.Saetze[1].TransferKey = NetDevices.Adapter.Key;
    Net = std::make_unique<VirtualSystem>(NetDevices, Surroundings());
    world.OnWrite = [this](std::span<const std::uint8_t> bytes) {
        (world.PortNumber == 2 ? *Net : *system).Receive(bytes);
    };
}

bool NetzlaufFixture::Work() {
    while (programm->Transfer->F91.Laeuft()) {
        if (!world.RunUntil([this] { return !programm->Transfer->F91.Laeuft() || programm->Transfer->F91.Steht; },
                            36000000)) {
            return false;
        }
        Standstills += programm->Transfer->F91.Steht ? 1 : 0;
        programm->Transfer->F91.Zeile_Aufgeben();
    }
    world.RunFor(100);
    return true;
}

VirtualLock& NetzlaufFixture::NetLock(std::string_view serial) {
    VirtualLock* lock = Net->FindLock(AddressOf(serial));
    if (lock == nullptr) {
        throw std::runtime_error("no such lock behind the network adapter");
    }
    return *lock;
}

Codes NetzlaufFixture::NetCodes() const {
    Codes codes;
    for (const auto& frame : Net->Telegrams()) {
        codes.push_back(frame[27]);
    }
    return codes;
}

std::vector<std::string> NetzlaufFixture::HistoryLines(const std::string& lock) {
    std::vector<std::string> lines;
    int files_ = 0;
    for (const auto& [path, bytes] : world.Disk.Files) {
        if (!path.ends_with("_" + lock + ".HST")) {
            continue;
        }
        ++files_;
        std::istringstream text(bytes);
        for (std::string line; std::getline(text, line);) {
            lines.push_back(line.substr(0, line.find('\r')));
        }
    }
    return files_ == 1 ? lines : std::vector<std::string>{};
}

void NetzlaufFixture::AddUsers(int count, const std::vector<int>& locks) {
    std::map<int, char> marks;
    for (const int lock : locks) {
        marks[lock] = 'X';
    }
    for (int n = 1; n <= count; ++n) {
        files.User(n, {.Name = "User " + std::to_string(n), .Code = std::to_string(700000 + 13 * n), .Marks = marks});
    }
}

void ExpectSameSettings(const VirtualLock& net, const VirtualLock& direct, int partsA) {
    EXPECT_TRUE(std::equal(net.TableA.begin(), net.TableA.begin() + partsA, direct.TableA.begin()));
    EXPECT_TRUE(std::equal(net.TableB.begin(), net.TableB.begin() + 5, direct.TableB.begin()));
    EXPECT_EQ(net.SingleDays, direct.SingleDays);
    EXPECT_EQ(net.PermanentDays, direct.PermanentDays);
    EXPECT_EQ(net.CalendarFlag, direct.CalendarFlag);
    EXPECT_EQ(net.LockTimerFlag, direct.LockTimerFlag);
    EXPECT_EQ(net.Priority, direct.Priority);
    EXPECT_EQ(net.LockMode, direct.LockMode);
    EXPECT_EQ(net.EraseOption, direct.EraseOption);
    EXPECT_EQ(net.Listen, direct.Listen);
    EXPECT_EQ(net.Channel, direct.Channel);
    EXPECT_EQ(net.Fingers, direct.Fingers);
}

std::array<std::uint8_t, 16> UserNameBytes(int n) {
    const std::string text = "User " + std::to_string(n);
    std::array<std::uint8_t, 16> name{};
    std::copy(text.begin(), text.end(), name.begin());
    return name;
}

std::array<std::uint8_t, 5> UserCodeBytes(int n) {
    std::string digits = std::to_string(700000 + 13 * n);
    std::replace(digits.begin(), digits.end(), '0', ':'); // the sign behind 9 has the value 10
    std::array<std::uint8_t, 5> code{0, 0, 0, 0xEE, 0xEE};
    for (std::size_t at = 0; at < 3; ++at) {
        code[at] = static_cast<std::uint8_t>((digits[2 * at] - '0') * 16 + digits[2 * at + 1] - '0');
    }
    return code;
}

HistoryLine NetEvent(int n) {
    HistoryLine line{};
    line[0] = static_cast<std::uint8_t>(1 + n % 28);
    line[1] = 2;
    line[2] = 26;
    line[3] = static_cast<std::uint8_t>(n % 24);
    line[4] = static_cast<std::uint8_t>(n % 60);
    const std::string name = "U" + std::to_string(n);
    std::copy(name.begin(), name.end(), line.begin() + 5);
    line[21] = 0x0A;
    return line;
}

} // namespace qvm::test
