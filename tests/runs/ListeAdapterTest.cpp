// Adapters that are pulled and put back while a list waits: for its hour, or between two rows.

#include "ListenFixture.h"

namespace qvm::test {
namespace {

struct List_Adapter : ListenFixture {
    List_Adapter() {
        AddLock(1, "Tor", "00.0A.10.01", " XXX ");
        AddLock(2, "Keller", "00.0A.10.02", " XXX ");
        files.User(1, {.Name = "Anna", .Marks = {{1, 'X'}, {2, 'X'}}});
        PlugAt(1);
    }
    /// The only adapter stands behind this port. Nothing is reported.
    void PlugAt(int port) {
        world.AdapterPortNumbers = {port};
        world.PortThere = [port](int wanted) { return wanted == port; };
    }
    void PullSilently() {
        world.AdapterPortNumbers.clear();
        world.PortThere = [](int) { return false; };
        world.PortOpen = false;
    }
    void Pull() {
        PullSilently();
        world.PortChanged(PortChange::Removed);
    }
    void PutBackAt(int port) {
        PlugAt(port);
        world.PortChanged(PortChange::Arrived);
    }
    /// A list of both locks behind a main window that has found the adapter.
    void Start(std::string_view mode, Answer delayed) {
        world.Disk.Files["/q/DAT/CHEUSB25C.I_2"] = std::string(mode);
        Begin();
        programm->Main->F2.F2_Laden();
        ASSERT_TRUE(world.RunUntil(
            [this] { return programm->Main->F2.Verbunden != 0 && programm->Main->F2.ScanLaeuft == 0; }, 60000));
        programm->Main->F2.Timer2.Stop();
        programm->Main->F2.Fenster.Visible = false;
        programm->Transfer->F13.F13_FormLaden();
        programm->Transfer->F13.Timer1.Stop();
        programm->Transfer->F13.Timer2.Stop();
        Prog({1, 2}, Answer::No, delayed);
    }
    /// The list waits for 11:00 and has checked its rows.
    void Wait(std::string_view mode = "SET       \r\n") {
        Start(mode, Answer::Yes);
        programm->Transfer->F92.Zeit_Waehlen(11, 0);
        programm->Transfer->F92.OK_Click();
        world.RunFor(60000);
        ASSERT_EQ(RowAt(1).first, "*");
    }
    /// The list stands between its two rows.
    void StandBetween(std::string_view mode = "SET       \r\n") {
        Start(mode, Answer::No);
        ASSERT_TRUE(world.RunUntil([this] { return RowAt(1).first == ">>"; }));
    }
    std::string Hint() { return programm->Transfer->F91.Hinweis.Text; }
    void ExpectAllProgrammedAt(int port) {
        ASSERT_TRUE(FinishList());
        EXPECT_THAT(AllRows(), ElementsAre(Done, Done));
        EXPECT_EQ(world.PortNumber, port);
    }

    const Row Done{">>", "L266"}, NoPort{"#", "L276"};
    static constexpr const char* Gone = "Der Funkadapter ist nicht mehr da. Bitte stecken Sie ihn wieder an, bevor das "
                                        "n\xE4"
                                        "chste Schloss an der Reihe ist.";
    static constexpr const char* Back = "Der Funkadapter ist wieder da. Die Liste geht mit ihm weiter.";
    static constexpr const char* Fixed = "RESET     \r\n";
};

TEST_F(List_Adapter, put_back_at_another_port_before_its_hour_programs_all_rows_there) {
    Wait();
    Pull();
    world.RunFor(1000);
    EXPECT_EQ(Hint(), Gone);
    world.RunFor(600000);
    PutBackAt(3);
    world.RunFor(1000);
    EXPECT_EQ(Hint(), Back);
    ExpectAllProgrammedAt(3);
    EXPECT_EQ(Hint(), "");
}

TEST_F(List_Adapter, put_back_at_another_port_between_two_rows_programs_the_second_there) {
    StandBetween();
    Pull();
    world.RunFor(1000);
    EXPECT_EQ(Hint(), Gone);
    PutBackAt(3);
    ExpectAllProgrammedAt(3);
}

TEST_F(List_Adapter, moved_without_a_word_of_the_system_is_searched_when_the_port_will_not_open) {
    Wait();
    PullSilently();
    PlugAt(3);
    ExpectAllProgrammedAt(3);
}

TEST_F(List_Adapter, moved_while_a_row_is_under_way_is_searched_before_the_next_one) {
    Start("SET       \r\n", Answer::No);
    ASSERT_TRUE(world.RunUntil([this] { return system->Codes().size() == 8; }));
    Pull();
    world.RunFor(500);
    PutBackAt(3);
    world.RunFor(5000);
    EXPECT_EQ(programm->Transfer->F91.Arbeit(), F91::Work::Direct);
    EXPECT_EQ(Hint(), "");
    programm->Transfer->F91.Zeile_Aufgeben();
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Row("#", "L66"), Done));
    EXPECT_EQ(world.PortNumber, 3);
}

