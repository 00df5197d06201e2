// The waits of a run that its timers keep, from reply to telegram.

#include "RunFixture.h"

namespace qvm::test {
namespace {

struct Run_Waits : RunFixture {
    struct Moment {
        bool Sent;
        int Code;
        std::int64_t At;
    };
    std::vector<Moment> Moments;

    Run_Waits() {
        AddLock(1, "Tresor", Serial::S, " XXX ");
        files.Emi(1, ' ');
    }
    void Watch() {
        Begin();
        programm->link.Protokoll = [this](const TraceFrame& frame) {
            using Way = TraceFrame::Direction;
            if (frame.Way != Way::Dropped && frame.Bytes.size() > 2) {
                Moments.push_back({.Sent = frame.Way != Way::Received, .Code = frame.Bytes[2], .At = world.Elapsed()});
            }
        };
    }
    /// Milliseconds from each frame of code `first`, reply or telegram, to a telegram of code `second` right behind it.
    std::vector<std::int64_t> Waits(int first, int second) const {
        std::vector<std::int64_t> waits;
        for (std::size_t n = 1; n < Moments.size(); ++n) {
            const Moment &before = Moments[n - 1], &after = Moments[n];
            if (before.Code == first && after.Sent && after.Code == second) {
                waits.push_back(after.At - before.At);
            }
        }
        return waits;
    }
    void Type1(int unit, std::string_view serial) {
        files.Unit(1, unit, "Leser", serial, '1');
        AddUnit(serial, 1);
    }
};

TEST_F(Run_Waits, the_first_unit_follows_the_lock_after_1200_ms_and_the_next_one_after_600) {
    files.Reception(1, '2', '0', '0', 0, 0, 0, '0', "255");
    Type1(1, "01600001");
    Type1(2, "01600002");
    Watch();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Waits(0x05, 0x04), ElementsAre(1200, 600));
}

TEST_F(Run_Waits, a_unit_that_refuses_the_login_makes_way_after_600_ms) {
    files.Reception(1, '2', '0', '0', 0, 0, 0, '0', "255");
    Type1(1, "01600001");
    Type1(2, "01600002");
    devices.Units[0].LoginStatus = 1;
    Watch();
    Expect(70);
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Waits(0x04, 0x04), ElementsAre(600));
}

TEST_F(Run_Waits, the_channel_is_set_10_ms_behind_its_reading) {
    files.Channel(1, "4", "7", "1");
    devices.Locks[0].Channel = 4;
    Watch();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Waits(0x66, 0x29), ElementsAre(10));
}

TEST_F(Run_Waits, a_unit_is_looked_for_on_the_next_channel_half_a_second_behind_a_refusal) {
    files.Reception(1, '2', '0', '0', 0, 0, 0, '0', "255");
    files.Unit(1, 1, "Finger", "00012CCD", '2');
    AddUnit("00012CCD", 2).Channel = 3;
    Watch();
    Program(1);
    ASSERT_TRUE(Finish());
    const auto waits = Waits(0x69, 0x6F);
    ASSERT_FALSE(waits.empty());
    EXPECT_THAT(waits, testing::Each(500));
}

TEST_F(Run_Waits, the_second_bar_moves_every_half_second_at_the_end_of_a_first_pass) {
    files.Lock(1, "Tresor", Serial::TwoPass, " XXX ");
    devices.Locks[0].Serial = AddressOf(Serial::TwoPass);
    files.User(1, {.Name = "Anna", .KeyId = "1 : 2 : 3 : 4", .Marks = {{1, 'X'}}});
    Watch();
    const auto deliver = world.OnWrite;
    bool asked = false;
    world.OnWrite = [&](std::span<const std::uint8_t> bytes) {
        // The lock takes its time at the end of the data.
        asked = asked || bytes[2] == 0x15;
        if (!asked) {
            deliver(bytes);
        }
    };
    Program(1);
    ASSERT_TRUE(world.RunUntil([&] { return asked; }));
    EXPECT_TRUE(programm->Run.Timer6.Running());
    const auto bar = [&] { return static_cast<int>(programm->link.Lauf.Progress.SecondProgress); };
    const int begin = bar();
    world.RunFor(499);
    EXPECT_EQ(bar(), begin);
    world.RunFor(1);
    EXPECT_EQ(bar(), begin + 4);
    world.RunFor(1000);
    EXPECT_EQ(bar(), begin + 12);
}

} // namespace
} // namespace qvm::test
