// What the row check of a list has to say of its locks: beside each row, and in one box that holds nothing up.

#include "ListenFixture.h"
#include "Text.h"

namespace qvm::test {
namespace {

struct List_Notes : ListenFixture {
    List_Notes() {
        AddLock(1, "Tor", "00.0A.10.01", " XXX ");
        AddLock(2, "Keller", "00.0A.10.02", " XXX ");
        AddLock(3, "Dach", "00.0A.10.03", " XXX ");
    }
    /// Lock n knows two timers only, and persons have timers: lines 180 and 181.
    void TwoTimers(int lock, std::string_view name, std::string_view serial) {
        for (int slot = 1; slot <= 15; ++slot) {
            files.Slot(slot, 0, "00:00", "00:00");
        }
        AddLock(lock, name, serial, "XXXX ");
    }
    /// A user whose finger lock 1 is to know: line 273.
    void Finger() { files.User(1, {.Name = "Bert", .Label = "Slot_Nr: 002", .Marks = {{1, 'F'}, {2, 'X'}}}); }
    /// 47 users are all that the lock can have: line 248.
    void TooMany(int lock) {
        files.Lock(lock, "Speicher", "01.20.00.32", " XXX ");
        for (int user = 1; user <= 48; ++user) {
            files.User(user, {.Name = "Somebody", .Marks = {{lock, 'X'}}});
        }
    }
    /// Of the list's questions nothing is left, then.
    void ExpectBox(const std::string& lines, int afterMs = 0) {
        world.Answers.push_back({.Text = std::string(u8"Hinweise aus der Prüfung der Liste:\r\n"_w) + lines,
                                 .Reply = Answer::Ok,
                                 .AfterMs = afterMs});
    }
};

TEST_F(List_Notes, stand_beside_their_rows_and_come_in_one_box_at_the_end_of_the_check) {
    Finger();
    TwoTimers(4, "Garage", "00.0A.10.04");
    BeginList();
    ExpectBox("\r\nSchloss 1: Tor - L273\r\nSchloss 4: Garage - L180 L181");
    Prog({1, 2, 4});
    ASSERT_TRUE(world.RunUntil([this] { return world.Answers.empty(); }));
    EXPECT_THAT(AllRows(), ElementsAre(Row("*", "L259  /  L273"), Row("*", "L259"), Row("*", "L259  /  L180 L181")));
    EXPECT_EQ(world.Shown.back().Choice, Buttons::Ok);
    EXPECT_EQ(world.Shown.back().Sign, Icon::Information);
    EXPECT_TRUE(Sent().empty()) << "the box comes before the first lock";
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Row(">>", "L266  /  L273"), Row(">>", "L266"), Row(">>", "L266  /  L180 L181")));
}

TEST_F(List_Notes, hold_nothing_up_while_their_box_is_open) {
    Finger();
    BeginList();
    ExpectBox("\r\nSchloss 1: Tor - L273", 3600000);
    Prog({1, 2});
    std::vector<std::int64_t> done;
    programm->Transfer->F91.Zeile_Fertig = [&](int) { done.push_back(world.Elapsed()); };
    ASSERT_TRUE(FinishList(7200000));
    ASSERT_EQ(done.size(), 2U);
    EXPECT_LT(done[1], 3600000) << "both locks are done before the box is answered";
    EXPECT_THAT(AllRows(), ElementsAre(Row(">>", "L266  /  L273"), Row(">>", "L266")));
}

TEST_F(List_Notes, of_a_delayed_start_come_once_and_do_not_keep_it_from_its_hour) {
    Finger();
    BeginList();
    Prog({1, 2}, Answer::No, Answer::Yes);
    ExpectBox("\r\nSchloss 1: Tor - L273", 6 * 3600000);
    programm->Transfer->F92.Zeit_Waehlen(12, 5);
    programm->Transfer->F92.OK_Click();
    std::vector<std::int64_t> begun;
    programm->Transfer->F91.Zeile_Beginnt = [&](int) { begun.push_back(world.Elapsed()); };
    ASSERT_TRUE(FinishList(8 * 3600000));
    ASSERT_EQ(begun.size(), 2U);
    // 12:05:00 is 5700 s after the start; the list looks each 5 s.
    EXPECT_GE(begun[0], 5700000);
    EXPECT_LT(begun[1], 5800000);
    EXPECT_THAT(AllRows(), ElementsAre(Row(">>", "L266  /  L273"), Row(">>", "L266")));
}

