#pragma once

#include "LockWindows.h"
#include "RunFixture.h"
#include "Text.h"
#include "Words.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qvm::test {

/// Lock 1 with its units window; units that no lock knows are in the air.
struct ScanFixture : RunFixture {
    ScanFixture() {
        AddLock(1, "Tresor", Serial::S, " XXX ").Channel = 7;
        world.Disk.Files["/q/DAT/EST7CSB29A.I_1"] = "Deutsch\r\n1\r\nUSB-Port1\r\n7\r\n";
        files.Channel(1, "7", "7", "0");
        files.Emi(1, 'Y');
        files.User(1, {.Name = "Anna", .Marks = {{1, 'X'}}});
        devices.ReplyMs = 20;
    }
    LockWindows& Windows() { return *programm->Locks; }
    struct F12& Locks12() {
        return Windows().F12;
    }
    struct F19& Found19() {
        return Windows().F19;
    }
    struct F20& Units20() {
        return Windows().F20;
    }
    F11& Dialog() { return programm->Transfer->F11; }
    F18& Box() { return programm->Transfer->F18; }

    VirtualUnit& InTheAir(std::string_view serialHex, int channel, std::uint8_t signal) {
        VirtualUnit& unit = AddUnit(serialHex, 1);
        unit.Channel = channel;
        unit.Air.Signal = signal;
        return unit;
    }
    void Open() {
        Begin();
        programm->Transfer->F13.F13_Schliessen();
        Windows().Suche_Anbieten();
        Locks12().F12_FormLaden();
        Locks12().Auswahl.Go(1, 2);
    }
    void OpenUnits(int row = 2) {
        Open();
        Locks12().SNA_Function_Click();
        Units20().Auswahl.Go(row, 2);
    }
    void Keypad() { Units20().F20_Keypad_Click(); }
    void ReadUnit() {
        Units20().F20_Readunit_Click();
        TypeCode("123456");
    }
    void ReadLock() {
        Locks12().SNA_save_Click();
        TypeCode("123456");
    }
    bool Over(std::int64_t limitMs = 200000) {
        return world.RunUntil([this] { return !Windows().Scan.Laeuft; }, limitMs);
    }
    std::string Serials() {
        std::string text;
        for (int row = 1; row <= 12; ++row) {
            text += (row == 1 ? "" : " ") + Found19().FGK19.Text(row, 1);
        }
        return text;
    }
    std::string UnitRow(int row) {
        std::string text;
        for (int column = 1; column <= 4; ++column) {
            text += (column == 1 ? "" : "|") + Units20().FGK20.Text(row, column);
        }
        return text;
    }
    void NoMarks() {
        const ChainState& chain = programm->link.Lauf.Chain;
        EXPECT_EQ(chain.SuchMarke + chain.SuchLauf + chain.KanalIndex, 0);
        EXPECT_EQ(chain.LaufZiel, "");
        EXPECT_EQ(programm->link.AddressMode + programm->link.AnswerDue, 0);
        EXPECT_EQ(programm->link.Lauf.Order.AdminCode, Secret<3>());
        EXPECT_FALSE(Windows().Scan.Uhr.Running());
    }
    /// The code stands nowhere any more: neither in the dialog nor in a telegram.
    void NoSecret() {
        const Link& link = programm->link;
        EXPECT_EQ(Dialog().Stellen(), 0);
        EXPECT_EQ(Dialog().Text1.Text(), "");
        EXPECT_EQ(link.Lauf.Order.AdminCode, Secret<3>());
        EXPECT_EQ(link.TxBuffer, decltype(link.TxBuffer){});
        EXPECT_THAT(link.TxWire, IsEmpty());
    }
    void ExpectText(std::string_view text) { world.Answers.push_back({.Text = std::string(text)}); }
    void ExpectWord(Word word) { ExpectText(Wort(programm->kern, word)); }
    /// Both windows away, and the lock programmed as if nothing had been.
    void ExpectAGoodRun() {
        Units20().Command1_Click();
        Locks12().Fenster.Visible = false;
        programm->Transfer->F13.F13_FormLaden();
        Program(1);
        ASSERT_TRUE(Finish());
        EXPECT_EQ(Outcome(), RunOutcome::Done);
    }
};

} // namespace qvm::test
