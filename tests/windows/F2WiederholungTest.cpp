// A port that cannot be had for a moment, and the adapter window that opens the port as well.

#include "F2Fixture.h"

namespace qvm::test {
namespace {

struct F2_Wiederholung : F2Fixture {};

TEST_F(F2_Wiederholung, tries_a_held_port_again_every_2_seconds_and_goes_on_as_soon_as_it_opens) {
    Refuse(PortFault::Kind::Held);
    Open();
    EXPECT_EQ(world.Opens, 1);
    world.RunFor(1999);
    EXPECT_EQ(world.Opens, 1);
    world.RunFor(1);
    EXPECT_EQ(world.Opens, 2);
    world.PortCanOpen = true;
    world.RunFor(2000);
    EXPECT_EQ(Light(), Lampe::Gelb);
    EXPECT_EQ(Line(), "");
    EXPECT_FALSE(Main().Wiederholung.Running());
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
}

TEST_F(F2_Wiederholung, asks_more_seldom_behind_thirty_tries_for_a_port_that_does_not_become_free_or_allowed) {
    for (const auto what : {PortFault::Kind::Held, PortFault::Kind::HeldByService, PortFault::Kind::NoRight}) {
        programm.reset();
        Refuse(what);
        const int opens = world.Opens;
        Open();
        world.RunFor(59999);
        EXPECT_EQ(world.Opens, opens + 30);
        EXPECT_TRUE(Main().Wiederholung.Running());
        world.RunFor(1);
        EXPECT_EQ(world.Opens, opens + 31);
        world.RunFor(39999);
        EXPECT_EQ(world.Opens, opens + 31);
        world.RunFor(1);
        EXPECT_EQ(world.Opens, opens + 32);
        EXPECT_EQ(Light(), Lampe::Rot);
        // Whenever the other program ends.
        world.PortCanOpen = true;
        world.RunFor(40000);
        EXPECT_NE(Light(), Lampe::Rot);
    }
}

TEST_F(F2_Wiederholung, does_not_try_a_port_again_that_only_a_plugging_can_mend) {
    for (const auto what : {PortFault::Kind::NotThere, PortFault::Kind::NotSerial, PortFault::Kind::NoSuchNumber}) {
        programm.reset();
        Refuse(what);
        const int opens = world.Opens;
        Open();
        EXPECT_FALSE(Main().Wiederholung.Running());
        world.RunFor(100000);
        EXPECT_EQ(world.Opens, opens + 1);
        EXPECT_EQ(Light(), Lampe::Rot);
    }
}

TEST_F(F2_Wiederholung, stops_trying_when_the_held_port_is_gone_meanwhile) {
    Refuse(PortFault::Kind::Held);
    Open();
    Refuse(PortFault::Kind::NotThere);
    world.RunFor(100000);
    EXPECT_EQ(world.Opens, 2);
    EXPECT_FALSE(Main().Wiederholung.Running());
}

// ---- a held port, and the adapter window that opens the port as well

struct F2_Anschlussfenster : F2Fixture {
    /// The port is held at the start.
    void SetUp() override {
        Refuse(PortFault::Kind::Held);
        Open();
    }
    void LetGo() { world.PortCanOpen = true; }
};

TEST_F(F2_Anschlussfenster, that_opened_the_port_turns_the_red_light_yellow_and_leaves_the_search_for_later) {
    LetGo();
    Main().F2_Schnittstelle_Click();
    EXPECT_TRUE(world.PortOpen);
    EXPECT_EQ(Light(), Lampe::Rot);
    world.RunFor(2000);
    EXPECT_EQ(Light(), Lampe::Gelb);
    EXPECT_EQ(Line(), "");
    EXPECT_FALSE(Main().Wiederholung.Running());
    world.RunFor(100000);
    EXPECT_EQ(Probes(), 0);
    programm->Main->F6.Toolbar1_ButtonClick(programm->Main->F6.Toolbar1[0].Key);
    EXPECT_EQ(Main().Timer2.Interval(), 200);
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
}

TEST_F(F2_Anschlussfenster, that_opened_the_port_and_is_left_at_once_brings_a_yellow_light_and_a_search) {
    LetGo();
    Main().F2_Schnittstelle_Click();
    programm->Main->F6.Toolbar1_ButtonClick(programm->Main->F6.Toolbar1[0].Key);
    EXPECT_EQ(Light(), Lampe::Gelb);
    EXPECT_EQ(Line(), "");
    EXPECT_TRUE(Main().Timer2.Running());
    EXPECT_EQ(Main().Timer2.Interval(), 200);
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
}

TEST_F(F2_Anschlussfenster, keeps_the_port_to_itself_while_it_is_open) {
    Main().F2_Schnittstelle_Click();
    const int opens = world.Opens;
    world.RunFor(100000);
    EXPECT_EQ(world.Opens, opens);
    LetGo();
    programm->Main->F6.Toolbar1_ButtonClick(programm->Main->F6.Toolbar1[0].Key);
    world.RunFor(2000);
    EXPECT_EQ(world.Opens, opens + 1);
    EXPECT_EQ(Light(), Lampe::Gelb);
}

TEST_F(F2_Anschlussfenster, that_saved_a_held_port_has_it_tried_again) {
    world.RunFor(100000);
    EXPECT_EQ(Main().Wiederholung.Interval(), 40000);
    Main().F2_Schnittstelle_Click();
    programm->Main->F6.Toolbar1_ButtonClick(programm->Main->F6.Toolbar1[1].Key);
    EXPECT_TRUE(Main().Wiederholung.Running());
    EXPECT_EQ(Main().Wiederholung.Interval(), 2000);
    programm->Main->F6.Toolbar1_ButtonClick(programm->Main->F6.Toolbar1[0].Key);
    world.RunFor(50000);
    EXPECT_EQ(Light(), Lampe::Rot);
    LetGo();
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
}

TEST_F(F2_Anschlussfenster, a_search_that_holds_the_port_is_not_disturbed) {
    LetGo();
    programm->Adapter.SucheLaeuft = true;
    const int opens = world.Opens;
    world.RunFor(20000);
    EXPECT_EQ(world.Opens, opens);
    programm->Adapter.SucheLaeuft = false;
    world.RunFor(2000);
    EXPECT_EQ(Light(), Lampe::Gelb);
}

} // namespace
} // namespace qvm::test
