"""The windows of the two switch clocks, for the tests of the built program: once with each hand."""
from accessible_hand import AccessibleHand
from installation import SLOTS
from keyboard_hand import KeyboardHand
from mouse_hand import MouseHand
from screen import Atspi, wait_for
from timerfiles import (FIXED_GROUPS, GROUP_ROWS, LOCK_GROUP_FILE, PERSON_GROUP_FILE, PERSON_SLOTS, SLOT_FILE,
                        group_file, seconds_since_2000, slot_file)

BUTTON, TABLE = Atspi.Role.PUSH_BUTTON, Atspi.Role.TABLE
SLOT_GRID, GROUP_GRID = "Time slots", "Timer groups"
DAY, FROM, TO = 1, 2, 3  # columns of the slots
NAME, COUNT = 1, 2  # columns of the groups
DAYS = ("OFF", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday", "Monday - Friday",
        "Saturday - Sunday", "Monday - Sunday")
LOCK_SLOTS = 5
PERSON_GROUP = ("3", "Reinigung", "-----XX--X", "PB_815100003")
LOCK_GROUP = ("2", "Nachtsperre", "--XX-", "PB_815000002")


class ClockTests:
    def enter_slot_and_group(self, hand, entry, slot, group):
        """From the main window into a clock, its files, and back. `slot`: its row, the number of its day, beginning and
        end; `group`: its row, name and slots."""
        row, day, start, end = slot
        group_row, name, chosen = group
        hand.press("Switch clocks")
        hand.take(entry)
        self.program.wait(TABLE, GROUP_GRID)
        hand.choose_row(SLOT_GRID, row, DAY, day, DAYS[day])
        wait_for("the day is taken over", lambda: self.program.cell_name(SLOT_GRID, row, DAY) == DAYS[day])
        hand.write(SLOT_GRID, row, FROM, start)
        hand.write(SLOT_GRID, row, TO, end)
        hand.write(GROUP_GRID, group_row, NAME, name)
        if hand.can_check:
            hand.activate(GROUP_GRID, group_row, COUNT)
            hand.check_rows(GROUP_GRID, chosen)
            wait_for("the slots are taken over",
                     lambda: self.program.cell_name(GROUP_GRID, group_row, COUNT) == str(len(chosen)))
        before = self.contents(SLOT_FILE)
        hand.press("Save")
        wait_for("the slots are saved", lambda: self.contents(SLOT_FILE) != before)
        hand.press("Back")
        self.program.wait(BUTTON, "Switch clocks")

    def new_identifier(self, name, width, row, began):
        """Of the group in this row of the file: the seconds from 2000 to when it got its name."""
        records = [self.contents(name)[at:at + width] for at in range(0, GROUP_ROWS * width, width)]
        identifier = records[row - 1][-15:].decode("ascii").rstrip()
        self.assertTrue(identifier.startswith("PB_"), identifier)
        self.assertLessEqual(began, int(identifier[3:]))
        self.assertLessEqual(int(identifier[3:]), seconds_since_2000())
        return identifier

    @staticmethod
    def group(hand, number, name, days, identifier):
        """As it stands in the file. Its number comes with its slots."""
        return (number, name, days, identifier) if hand.can_check else ("", name, "", identifier)

    def set_both_clocks(self, hand_of):
        """A slot and a group of the persons, then of the locks."""
        self.house.start_simulator()
        self.start()
        self.light("Ready")
        hand = hand_of(self.program)
        slots = list(SLOTS)
        began, groups = seconds_since_2000(), self.contents(LOCK_GROUP_FILE)
        self.enter_slot_and_group(hand, "Person-related switch clock", (3, 3, "08:15", "16:45"),
                                  (5, "Night shift", [3, 4, 9]))
        slots[2] = (3, "08:15", "16:45")
        self.assertEqual(self.contents(SLOT_FILE), slot_file(slots))
        wait_for("the groups are saved", lambda: b"Night shift" in self.contents(PERSON_GROUP_FILE))
        self.assertEqual(self.contents(PERSON_GROUP_FILE), group_file(
            {1: FIXED_GROUPS[0], 2: FIXED_GROUPS[1], 3: PERSON_GROUP,
             5: self.group(hand, "5", "Night shift", "--XX----X-",
                           self.new_identifier(PERSON_GROUP_FILE, 71, 5, began))}, PERSON_SLOTS))
        self.assertEqual(self.contents(LOCK_GROUP_FILE), groups)
        began, groups = seconds_since_2000(), self.contents(PERSON_GROUP_FILE)
        self.enter_slot_and_group(hand, "Lock-related switch clock", (2, 7, "05:30", "22:15"), (1, "Sunday", [2]))
        slots[11] = (7, "05:30", "22:15")
        self.assertEqual(self.contents(SLOT_FILE), slot_file(slots))
        wait_for("the groups are saved", lambda: b"Sunday" in self.contents(LOCK_GROUP_FILE))
        self.assertEqual(self.contents(LOCK_GROUP_FILE), group_file(
            {1: self.group(hand, "1", "Sunday", "-X---", self.new_identifier(LOCK_GROUP_FILE, 66, 1, began)),
             2: LOCK_GROUP}, LOCK_SLOTS))
        self.assertEqual(self.contents(PERSON_GROUP_FILE), groups)

    def test_sets_both_switch_clocks_by_mouse(self):
        self.set_both_clocks(MouseHand)

    def test_sets_both_switch_clocks_by_keyboard_alone(self):
        self.set_both_clocks(KeyboardHand)

    def test_sets_both_switch_clocks_through_the_accessible_tree_alone(self):
        self.set_both_clocks(AccessibleHand)
