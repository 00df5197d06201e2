// Whatever comes over the line while the user window waits for a reader of the desk.

#include "LeserFixture.h"

#include <array>
#include <random>

namespace qvm::test {
namespace {

struct Desk_Noise : LeserFixture {
    std::mt19937 Dice{20260305};

    Desk_Noise() { Users(); }
    std::uint8_t Roll(int most) { return static_cast<std::uint8_t>(Dice() % static_cast<unsigned>(most + 1)); }
    /// A reply of a reader with random bytes, as long as it says or not.
    void SayAnything() {
        constexpr std::array<std::uint8_t, 8> codes{0x69, 0x6F, 0x81, 0xA1, 0xA2, 0xA3, 0x04, 0x12};
        const std::uint8_t code = codes[Dice() % codes.size()];
        const std::uint8_t length = static_cast<std::uint8_t>(2 + Roll(60));
        LineBytes payload(length);
        for (std::uint8_t& byte : payload) {
            byte = Roll(3) == 0 ? Roll(255) : Roll(40);
        }
        payload.resize(static_cast<std::size_t>(length > 2 ? length - 2 : 0));
        Say(code, length, payload);
    }
    /// All cells of users in other rows than this one.
    std::string Others(int row) {
        std::string all;
        for (int other = UserGrid::FirstRow; other <= UserGrid::LastRow; ++other) {
            all += other == row ? "" : Row(other, UserColumn::Name, UserColumn::KeyId) + Row(other, 208, 209) + "\n";
        }
        return all;
    }
    /// What an operator can do against a locked window: leave an enrolment, or wait.
    void Wait_Or_Leave() {
        if (Enrolment().Fenster.Visible) {
            Enrolment().Command1_Click();
        } else if (!Window().Fenster.Enabled) {
            world.RunFor(61000);
        }
    }
    void Ask(int what, int row) {
        Window().MenuRow = Window().FsRow = row;
        switch (what) {
        case 0:
            Keys().Save_Ekey_Click();
            break;
        case 1:
            Keys().Save_RFID_Click();
            break;
        case 2:
            Keys().Search_RFID_Click();
            break;
        case 3:
            Keys().key_synchron_Click();
            break;
        default:
            Fingers().FS_anerlen_Click();
            break;
        }
    }
};

TEST_F(Desk_Noise, changes_no_row_but_the_one_that_was_asked_for_and_leaves_no_window_locked) {
    OpenDesk();
    world.World.ShowMessage = [](const Message& message) {
        return message.Choice == Buttons::YesNo || message.Choice == Buttons::YesNoCancel ? Answer::Yes : Answer::Ok;
    };
    int stored = 0, waits = 0;
    for (int round = 0; round < 300; ++round) {
        const int row = UserGrid::FirstRow + Roll(9);
        const std::string before = Others(row), own = Row(row, UserColumn::Name, UserColumn::KeyId);
        Ask(round % 5, row);
        Window().MenuRow = UserGrid::FirstRow + 20;
        for (int n = 0; n < 12; ++n) {
            SayAnything();
        }
        EXPECT_EQ(Others(row), before) << "round " << round;
        stored += Row(row, UserColumn::Name, UserColumn::KeyId) != own ? 1 : 0;
        waits += Window().Fenster.Enabled ? 0 : 1;
        Wait_Or_Leave();
        ASSERT_TRUE(Window().Fenster.Enabled) << "round " << round;
        ASSERT_FALSE(Enrolment().Fenster.Visible) << "round " << round;
    }
    EXPECT_GT(waits, 10) << "some noise leaves it waiting";
    EXPECT_GT(stored, 10) << "the noise holds replies that are good";
}

} // namespace
} // namespace qvm::test
