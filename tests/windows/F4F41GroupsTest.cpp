// The windows of the switch clocks: names and slots of the groups, delete, the group under the pointer, export.

#include "WeekTimerFixture.h"

namespace qvm::test {
namespace {

using Clock_Groups = WeekTimerFixture;

TEST_F(Clock_Groups, begin_with_two_that_are_fixed_whatever_the_file_holds) {
    const GroupEntry wild{"9", "Wild", "X---------", "1", "PB_1"};
    GroupFile(F4()) =
        GroupRecord(F4(), wild) + GroupRecord(F4(), wild) + GroupRecord(F4(), {"3", "Day", "-X--------", "1", "PB_7"});
    F4().FormLaden();
    EXPECT_EQ(Group(F4(), 1), "1|Timer-A|5|XXXXX-----|PB_2008TimA");
    EXPECT_EQ(Group(F4(), 2), "2|Timer-B|5|-----XXXXX|PB_2008TimB");
    EXPECT_EQ(Group(F4(), 3), "3|Day|1|-X--------|PB_7");
    EXPECT_EQ(Group(F4(), 4), "4||||");
    for (const int row : {1, 2}) {
        for (const int column : {1, 2}) {
            F4().FGK3_DblClick(row, column);
            F4().GruppenAuswahl.Go(row, column);
            F4().FGK3_KeyPress('x');
            EXPECT_FALSE(F4().Text2.Visible());
            EXPECT_FALSE(F4().List2.Visible());
        }
        bool menu = false;
        F4().Menue_Zeigen = [&](WeekTimer::Menu) { menu = true; };
        F4().FGK3_MouseUp(MouseButton::Right, row, 1);
        F4().FGK3_Kontext();
        EXPECT_FALSE(menu);
        F4().Loeschen_Click();
    }
    EXPECT_EQ(Group(F4(), 1), "1|Timer-A|5|XXXXX-----|PB_2008TimA");
}

TEST_F(Clock_Groups, of_locks_are_all_free_and_read_from_record_1_on) {
    GroupFile(F41()) = GroupRecord(F41(), {"1", "Gate", "X---X", "2", "PB_5"});
    F41().FormLaden();
    EXPECT_EQ(Group(F41(), 1), "1|Gate|2|X---X|PB_5");
    EXPECT_EQ(Entry(F41(), 1), "1|Gate|2|X---X|PB_5");
    int menus = 0;
    F41().Menue_Zeigen = [&](WeekTimer::Menu which) { menus += which == WeekTimer::Menu::Groups ? 1 : 0; };
    for (int row = 1; row <= 5; ++row) {
        F41().FGK3_MouseUp(MouseButton::Right, row, 1);
        EXPECT_EQ(F41().MenueZeile, row);
    }
    EXPECT_EQ(menus, 5);
    F41().FGK3_MouseUp(MouseButton::Right, 1, 2);
    F41().FGK3_MouseUp(MouseButton::Left, 1, 1);
    EXPECT_EQ(menus, 5) << "on the names alone, and by the right button alone";
}

TEST_F(Clock_Groups, get_an_identifier_by_their_first_name_which_stays_through_every_other) {
    F4().FormLaden();
    Name(F4(), 3, "  Night");
    EXPECT_EQ(Group(F4(), 3), std::string("3|  Night|||") + IdNow);
    EXPECT_EQ(Entry(F4(), 3), std::string("|Night|||") + IdNow);
    EXPECT_EQ(F4().FGK3.Column, 2) << "name, then the number of slots";
    world.RunFor(5000);
    Name(F4(), 3, "Day");
    EXPECT_EQ(Group(F4(), 3), std::string("3|Day|||") + IdNow);
    EXPECT_TRUE(F4().Geaendert);
}

TEST_F(Clock_Groups, that_are_named_within_one_second_are_two) {
    F41().FormLaden();
    Name(F41(), 1, "a");
    Name(F41(), 2, "b");
    Name(F41(), 4, "c");
    EXPECT_EQ(F41().Gruppen[1].PbId, "PB_826021800");
    EXPECT_EQ(F41().Gruppen[2].PbId, "PB_826021801");
    EXPECT_EQ(F41().Gruppen[4].PbId, "PB_826021802");
}

TEST_F(Clock_Groups, keep_an_identifier_that_a_file_has_twice) {
    F41().FormLaden();
    for (const char* id : {"PB_700000001", "PB_2147483648"}) {
        F41().Gruppen[1].PbId = F41().Gruppen[2].PbId = id;
        Name(F41(), 1, "a");
        Name(F41(), 1, "b");
        EXPECT_EQ(F41().Gruppen[1].PbId, id);
        EXPECT_EQ(F41().Gruppen[2].PbId, id);
    }
}

TEST_F(Clock_Groups, cannot_share_a_name) {
    F4().FormLaden();
    F41().FormLaden();
    Name(F41(), 2, "Gate");
    for (const auto& [window, name] : {std::pair{&F4(), "Timer-A"}, {&F4(), " Timer-A "}, {&F41(), "Gate"}}) {
        window->FGK3_DblClick(3, 1);
        window->Text2_Change(name);
        Expect(75);
        window->Text2_KeyPress(Key::Enter);
        EXPECT_EQ(world.Shown.back().Title, "INFO");
        EXPECT_TRUE(window->Text2.Visible()) << "the editor stays open";
        EXPECT_EQ(window->Gruppen[3].Name, "");
        window->FGK3_MouseUp(MouseButton::Left, 4, 1);
        EXPECT_THAT(world.Answers, IsEmpty());
        EXPECT_FALSE(window->Text2.Visible());
        EXPECT_EQ(Group(*window, 3), "3||||") << "the click puts the old name back, and asks no more";
    }
    Name(F4(), 3, "timer-a");
    EXPECT_EQ(F4().Gruppen[3].Name, "timer-a");
    Name(F4(), 3, "timer-a");
    EXPECT_EQ(F4().Gruppen[3].Name, "timer-a") << "their own name is free";
}

TEST_F(Clock_Groups, open_their_name_with_the_key_that_was_typed_or_with_all_of_it) {
    F4().FormLaden();
    Name(F4(), 5, "Night");
    bool all = false;
    F4().Text2.SelectAll = [&] { all = true; };
    F4().GruppenAuswahl.Go(5, 1);
    F4().FGK3_KeyPress(Key::Enter);
    EXPECT_EQ(F4().Text2.Text(), "Night");
    EXPECT_TRUE(all);
    EXPECT_EQ(F4().FGK3.Text(5, 1), "") << "the cell is empty below";
    EXPECT_EQ(F4().Text2.MaxLength, 40);
    F4().FGK3_MouseUp(MouseButton::Left, 5, 1);
    EXPECT_EQ(F4().FGK3.Text(5, 1), "Night");
    all = false;
    F4().GruppenAuswahl.Go(5, 1);
    F4().FGK3_KeyPress('q');
    EXPECT_EQ(F4().Text2.Text(), "q");
    EXPECT_EQ(F4().Text2.Caret(), 1);
    EXPECT_FALSE(all);
    F4().Text2_Change(std::string(60, 'n') + "\t\x01");
    EXPECT_EQ(F4().Text2.Text(), std::string(40, 'n'));
}

TEST_F(Clock_Groups, get_the_old_name_back_into_the_editor_by_escape_and_out_of_it_by_a_second_one) {
    F4().FormLaden();
    Name(F4(), 3, "Night");
    const std::string slot = Slot(F4(), 3);
    F4().FGK3_DblClick(3, 1);
    F4().Text2_Change("Other");
    F4().Text2_KeyPress(Key::Escape);
    EXPECT_TRUE(F4().Text2.Visible());
    EXPECT_EQ(F4().Text2.Text(), "Night");
    EXPECT_EQ(Slot(F4(), 3), slot) << "no slot is touched";
    F4().Text2_KeyPress(Key::Enter);
    EXPECT_EQ(F4().FGK3.Text(3, 1), "Night");
    F4().FGK3_DblClick(4, 1);
    F4().Text2_KeyPress(Key::Enter);
    EXPECT_TRUE(F4().Text2.Visible()) << "an empty name is not taken over";
    F4().Text2_KeyPress(Key::Escape);
    EXPECT_TRUE(F4().Text2.Visible());
    F4().Text2_KeyPress(Key::Escape);
    EXPECT_FALSE(F4().Text2.Visible());
    EXPECT_EQ(Group(F4(), 4), "4||||");
}

TEST_F(Clock_Groups, keep_their_entry_when_their_name_is_left_empty) {
    F4().FormLaden();
    Name(F4(), 3, "Night");
    for (const char* name : {"", "   "}) {
        F4().FGK3_DblClick(3, 1);
        F4().Text2_Change(name);
        F4().Text2_KeyPress(Key::Tab);
        EXPECT_TRUE(F4().Text2.Visible());
        EXPECT_EQ(F4().FGK3.Text(3, 1), "");
        EXPECT_EQ(Entry(F4(), 3), std::string("|Night|||") + IdNow);
        Save(F4());
        EXPECT_FALSE(F4().Text2.Visible());
        EXPECT_EQ(F4().FGK3.Text(3, 1), "Night");
        EXPECT_EQ(GroupFile(F4()).substr(142 + 3, 5), "Night");
    }
}

TEST_F(Clock_Groups, take_the_slots_that_are_chosen_in_the_list) {
    F4().FormLaden();
    Fill(F4(), 2, 8, "0800", "1700");
    Fill(F4(), 10, 7, "0900", "1000");
    Name(F4(), 3, "Night");
    F4().FGK3_DblClick(3, 2);
    ASSERT_TRUE(F4().List2.Visible());
    ASSERT_EQ(F4().List2.Entries().size(), 10U);
    EXPECT_EQ(F4().List2.Entries()[0].Text, "Num.1 :  OFF [ 00:00 - 00:00 ] ");
    EXPECT_EQ(F4().List2.Entries()[1].Text, "Num.2 :  L102 [ 08:00 - 17:00 ] ");
    EXPECT_EQ(F4().List2.Entries()[9].Text, "Num.10 :  L101 [ 09:00 - 10:00 ] ");
    EXPECT_EQ(F4().List2.Current(), 0);
    F4().List2_Schalten(1, true);
    F4().List2_Schalten(9, true);
    F4().List2_Uebernehmen();
    EXPECT_EQ(Entry(F4(), 3), std::string("3|Night|2|-X-------X|") + IdNow);
    EXPECT_EQ(Group(F4(), 3), std::string("3|Night|2|-X-------X|") + IdNow);
    F4().FGK3_DblClick(3, 2);
    EXPECT_TRUE(F4().List2.Entries()[1].Checked);
    EXPECT_FALSE(F4().List2.Entries()[2].Checked);
    F4().List2_Schalten(1, false);
    F4().Listen_Schliessen();
    EXPECT_EQ(F4().Gruppen[3].Days, "-X-------X") << "escape takes nothing over";
    Choose(F4(), 3, "----------");
    EXPECT_EQ(Entry(F4(), 3), std::string("3|Night|0|----------|") + IdNow) << "a group may be empty";
}

TEST_F(Clock_Groups, without_a_name_get_no_identifier_by_their_slots) {
    F41().FormLaden();
    Fill(F41(), 1, 8, "0800", "1700");
    Choose(F41(), 2, "X----");
    EXPECT_EQ(Entry(F41(), 2), "2||1|X----|");
    F41().Gruppen[3].Name = "from an old file";
    F41().FGK3.SetText(3, 1, "from an old file");
    Choose(F41(), 3, "X----");
    EXPECT_EQ(Entry(F41(), 3), std::string("3|from an old file|1|X----|") + IdNow);
}

TEST_F(Clock_Groups, refuse_a_slot_that_is_off) {
    for (WeekTimer* window : {&F4(), &F41()}) {
        window->FormLaden();
        window->FGK3_DblClick(3, 2);
        Expect(175);
        window->List2_Schalten(4, true);
        EXPECT_EQ(world.Shown.back().Title, "INFO");
        EXPECT_FALSE(window->List2.Entries()[4].Checked);
        EXPECT_FALSE(window->SlotWahl[4]);
        window->List2_Schalten(5 - 1 + static_cast<int>(window->SlotWahl.size()), true);
        window->List2_Schalten(-1, true);
        window->Listen_Schliessen();
    }
}

TEST_F(Clock_Groups, keep_a_slot_that_was_switched_off_until_it_is_checked_anew) {
    F4().FormLaden();
    Fill(F4(), 1, 8, "0800", "1700");
    Fill(F4(), 2, 8, "0800", "1700");
    Name(F4(), 3, "Night");
    Choose(F4(), 3, "XX--------");
    Day(F4(), 1, 0);
    EXPECT_EQ(F4().Gruppen[3].Days, "XX--------");
    F4().FGK3_DblClick(3, 2);
    EXPECT_TRUE(F4().List2.Entries()[0].Checked);
    F4().List2_Uebernehmen();
    EXPECT_EQ(F4().Gruppen[3].Days, "XX--------");
    F4().FGK3_DblClick(3, 2);
    Expect(175);
    F4().List2_Schalten(0, false);
    Expect(175);
    F4().List2_Schalten(0, true);
    EXPECT_FALSE(F4().List2.Entries()[0].Checked);
    F4().List2_Uebernehmen();
    EXPECT_EQ(F4().Gruppen[3].Days, "-X--------");
}

TEST_F(Clock_Groups, take_any_slot_in_a_language_whose_word_is_not_OFF) {
    programm->kern.Sprache.TagTexte[0] = "Aus";
    F4().FormLaden();
    Name(F4(), 3, "Night");
    Choose(F4(), 3, "XXXXXXXXXX");
    EXPECT_EQ(Entry(F4(), 3), std::string("3|Night|10|XXXXXXXXXX|") + IdNow);
}

TEST_F(Clock_Groups, close_up_by_name_with_their_identifiers_when_one_is_deleted) {
    GroupFile(F4()) = Filled("", 142) + GroupRecord(F4(), {"3", "Zoo", "X---------", "1", "PB_3"}) +
                      GroupRecord(F4(), {"4", "Mid", "-X--------", "1", "PB_4"}) +
                      GroupRecord(F4(), {"5", "Abc", "--X-------", "1", "PB_5"});
    F4().FormLaden();
    F4().Timer2.Stop();
    Delete(F4(), 4);
    EXPECT_EQ(Group(F4(), 3), "3|Abc|1|--X-------|PB_5");
    EXPECT_EQ(Group(F4(), 4), "4|Zoo|1|X---------|PB_3");
    EXPECT_EQ(Group(F4(), 5), "5||||");
    EXPECT_EQ(Entry(F4(), 1), "1|Timer-A|5|XXXXX-----|PB_2008TimA");
    EXPECT_EQ(Entry(F4(), 3), "3|Abc|1|--X-------|PB_5");
    EXPECT_EQ(Entry(F4(), 4), "4|Zoo|1|X---------|PB_3");
    EXPECT_EQ(Entry(F4(), 5), "5||||");
    EXPECT_EQ(F4().Timer2.Interval(), 800);
    EXPECT_TRUE(F4().Timer2.Running());
    F4().Loeschen_Click();
    EXPECT_EQ(Group(F4(), 3), "3|Abc|1|--X-------|PB_5") << "no menu, no row";
}

TEST_F(Clock_Groups, of_three_move_up_when_the_middle_one_is_deleted) {
    GroupFile(F4()) = Filled("", 142) + GroupRecord(F4(), {"3", "a", "X---------", "1", "PB_3"}) +
                      GroupRecord(F4(), {"4", "b", "-X--------", "1", "PB_4"}) +
                      GroupRecord(F4(), {"5", "c", "--X-------", "1", "PB_5"});
    F4().FormLaden();
    Delete(F4(), 4);
    EXPECT_EQ(Entry(F4(), 3), "3|a|1|X---------|PB_3");
    EXPECT_EQ(Entry(F4(), 4), "4|c|1|--X-------|PB_5");
}

TEST_F(Clock_Groups, of_locks_are_numbered_from_0_behind_a_delete_and_from_1_by_a_load) {
    GroupFile(F41()) = GroupRecord(F41(), {"1", "b", "X----", "1", "PB_1"}) +
                       GroupRecord(F41(), {"2", "a", "-X---", "1", "PB_2"}) +
                       GroupRecord(F41(), {"3", "c", "--X--", "1", "PB_3"});
    F41().FormLaden();
    EXPECT_EQ(Group(F41(), 1), "1|b|1|X----|PB_1");
    Delete(F41(), 3);
    EXPECT_EQ(Group(F41(), 1), "0|a|1|-X---|PB_2");
    EXPECT_EQ(Group(F41(), 2), "1|b|1|X----|PB_1");
    EXPECT_EQ(Group(F41(), 5), "4||||");
    EXPECT_EQ(Entry(F41(), 1), "0|a|1|-X---|PB_2");
    EXPECT_EQ(Entry(F41(), 5), "4||||");
    EXPECT_EQ(Entry(F41(), 6), "||||");
    Save(F41());
    EXPECT_EQ(GroupFile(F41()).substr(0, 66), GroupRecord(F41(), {"0", "a", "-X---", "1", "PB_2"}));
    Back(F41());
    F41().FormLaden();
    EXPECT_EQ(Group(F41(), 1), "1|a|1|-X---|PB_2");
    EXPECT_EQ(Group(F41(), 5), "5||||");
}

TEST_F(Clock_Groups, of_a_larger_block_are_deleted_together_without_the_fixed_ones) {
    F4().FormLaden();
    for (int row = 3; row <= 6; ++row) {
        Name(F4(), row, std::string(1, static_cast<char>('a' + row)));
    }
    F4().GruppenAuswahl.Go(1, 1);
    F4().GruppenAuswahl.Extend(5, 2);
    Delete(F4(), 5);
    EXPECT_EQ(F4().FGK3.Text(1, 1), "Timer-A");
    EXPECT_EQ(F4().FGK3.Text(3, 1), "g");
    EXPECT_EQ(F4().FGK3.Text(4, 1), "");
}

/// The group under the pointer.
struct Clock_Info : WeekTimerFixture {
    int row = -1, column = -1, x = 0;
    bool keys = false;

