#include "RunFixture.h"

#include "Text.h"
#include "VirtualLine.h"

#include <algorithm>

namespace qvm::test {

DeviceAddress AddressOf(std::string_view serial) {
    DeviceAddress address{};
    std::size_t at = 0;
    for (std::uint8_t& byte : address) {
        byte = static_cast<std::uint8_t>(std::stoi(std::string(serial.substr(at, 2)), nullptr, 16));
        at += serial.find('.') == std::string_view::npos ? 2 : 3;
    }
    return address;
}

void Entmischen(std::span<std::uint8_t, 16> block, std::span<const std::uint8_t, 16> key) {
    std::rotate(block.begin(), block.end() - 1, block.end());
    for (std::size_t n = 0; n < block.size(); ++n) {
        block[n] = static_cast<std::uint8_t>(block[n] - key[n]);
    }
}

RunFixture::RunFixture() {
    // Each catalogue line says its own number, so that a test names messages by number.
    std::string words;
    for (int line = 1; line <= 300; ++line) {
        words += "L" + std::to_string(line) + "\r\n";
    }
    world.Disk.Files["/q/QVM_Deutsch.DAT"] = words;
    world.Disk.Files["/q/DAT/EST7CSB29A.I_1"] = "Deutsch\r\n1\r\nUSB-Port1\r\n1\r\n";
    world.Disk.Files["/q/DAT/CHEUSB25C.I_2"] = "RESET     \r\n     \r\n     \r\n     \r\n     \r\n     \r\n";
}

VirtualLock& RunFixture::AddLock(int number, std::string_view name, std::string_view serial,
                                 std::string_view switches) {
    files.Lock(number, name, serial, switches);
    files.Channel(number, "1", "1", "0");
    VirtualLock lock;
    lock.Serial = AddressOf(serial);
    devices.Locks.push_back(lock);
    return devices.Locks.back();
}

VirtualUnit& RunFixture::AddUnit(std::string_view serialHex, int type) {
    VirtualUnit unit;
    unit.Serial = AddressOf(serialHex);
    unit.Type = type;
    devices.Units.push_back(unit);
    return devices.Units.back();
}

SimSurroundings RunFixture::Surroundings() {
    SimSurroundings line = LineOf(world);
    line.Decipher = Entmischen;
    line.Unplug = [this] {
        world.PortCanOpen = false;
        world.PortOpen = false;
    };
    return line;
}

void RunFixture::Begin() {
    programm.reset();
    system.reset();
    world.OnWrite = {};
    world.PortOpen = false;
    programm = std::make_unique<Programm>(world.World, "/q");
    programm->F7_Oeffnen = [this](const std::string& path) { OpenedHistories.push_back(path); };
    ASSERT_EQ(Programm_Start(*programm, true), StartResult::Started);
    system = std::make_unique<VirtualSystem>(devices, Surroundings());
    world.OnWrite = [this](std::span<const std::uint8_t> bytes) { system->Receive(bytes); };
    programm->Transfer->F13.F13_FormLaden();
    programm->Transfer->F13.Timer1.Stop();
    programm->Transfer->F13.Timer2.Stop();
}

void RunFixture::Expect(int line, Answer answer, int afterMs) {
    world.Answers.push_back({.Text = "L" + std::to_string(line), .Reply = answer, .AfterMs = afterMs});
}

void RunFixture::TypeCode(std::string_view code) {
    for (const char character : code) {
        programm->Transfer->F11.Text1_KeyPress(static_cast<unsigned char>(character));
    }
    programm->Transfer->F11.OK_Click();
}

void RunFixture::Program(int lock, Answer history, std::string_view code) {
    // The question comes before whatever else the test expects.
    world.Answers.push_front({.Text = "L63", .Reply = history});
    programm->Transfer->F13.FGK13_Click(lock, F13Column::Program);
    TypeCode(code);
}

void RunFixture::History(int lock, std::string_view code) {
    world.Answers.push_front({.Text = "L65"});
    programm->Transfer->F13.FGK13_Click(lock, F13Column::History);
    TypeCode(code);
}

bool RunFixture::Finish(std::int64_t limitMs) {
    const bool ended = world.RunUntil([this] { return programm->Run.Gesamtende; }, limitMs);
    world.RunFor(100);
    return ended;
}

VirtualLock& RunFixture::Lock(std::string_view serial) {
    VirtualLock* lock = system->FindLock(AddressOf(serial));
    if (lock == nullptr) {
        throw std::runtime_error("no such lock in the world");
    }
    return *lock;
}

Codes RunFixture::Sent() const {
    const auto codes = system->Codes();
    return Codes(codes.begin(), codes.end());
}

SmallRun::SmallRun() {
    AddLock(1, "Tresor", Serial::S, " XXX ");
    files.Emi(1, 'Y');
    files.User(1, {.Name = "Anna", .Marks = {{1, 'X'}}});
}

void SmallRun::Refuse(int telegram, int reason, bool andAllBehind) {
    devices.Faults.push_back(
        {.What = SimFault::Kind::Refuse, .Telegram = telegram, .AndAllBehind = andAllBehind, .Value = reason});
}

} // namespace qvm::test
