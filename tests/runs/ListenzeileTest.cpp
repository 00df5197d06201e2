// A lock as a row of a list run: its end is a mark in the list, never a message box.

#include "RunFixture.h"
#include "Text.h"

namespace qvm::test {
namespace {

struct Run_List_Row : RunFixture {
    std::vector<std::pair<std::string, std::string>> Marks;
    int NextRows = 0;
    int Stops = 0;

    explicit Run_List_Row(std::string_view serial = Serial::S) {
        AddLock(1, "Tresor", serial, " XXX ");
        files.Emi(1, 'Y');
    }
    /// Starts the run of lock 1 as the only row of a list.
    void StartRow(bool history = false) {
        Begin();
        programm->Run.Liste = {.Zeile_Markieren = [this](std::string_view mark,
                                                         const std::string& text) { Marks.emplace_back(mark, text); },
                               .Naechste_Zeile = [this] { ++NextRows; },
                               .Stoppen = [this] { ++Stops; }};
        if (history) {
            History(1);
        } else {
            Program(1);
        }
        programm->link.Lauf.List.RunRows = programm->link.Lauf.List.RunRow = 1;
    }
    void Refuse(int telegram, int reason, bool behind = false) {
        devices.Faults.push_back(
            {.What = SimFault::Kind::Refuse, .Telegram = telegram, .AndAllBehind = behind, .Value = reason});
    }
    void Expect_Mark(const std::string& mark, const std::string& text) {
        ASSERT_TRUE(Finish());
        EXPECT_THAT(Marks, ElementsAre(std::pair(mark, text)));
        EXPECT_EQ(NextRows, 1);
    }
};

struct Run_List_Row_Z : Run_List_Row {
    Run_List_Row_Z() : Run_List_Row(Serial::Z) {}
    void TestBody() override {}
};

TEST_F(Run_List_Row, a_programmed_lock_is_marked_and_the_next_row_follows) {
    StartRow();
    Expect_Mark(">>", "L266");
    EXPECT_EQ(Outcome(), RunOutcome::Done);
}

TEST_F(Run_List_Row, a_history_read_has_a_mark_of_its_own) {
    StartRow(true);
    Expect_Mark("<<", "L263");
}

TEST_F(Run_List_Row, the_last_note_of_the_units_stands_behind_the_text) {
    files.Reception(1, '2', '0', '0', 0, 0, 0, '0', "255");
    files.Unit(1, 1, "Finger", "00012CCD", '2');
    AddUnit("00012CCD", 2).BlockStatus = 10;
    files.User(1,
               {.Name = "Bert", .Label = "Slot_Nr: 002", .FingerFlag = "FS", .FingerId = "8001", .Marks = {{1, 'F'}}});
    files.Template(250, "8001", {3, 0, 1});
    world.Answers.push_front({.Text = "L273"});
    StartRow();
    Expect_Mark(">>", "L266 - FS-Prem. Error");
}

TEST_F(Run_List_Row, a_wrong_code_is_told_in_the_row) {
    devices.Locks[0].AdminCode = {0x99, 0x99, 0x99};
    StartRow();
    Expect_Mark("#", "L70  /  L66");
    EXPECT_EQ(Outcome(), RunOutcome::Refused);
}

TEST_F(Run_List_Row, no_contact_is_told_in_the_row) {
    Refuse(2, 0x64);
    StartRow();
    Expect_Mark("#", "L66");
    EXPECT_EQ(Outcome(), RunOutcome::NotReached);
}

TEST_F(Run_List_Row, a_refusal_is_told_in_the_row) {
    Refuse(2, 0x65);
    StartRow();
    Expect_Mark("#", "L68");
}

TEST_F(Run_List_Row, a_key_or_card_refusal_is_told_in_the_row) {
    Refuse(2, 0x6A);
    StartRow();
    Expect_Mark("#", "Karte nicht erkannt!");
}

TEST_F(Run_List_Row, behind_a_refusal_at_any_telegram_nothing_of_the_lock_goes_out) {
    // A lock that is polled while it erases has the longest tail.
    for (int telegram = 2; telegram <= 6; ++telegram) {
        for (const int reason : {0x64, 0x65, 0x66, 0x67, 0x6A}) {
            Run_List_Row_Z row;
            row.Refuse(telegram, reason);
            row.StartRow();
            ASSERT_TRUE(row.Finish()) << telegram << " " << reason;
            const std::size_t sent = row.system->Codes().size();
            row.world.RunFor(30000);
            EXPECT_EQ(row.system->Codes().size(), sent) << telegram << " " << reason;
            EXPECT_EQ(row.NextRows, 1) << telegram << " " << reason;
        }
    }
}

TEST_F(Run_List_Row, a_busy_lock_fails_the_row) {
    // Login, erase, calendar switch; the disconnect is taken.
    Refuse(2, 0x67);
    StartRow();
    ASSERT_TRUE(Finish());
    ASSERT_EQ(Marks.size(), 1U);
    EXPECT_EQ(Marks[0].first, "#");
    EXPECT_THAT(Marks[0].second, ::testing::StartsWith(u8"Nicht vollständig: "_w));
    EXPECT_THAT(Marks[0].second, ::testing::HasSubstr("(Kalenderschalter, Schaltuhr, "));
    EXPECT_EQ(NextRows, 1);
    EXPECT_EQ(Outcome(), RunOutcome::Incomplete);
}

TEST_F(Run_List_Row, a_lock_that_did_not_confirm_its_erasing_is_marked_with_that) {
    devices.Locks[0].Serial = AddressOf(Serial::Z);
    devices.Locks[0].EchoErase = false;
    files.Lock(1, "Tresor", Serial::Z, " XXX ");
    StartRow();
    ASSERT_TRUE(Finish());
    ASSERT_EQ(Marks.size(), 1U);
    EXPECT_EQ(Marks[0].first, ">>");
    EXPECT_EQ(Marks[0].second, u8"L266 - Das Schloss hat das Löschen nicht bestätigt: Alte Einträge können noch "
                               u8"vorhanden sein."_w);
    EXPECT_EQ(Outcome(), RunOutcome::Done);
}

TEST_F(Run_List_Row, an_unfinished_lock_is_marked_with_what_is_missing) {
    devices.Faults = {{.What = SimFault::Kind::Wrong, .Telegram = 2, .Value = 0x05}};
    StartRow();
    ASSERT_TRUE(Finish());
    ASSERT_EQ(Marks.size(), 1U);
    EXPECT_EQ(Marks[0].first, "#");
    EXPECT_THAT(Marks[0].second, ::testing::StartsWith(u8"Nicht vollständig: "_w));
    EXPECT_EQ(NextRows, 1);
    EXPECT_EQ(Outcome(), RunOutcome::Incomplete);
}

TEST_F(Run_List_Row, a_slot_out_of_range_fails_the_row) {
    files.User(1, {.Name = "Anna", .Marks = {{1, 'X'}}});
    devices.Locks[0].ForcedSlot = 3000;
    StartRow();
    Expect_Mark("#", "L72");
}

TEST_F(Run_List_Row, a_failed_unit_fails_the_row) {
    files.Reception(1, '2', '0', '0', 0, 0, 0, '0', "255");
    files.Unit(1, 1, "Leser", "01600001", '1');
    StartRow();
    Expect_Mark("#", "L66");
}

TEST_F(Run_List_Row, a_cancel_stops_the_list) {
    StartRow();
    world.RunUntil([this] { return system->Codes().size() == 3; });
    programm->Transfer->F9.Command1_Click();
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Stops, 1);
    EXPECT_EQ(NextRows, 0);
    EXPECT_THAT(Marks, IsEmpty());
    EXPECT_EQ(Outcome(), RunOutcome::Cancelled);
}

} // namespace
} // namespace qvm::test
