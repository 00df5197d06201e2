"""An operator without a mouse."""
import time
from datetime import date

from screen import Atspi, has_state, key, name_of, tell, typed, wait_for

BUTTON, MENU_ENTRY, PASSWORD = Atspi.Role.PUSH_BUTTON, Atspi.Role.MENU_ITEM, Atspi.Role.PASSWORD_TEXT
FOCUSED, TABLE, COMBO = Atspi.StateType.FOCUSED, Atspi.Role.TABLE, Atspi.Role.COMBO_BOX
TEXT, PANEL, CHECKED = Atspi.Role.TEXT, Atspi.Role.PANEL, Atspi.StateType.CHECKED
MOVE = 5  # seconds that the keyboard may take from one control to another


class KeyboardHand:
    can_check = True  # boxes of a list

    def __init__(self, program):
        self.program = program

    def press(self, name):
        self.program.wait(BUTTON, name)
        self.reach(name)
        key("Return")

    def reach(self, name):
        """Goes from control to control until the one of this name has the keyboard, backwards where there is a table,
        whose own key Tab is."""
        step = "Tab" if self.program.find(TABLE, ".+") is None else "shift+Tab"
        here = wait_for("a control with the keyboard", self.program.focused)
        for _ in range(30):
            if here[1] == name:
                return
            key(step)
            here = self.behind(here)
        raise AssertionError(f"{step} never comes to {name}\n{self.program.describe()}")

    def behind(self, before):
        """The control that has the keyboard after a key that moves it on. That is the one before when a window has moved
        it, too, just then."""
        limit = time.monotonic() + MOVE
        while time.monotonic() < limit:
            now = self.program.focused()
            if now not in (None, before):
                return now
            time.sleep(0.03)
        return wait_for("a control with the keyboard", self.program.focused)

    def go_to(self, table, row, column):
        self.reach(table)
        if self.is_current(table, row, column):
            return  # what was confirmed before has led here
        key("ctrl+Home")
        first = wait_for("the first row", lambda: [n for n in (0, 1) if self.is_current(table, 1, n)])[0]
        moves = ["Down"] * (row - 1) + ["Right"] * (column - first)
        if moves:
            key(*moves)
        wait_for("the cell is the current one", lambda: self.is_current(table, row, column))

    def is_current(self, table, row, column):
        return has_state(self.program.cell(table, row, column), FOCUSED)

    def write(self, table, row, column, words):
        """Into a cell; the first character opens its editor."""
        self.go_to(table, row, column)
        typed(words)
        key("Return")
        wait_for("the text is taken over", lambda: self.program.cell_name(table, row, column) == words)

    def step(self, table, row, column):
        """A cell that acts at a key."""
        self.go_to(table, row, column)
        key("Return")

    def pick(self, table, row, column):
        """A row of a list that is chosen from."""
        self.go_to(table, row, column)
        key("space")

    def select(self, shown, number, words):
        """An entry of the box that shows these words, by its number, counted from 0, and its own words."""
        self.program.wait(COMBO, shown)
        self.reach(shown)
        key("Home", *["Down"] * number)
        self.program.wait(COMBO, words)

    def choose(self, table, row, column, *entries):
        """From the menu of the cell."""
        self.go_to(table, row, column)
        key("shift+F10")
        self.take(*entries)

    def take_from_bar(self, _menu, *entries):
        """From the last menu of the window's bar: the first one's letter opens that, and the bar is a ring."""
        key("alt+f", "Left")
        self.take(*entries)

    def leave(self, title):
        """The small window of this title, which may be before the main window."""
        key("Escape")
        wait_for(f"{title} goes", lambda: all(name_of(window) != title for window in self.program.windows()))

    def take(self, *entries):
        """From the menu that opens, and from those that its entries open."""
        for entry in entries:
            self.program.wait(MENU_ENTRY, entry)
            while not has_state(self.program.find(MENU_ENTRY, entry), FOCUSED):
                key("Down")
            key("Return")

    def activate(self, table, row, column):
        """A cell that opens something over the table."""
        self.step(table, row, column)

    def choose_row(self, table, row, column, number, _words):
        """From the list that opens over the cell: an entry by its number, counted from 0, and its own words."""
        self.activate(table, row, column)
        self.take_row(table, number)

    def take_row(self, table, number):
        """An entry of the list that is open over the table, counted from 0."""
        wait_for("the list", lambda: self.program.over(table))
        key(*["Down"] * number, "Return")

    def check_rows(self, table, numbers):
        """Entries of the list of boxes that is open over the table, counted from 1, in their order."""
        entries = wait_for("the list", lambda: self.program.over(table))
        at = 1
        for number in numbers:
            key(*["Down"] * (number - at), "space")
            at = number
            entry = tell(entries, lambda node, n=number: node.get_child_at_index(n - 1))
            wait_for("the box is checked", lambda of=entry: has_state(of, CHECKED))
        key("Return")

    def enter_day(self, table, row, column, day):
        """In the month that opens over the cell, which stands at today: a day that follows."""
        self.activate(table, row, column)
        wait_for("the month", lambda: self.program.over(table))
        self.pick_in_month(day)

    def pick_date(self, name, day):
        """The same of a month that stands in the window."""
        self.program.wait(PANEL, name)
        self.reach(name)
        self.pick_in_month(day)

    @staticmethod
    def pick_in_month(day):
        weeks, days = divmod((day - date.today()).days, 7)
        key(*["Down"] * weeks, *["Right"] * days)
        key("Return")

    def set_time(self, name, words):
        """Into a box that shows a time."""
        self.program.wait(TEXT, name)
        self.reach(name)
        key("Home")
        typed(words)

    def fill(self, name, words):
        box = self.program.wait(PASSWORD, name)
        self.reach(name)
        typed(words)
        # The last digit may lead on by itself.
        wait_for("all is typed", lambda: tell(box, Atspi.Text.get_character_count) == len(words))
