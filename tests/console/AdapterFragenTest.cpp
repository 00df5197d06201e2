// One port asked for its adapter, in virtual time: what is not opened, and what silence is told from.

#include "AdapterKunde.h"
#include "VirtualLine.h"

#include <gmock/gmock.h>
#include <span>
#include <sstream>

namespace qvm::test {
namespace {

struct Adapter_Fragen_ : testing::Test {
    VirtualPlatform world;
    std::ostringstream Out, Err;
    const Console Shown{.Out = Out, .Err = Err};
    PortFacts Port{.Number = 3, .Device = "com3", .There = true, .Serial = true, .Right = true};

    void Ask() {
        Programm program(world.World, "app/");
        Adapter_Fragen(program, Shown, Port, [this] { return Interrupts; });
    }
    int Interrupts = 0;
};

TEST_F(Adapter_Fragen_, tells_the_adapter_that_answers_and_closes_the_port) {
    VirtualWorld devices;
    VirtualSystem system(devices, LineOf(world));
    world.OnWrite = [&system](std::span<const std::uint8_t> bytes) { system.Receive(bytes); };
    Ask();
    EXPECT_EQ(system.JudgementLines(), "");
    EXPECT_TRUE(Port.Asked);
    ASSERT_TRUE(Port.Version.has_value());
    EXPECT_GT(*Port.Version, 0);
    EXPECT_THAT(Port.AdapterName, testing::StartsWith("PROGSTATION"));
    EXPECT_EQ(world.PortNumber, 3);
    EXPECT_FALSE(world.PortOpen);
}

TEST_F(Adapter_Fragen_, tells_silence_from_a_port_that_could_not_be_had) {
    Ask();
    EXPECT_TRUE(Port.Asked) << "four questions went out";
    EXPECT_FALSE(Port.Version.has_value());
    EXPECT_FALSE(world.PortOpen);
    Port.Asked = false;
    world.PortCanOpen = false;
    Ask();
    EXPECT_FALSE(Port.Asked);
    EXPECT_FALSE(Port.Held);
    world.PortFaultNow = {.What = PortFault::Kind::Held, .Device = "com3"};
    Ask();
    EXPECT_FALSE(Port.Asked);
    EXPECT_TRUE(Port.Held);
    EXPECT_EQ(Port.Refusal, "com3 is in use by another program. Close that program and try again.");
}

TEST_F(Adapter_Fragen_, ends_at_once_when_it_is_interrupted_with_the_line_off) {
    Interrupts = 1;
    const std::int64_t before = world.World.Milliseconds();
    Ask();
    EXPECT_LE(world.World.Milliseconds() - before, 200) << "not after the four seconds of the first try";
    EXPECT_FALSE(Port.Version.has_value());
    EXPECT_FALSE(world.PortOpen);
    EXPECT_FALSE(world.Rts);
}

TEST_F(Adapter_Fragen_, opens_no_port_that_another_program_has_or_that_it_may_not_use) {
    Port.Holder = "qvm7702 (99)";
    Ask();
    Port.Holder.clear();
    Port.Right = false;
    Ask();
    Port.Right = true;
    Port.Serial = false;
    Ask();
    EXPECT_EQ(world.Opens, 0);
    EXPECT_FALSE(Port.Asked);
    EXPECT_EQ(Err.str(), "");
}

} // namespace
} // namespace qvm::test