TEST_F(List_Notes, of_a_row_that_is_passed_over_come_before_the_end_of_the_list) {
    TooMany(5);
    BeginList();
    Prog({5});
    ExpectBox("\r\nSchloss 5: Speicher - L248");
    ExpectNothingLeft();
    ASSERT_TRUE(FinishList());
    EXPECT_EQ(RowAt(1), Row("-", "L261  /  L248"));
    EXPECT_EQ(programm->Transfer->F91.Ergebnis(1).Text, "L254");
    ASSERT_EQ(world.Shown.size(), 4U); // two questions before
}

TEST_F(List_Notes, stay_behind_the_text_of_a_row_that_failed) {
    Finger();
    devices.Faults.push_back({.What = SimFault::Kind::Refuse, .Telegram = 2, .Value = 0x65});
    BeginList();
    ExpectBox("\r\nSchloss 1: Tor - L273");
    Prog({1, 2});
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Row("#", "L68  /  L273"), Row(">>", "L266")));
}

TEST_F(List_Notes, of_a_list_before_are_not_those_of_the_next) {
    Finger();
    BeginList();
    ExpectBox("\r\nSchloss 1: Tor - L273");
    Prog({1});
    ASSERT_TRUE(FinishList());
    programm->Transfer->F91.F91_Schliessen();
    programm->Transfer->F13.F13_FormLaden();
    programm->Transfer->F13.Timer1.Stop();
    programm->Transfer->F13.Timer2.Stop();
    Prog({2});
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Row(">>", "L266")));
}

TEST_F(List_Notes, of_very_many_rows_are_counted_behind_the_first_twelve) {
    std::vector<int> locks;
    std::string lines;
    for (int n = 1; n <= 14; ++n) {
        char serial[12];
        std::snprintf(serial, sizeof serial, "00.0B.00.%02X", n);
        TwoTimers(n, "Tor " + std::to_string(n), serial);
        files.Lock(n, "Tor " + std::to_string(n), serial, "XXXX ");
        locks.push_back(n);
        if (n <= 12) {
            lines += "\r\nSchloss " + std::to_string(n) + ": Tor " + std::to_string(n) + " - L180 L181";
        }
    }
    BeginList();
    ExpectBox(lines + "\r\n\r\nWeitere Zeilen mit Hinweisen: 2. Siehe Spalte Status.");
    Prog(locks);
    ASSERT_TRUE(world.RunUntil([this] { return world.Answers.empty(); }));
    EXPECT_EQ(RowAt(14), Row("*", "L259  /  L180 L181"));
}

TEST_F(List_Notes, of_a_list_that_is_stopped_and_begun_anew_are_told_anew) {
    Finger();
    BeginList();
    ExpectBox("\r\nSchloss 1: Tor - L273");
    Prog({1});
    ASSERT_TRUE(world.RunUntil([this] { return world.Answers.empty(); }));
    programm->Transfer->F91.F91_Schliessen();
    programm->Transfer->F13.F13_FormLaden();
    programm->Transfer->F13.Timer1.Stop();
    programm->Transfer->F13.Timer2.Stop();
    ExpectBox("\r\nSchloss 1: Tor - L273");
    Prog({1});
    ASSERT_TRUE(world.RunUntil([this] { return world.Answers.empty(); }));
}

TEST_F(List_Notes, go_to_who_listens_in_place_of_the_box) {
    Finger();
    TwoTimers(4, "Garage", "00.0A.10.04");
    BeginList();
    std::vector<std::pair<int, std::string>> heard;
    programm->Transfer->F91.Zeile_Notiz = [&](int row, const std::string& note) { heard.emplace_back(row, note); };
    Prog({1, 2, 4});
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Row(">>", "L266"), Row(">>", "L266"), Row(">>", "L266")));
    EXPECT_THAT(heard, ElementsAre(std::pair(1, std::string("L273")), std::pair(3, std::string("L180\n\rL181"))));
}

} // namespace
} // namespace qvm::test
