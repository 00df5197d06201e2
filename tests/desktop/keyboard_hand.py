"""An operator without a mouse."""
from datetime import date

from screen import Atspi, has_state, key, typed, wait_for

BUTTON, MENU_ENTRY, PASSWORD = Atspi.Role.PUSH_BUTTON, Atspi.Role.MENU_ITEM, Atspi.Role.PASSWORD_TEXT
FOCUSED, TABLE, COMBO = Atspi.StateType.FOCUSED, Atspi.Role.TABLE, Atspi.Role.COMBO_BOX


class KeyboardHand:
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
        for _ in range(30):
            before = wait_for("a control with the keyboard", self.program.focused_name)
            if before == name:
                return
            key(step)
            wait_for("the keyboard moves on", lambda: self.program.focused_name() not in ("", before))
        raise AssertionError(f"{step} never comes to {name}\n{self.program.describe()}")

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

    def pick_day(self, table, day):
        """Of the month that is open over the table, which stands at today: a day that follows."""
        wait_for("the month", lambda: self.program.over(table))
        weeks, days = divmod((day - date.today()).days, 7)
        key(*["Down"] * weeks, *["Right"] * days)
        key("Return")

    def fill(self, name, words):
        self.program.wait(PASSWORD, name)
        self.reach(name)
        typed(words)
