// A cancel in a list of direct rows while no reply is due: between two units, between two channels, in a unit's
// erasing. The row says that it was cancelled, and no other lock is spoken to.

#include "ListenFixture.h"

#include <functional>

namespace qvm::test {
namespace {

constexpr std::string_view First = "00.0A.10.01", Second = "00.0A.10.02", Reader = "01600001", Scanner = "00012CCD";

struct List_Cancel : ListenFixture {
    /// What the row's report said of the first unit when the list told of the row.
    std::vector<UnitReport> Told;
    std::string Note; ///< of the row check, behind the first row's text

    List_Cancel() {
        AddLock(1, "Tor", First, " XXX ");
        AddLock(2, "Keller", Second, " XXX ");
        files.Reception(1, '2', '0', '0', 0, 0, 0, '0', "255");
    }
    void Unit(std::string_view serial, char type) {
        files.Unit(1, 1, "Leser", serial, type);
        AddUnit(serial, type - '0');
    }
    /// A user with a fingerprint; a list has no question about it.
    void Finger() {
        files.User(
            1, {.Name = "Bert", .Label = "Slot_Nr: 002", .FingerFlag = "FS", .FingerId = "8001", .Marks = {{1, 'F'}}});
        files.Template(250, "8001", {3, 0, 1});
        Note = "  /  L273";
    }
    Programmierlauf& Run() { return programm->Run; }
    /// Runs both locks and presses the list's cancel button when `now` says so.
    void CancelWhen(const std::function<bool()>& now) {
        BeginList();
        programm->Transfer->F91.Zeile_Fertig = [this](int) { Told.push_back(Run().Bericht.Units[0]); };
        world.World.ShowMessage = [](const Message& message) {
            return message.Choice == Buttons::YesNoCancel ? Answer::No : Answer::Ok;
        };
        Prog({1, 2});
        world.Answers.clear();
        Look(now);
        ASSERT_TRUE(FinishList());
    }
    void Expect_Cancelled(std::size_t sent) {
        EXPECT_THAT(AllRows(), ElementsAre(Row("#", "L82" + Note), Row("*", "L259")));
        world.RunFor(60000);
        EXPECT_EQ(system->Codes().size(), sent) << "something went out behind the cancel";
        EXPECT_EQ(Lock(Second).Sessions, 0);
        EXPECT_EQ(Outcome(), RunOutcome::Cancelled);
        EXPECT_EQ(Status(), "L82");
        EXPECT_FALSE(programm->Transfer->F91.Laeuft());
    }

private:
    /// An ordered wait has the stack, so that only what was planned gets a turn in it.
    void Look(const std::function<bool()>& now) {
        world.At(50, [this, now] {
            if (now()) {
                atCancel = system->Codes().size();
                programm->Transfer->F91.Command2_Click();
                programm->Transfer->F9.Command1_Click();
            } else {
                Look(now);
            }
        });
    }

public:
    std::size_t atCancel = 0; ///< so many telegrams had gone out
};

TEST_F(List_Cancel, between_the_lock_and_its_unit_ends_the_list) {
    Unit(Reader, '1');
    CancelWhen([this] { return Run().Timer9.Running(); });
    Expect_Cancelled(atCancel);
    EXPECT_FALSE(system->FindUnit(AddressOf(Reader))->Lock);
}

TEST_F(List_Cancel, behind_a_unit_ends_the_list) {
    Unit(Reader, '1');
    CancelWhen([this] { return Run().Timer9.Running() && Run().UnitGood; });
    Expect_Cancelled(atCancel);
    EXPECT_TRUE(system->FindUnit(AddressOf(Reader))->Lock);
    ASSERT_FALSE(Told.empty());
    EXPECT_EQ(Told[0].End, UnitReport::State::Done);
}

TEST_F(List_Cancel, between_two_channels_of_a_unit_ends_the_list) {
    Finger();
    Unit(Scanner, '2');
    devices.Units[0].Channel = 9;
    CancelWhen([this] { return Run().Timer11.Running(); });
    Expect_Cancelled(atCancel);
}

TEST_F(List_Cancel, names_the_unit_that_was_erasing) {
    Finger();
    Unit(Scanner, '2');
    CancelWhen([this] { return Run().Waiting && Sent().back() == 0x27; });
    Expect_Cancelled(atCancel + 2); // 0x05 and 0x03 close the unit
    ASSERT_FALSE(Told.empty());
    EXPECT_EQ(Told[0].End, UnitReport::State::BrokenOff);
    EXPECT_EQ(Told[0].Progress.Stage, UnitStage::Changed);
}

} // namespace
} // namespace qvm::test
