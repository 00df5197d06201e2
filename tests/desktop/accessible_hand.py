"""An operator who is reached by the accessible tree alone: its actions and texts, no key and no pointer."""
from screen import Atspi, tell, wait_for

BUTTON, MENU_ENTRY, PASSWORD = Atspi.Role.PUSH_BUTTON, Atspi.Role.MENU_ITEM, Atspi.Role.PASSWORD_TEXT
COMBO, PANEL, TEXT = Atspi.Role.COMBO_BOX, Atspi.Role.PANEL, Atspi.Role.TEXT
ANSWER, USUAL = 400, (800, 15000)  # ms; the latter are the library's own


def action(node, *names):
    """The number of the first of the node's actions that has one of these names, once it has one."""
    def seek(of):
        return [number for number in range(Atspi.Action.get_n_actions(of))
                if Atspi.Action.get_action_name(of, number) in names]
    return wait_for(f"one of {names}", lambda: tell(node, seek, []))[0]


def do(node, number):
    """The program answers when what it does is over, and that of a menu or a question it is not before they are left:
    nobody waits for the answer."""
    Atspi.set_timeout(ANSWER, 0)
    try:
        tell(node, lambda of: Atspi.Action.do_action(of, number))
    finally:
        Atspi.set_timeout(*USUAL)


def act(node, *names):
    do(node, action(node, *names))


def put(node, words):
    """Gives an editable text other contents."""
    if not tell(node, lambda of: Atspi.EditableText.set_text_contents(of, words), False):
        raise AssertionError(f"takes no text: {tell(node, lambda of: of.get_name())}")


class AccessibleHand:
    can_check = False  # the toolkit's entries of a list can be selected, but not checked

    def __init__(self, program):
        self.program = program

    def press(self, name):
        act(self.program.wait(BUTTON, name), "Press")

    def write(self, table, row, column, words):
        put(self.program.cell(table, row, column), words)
        wait_for("the text is taken over", lambda: self.program.cell_name(table, row, column) == words)

    def choose_row(self, table, row, column, _number, words):
        """Of the list that another hand would see over the cell: an entry by its number, counted from 0, and its own
        words."""
        put(self.program.cell(table, row, column), words)

    def pick_date(self, name, day):
        """In a month that stands in the window."""
        put(self.program.wait(PANEL, name), f"{day:%d.%m.%Y}")

    def set_time(self, name, words):
        """Into a box that shows a time."""
        put(self.program.wait(TEXT, name), words)

    def enter_day(self, table, row, column, day):
        """Into a cell that shows a day."""
        put(self.program.cell(table, row, column), f"{day:%d.%m.%Y}")

    def step(self, table, row, column):
        """A cell that acts when it is pressed."""
        act(self.program.cell(table, row, column), "Press")

    def pick(self, table, row, column):
        """A row of a list that is chosen from."""
        self.step(table, row, column)

    def select(self, shown, number, words):
        """An entry of the box that shows these words, by its number, counted from 0, and its own words."""
        box = self.program.wait(COMBO, shown)
        act(box, "ShowMenu", "Press")
        act(wait_for("the list of the box", lambda: self.program.entry_of(box, number)), "Toggle")
        self.program.wait(COMBO, words)

    def choose(self, table, row, column, *entries):
        """From the menu of the cell, whose first entry may show its own menu already."""
        self.open_menu(table, row, column)
        for entry, next_one in zip(entries, entries[1:] + (None,)):
            node = self.program.wait(MENU_ENTRY, entry)
            if next_one is None:
                act(node, "Press")
            elif self.program.find(MENU_ENTRY, next_one) is None:
                act(node, "ShowMenu")

    def take_from_bar(self, menu, *entries):
        """From a menu of the window's bar."""
        self.take(menu, *entries)

    def leave(self, _title):
        """A small window before the main window, which is in this hand's reach without that."""

    def take(self, *entries):
        """From the menu that opens, and from those that its entries open."""
        for entry in entries:
            act(self.program.wait(MENU_ENTRY, entry), "Press", "ShowMenu")

    def open_menu(self, table, row, column):
        act(self.program.cell(table, row, column), "ShowMenu")

    def fill(self, name, words):
        put(self.program.wait(PASSWORD, name), words)
