"""The lock window and those that it leads to, for the tests of the built program."""
from accessible_hand import AccessibleHand
from datafiles import serial_text, text
from installation import CHANNEL, CODE, USERS, WORLD, numbered
from keyboard_hand import KeyboardHand
from mouse_hand import MouseHand
from screen import Atspi, click_at, key, middle, tell, typed, wait_for

NAME_COLUMN, SERIAL_COLUMN, FIRST_SWITCH = 1, 2, 3  # as shown: column 3 is hidden
NEW_LOCK = 20
BUTTON, TABLE, LABEL = Atspi.Role.PUSH_BUTTON, Atspi.Role.TABLE, Atspi.Role.LABEL
SETTINGS, LOCKLIST, FOUND, UNITS = "Door lock settings", "Locks", "Wireless unit", "Lock 3: Attic"
PROGRAM = 3  # column of the list of locks
ATTIC = 3
MINUTES, SECONDS = 5, 8

# A lock and a keypad as they come: nobody knows them, and neither listens on the channel of the system.
NEW_ONE = {"label": "Attic", "serial": "01.2A.20.07", "admin_code": CODE, "channel": 3, "signal": 60, "scan_type": 42,
           "erase_busy_ms": 100}
KEYPAD = {"label": "Keypad", "type": 1, "serial": "01.60.00.03", "admin_code": "123456", "signal": 92}


