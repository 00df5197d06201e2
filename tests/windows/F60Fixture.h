#pragma once

#include "AntwortRahmen.h"
#include "FensterFixture.h"
#include "PersonWindows.h"
#include "TimeWindows.h"
#include "Words.h"

namespace qvm::test {

/// Window F60 with three doors of numbers 1, 2 and 4: the first has a room, the second an offset. Today is 05.03.2026,
/// a Thursday.
struct F60_Karten : FensterFixture {
    static constexpr const char *Perm = "/q/DAT/PERMSELECT.RFS", *Group = "/q/DAT/ObJNR09DAT.OBN",
                                *Times = "/q/DAT/OFSTSETUPDT.FST", *Mode = "/q/DAT/ASWTIMQVMLCK.FSN";

    F60_Karten() {
        files.Lock(1, "Room 1", "00.0A.10.01");
        files.Lock(2, "Spa", "00.0A.10.02");
        files.Lock(4, "spare room", "00.0A.10.04");
        Door(1, "AA00 0A 10 01 ", "258");
        world.Disk.Files[Times] = "05.03.2026\r\n09:30\r\n15:00\r\n00\r\n01\r\n";
        files.Put("T4OFFSETGST.FST", 38, 1, 0, 38, "Late                11:0009:30OFST0x01");
        files.Put("C64UX12H3D.EBW", 45, 2, 20, 8, "OFST0x01");
    }
    F60& Window() { return programm->Times->F60; }
    void Door(int record, std::string_view modeAndSerial, std::string_view room) {
        files.Put("DOOR1MODEDT.DTA", 30, record, 0, 14, modeAndSerial);
        files.Put("DOOR1MODEDT.DTA", 30, record, 14, 16, room);
    }
    void Selection(std::string_view mode, std::string_view slots) {
        std::string text = "05.03.2026\r\n" + std::string(mode) + "\r\n";
        for (const char slot : slots) {
            text += std::string(1, slot) + "\r\n";
        }
        world.Disk.Files[Mode] = text + "ENDE\r\n";
    }
    void Open() {
        Start();
        programm->Main->F2.F2_Laden();
        programm->Main->F2.Timer2.Stop();
        programm->Adapter.EnrollmentPort = 6;
        programm->kern.Windows.Weg("F60")();
        programm->Main->F2.Fenster.Visible = false;
        world.Written.clear();
    }
    void Mark(int row, std::string_view mark) {
        for (int n = 0; n < 3 && Cell(row, CardColumn::Mark) != mark; ++n) {
            Window().FGK60_Click(row, CardColumn::Mark);
        }
    }
    const std::string& Cell(int row, int column) { return Window().FGK60.Text(row, column); }
    void ExpectText(std::string_view text, Answer answer = Answer::Ok) {
        world.Answers.push_back({.Text = std::string(text), .Reply = answer});
    }
    void ExpectWord(Word word) { ExpectText(Wort(programm->kern, word)); }
    /// A reply of the writer; `payload` from index 3 on.
    void Say(std::uint8_t code, const std::vector<std::uint8_t>& payload) {
        world.Deliver(ReplyWire(code, static_cast<std::uint8_t>(2 + payload.size()), payload));
        world.RunFor(5);
    }
    /// Room 1 is marked and written; the first telegram is out.
    void BeginWriting() {
        Mark(1, "X");
        Window().Command2_Click();
        ASSERT_TRUE(Window().Wartet());
    }
};

} // namespace qvm::test
