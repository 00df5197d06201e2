// Credentials from the desk, with the virtual readers at the other end.

#include "PersonWindows.h"
#include "RunFixture.h"
#include "UserTable.h"

namespace qvm::test {
namespace {

struct Run_Desk : RunFixture {
    Run_Desk() {
        files.User(1, {.Name = "Anna"});
        files.User(2, {.Name = "Bert"});
    }
    void Lay(Credential::Kind kind, std::vector<std::uint8_t> id, std::uint8_t slot = 0) {
        Credential credential;
        credential.What = kind;
        credential.Id = std::move(id);
        credential.Data = {9};
        credential.Slot = slot;
        credential.Template = {70, 1, 2, 3};
        credential.PieceBytes = 3;
        devices.Desk.Presented.push_back(credential);
    }
    void Open(bool enrolment) {
        devices.Adapter.Name = enrolment ? "ENROLLMENT1" : "PROGSTATION 1";
        Begin();
        programm->Transfer->F13.F13_Schliessen();
        programm->Main->F2.Timer2.Stop();
        Window().F5_FormLaden();
        programm->Adapter.ProgStationPort = programm->Adapter.EnrollmentPort = 1;
        programm->Main->F2.AdapterVersion = 12;
    }
    F5& Window() { return programm->Persons->F5; }
    F51& Enrolment() { return programm->Persons->F51; }
    const std::string& Cell(int row, int column) { return Window().FGK4.Text(row, column); }
    void LearnKey(int row) {
        Window().MenuRow = row;
        Expect(154, Answer::Yes);
        world.Answers.push_back({.Text = "L76\r\nL44"});
        programm->Persons->Schluessel.Save_Ekey_Click();
    }
    void LearnTransponder(int row) {
        Window().MenuRow = row;
        programm->Persons->Schluessel.Save_RFID_Click();
    }
    void LearnFinger(int row) {
        Window().FsRow = row;
        programm->Persons->Finger.FS_anerlen_Click();
    }
    void ExpectText(std::string_view text) { world.Answers.push_back({.Text = std::string(text)}); }
};

TEST_F(Run_Desk, learns_an_e_key) {
    Lay(Credential::Kind::Key, {10, 20, 30, 40});
    Open(false);
    LearnKey(2);
    world.RunFor(1000);
    EXPECT_EQ(Cell(2, UserColumn::KeyId), "10 : 20 : 30 : 40");
    EXPECT_THAT(Sent(), ElementsAre(0x67));
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_Desk, tells_that_no_e_key_came) {
    Open(false);
    LearnKey(2);
    Expect(69);
    world.RunFor(11000);
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_Desk, takes_a_key_that_is_presented_late) {
    Open(false);
    LearnKey(2);
    world.RunFor(9000);
    system->Present({.What = Credential::Kind::Key, .Id = {1, 2, 3, 4}});
    world.RunFor(1000);
    EXPECT_EQ(Cell(2, UserColumn::KeyId), "1 : 2 : 3 : 4");
}

TEST_F(Run_Desk, learns_a_transponder) {
    Lay(Credential::Kind::Transponder, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, 12);
    Open(true);
    LearnTransponder(3);
    EXPECT_FALSE(Window().Fenster.Enabled);
    world.RunFor(1000);
    EXPECT_EQ(Cell(3, UserColumn::KeyId), "#12-ID#1:2:3:4:5:6:7:8:9:10");
    EXPECT_TRUE(Window().Fenster.Enabled);
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_Desk, frees_a_used_slot) {
    Lay(Credential::Kind::Transponder, {1}, 200);
    Open(true);
    LearnTransponder(3);
    Expect(241, Answer::Yes);
    world.RunFor(1000);
    EXPECT_EQ(Cell(3, UserColumn::KeyId), "");
    EXPECT_THAT(system->World().Desk.Freed, ElementsAre(200));
    EXPECT_THAT(Sent(), ElementsAre(0xA3, 0x70));
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_Desk, is_free_again_when_the_unit_gives_a_transponder_up) {
    Open(true);
    LearnTransponder(3);
    world.RunFor(9999);
    EXPECT_FALSE(Window().Fenster.Enabled);
    world.RunFor(2);
    EXPECT_TRUE(Window().Fenster.Enabled);
}

TEST_F(Run_Desk, enrols_a_finger_and_a_second_one_gets_the_next_slot) {
    Lay(Credential::Kind::Finger, {});
    Lay(Credential::Kind::Finger, {});
    Open(true);
    LearnFinger(2);
    world.RunFor(6000);
    EXPECT_FALSE(Enrolment().Fenster.Visible);
    EXPECT_TRUE(Window().Fenster.Enabled);
    EXPECT_EQ(Cell(2, UserColumn::KeyLabel), "Slot_Nr: 001");
    LearnFinger(3);
    world.RunFor(6000);
    EXPECT_EQ(Cell(3, UserColumn::KeyLabel), "Slot_Nr: 002");
    EXPECT_EQ(files.File("TEmpTCD0UPK.FSD").substr(3028 * 250 + 26, 21), "70 : 1 : 2 : 3 :     ");
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_Desk, goes_through_all_errors_of_an_enrolment) {
    Lay(Credential::Kind::Finger, {});
    devices.Desk.Presented[0].Steps = {0x0C, 0x1C, 0x0D, 0x1D, 0x0E, 0x1E, 0x26, 0x24, 0x27, 0x0A};
    Open(true);
    LearnFinger(2);
    world.RunFor(10000);
    EXPECT_EQ(Cell(2, UserColumn::KeyLabel), "Slot_Nr: 001");
    EXPECT_TRUE(Window().Fenster.Enabled);
}

TEST_F(Run_Desk, stores_nothing_of_an_enrolment_that_was_left) {
    Lay(Credential::Kind::Finger, {});
    Open(true);
    LearnFinger(2);
    world.RunFor(1200);
    Enrolment().Command1_Click();
    world.RunFor(10000);
    EXPECT_THAT(Sent(), ElementsAre(0xA1));
    EXPECT_EQ(Cell(2, UserColumn::KeyLabel), "");
    EXPECT_EQ(files.File("TEmpTCD0UPK.FSD"), "");
}

TEST_F(Run_Desk, a_reader_that_is_not_there_refuses) {
    Open(false);
    Expect(68);
    LearnTransponder(2);
    world.RunFor(100);
    EXPECT_TRUE(Window().Fenster.Enabled);
    Expect(68);
    LearnFinger(2);
    world.RunFor(100);
    EXPECT_TRUE(Window().Fenster.Enabled);
    EXPECT_FALSE(Enrolment().Fenster.Visible);
}

/// Every fault of the line at the one telegram of each conversation: in the end no window is locked, and the row has
/// the key or nothing has.
struct Run_Desk_Faults : Run_Desk, testing::WithParamInterface<SimFault::Kind> {
    bool Comes() const {
        return GetParam() == SimFault::Kind::Doubled || GetParam() == SimFault::Kind::Late ||
               GetParam() == SimFault::Kind::Garbage;
    }
    void Fault() { devices.Faults = {{.What = GetParam(), .Telegram = 0, .Value = 0x65}}; }
    /// Whatever is told is told.
    void Settle() {
        world.World.ShowMessage = [](const Message&) { return Answer::Ok; };
        world.RunFor(130000);
        if (Enrolment().Fenster.Visible) {
            Enrolment().Command2_Click();
        }
        EXPECT_TRUE(Window().Fenster.Enabled);
    }
};

TEST_P(Run_Desk_Faults, a_key_comes_to_its_row_or_nowhere) {
    Lay(Credential::Kind::Key, {10, 20, 30, 40});
    Fault();
    Open(false);
    LearnKey(2);
    Window().MenuRow = 3;
    Settle();
    EXPECT_EQ(Cell(2, UserColumn::KeyId), Comes() ? "10 : 20 : 30 : 40" : "");
    EXPECT_EQ(Cell(3, UserColumn::KeyId), "");
}

TEST_P(Run_Desk_Faults, a_transponder_comes_to_its_row_or_nowhere) {
    Lay(Credential::Kind::Transponder, {1, 2, 3}, 5);
    Fault();
    Open(true);
    LearnTransponder(2);
    Window().MenuRow = 3;
    Settle();
    // The unit is done 20 ms behind its reply, be that late.
    const bool stored = Comes() && GetParam() != SimFault::Kind::Late;
    EXPECT_EQ(Cell(2, UserColumn::KeyId), stored ? "#5-ID#1:2:3:0:0:0:0:0:0:0" : "");
    EXPECT_EQ(Cell(3, UserColumn::KeyId), "");
}

TEST_P(Run_Desk_Faults, a_finger_comes_to_its_row_or_nowhere) {
    Lay(Credential::Kind::Finger, {});
    Fault();
    Open(true);
    LearnFinger(2);
    Window().FsRow = 3;
    Settle();
    // Only the first step is hurt, and nothing hangs on it.
    const bool first = GetParam() == SimFault::Kind::BadSum || GetParam() == SimFault::Kind::Half;
    EXPECT_EQ(Cell(2, UserColumn::KeyLabel), Comes() || first ? "Slot_Nr: 001" : "");
    EXPECT_EQ(Cell(3, UserColumn::KeyLabel), "");
}

INSTANTIATE_TEST_SUITE_P(Each, Run_Desk_Faults,
                         testing::Values(SimFault::Kind::Silent, SimFault::Kind::BadSum, SimFault::Kind::Half,
                                         SimFault::Kind::Garbage, SimFault::Kind::Refuse, SimFault::Kind::Late,
                                         SimFault::Kind::Doubled, SimFault::Kind::Unplug, SimFault::Kind::Wrong));

} // namespace
} // namespace qvm::test
