// Guest cards, with the virtual card writer at the other end: the card holds what was picked.

#include "RunFixture.h"
#include "TimeWindows.h"
#include "WorldFile.h"

namespace qvm::test {
namespace {

/// Doors 1 to 60 with the serials 00.0A.11.01 to 00.0A.11.3C, all with room 300, doors 1 to 4 with an offset each.
struct Run_Card : RunFixture {
    Run_Card() {
        for (int n = 1; n <= 60; ++n) {
            const std::string pair{"0123456789ABCDEF"[n / 16], "0123456789ABCDEF"[n % 16]};
            files.Lock(n, "Door " + std::to_string(n), "00.0A.11." + pair);
            files.Put("DOOR1MODEDT.DTA", 30, n, 0, 14, "AA00 0A 11 " + pair + " ");
            files.Put("DOOR1MODEDT.DTA", 30, n, 14, 16, "300");
        }
        world.Disk.Files["/q/DAT/OFSTSETUPDT.FST"] = "05.03.2026\r\n15:00\r\n10:30\r\n00\r\n01\r\n";
        const std::array<std::string_view, 4> offsets{"13:45"
                                                      "15:00",
                                                      "16:00"
                                                      "15:00",
                                                      "10:30"
                                                      "10:30",
                                                      "09:00"
                                                      "10:31"};
        for (int n = 1; n <= 4; ++n) {
            files.Put("T4OFFSETGST.FST", 38, n, 0, 20, "O" + std::to_string(n));
            files.Put("T4OFFSETGST.FST", 38, n, 20, 10, offsets[static_cast<std::size_t>(n - 1)]);
            files.Put("T4OFFSETGST.FST", 38, n, 30, 8, "OFST0x0" + std::to_string(n));
            files.Put("C64UX12H3D.EBW", 45, n, 20, 8, "OFST0x0" + std::to_string(n));
        }
        devices.Adapter.Name = "ENROLLMENT1";
        devices.Desk.Writer.Card = VirtualCard{};
    }
    void Mode(std::string_view word) {
        world.Disk.Files["/q/DAT/ASWTIMQVMLCK.FSN"] =
            "05.03.2026\r\n" + std::string(word) + "\r\nX\r\n0\r\n0\r\nX\r\n0\r\n0\r\n0\r\n0\r\nENDE\r\n";
        world.Disk.Files["/q/DAT/ObJNR09DAT.OBN"] = "05.03.2026\r\n9\r\n10\r\n";
    }
    F60& Window() { return programm->Times->F60; }
    void Open() {
        Begin();
        programm->Transfer->F13.F13_Schliessen();
        programm->Main->F2.Timer2.Stop();
        programm->Adapter.ProgStationPort = programm->Adapter.EnrollmentPort = 1;
        Window().F60_FormLaden();
        Window().MV1_Waehlen({.Year = 2026, .Month = 12, .Day = 24});
        Window().MV2_Waehlen({.Year = 2027, .Month = 1, .Day = 2});
    }
    void Mark(int row, int clicks) {
        for (int n = 0; n < clicks; ++n) {
            Window().FGK60_Click(row, CardColumn::Mark);
        }
    }
    /// Doors 1 to `permanent` are P, those behind them X.
    void MarkDoors(int permanent, int single) {
        for (int n = 1; n <= permanent + single; ++n) {
            Mark(n, n <= permanent ? 2 : 1);
        }
    }
    void Write() {
        Window().Command2_Click();
        world.RunFor(2000);
    }
    const VirtualCard& Card() { return *system->World().Desk.Writer.Card; }
    static CardDoor Door(int place, int number) {
        return {.Place = place, .Serial = {0, 0x0A, 0x11, static_cast<std::uint8_t>(number)}};
    }
};

TEST_F(Run_Card, the_card_of_a_hotel_says_what_was_picked) {
    Mode("HOTEL");
    Open();
    MarkDoors(5, 2);
    Expect(220);
    Write();
    EXPECT_EQ(system->JudgementLines(), "");
    VirtualCard want;
    want.CheckIn = {.Day = 24, .Month = 12, .Year = 26, .Hour = 15, .Minute = 0};
    want.CheckOut = {.Day = 2, .Month = 1, .Year = 27, .Hour = 10, .Minute = 30};
    want.Room = 300;
    want.Slots = {1, 4};
    want.Doors = {Door(0, 6), Door(1, 1), Door(2, 2), Door(3, 3), Door(4, 4), Door(5, 5), Door(6, 7)};
    want.Doors[1].Base = want.Doors[2].Base = 1;
    want.Doors[1].Minutes = -75; // 13:45 against 15:00
    want.Doors[2].Minutes = 60;
    want.Doors[3].Base = 2; // the fourth counts from a time that is no default any more
    want.Writes = 1;
    EXPECT_EQ(Card(), want);
    EXPECT_THAT(Sent(), ElementsAre(0x6F, 0x6F));
}

TEST_F(Run_Card, the_card_of_an_object_says_what_was_picked) {
    Mode("OBJEKT");
    Open();
    Window().List1_Waehlen(6);
    MarkDoors(0, 2);
    Expect(220);
    Write();
    EXPECT_EQ(system->JudgementLines(), "");
    EXPECT_EQ(Card().Use, VirtualCard::Mode::Object);
    EXPECT_EQ(Card().Group, 6);
    EXPECT_EQ(Card().Room, 9560); // days from 01.01.2000 to 05.03.2026
    EXPECT_THAT(Card().Doors, ElementsAre(Door(5, 1), Door(6, 2)));
}

TEST_F(Run_Card, every_number_of_doors_arrives_in_both_modes) {
    for (const std::string_view mode : {"HOTEL", "OBJEKT"}) {
        for (int permanent = 0; permanent <= 29; permanent += 1) {
            for (const int single : {1, 2, 11, 12, 13, 25, 29}) {
                SCOPED_TRACE(std::string(mode) + " " + std::to_string(permanent) + " " + std::to_string(single));
                Mode(mode);
                Open();
                MarkDoors(permanent, single);
                Expect(220);
                Write();
                ASSERT_EQ(system->JudgementLines(), "");
                const bool object = mode == "OBJEKT";
                const int fits = std::min(permanent, 26);
                const int front = std::max(fits, 4) + (object ? 1 : 0);
                const int taken = std::min(single, std::max(26 - front, 0));
                std::map<int, DeviceAddress> want;
                for (int n = 1; n <= fits; ++n) {
                    want[n] = Door(n, n).Serial;
                }
                for (int n = 0; n < taken; ++n) {
                    want[n == 0 && !object ? 0 : front + n] = Door(0, permanent + n + 1).Serial;
                }
                // The last of 26 permanent doors of a hotel goes out with its first byte only.
                if (!object && fits == 26) {
                    want.erase(26);
                }
                std::map<int, DeviceAddress> got;
                for (const CardDoor& door : Card().Doors) {
                    got[door.Place] = door.Serial;
                }
                ASSERT_EQ(got, want);
            }
        }
    }
}

TEST_F(Run_Card, each_error_of_the_writer_is_told_and_the_card_stays_as_it_was) {
    Mode("HOTEL");
    const std::vector<std::pair<std::uint8_t, std::string>> errors{
        {0xD2, "L221"}, {0xD3, "L222"}, {0xD4, "L227"}, {0xE0, "224      Fehler!"}};
    for (const auto& [code, text] : errors) {
        for (const std::size_t telegram : {0U, 1U, 2U}) {
            devices.Desk.Writer.Results.assign(telegram, 0);
            devices.Desk.Writer.Results.push_back(code);
            Open();
            MarkDoors(10, 12);
            world.Answers.push_back({.Text = text});
            Write();
            EXPECT_EQ(Card().Writes, 0);
            EXPECT_EQ(Window().Ergebnis, KartenErgebnis::Abgelehnt);
            EXPECT_EQ(system->JudgementLines(), "");
        }
    }
}

TEST_F(Run_Card, an_adapter_pulled_out_at_any_telegram_is_told_and_works_again_behind_it) {
    Mode("HOTEL");
    for (const int telegram : {0, 1, 2}) {
        devices.Faults = {SimFault{.What = SimFault::Kind::Unplug, .Telegram = telegram}};
        Open();
        MarkDoors(10, 12);
        world.Answers.push_back({.Text = Wort(programm->kern, Word::AdapterPulled)});
        Window().Command2_Click();
        world.RunFor(2000);
        EXPECT_EQ(Window().Ergebnis, KartenErgebnis::Getrennt);
        EXPECT_EQ(Card().Writes, 0);
        system->World().Faults.clear();
        system->Plug();
        world.PortCanOpen = true;
        Expect(220);
        Write();
        EXPECT_EQ(Card().Writes, 1);
    }
}

TEST_F(Run_Card, answers_that_come_twice_change_nothing) {
    Mode("HOTEL");
    for (const int telegram : {0, 1, 2}) {
        devices.Faults = {SimFault{.What = SimFault::Kind::Doubled, .Telegram = telegram}};
        Open();
        MarkDoors(10, 12);
        Expect(220);
        Write();
        EXPECT_EQ(Card().Writes, 1);
        EXPECT_EQ(system->JudgementLines(), "");
        EXPECT_THAT(Sent(), ElementsAre(0x6F, 0x6F, 0x6F));
        system->RestartFaultCount();
        Window().Command4_Click();
        world.RunFor(2000);
        EXPECT_TRUE(Window().Lesung.Fertig);
    }
}

TEST_F(Run_Card, a_card_taken_away_between_two_telegrams_is_told) {
    Mode("HOTEL");
    devices.Desk.Writer.TakenAfter = 1;
    Open();
    MarkDoors(10, 12);
    world.Answers.push_back({.Text = "Karte nicht erkannt!"});
    Write();
    EXPECT_EQ(Window().Ergebnis, KartenErgebnis::Abgelehnt);
    EXPECT_TRUE(Window().Fenster.Visible);
    EXPECT_FALSE(system->World().Desk.Writer.Card);
}

TEST_F(Run_Card, a_card_that_was_written_is_read_with_its_battery) {
    Mode("HOTEL");
    devices.Desk.Writer.Card->Battery = {9, 8, 7, 6};
    Open();
    MarkDoors(10, 12);
    Expect(220);
    Write();
    Window().Command4_Click();
    world.RunFor(2000);
    EXPECT_EQ(system->JudgementLines(), "");
    EXPECT_TRUE(Window().Lesung.Fertig);
    EXPECT_THAT(Window().Lesung.Batterie, ElementsAre(9, 8, 7, 6));
    EXPECT_EQ(Window().Hinweis.Text(),
              Wort(programm->kern, Word::CardRead, {"24.12.2026 15:00", "02.01.2027 10:30", "09 08 07 06"}));
    EXPECT_THAT(Sent(), ElementsAre(0x6F, 0x6F, 0x6F, 0x73, 0x73, 0x73, 0x72));
}

TEST_F(Run_Card, a_card_is_written_through_a_lone_programming_adapter) {
    Mode("HOTEL");
    devices.Adapter.Name = "PROGSTATION 1";
    Open();
    MarkDoors(0, 1);
    Expect(220);
    Write();
    EXPECT_EQ(Card().Writes, 1);
}

} // namespace
} // namespace qvm::test
