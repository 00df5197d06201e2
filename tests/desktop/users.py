"""The user window, for the tests of the built program."""
from datafiles import text
from screen import Atspi, click_at, key, middle, tell, typed, wait_for

NAME_COLUMN, FIRST_LOCK = 1, 8
BUTTON = Atspi.Role.PUSH_BUTTON
TYPED = [("Cleo", "314159"), ("Dirk", "271828"), ("Eva", "161803")]


class UserTests:
    def user_cell(self, user, column):
        """A cell of the user window's grid, users counted from 1, columns from 0."""
        return self.program.cell("User management", user, column)

    def stored_users(self):
        """Name, code and marks of the first two locks of each user in the file."""
        return [(text(record, 0, 16), text(record, 35, 10), record[218:220].decode("ascii"))
                for record in self.house.data_files().records("BX10X52WUJ9.UBW", 419) if text(record, 0, 16)]

    def test_types_users_and_marks_their_locks_with_mouse_and_keyboard(self):
        self.house.start_simulator()
        self.start()
        self.light("Ready")
        before = self.stored_users()
        self.assertEqual([name for name, _, _ in before], ["Zoë", "Bert", "Nur Keller"])
        self.tab_to("Manage users")
        key("Return")
        wait_for("the grid has the keyboard", lambda: self.program.focused_name() == "User management")
        click_at(*middle(self.user_cell(4, NAME_COLUMN)))
        for number, (name, code) in enumerate(TYPED, 4):
            typed(name)
            key("Return")
            typed(code)
            key("Return")  # to the designation
            wait_for(f"{name} is there", lambda n=number, c=code: self.text_of(n, 4) == c)
            key("Down", "Home")
        click_at(*middle(self.user_cell(4, FIRST_LOCK)))
        key("Right", "Down", "shift+Down", "space")
        wait_for("the marks of the block", lambda: self.text_of(6, FIRST_LOCK + 1) == "X")
        self.program.press("Save")
        wait_for("the file holds them", lambda: len(self.stored_users()) == 6)
        self.assertEqual(self.stored_users(), before + [("Cleo", "314159", "X-"), ("Dirk", "271828", "-X"),
                                                        ("Eva", "161803", "-X")])
        self.program.press("Back")
        self.program.wait(BUTTON, "Manage users")

    def text_of(self, user, column):
        return tell(self.user_cell(user, column), lambda cell: cell.get_name(), "")