class LockTests:
    def lock_cell(self, lock, column):
        """A cell of the lock window's grid, locks counted from 1, columns in sight from 0."""
        grid = self.program.wait(TABLE, SETTINGS)
        return tell(grid, lambda table: Atspi.Table.get_accessible_at(table, lock - 1, column))

    def stored_lock(self, lock):
        """Name, serial number and switches of a lock in the file."""
        record = self.house.data_files().records("C64UX12H3D.EBW", 45)[lock - 1]
        return text(record, 0, 20), serial_text(record, 28), record[40:45].decode("ascii")

    def test_names_and_sets_a_lock_with_mouse_and_keyboard(self):
        self.house.start_simulator()
        self.start()
        self.light("Ready")
        first = self.stored_lock(1)
        self.tab_to("Set up door locks")
        key("Return")
        wait_for("the grid has the keyboard", lambda: self.program.focused_name() == SETTINGS)
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

    # ---- a lock and its unit from the air

    def prepare_the_new_ones(self):
        """A lock and a unit that no file knows, and users who may pass it. The program has its adapter."""
        self.house.import_document({"format": "qvm7702-export", "version": 1, "tables": {
            "ChannelRecord": numbered([CHANNEL] * ATTIC),
            "UserRecord": numbered([{"FingerFlag": "--", **user, "LockMask": user["LockMask"] + mark}
                                    for user, mark in zip(USERS, "X-X")]),
        }}).check_returncode()
        self.house.write_world({**WORLD, "locks": WORLD["locks"] + [NEW_ONE], "units": [KEYPAD]})
        self.house.start_simulator()
        self.start()
        self.light("Ready")

    def set_up_the_new_ones(self, hand):
        hand.press("Set up door locks")
        self.program.wait(TABLE, SETTINGS)
        self.lock_is_found_and_named(hand)
        hand.choose(SETTINGS, ATTIC, SERIAL_COLUMN, "Manual configuration")
        self.program.wait(TABLE, UNITS)
        self.unit_is_found_and_named(hand)
        self.unit_gets_its_code(hand)
        hand.select("0 min.", MINUTES, f"{MINUTES} min.")
        hand.select("2 sec.", SECONDS, f"{SECONDS} sec.")
        hand.press("Apply")
        wait_for("the units are left", lambda: self.program.find(TABLE, UNITS) is None)
        hand.step(SETTINGS, ATTIC, FIRST_SWITCH + 3)
        hand.press("Save")
        wait_for("the file holds it", lambda: self.stored_lock(ATTIC) == ("Attic", NEW_ONE["serial"], "XXX X"))
        hand.press("Back")
        self.attic_is_programmed(hand)

    def take_what_was_found(self, hand, channel, words):
        """The scan moves from channel to channel, and ends in the list of what it has found."""
        self.program.wait(LABEL, r"Channel \d+ of 12 is being searched\. Found so far: .*")
        self.program.wait(TABLE, FOUND)
        hand.pick(FOUND, channel, SERIAL_COLUMN - 1)
        self.program.wait(LABEL, words)
        hand.press("Apply")
        wait_for("the list goes", lambda: self.program.find(TABLE, FOUND) is None)

    def lock_is_found_and_named(self, hand):
        hand.choose(SETTINGS, ATTIC, SERIAL_COLUMN, "Read SNA automatically")
        hand.fill("Administrator code", CODE)
        hand.press("OK")
        self.take_what_was_found(hand, NEW_ONE["channel"], NEW_ONE["serial"] + " - STE .*")
        self.assertEqual(self.lock_text(ATTIC, SERIAL_COLUMN), NEW_ONE["serial"])
        hand.write(SETTINGS, ATTIC, NAME_COLUMN, "Attic")

    def unit_is_found_and_named(self, hand):
        hand.write(UNITS, 1, NAME_COLUMN, "Keypad")
        hand.choose(UNITS, 1, SERIAL_COLUMN, "Read serial no.", "Keypad")
        self.take_what_was_found(hand, 1, KEYPAD["serial"] + " - TA .*")
        wait_for("its number is there", lambda: self.program.cell_name(UNITS, 1, SERIAL_COLUMN) == KEYPAD["serial"])

    def unit_gets_its_code(self, hand):
        self.program.wait(LABEL, "Set the code and radio channel of this unit now.*")
        hand.press("Yes")
        for name, code in (("Old code :", KEYPAD["admin_code"]), ("New code :", CODE), ("Repeat :", CODE)):
            hand.fill(name, code)
        hand.press("OK")
        self.program.wait(LABEL, r"The new code has been accepted\.")
        hand.press("OK")
        self.program.wait(LABEL, rf"The wireless unit {KEYPAD['serial']} .* now listens on channel 5\.")

    def attic_is_programmed(self, hand):
        hand.press("Program locks")
        hand.step(LOCKLIST, ATTIC, PROGRAM)
        self.program.wait(LABEL, r"Read the history before programming\?\nLock 3: Attic")
        hand.press("No")
        hand.fill("Administrator code", CODE)
        hand.press("OK")
        self.wait_for_end()

    def expect_the_new_ones(self):
        """The lock and its unit hold what the files say, and the files what was set."""
        held = self.expect_dataset("Attic", ATTIC)
        self.assertEqual([user["name"] for user in held["users"]], ["Zoë", "Nur Keller"])
        self.assertEqual(held["listen_time"], {"first": 0, "second": 0, "high": 1, "low": 52})  # 308 s
        files = self.house.data_files()
        unit = self.house.unit(KEYPAD["serial"])
        self.assertEqual(files.units(ATTIC),
                         [{"name": "Keypad", "serial": unit["serial"], "channel": unit["channel"]}])
        self.assertEqual((unit["lock"], unit["admin_code"], unit["channel"]), (held["serial"], CODE, 5))
        # Both moved to the channel of the system, and nothing of that is left to be done.
        self.assertEqual(files.record("RFCHANDIF12.RFX", 15, ATTIC), b"5  5  5  0  0  ")
        self.assertEqual(files.record("LSOEMIPART.LMT", 1, ATTIC), b"Y")

    def test_finds_and_programs_a_lock_with_its_unit_by_mouse(self):
        self.prepare_the_new_ones()
        self.set_up_the_new_ones(MouseHand(self.program))
        self.expect_the_new_ones()

    def test_finds_and_programs_a_lock_with_its_unit_by_keyboard_alone(self):
        self.prepare_the_new_ones()
        self.set_up_the_new_ones(KeyboardHand(self.program))
        self.expect_the_new_ones()

    def test_finds_and_programs_a_lock_with_its_unit_through_the_accessible_tree_alone(self):
        self.prepare_the_new_ones()
        self.set_up_the_new_ones(AccessibleHand(self.program))
        self.expect_the_new_ones()
