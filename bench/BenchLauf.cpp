// A whole run of 250 users, program and virtual lock in one process and in virtual time.

#include "Datendateien.h"
#include "F13.h"
#include "TransferWindows.h"
#include "VirtualLine.h"

#include <benchmark/benchmark.h>
#include <string>

namespace qvm {
namespace {

void Dateien_Anlegen(test::VirtualPlatform& world) {
    world.Disk.Files["/q/DAT/EST7CSB29A.I_1"] = "Deutsch\r\n1\r\nUSB-Port1\r\n1\r\n";
    world.Disk.Files["/q/DAT/CHEUSB25C.I_2"] = "RESET     \r\n";
    test::Datendateien files(world.Disk);
    files.Lock(1, "Tresor", "00.0A.10.01", " XXXX");
    files.Channel(1, "1", "1", "0");
    for (int user = 1; user <= 250; ++user) {
        test::TestUser record;
        record.Name = "User " + std::to_string(user);
        record.KeyId = "1 : 3 : 4 : 5";
        record.Marks[1] = 'X';
        files.User(user, record);
    }
}

void Lauf_250_Benutzer(benchmark::State& state) {
    test::VirtualPlatform world;
    Dateien_Anlegen(world);
    Programm programm(world.World, "/q");
    Programm_Start(programm, false);
    VirtualWorld devices;
    devices.Locks.resize(1);
    devices.Locks[0].Serial = {0x00, 0x0A, 0x10, 0x01};
    VirtualSystem system(devices, test::LineOf(world));
    system.KeepTelegrams(false);
    world.OnWrite = [&system](std::span<const std::uint8_t> bytes) { system.Receive(bytes); };
    programm.Transfer->F13.F13_FormLaden();
    programm.Transfer->F13.Timer1.Stop();
    programm.Transfer->F13.Timer2.Stop();
    for (auto _ : state) {
        world.Answers.push_back({.Text = "*", .Reply = Answer::No});
        programm.Transfer->F13.FGK13_Click(1, F13Column::Program);
        for (const char digit : std::string("123456")) {
            programm.Transfer->F11.Text1_KeyPress(digit);
        }
        programm.Transfer->F11.OK_Click();
        if (!world.RunUntil([&programm] { return programm.Run.Gesamtende; }) ||
            programm.Run.Bericht.End != RunOutcome::Done || system.World().Locks[0].Users.size() != 250) {
            state.SkipWithError("the run did not go through");
            break;
        }
        programm.Transfer->F9.Command2_Click();
    }
}
BENCHMARK(Lauf_250_Benutzer)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace qvm
