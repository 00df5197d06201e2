// What stands below the text of a box that a run shows: its lock, its unit, and what the lock holds.

#include "RunFixture.h"
#include "Text.h"

namespace qvm::test {
namespace {

struct Run_Boxes : RunFixture {
    Run_Boxes() {
        AddLock(2, "Tresor", Serial::S, " XXX ");
        files.Emi(2, 'Y');
        files.User(1, {.Name = "Anna", .Marks = {{2, 'X'}}});
    }
    void Refuse(int telegram, int reason) {
        devices.Faults.push_back({.What = SimFault::Kind::Refuse, .Telegram = telegram, .Value = reason});
    }
    /// Programs the lock; the boxes that come have these lines.
    void Expect_Boxes(const std::vector<int>& lines, std::string_view code = "123456") {
        Begin();
        for (const int line : lines) {
            Expect(line);
        }
        Program(2, Answer::No, code);
        ASSERT_TRUE(Finish());
    }
    /// Below the box that came last but `back`.
    std::string About(std::size_t back = 0) const { return world.Shown[world.Shown.size() - 1 - back].About; }
};

constexpr std::string_view Line = "Schloss 2: Tresor";

std::string WithOpenData() {
    return std::string(Line) + '\n' +
           std::string(u8"Das Schloss enthält keine vollständigen Daten. Bitte programmieren Sie es noch einmal."_w);
}

TEST_F(Run_Boxes, of_a_refused_login_name_the_lock) {
    Expect_Boxes({70, 66}, "654321");
    EXPECT_EQ(About(0), Line);
    EXPECT_EQ(About(1), Line);
}

TEST_F(Run_Boxes, of_a_lock_that_is_not_reached_name_it) {
    Refuse(0, 0x64);
    Expect_Boxes({67});
    EXPECT_EQ(About(), Line);
}

TEST_F(Run_Boxes, of_a_contact_lost_behind_the_erasing_say_what_the_lock_holds) {
    Refuse(5, 0x64);
    Expect_Boxes({67});
    EXPECT_EQ(Lock(Serial::S).Erases, 1);
    EXPECT_EQ(About(), WithOpenData());
}

TEST_F(Run_Boxes, of_a_refusal_in_the_middle_say_what_the_lock_holds) {
    Refuse(3, 0x65);
    Expect_Boxes({68});
    EXPECT_EQ(About(), WithOpenData());
}

TEST_F(Run_Boxes, of_a_place_that_is_none_say_what_the_lock_holds) {
    devices.Locks[0].ForcedSlot = 3000;
    Expect_Boxes({72});
    EXPECT_EQ(About(), WithOpenData());
}

TEST_F(Run_Boxes, of_a_unit_that_does_not_answer_name_it_and_say_that_the_lock_is_done) {
    files.Reception(2, '2', '0', '0', 0, 0, 0, '0', "255");
    files.Unit(2, 1, "Schranke", "01600001", '1');
    Expect_Boxes({67});
    EXPECT_EQ(About(), "Schloss 2: Tresor\nFunkeinheit: Schranke\nDas Schloss selbst ist fertig programmiert.");
}

TEST_F(Run_Boxes, of_a_unit_that_refuses_name_it_and_say_that_the_lock_is_done) {
    files.Reception(2, '2', '0', '0', 0, 0, 0, '0', "255");
    files.Unit(2, 1, "Schranke", "01600001", '1');
    AddUnit("01600001", 1).LoginStatus = 2;
    Expect_Boxes({71});
    EXPECT_EQ(About(), "Schloss 2: Tresor\nFunkeinheit: Schranke\nDas Schloss selbst ist fertig programmiert.");
}

TEST_F(Run_Boxes, of_a_date_that_does_not_exist_name_the_lock) {
    HistoryLine line{};
    line[0] = 31;
    line[1] = 2;
    line[2] = 26;
    devices.Locks[0].History = {line};
    Begin();
    world.Answers.push_back({.Text = "L275 31.02.2026"});
    History(2);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(About(), Line);
}

TEST_F(Run_Boxes, of_the_dataset_name_the_lock) {
    files.User(
        2, {.Name = "Finger 1", .Label = "Slot_Nr: 001", .FingerFlag = "FS", .FingerId = "8001", .Marks = {{2, 'F'}}});
    files.Template(250, "8001", {3, 0, 1});
    Begin();
    Expect(63, Answer::No);
    Expect(273);
    programm->Transfer->F13.FGK13_Click(2, F13Column::Program);
    EXPECT_EQ(world.Shown.back().Text, "L273");
    EXPECT_EQ(About(), Line);
}

} // namespace
} // namespace qvm::test