    void Watch(WeekTimer& window) {
        window.Maus = [this] { return GridPointer{.Row = row, .Column = column, .X = x}; };
        window.Tastatur_Da = [this] { return keys; };
        window.FormLaden();
    }
};

TEST_F(Clock_Info, comes_when_the_mouse_has_rested_for_two_beats_and_goes_when_it_rests_elsewhere) {
    Watch(F4());
    Fill(F4(), 2, 8, "0800", "1700");
    EXPECT_EQ(F4().Timer2.Interval(), 400);
    row = 1;
    column = 2;
    world.RunFor(400);
    world.RunFor(400);
    EXPECT_FALSE(F4().Info.FGK3i.Visible());
    world.RunFor(400);
    ASSERT_TRUE(F4().Info.FGK3i.Visible());
    EXPECT_EQ(F4().Timer2.Interval(), 600);
    EXPECT_TRUE(F4().Timer2.Running());
    EXPECT_EQ(F4().Info.Name.Text(), "Timer-A");
    EXPECT_EQ(F4().Info.FGK3i.Rows(), 6);
    EXPECT_EQ(F4().Info.FGK3i.Text(2, 1), "L102");
    EXPECT_TRUE(F4().Woche.Visible());
    EXPECT_EQ(F4().Woche.Chart().Days[3].Bars, (std::vector<WeekBar>{{480, 1020, "08:00 - 17:00"}}));
    EXPECT_EQ(F4().Woche.Chart().Today, 3);
    column = -1;
    world.RunFor(600);
    world.RunFor(600);
    EXPECT_TRUE(F4().Info.FGK3i.Visible());
    world.RunFor(600);
    EXPECT_FALSE(F4().Info.FGK3i.Visible());
    EXPECT_FALSE(F4().Woche.Visible());
    EXPECT_EQ(F4().Info.Name.Text(), "");
    EXPECT_TRUE(F4().Timer2.Running());
}

TEST_F(Clock_Info, stays_away_over_the_heading_and_while_an_editor_is_open) {
    Watch(F41());
    row = 0;
    column = 1;
    world.RunFor(2000);
    EXPECT_FALSE(F41().Info.FGK3i.Visible());
    row = 2;
    F41().FGK3_DblClick(2, 1);
    world.RunFor(3000);
    EXPECT_FALSE(F41().Info.FGK3i.Visible());
    F41().Text2_Change("Gate");
    F41().Text2_KeyPress(Key::Enter);
    world.RunFor(3000);
    EXPECT_TRUE(F41().Info.FGK3i.Visible());
    EXPECT_EQ(F41().Info.Name.Text(), "Gate");
    EXPECT_EQ(F41().Info.FGK3i.Rows(), 1);
}

TEST_F(Clock_Info, stays_while_the_mouse_rests_on_the_heading) {
    Watch(F4());
    Fill(F4(), 6, 1, "0800", "1700"); // a slot of Timer-B
    row = 2;
    column = 1;
    world.RunFor(1200);
    ASSERT_TRUE(F4().Info.FGK3i.Visible());
    row = 0;
    world.RunFor(3000);
    EXPECT_TRUE(F4().Info.FGK3i.Visible());
    EXPECT_TRUE(F4().Woche.Visible());
    EXPECT_EQ(F4().Info.Name.Text(), "Timer-B");
    F4().FGK1_Eintragen(1, 1, "L96"); // now what is shown would be made anew, if the mouse were on a group
    world.RunFor(3000);
    EXPECT_EQ(F4().Info.Name.Text(), "Timer-B");
    EXPECT_EQ(F4().Woche.Chart().Days[0].Bars.size(), 1U);
}

TEST_F(Clock_Info, does_not_come_while_the_mouse_moves_within_a_cell) {
    Watch(F4());
    row = 1;
    column = 1;
    for (int beat = 0; beat < 8; ++beat) {
        ++x;
        world.RunFor(400);
        EXPECT_FALSE(F4().Info.FGK3i.Visible()) << beat;
    }
    world.RunFor(800);
    EXPECT_TRUE(F4().Info.FGK3i.Visible());
}

TEST_F(Clock_Info, goes_by_a_click_on_the_groups) {
    Watch(F4());
    row = 2;
    column = 0;
    world.RunFor(1200);
    ASSERT_TRUE(F4().Info.FGK3i.Visible());
    F4().FGK3_MouseUp(MouseButton::Left, 2, 1);
    EXPECT_FALSE(F4().Info.FGK3i.Visible());
    EXPECT_FALSE(F4().Woche.Visible());
    EXPECT_TRUE(F4().Timer2.Running());
}

TEST_F(Clock_Info, comes_by_the_keyboard_too_and_goes_with_it) {
    Watch(F4());
    keys = true;
    F4().GruppenAuswahl.Go(2, 1);
    world.RunFor(1200);
    ASSERT_TRUE(F4().Info.FGK3i.Visible());
    EXPECT_EQ(F4().Info.Name.Text(), "Timer-B");
    keys = false;
    world.RunFor(1800);
    EXPECT_FALSE(F4().Info.FGK3i.Visible());
}

TEST_F(Clock_Info, follows_what_is_entered_meanwhile) {
    Watch(F4());
    row = 1;
    column = 1;
    world.RunFor(1200);
    ASSERT_TRUE(F4().Info.FGK3i.Visible());
    Day(F4(), 1, 4);
    world.RunFor(1300);
    EXPECT_EQ(F4().Info.FGK3i.Text(1, 1), "L98");
    EXPECT_EQ(F4().Woche.Chart().Days[3].Bars.size(), 1U);
}

TEST_F(Clock_Groups, are_exported_behind_the_slots_and_once_more_with_theirs) {
    F41().FormLaden();
    Fill(F41(), 2, 8, "0800", "1700");
    Name(F41(), 1, "Gate;1");
    Choose(F41(), 1, "-X---");
    Name(F41(), 2, "None");
    world.DialogAnswers.emplace_back("/q/out.CSV");
    world.Answers.push_back({.Text = "CSV Print OK!"});
    F41().Toolbar1_ButtonClick("CSV-Print");
    EXPECT_EQ(world.Shown.back().Title, "INFO");
    const std::string once =
        "L92;L93;L94;\r"
        "OFF;00:00;00:00;\rL102;08:00;17:00;\rOFF;00:00;00:00;\rOFF;00:00;00:00;\rOFF;00:00;00:00;\r"
        "\r\r\r\r"
        "L245;L259;\r"
        "\"Gate;1\";1;\rNone;;\r;;\r;;\r;;\r"
        "\r\r"
        "\r\r\"Gate;1\";\rL92;L93;L94;\rL102;08:00;17:00;\r"
        "\r\rNone;\r"
        "\r\r;\r\r\r;\r\r\r;\r";
    EXPECT_EQ(world.Disk.Files["/q/out.CSV"], once);
    EXPECT_FALSE(F41().Info.FGK3i.Visible());
    world.DialogAnswers.emplace_back("/q/out.CSV");
    world.Answers.push_back({.Text = "CSV Print OK!"});
    F41().Toolbar1_ButtonClick("CSV-Print");
    EXPECT_EQ(world.Disk.Files["/q/out.CSV"], once + once) << "an existing file grows";
    EXPECT_EQ(world.Dialogs.back().Directory, "/q/DAT/");
    EXPECT_TRUE(world.Dialogs.back().Appends);
    world.DialogAnswers.emplace_back(std::nullopt);
    world.Answers.push_back({.Text = "CSV Print ERROR!"});
    F41().Toolbar1_ButtonClick("CSV-Print");
    EXPECT_THAT(world.Answers, IsEmpty()) << "a dialog that was cancelled";
}

} // namespace
} // namespace qvm::test
