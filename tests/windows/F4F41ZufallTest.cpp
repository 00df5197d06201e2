// The windows of the switch clocks: random tables, undo, broken files.

#include "WeekTimerFixture.h"

#include <random>
#include <set>

namespace qvm::test {
namespace {

struct Clock_Tables : WeekTimerFixture {
    std::mt19937 dice{20261123};

    int Below(int n) { return static_cast<int>(dice() % static_cast<unsigned>(n)); }
    std::string Clock() {
        const auto two = [](int n) { return std::string(n < 10 ? "0" : "") + std::to_string(n); };
        return two(Below(24)) + ":" + two(Below(60));
    }
    std::string Map(const WeekTimer& window) {
        std::string map;
        for (int n = 0; n < window.Traits.Slots.Count; ++n) {
            map += Below(2) == 0 ? 'X' : '-';
        }
        return map;
    }
    /// A table as it may stand, the fixed groups left alone; gives what the clock's part of the two files is then.
    std::pair<std::string, std::string> Fill(WeekTimer& window) {
        std::string slots, groups;
        for (int row = 1; row <= window.Traits.Slots.Count; ++row) {
            const int day = Below(11);
            const std::string from = Clock(), to = Clock();
            window.FGK1.SetText(row, 1, day == 0 ? "OFF" : "L" + std::to_string(94 + day));
            window.FGK1.SetText(row, 2, from);
            window.FGK1.SetText(row, 3, to);
            slots += SlotRecord(day, from, to);
        }
        for (int row = 1; row <= 8; ++row) {
            GroupEntry entry;
            const bool fixed = row < window.Traits.FirstFree;
            if (fixed) {
                entry = row == 1 ? GroupEntry{"1", "Timer-A", "XXXXX-----", "5", "PB_2008TimA"}
                                 : GroupEntry{"2", "Timer-B", "-----XXXXX", "5", "PB_2008TimB"};
            } else if (row <= window.Traits.Groups && Below(4) != 0) {
                const std::string map = Map(window);
                entry = {std::to_string(row),
                         std::string(static_cast<std::size_t>(1 + Below(40)), static_cast<char>('a' + row)), map,
                         std::to_string(std::count(map.begin(), map.end(), 'X')), "PB_" + std::to_string(dice())};
            }
            window.Gruppen[static_cast<std::size_t>(row)] = entry;
            groups += GroupRecord(window, entry);
        }
        return {slots, groups};
    }
};

TEST_F(Clock_Tables, are_written_as_an_independent_hand_writes_them_and_loaded_as_they_were_written) {
    std::string slots = OffRecords(15);
    F4().FormLaden();
    F41().FormLaden();
    for (int table = 0; table < 3000; ++table) {
        const bool persons = Below(2) == 0;
        WeekTimer& window = persons ? F4() : F41();
        const auto [own, groups] = Fill(window);
        slots.replace(persons ? 0 : 110, own.size(), own);
        Save(window);
        ASSERT_EQ(SlotFile(), slots) << table;
        ASSERT_EQ(GroupFile(window), groups) << table;
        std::vector<std::string> grid;
        for (int row = 1; row < window.FGK1.Rows(); ++row) {
            grid.push_back(Slot(window, row));
        }
        const GroupTable before = window.Gruppen;
        Back(window);
        window.FormLaden();
        for (int row = 1; row < window.FGK1.Rows(); ++row) {
            ASSERT_EQ(Slot(window, row), grid[static_cast<std::size_t>(row) - 1]) << table;
        }
        for (int row = 1; row < window.FGK3.Rows(); ++row) {
            const GroupEntry& entry = before[static_cast<std::size_t>(row)];
            ASSERT_EQ(Group(window, row),
                      std::to_string(row) + "|" + entry.Name + "|" + entry.Count + "|" + entry.Days + "|" + entry.PbId);
            ASSERT_EQ(Entry(window, row),
                      entry.Num + "|" + entry.Name + "|" + entry.Count + "|" + entry.Days + "|" + entry.PbId);
        }
    }
}

TEST_F(Clock_Tables, stay_on_the_disk_as_they_were_when_any_operation_of_a_save_fails) {
    for (const bool persons : {true, false}) {
        WeekTimer& window = persons ? F4() : F41();
        window.FormLaden();
        WeekTimerFixture::Fill(window, 1, 8, "0800", "1700");
        Name(window, 3, "Night");
        Save(window);
        const std::string slots = SlotFile(), groups = GroupFile(window);
        WeekTimerFixture::Fill(window, 2, 9, "0900", "1000");
        Name(window, 4, "Day");
        int failed = 0;
        for (int operation = 1; window.Geaendert; ++operation) {
            ASSERT_LT(operation, 50);
            world.Disk.FailAt = world.Disk.Operations + operation;
            ExpectWord(Word::TimersNotSaved);
            Save(window);
            if (window.Geaendert) {
                ++failed;
                ASSERT_EQ(SlotFile(), slots) << operation;
                ASSERT_EQ(GroupFile(window), groups) << operation;
                ASSERT_THAT(world.Answers, IsEmpty()) << operation;
                ASSERT_EQ(window.FGK1.Text(2, 2), "09:00");
                ASSERT_EQ(window.FGK3.Text(4, 1), "Day");
            }
        }
        EXPECT_GE(failed, 5) << "three reads and two writes";
        world.Answers.clear();
        world.Disk.FailAt = 0;
        EXPECT_NE(SlotFile(), slots);
        EXPECT_NE(GroupFile(window), groups);
    }
}

TEST_F(Clock_Tables, say_so_when_the_disk_takes_the_slots_and_then_nothing_more) {
    F41().FormLaden();
    WeekTimerFixture::Fill(F41(), 1, 8, "0800", "1700");
    const std::string slots = SlotFile(), groups = GroupFile(F41());
    world.Disk.FailFromThere = true;
    bool half = false;
    for (int operation = 1; !half; ++operation) {
        ASSERT_LT(operation, 20);
        world.Disk.FailAt = world.Disk.Operations + operation;
        world.Answers.push_back({.Text = "*"});
        Save(F41());
        half = SlotFile() != slots;
        EXPECT_EQ(world.Shown.back().Text, Wort(programm->kern, half ? Word::TimersHalfSaved : Word::TimersNotSaved));
        EXPECT_EQ(GroupFile(F41()), groups);
        EXPECT_TRUE(F41().Geaendert);
        world.Disk.FailAt = 0;
    }
    Save(F41());
    EXPECT_FALSE(F41().Geaendert);
}

TEST_F(Clock_Tables, keep_the_window_open_when_they_cannot_be_saved_on_leaving) {
    F41().FormLaden();
    WeekTimerFixture::Fill(F41(), 1, 8, "0800", "1700");
    world.Disk.FailAt = world.Disk.Operations + 1;
    Expect(60, Answer::Yes);
    ExpectWord(Word::TimersNotSaved);
    Back(F41());
    EXPECT_TRUE(F41().Fenster.Visible());
    EXPECT_TRUE(F41().Timer2.Running());
    EXPECT_EQ(Slot(F41(), 1), "L102|08:00|17:00");
    world.Disk.FailAt = 0;
    Save(F41());
    EXPECT_FALSE(F41().Geaendert);
}

TEST_F(Clock_Tables, that_cannot_be_read_are_told_and_never_saved) {
    for (const bool persons : {true, false}) {
        WeekTimer& window = persons ? F4() : F41();
        for (const int operation : {1, 2}) { // the groups, then the slots
            SlotFile() = SlotRecord(1, "01:00", "02:00") + OffRecords(14);
            GroupFile(window) = Filled("", 500);
            const std::string slots = SlotFile(), groups = GroupFile(window);
            world.Disk.FailAt = world.Disk.Operations + operation;
            world.Answers.push_back({.Text = "*"});
            window.FormLaden();
            world.Disk.FailAt = 0;
            EXPECT_NE(world.Shown.back().Text.find("TX33Y98BSG9.TBW"), std::string::npos);
            EXPECT_EQ(window.FGK1.Text(5, 0), "5");
            EXPECT_EQ(window.FGK3.Text(5, 0), "5");
            WeekTimerFixture::Fill(window, 1, 8, "0800", "1700");
            ExpectWord(Word::TimersUnread);
            Save(window);
            EXPECT_EQ(SlotFile(), slots);
            EXPECT_EQ(GroupFile(window), groups);
            Expect(60, Answer::No);
            Back(window);
        }
    }
    EXPECT_THAT(world.Answers, IsEmpty());
}

TEST_F(Clock_Tables, that_could_not_be_read_are_read_when_the_window_is_opened_again) {
    SlotFile() = SlotRecord(1, "01:00", "02:00") + OffRecords(14);
    world.Disk.FailAt = world.Disk.Operations + 2;
    world.Answers.push_back({.Text = "*"});
    F4().FormLaden();
    world.Disk.FailAt = 0;
    F4().Verbergen();
    F4().FormLaden();
    EXPECT_EQ(F4().FGK1.Text(1, 2), "01:00");
    WeekTimerFixture::Fill(F4(), 2, 8, "0800", "1700");
    Save(F4());
    EXPECT_TRUE(SlotFile().starts_with(SlotRecord(1, "01:00", "02:00") + SlotRecord(8, "08:00", "17:00")));
}

TEST_F(Clock_Tables, with_wild_bytes_are_shown_as_far_as_they_go) {
    SlotFile() =
        SlotRecord(3, "99:99", "\xFF\x01;:!") + SlotRecord(200, "01:00", "02:00") + SlotRecord(1, "03:00", "04");
    GroupFile(F4()) = Filled("", 142) + "9999" + std::string(200, '\xFE');
    const std::string before = SlotFile();
    world.Answers.push_back({.Text = "*"});
    F4().FormLaden();
    EXPECT_NE(world.Shown.back().Text.find("TX33Y98BSG9.TBW: "), std::string::npos);
    EXPECT_NE(world.Shown.back().Text.find(" 2"), std::string::npos) << "the record that no window wrote";
    EXPECT_EQ(F4().FGK1.Text(1, 1), "L97");
    EXPECT_EQ(Slot(F4(), 2), "OFF|00:00|00:00") << "a day that the table cannot hold ends the load";
    EXPECT_EQ(Slot(F4(), 3), "OFF|00:00|00:00");
    ExpectWord(Word::TimersUnread);
    Save(F4());
    EXPECT_EQ(SlotFile(), before) << "what stands behind that record is not lost";
    F4().FGK3_DblClick(3, 2);
    EXPECT_EQ(F4().List2.Entries().size(), 10U);
    F4().Listen_Schliessen();
    F4().FGK3.SetText(3, 2, "999999999999999999999");
    world.DialogAnswers.emplace_back("/q/out.CSV");
    world.Answers.push_back({.Text = "CSV Print OK!"});
    F4().Toolbar1_ButtonClick("CSV-Print");
    EXPECT_LT(world.Disk.Files["/q/out.CSV"].size(), 3000U);
}

/// What an operator does in any order, saves among it.
struct Clock_Steps : Clock_Tables {
    void Act(WeekTimer& window) {
        const int slots = window.Traits.Slots.Count, groups = window.Traits.Groups;
        switch (Below(7)) {
        case 0:
            Day(window, 1 + Below(slots), Below(11));
            break;
        case 1:
            window.FGK1_Eintragen(1 + Below(slots), 2 + Below(2), Clock());
            break;
        case 2:
            Name(window, 1 + Below(groups), std::string(1, static_cast<char>('a' + Below(26))));
            break;
        case 3:
            window.FGK3_DblClick(1 + Below(groups), 2);
            if (window.List2.Visible()) {
                const int slot = Below(slots);
                window.List2_Schalten(slot, !window.SlotWahl[static_cast<std::size_t>(slot)]);
                window.List2_Uebernehmen();
            }
            break;
        case 4:
            Delete(window, 1 + Below(groups));
            break;
        case 5:
            Save(window);
            break;
        default:
            window.FGK3_DblClick(1 + Below(groups), 1);
            window.Text2_KeyPress(Key::Escape);
            window.FGK1_MouseUp(MouseButton::Left, 1 + Below(slots), 1 + Below(3));
        }
        window.FGK3_MouseUp(MouseButton::Left, 1 + Below(groups), 1); // whatever is open is left
    }
    /// No name and no identifier twice, and the table as the grid.
    static void Check(const WeekTimer& window) {
        std::set<std::string> names, ids;
        for (int row = 1; row <= window.Traits.Groups; ++row) {
            const GroupEntry& entry = window.Gruppen[static_cast<std::size_t>(row)];
            ASSERT_TRUE(entry.Name.empty() || names.insert(entry.Name).second) << entry.Name;
            ASSERT_TRUE(entry.PbId.empty() || ids.insert(entry.PbId).second) << entry.PbId;
            ASSERT_EQ(entry.Name, window.FGK3.Text(row, 1));
            ASSERT_EQ(entry.PbId, window.FGK3.Text(row, 4));
            ASSERT_EQ(entry.Days, window.FGK3.Text(row, 3));
        }
    }
    static void UndoAll(WeekTimer& window) {
        while (window.Rueckgaengig.Enabled()) {
            window.Undo_Click();
        }
    }
};

TEST_F(Clock_Steps, go_back_to_the_first_by_undo_and_to_the_last_by_redo) {
    for (const bool persons : {true, false}) {
        WeekTimer& window = persons ? F4() : F41();
        window.FormLaden();
        for (int round = 0; round < 20; ++round) {
            UndoAll(window);
            const auto start = Whole(window);
            for (int n = 0; n < 90; ++n) {
                world.Answers.clear();
                world.Answers.push_back({.Text = "*"});
                Act(window);
                ASSERT_NO_FATAL_FAILURE(Check(window));
            }
            world.Answers.clear();
            const auto last = Whole(window);
            UndoAll(window);
            ASSERT_EQ(Whole(window), start) << round;
            while (window.Wiederholen.Enabled()) {
                window.Redo_Click();
            }
            ASSERT_EQ(Whole(window), last) << round;
        }
        window.Geaendert = false;
        Back(window);
    }
}

TEST_F(Clock_Tables, take_one_step_back_at_a_time_and_say_which) {
    F4().FormLaden();
    Day(F4(), 2, 8);
    Name(F4(), 3, "Night");
    Choose(F4(), 3, "-X--------");
    const std::string whole = Group(F4(), 3);
    Delete(F4(), 3);
    EXPECT_EQ(Entry(F4(), 3), "3||||");
    F4().Undo_Click();
    EXPECT_EQ(Group(F4(), 3), whole);
    EXPECT_EQ(Entry(F4(), 3), std::string("3|Night|1|-X--------|") + IdNow);
    EXPECT_EQ(F4().FGK3.Row, 3);
    EXPECT_EQ(F4().Hinweis.Text(), u8"Rückgängig gemacht: Löschen."_w);
    F4().Undo_Click();
    EXPECT_EQ(Entry(F4(), 3), std::string("|Night|||") + IdNow);
    F4().Undo_Click();
    EXPECT_EQ(Group(F4(), 3), "3||||") << "with its identifier";
    F4().Undo_Click();
    EXPECT_EQ(Slot(F4(), 2), "OFF|00:00|00:00");
    EXPECT_EQ(F4().FGK1.Row, 2);
    EXPECT_FALSE(F4().Rueckgaengig.Enabled());
    world.RunFor(60000);
    F4().Redo_Click();
    F4().Redo_Click();
    EXPECT_EQ(Group(F4(), 3), std::string("3|Night|||") + IdNow) << "the identifier that it had";
}

TEST_F(Clock_Tables, take_the_days_of_another_language_and_keep_them) {
    F4().FormLaden();
    Day(F4(), 2, 8);
    Day(F4(), 3, 1);
    F4().FGK1_DblClick(4, 1);
    auto& days = programm->kern.Sprache.TagTexte;
    days[0] = "Off";
    days[1] = "Monday";
    days[8] = "Monday - Friday";
    programm->kern.Windows.WordsChanged();
    EXPECT_FALSE(F4().List1.Visible());
    EXPECT_EQ(Slot(F4(), 1), "Off|00:00|00:00");
    EXPECT_EQ(Slot(F4(), 2), "Monday - Friday|00:00|00:00");
    EXPECT_EQ(F4().List1.Entries()[1], "Monday");
    EXPECT_FALSE(F4().Rueckgaengig.Enabled());
    Save(F4());
    EXPECT_EQ(SlotFile().substr(0, 33),
              SlotRecord(0, "00:00", "00:00") + SlotRecord(8, "00:00", "00:00") + SlotRecord(1, "00:00", "00:00"));
}

TEST_F(Clock_Tables, say_how_much_is_in_use_and_where_the_current_slot_belongs) {
    F4().FormLaden();
    Day(F4(), 2, 8);
    EXPECT_EQ(F4().Belegung.Text(), "Zeitfenster: 1 von 10, Gruppen: 2 von 7");
    EXPECT_EQ(F4().Verwendung.Text(), u8"Zeitfenster 2 gehört zu: Timer-A"_w);
    Name(F4(), 3, "Night");
    Choose(F4(), 3, "-X--------");
    EXPECT_EQ(F4().Verwendung.Text(), u8"Zeitfenster 2 gehört zu: Timer-A, Night"_w);
    F4().SlotAuswahl.Go(6, 1);
    EXPECT_EQ(F4().Verwendung.Text(), u8"Zeitfenster 6 gehört zu: Timer-B"_w);
    F41().FormLaden();
    EXPECT_EQ(F41().Verwendung.Text(), "");
}

} // namespace
} // namespace qvm::test
