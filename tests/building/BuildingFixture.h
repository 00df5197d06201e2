#pragma once

#include "Datendateien.h"
#include "Gebaeude.h"
#include "GebaeudeFenster.h"
#include "Inhalt.h"
#include "MainWindows.h"
#include "TransferWindows.h"
#include "VirtualPlatform.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace qvm::test {

using ::testing::IsEmpty;

/// The inverse of the test world's stand-in for the cipher: one place back, then each byte less the key's.
inline void Zurueckmischen(std::span<std::uint8_t, 16> block, std::span<const std::uint8_t, 16> key) {
    std::rotate(block.begin(), block.end() - 1, block.end());
    for (std::size_t n = 0; n < block.size(); ++n) {
        block[n] = static_cast<std::uint8_t>(block[n] - key[n]);
    }
}

/// The whole program in a virtual building, in virtual time, over an installation of two locks and a unit.
struct BuildingFixture : ::testing::Test {
    VirtualPlatform world;
    Datendateien files{world.Disk};
    std::unique_ptr<Gebaeude> building;
    std::unique_ptr<Programm> programm;
    std::unique_ptr<GebaeudeFenster> window;
    std::map<std::string, std::string> Before; ///< the disk

    BuildingFixture() {
        std::string words;
        for (int line = 1; line <= 300; ++line) {
            words += "L" + std::to_string(line) + "\r\n";
        }
        world.Disk.Files["/q/QVM_Deutsch.DAT"] = words;
        world.Disk.Files["/q/DAT/EST7CSB29A.I_1"] = "Deutsch\r\n1\r\nUSB-Port1\r\n1\r\n";
        world.Disk.Files["/q/DAT/CHEUSB25C.I_2"] = "SET       \r\n     \r\n     \r\n     \r\n     \r\n     \r\n";
        files.Lock(1, "Tresor", "01.20.00.01");
        files.Channel(1, "1", "1", "0");
        files.Lock(2, "Tor", "00.0A.10.01");
        files.Channel(2, "7", "1", "1");
        files.Unit(1, 1, "Funk", "0A0B0C0D", '1', "1");
        files.User(1, {.Name = "Anna", .Code = "102030", .Marks = {{1, 'X'}}});
    }
    ~BuildingFixture() override {
        window.reset();
        programm.reset();
        building.reset();
    }

    /// The program starts in the building, with a demonstration or with a copy of the installation.
    void Begin(std::optional<Gebaeudevorlage> demonstration = std::nullopt) {
        Before = world.Disk.Files;
        world.Disk.Operations = 0;
        building = std::make_unique<Gebaeude>(world.World, "/q/", std::move(demonstration), Zurueckmischen);
        programm = std::make_unique<Programm>(building->Welt(), "/q");
        programm->F7_Oeffnen = [](const std::string&) {};
        ASSERT_EQ(Programm_Start(*programm, false), StartResult::Started);
        building->Einrichten(programm->kern);
        window = std::make_unique<GebaeudeFenster>(programm->kern, *building);
        window->FormLaden();
    }
    static Gebaeudevorlage Demonstration() {
        const std::string place = std::string(QVM_SOURCE_DIR) + "/demonstration/";
        return {.Installation = Inhalt(place + "installation.json"), .World = Inhalt(place + "world.json")};
    }

    VirtualLock& Lock(std::size_t n) { return building->System().World().Locks.at(n); }
    std::string State(int row) const { return window->FGK.Text(row, BuildingColumn::State); }
    std::string Said(Word which, std::initializer_list<std::string_view> places) const {
        return Wort(programm->kern, which, places);
    }
    void Try(std::string_view code) {
        window->Code_Change(code);
        window->Eingeben_Click();
    }
    /// The main window opens and finds the adapter.
    void Connect() {
        programm->Main->F2.F2_Laden();
        ASSERT_TRUE(world.RunUntil([this] { return programm->Main->F2.Label1.ForeColor == Lampe::Gruen; }, 60000));
    }
    /// Programs the lock of that row, or reads its events.
    void Run(int lock, int column, int question) {
        TransferWindows& windows = *programm->Transfer;
        windows.F13.F13_FormLaden();
        // The question comes before whatever else the test expects.
        world.Answers.push_front(
            {.Text = "L" + std::to_string(question), .Reply = question == 63 ? Answer::No : Answer::Ok});
        windows.F13.FGK13_Click(lock, column);
        for (const char digit : std::string_view("123456")) {
            windows.F11.Text1_KeyPress(static_cast<unsigned char>(digit));
        }
        windows.F11.OK_Click();
    }
    RunOutcome Programmed(int lock) {
        Run(lock, F13Column::Program, 63);
        EXPECT_TRUE(world.RunUntil([this] { return programm->Run.Gesamtende; }, 300000));
        world.RunFor(100);
        return programm->Run.Bericht.End;
    }
};

} // namespace qvm::test
