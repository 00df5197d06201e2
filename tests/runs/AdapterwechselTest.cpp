// Ports come and go while the lock grid or the start dialog is open: the lock still gets its own adapter, or nothing.

#include "RunFixture.h"

namespace qvm::test {
namespace {

constexpr std::string_view Own = "/10/20/30/40", Other = "/9/9/9/9";

struct Adapter_Change : RunFixture {
    Adapter_Change() {
        AddLock(1, "Tor", Serial::S, " XXX ");
        files.User(1, {.Name = "Anna", .Marks = {{1, 'X'}}});
        world.Disk.Files["/q/DAT/CHEUSB25C.I_2"] = "SET       \r\n";
        world.AdapterPortNumbers = {1};
    }
    /// The lock grid over a main window that has found the adapter.
    void Open() {
        Begin();
        programm->Main->F2.F2_Laden();
        ASSERT_TRUE(world.RunUntil(
            [this] { return programm->Main->F2.Verbunden != 0 && programm->Main->F2.ScanLaeuft == 0; }, 60000));
        programm->Main->F2.Timer2.Stop();
        programm->Main->F2.Fenster.Visible = false;
        programm->Transfer->F13.FGK13.SetText(1, F13Column::AdapterId, Own);
        ASSERT_EQ(programm->Adapter.Saetze.size(), 1U);
    }
    void Ports(const std::vector<int>& ports, PortChange change) {
        world.AdapterPortNumbers = ports;
        world.PortChanged(change);
    }
    void Expect_Programmed() {
        ASSERT_TRUE(Finish());
        EXPECT_EQ(programm->Run.Bericht.End, RunOutcome::Done);
        EXPECT_EQ(Lock(Serial::S).Sessions, 1);
        EXPECT_EQ(world.PortNumber, 1);
    }
};

TEST_F(Adapter_Change, a_port_that_arrives_beside_it_leaves_the_lock_grid_at_work) {
    Open();
    Ports({1, 7}, PortChange::Arrived);
    Program(1);
    Expect_Programmed();
}

TEST_F(Adapter_Change, an_adapter_pulled_and_put_back_is_found_by_the_next_click) {
    Open();
    Ports({}, PortChange::Removed);
    Ports({1}, PortChange::Arrived);
    Program(1);
    Expect_Programmed();
}

TEST_F(Adapter_Change, without_its_adapter_a_click_says_so_and_sends_nothing) {
    Open();
    const std::size_t sent = system->Codes().size();
    Ports({}, PortChange::Removed);
    world.Answers.push_back({.Text = "L192\r\nL193"});
    programm->Transfer->F13.FGK13_Click(1, F13Column::Program);
    EXPECT_EQ(system->Codes().size(), sent);
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
    EXPECT_FALSE(programm->Transfer->F11.Fenster.Visible);
}

TEST_F(Adapter_Change, a_port_that_arrives_while_the_code_is_typed_changes_no_adapter) {
    Open();
    world.Answers.push_back({.Text = "L63", .Reply = Answer::No});
    programm->Transfer->F13.FGK13_Click(1, F13Column::Program);
    Ports({1, 7}, PortChange::Arrived);
    TypeCode("123456");
    Expect_Programmed();
}

TEST_F(Adapter_Change, an_adapter_pulled_while_the_code_is_typed_is_not_replaced_by_another) {
    Open();
    world.Answers.push_back({.Text = "L63", .Reply = Answer::No});
    programm->Transfer->F13.FGK13_Click(1, F13Column::Program);
    Ports({}, PortChange::Removed);
    programm->Adapter.Saetze = {
        {.Adresse = std::string(Other), .Name = "PROGSTATION B", .Port = "1", .TransferKey = {}}};
    const std::size_t sent = system->Codes().size();
    world.Answers.push_back({.Text = "L192\r\nL193"});
    TypeCode("123456");
    world.RunFor(10000);
    EXPECT_EQ(system->Codes().size(), sent);
    EXPECT_TRUE(programm->Transfer->F11.Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F11.Fenster.Enabled);
}

TEST_F(Adapter_Change, a_port_that_arrives_while_the_code_of_a_list_is_typed_lets_the_list_run) {
    Open();
    programm->Transfer->F13.FGK13.SetText(1, F13Column::Mark, "X");
    world.Answers.push_back({.Text = "L63", .Reply = Answer::No});
    world.Answers.push_back({.Text = "L269", .Reply = Answer::No});
    programm->Transfer->F13.Toolbar1_ButtonClick("Prog.");
    Ports({1, 7}, PortChange::Arrived);
    TypeCode("123456");
    ASSERT_TRUE(world.RunUntil([this] { return !programm->Transfer->F91.Laeuft(); }, 600000));
    EXPECT_EQ(programm->Transfer->F91.FGK91.Text(1, F91Column::Mark), ">>");
    EXPECT_EQ(Lock(Serial::S).Sessions, 1);
}

} // namespace
} // namespace qvm::test