TEST_F(List_Adapter, that_stays_away_fails_each_row_behind_a_search_and_sends_nothing) {
    Wait();
    Pull();
    world.RunFor(1000);
    const std::size_t sent = system->Codes().size();
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(NoPort, NoPort));
    EXPECT_EQ(system->Codes().size(), sent);
    EXPECT_EQ(Hint(), Gone);
}

TEST_F(List_Adapter, put_back_behind_the_first_row_serves_the_second) {
    Wait();
    Pull();
    ASSERT_TRUE(world.RunUntil([this] { return RowAt(1).first == "#"; }, 3600000));
    PutBackAt(4);
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(NoPort, Done));
}

TEST_F(List_Adapter, the_removal_of_another_device_only_searches_again) {
    Wait();
    world.PortChanged(PortChange::Removed);
    world.RunFor(1000);
    EXPECT_EQ(Hint(), "");
    ExpectAllProgrammedAt(1);
}

TEST_F(List_Adapter, at_a_fixed_port_pulled_and_put_back_is_told_and_used) {
    Wait(Fixed);
    Pull();
    world.RunFor(1000);
    EXPECT_EQ(Hint(), Gone);
    PutBackAt(1);
    world.RunFor(1000);
    EXPECT_EQ(Hint(), Back);
    ExpectAllProgrammedAt(1);
}

TEST_F(List_Adapter, at_a_fixed_port_keeps_its_route_when_another_device_goes) {
    devices.Adapter.Name = "PROGSTATION N";
    devices.Adapter.Address = {3, 224, 0, 1};
    Wait(Fixed);
    world.PortChanged(PortChange::Removed);
    ASSERT_TRUE(world.RunUntil([this] { return programm->Transfer->F91.Arbeit() != F91::Work::None; }, 3600000));
    EXPECT_EQ(programm->Transfer->F91.Arbeit(), F91::Work::Network);
    programm->Transfer->F91.Command2_Click();
}

TEST_F(List_Adapter, a_stop_while_it_is_searched_ends_the_search_at_once) {
    Wait();
    world.OnWrite = [](std::span<const std::uint8_t>) {}; // deaf
    world.PortChanged(PortChange::Removed);
    std::int64_t stopped = 0;
    world.At(700, [&] {
        EXPECT_TRUE(programm->Adapter.SucheLaeuft);
        stopped = world.Elapsed();
        programm->Transfer->F91.Command2_Click();
    });
    ASSERT_TRUE(world.RunUntil([&] { return stopped != 0 && !programm->Adapter.SucheLaeuft; }));
    EXPECT_EQ(world.Elapsed(), stopped);
    EXPECT_FALSE(programm->Transfer->F91.Laeuft());
    EXPECT_THAT(AllRows(), ElementsAre(Row("*", "L259"), Row("*", "L259")));
}

TEST_F(List_Adapter, the_hour_that_comes_in_the_middle_of_a_search_waits_for_its_end) {
    Wait();
    const auto deaf = std::exchange(world.OnWrite, [](std::span<const std::uint8_t>) {});
    ASSERT_TRUE(world.RunUntil([this] { return programm->kern.Welt.Now().Minute == 59; }, 3600000));
    world.RunFor(50000);
    world.PortChanged(PortChange::Removed);
    world.At(15000, [this, deaf] { world.OnWrite = deaf; }); // the last of four tries is answered
    ExpectAllProgrammedAt(1);
}

} // namespace
} // namespace qvm::test
