"""An operator with the mouse. Only the texts of editors are typed, once a click has opened them."""
from screen import (Atspi, box_of, children, click_at, double_click_at, has_state, middle, name_of, start_of, tell, typed,
                    wait_for, walk, wheel_down_at)

NUMBER = 0  # column
BUTTON, TABLE, COMBO = Atspi.Role.PUSH_BUTTON, Atspi.Role.TABLE, Atspi.Role.COMBO_BOX
MENU_ENTRY, PASSWORD = Atspi.Role.MENU_ITEM, Atspi.Role.PASSWORD_TEXT
TEXT, PANEL, CHECKED = Atspi.Role.TEXT, Atspi.Role.PANEL, Atspi.StateType.CHECKED


class MouseHand:
    can_check = True  # boxes of a list

    def __init__(self, program):
        self.program = program

    def press(self, name):
        self.program.press(name)

    def write(self, table, row, column, words):
        """Into a cell. A click elsewhere takes over what was typed."""
        double_click_at(*middle(self.program.cell(table, row, column)))
        wait_for("an editor", lambda: self.program.editor_is_open(table))
        typed(words)
        click_at(*middle(self.program.cell(table, row, NUMBER)))
        wait_for("the editor goes", lambda: not self.program.editor_is_open(table))

    def step(self, table, row, column):
        """A cell that acts when it is clicked."""
        click_at(*middle(self.program.cell(table, row, column)))

    def pick(self, table, row, column):
        """A row of a list that is chosen from."""
        double_click_at(*middle(self.program.cell(table, row, column)))

    def select(self, shown, number, words):
        """An entry of the box that shows these words, by its number, counted from 0, and its own words. It is in sight
        when the box is open."""
        box = self.program.wait(COMBO, shown)
        click_at(*middle(box))
        click_at(*middle(wait_for("the list of the box", lambda: self.program.entry_of(box, number))))
        self.program.wait(COMBO, words)

    def choose(self, table, row, column, *entries):
        """From the menu of the cell."""
        click_at(*middle(self.program.cell(table, row, column)))
        self.take(*entries)

    def take_from_bar(self, menu, *entries):
        """From a menu of the window's bar."""
        self.take(menu, *entries)

    def leave(self, _title):
        """A small window before the main window, which is in this hand's reach without that."""

    def take(self, *entries):
        """From the menu that opens, and from those that its entries open."""
        for entry in entries:
            self.program.press(entry, MENU_ENTRY)

    def activate(self, table, row, column):
        """A cell that opens something over the table."""
        double_click_at(*middle(self.program.cell(table, row, column)))

    def choose_row(self, table, row, column, number, _words):
        """From the list that opens over the cell: an entry by its number, counted from 0, and its own words."""
        self.activate(table, row, column)
        self.take_row(table, number)

    def take_row(self, table, number):
        """An entry of the list that is open over the table, counted from 0. The wheel brings it into sight."""
        entries = wait_for("the list", lambda: self.program.over(table))
        entry = tell(entries, lambda node: node.get_child_at_index(number))
        end = box_of(entries).y + box_of(entries).height
        for _ in range(number):
            if box_of(entry).y + box_of(entry).height < end:
                break
            wheel_down_at(*middle(entries))
        click_at(*middle(entry))

    def check_rows(self, table, numbers):
        """Entries of the list of boxes that is open over the table, counted from 1. A click beside a box confirms."""
        entries = wait_for("the list", lambda: self.program.over(table))
        for number in numbers:
            entry = tell(entries, lambda node, n=number: node.get_child_at_index(n - 1))
            click_at(*start_of(entry))
            wait_for("the box is checked", lambda of=entry: has_state(of, CHECKED))
        click_at(*middle(entry))

    def enter_day(self, table, row, column, day):
        """In the month that opens over the cell, which stands at today: a day of the month after it. Its number must not
        be in sight a second time, as those of the first and the last days are."""
        self.activate(table, row, column)
        self.pick_in(wait_for("the month", lambda: self.program.over(table)), day)

    def pick_date(self, name, day):
        """The same of a month that stands in the window."""
        self.pick_in(self.program.wait(PANEL, name), day)

    def pick_in(self, month, day):
        click_at(*middle(next(button for button in walk(month, BUTTON) if name_of(button) == "Next month")))
        click_at(*middle(wait_for("the day", lambda: self.day_of(month, str(day.day)))))

    @staticmethod
    def day_of(month, number):
        return next((cell for days in walk(month, TABLE) for cell in children(days) if name_of(cell) == number), None)

    def set_time(self, name, words):
        """Into a box that shows a time."""
        click_at(*start_of(self.program.wait(TEXT, name)))
        typed(words)

    def fill(self, name, words):
        click_at(*middle(self.program.wait(PASSWORD, name)))
        typed(words)
