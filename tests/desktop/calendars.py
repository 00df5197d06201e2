"""The windows of the holidays, for the tests of the built program: once with each hand."""
from datetime import date, timedelta

from accessible_hand import AccessibleHand
from installation import HOLIDAYS
from keyboard_hand import KeyboardHand
from mouse_hand import MouseHand
from screen import Atspi, wait_for

BUTTON, TABLE = Atspi.Role.PUSH_BUTTON, Atspi.Role.TABLE
SINGLE, PERMANENT = "Calendar of single holidays", "Calendar of permanent holidays"
FROM, TO, KIND = 1, 2, 3  # columns
ROWS, FIRST_PERMANENT = 20, 22
FILE, LENGTH = "KL10X49WTTI.CBW", 21


def record(start="", end="", kind=""):
    """As it stands in the file."""
    return start.encode("ascii").ljust(10) + end.encode("ascii").ljust(10) + kind.encode("ascii").ljust(1)


def block(records):
    """All records of a calendar: by the text of their beginning, unused ones behind."""
    return sorted(records, key=lambda day: day[:10]) + [record()] * (ROWS - len(records))


def stored(numbers):
    """What the installation has entered already."""
    return [record(day["DateFrom"], day["DateTo"], day.get("Kind", "")) for day in HOLIDAYS if day["record"] in numbers]


class CalendarTests:
    def calendar_file(self):
        return self.house.data_files().records(FILE, LENGTH)

    def enter_holiday(self, hand, entry, calendar, row, texts):
        """From the main window into the calendar's grid and its file, and back. `texts`: what the row shows then."""
        before = self.calendar_file()
        hand.press("Calendars")
        hand.take(entry)
        self.program.wait(TABLE, calendar)
        for column, day in ((FROM, self.first), (TO, self.last)):
            hand.enter_day(calendar, row, column, day)
            wait_for("the day is taken over", lambda at=column: self.program.cell_name(calendar, row, at) == texts[at])
        self.assertEqual([self.program.cell_name(calendar, row, at) for at in texts], list(texts.values()))
        hand.press("Save")
        wait_for("the calendar is saved", lambda: self.calendar_file() != before)
        hand.press("Back")
        self.program.wait(BUTTON, "Calendars")

    def enter_both(self, hand_of):
        """A single holiday, then one of every year."""
        self.house.start_simulator()
        self.start()
        self.light("Ready")
        hand = hand_of(self.program)
        full = [f"{day.day:02}.{day.month:02}.{day.year:04}" for day in (self.first, self.last)]
        short = [text[:6] + " - -" for text in full]
        single, permanent = stored(range(1, ROWS + 1)), stored(range(FIRST_PERMANENT, FIRST_PERMANENT + ROWS))
        others = self.calendar_file()[ROWS:]
        self.enter_holiday(hand, "Single holidays", SINGLE, len(single) + 1,
                           {FROM: full[0], TO: full[1], KIND: "Single holidays"})
        saved = block(single + [record(*full, "0")])
        self.assertEqual(self.calendar_file(), saved + others)
        self.enter_holiday(hand, "Perm. holidays", PERMANENT, len(permanent) + 1,
                           {FROM: short[0], TO: short[1], KIND: "Perm. holidays"})
        self.assertEqual(self.calendar_file(), saved + [record()] + block(permanent + [record(*short)]))

    def test_enters_holidays_by_mouse(self):
        following = (date.today().replace(day=1) + timedelta(days=31)).replace(day=1)
        self.first, self.last = following.replace(day=16), following.replace(day=18)
        self.enter_both(MouseHand)

    def test_enters_holidays_by_keyboard_alone(self):
        self.first, self.last = date.today() + timedelta(days=9), date.today() + timedelta(days=15)
        self.enter_both(KeyboardHand)

    def test_enters_holidays_through_the_accessible_tree_alone(self):
        self.first, self.last = date.today() + timedelta(days=30), date.today() + timedelta(days=30)
        self.enter_both(AccessibleHand)
