"""The lock window, for the tests of the built program."""
from datafiles import text
from screen import Atspi, click_at, key, middle, tell, typed, wait_for

NAME_COLUMN, SERIAL_COLUMN, FIRST_SWITCH = 1, 2, 3  # as shown: column 3 is hidden
NEW_LOCK = 20
BUTTON, TABLE = Atspi.Role.PUSH_BUTTON, Atspi.Role.TABLE


class LockTests:
    def lock_cell(self, lock, column):
        """A cell of the lock window's grid, locks counted from 1, columns in sight from 0."""
        grid = self.program.wait(TABLE, "Door lock settings")
        return tell(grid, lambda table: Atspi.Table.get_accessible_at(table, lock - 1, column))

    def stored_lock(self, lock):
        """Name, the parts of the serial and the switches of a lock in the file."""
        record = self.house.data_files().records("C64UX12H3D.EBW", 45)[lock - 1]
        parts = [text(record, 28 + 3 * part, 3) for part in range(4)]
        return text(record, 0, 20), ".".join(parts), record[40:45].decode("ascii")

    def test_names_and_sets_a_lock_with_mouse_and_keyboard(self):
        self.house.start_simulator()
        self.start()
        self.light("Ready")
        first = self.stored_lock(1)
        self.tab_to("Set up door locks")
        key("Return")
        wait_for("the grid has the keyboard", lambda: self.program.focused_name() == "Door lock settings")
        key(*["Down"] * (NEW_LOCK - 1))
        typed("Attic")
        key("Return")
        for digits in ("00", "a1", "00", "17"):  # from box to box
            typed(digits)
        key("Return")
        wait_for("the serial number is there", lambda: self.lock_text(NEW_LOCK, SERIAL_COLUMN) == "00.A1.00.17")
        click_at(*middle(self.lock_cell(NEW_LOCK, FIRST_SWITCH)))
        self.program.press("Save")
        wait_for("the file holds it", lambda: self.stored_lock(NEW_LOCK) == ("Attic", "00.A1.00.17", " XXXX"))
        self.assertEqual(self.stored_lock(1), first)
        self.program.press("Back")
        self.program.wait(BUTTON, "Set up door locks")

    def lock_text(self, lock, column):
        return tell(self.lock_cell(lock, column), lambda cell: cell.get_name(), "")
