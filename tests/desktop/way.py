"""The whole way of an installation with new users, from their names to the lock that lets them in: once with each hand."""
from accessible_hand import AccessibleHand
from datafiles import text
from installation import CODE, LOCKS, WORLD, numbered, serial_of
from keyboard_hand import KeyboardHand
from mouse_hand import MouseHand
from screen import Atspi, wait_for

LABEL, TABLE = Atspi.Role.LABEL, Atspi.Role.TABLE
USERS, LOCKLIST = "User management", "Locks"
NAME, USER_CODE, DESIGNATION, KEY, FINGER, FIRST_LOCK = 1, 4, 5, 6, 7, 8  # columns of the users
PROGRAM = 3  # of the columns of the locks that are in sight
CLEO, DIRK, EVA = 4, 5, 6  # rows of the new users, behind those who are there already
TOR, LABOR = 1, 3  # numbers of locks

# A lock that takes whatever a reader has learned. Its timer groups are by user.
LABOR_LOCK = {"Name": "Labor", "Sn1": "01", "Sn2": "51", "Sn3": "20", "Sn4": "05",
              "Switch1": "X", "Switch2": "X", "Switch3": "X", "Switch5": "X"}
TEMPLATE = bytes([198, 0, *(7 * n % 256 for n in range(198))])
EKEY = {"kind": "key", "delay_ms": 50, "id": "0A141E28", "data": "00FF0102030405060708090A0B0C0D0E"}
TRANSPONDER = {"kind": "transponder", "delay_ms": 50, "slot": 3, "id": "0102030405060708090A",
               "data": "101112131415161718191A1B1C1D1EFF"}
FINGERPRINT = {"kind": "finger", "delay_ms": 50, "step_ms": 20, "template": TEMPLATE.hex()}


class WayTests:
    def prepare_the_way(self):
        """A third lock, and on the desk what the readers are to learn. The program is started and has its adapters."""
        locks = LOCKS + [LABOR_LOCK]
        self.house.import_document({"format": "qvm7702-export", "version": 1, "tables": {
            "LockRecord": numbered(locks),
            "LockGroupRecord": [{"record": n, "GroupId": "PB_815000002", "GroupName": "Nachtsperre"} for n in (2, 3)],
        }}).check_returncode()
        labor = {"label": "Labor", "serial": serial_of(LABOR_LOCK), "admin_code": CODE, "channel": 5,
                 "erase_busy_ms": 100}
        self.house.write_world({**WORLD, "locks": WORLD["locks"] + [labor], "desk": {"presented": [EKEY]}})
        self.house.start_simulator()
        self.house.start_readers({"presented": [TRANSPONDER, FINGERPRINT]})
        self.start()
        self.light("Ready")

    def go_the_whole_way(self, hand):
        self.users_get_names_and_codes(hand)
        self.readers_learn(hand)
        self.users_get_locks(hand)
        self.table_is_saved(hand)
        self.lock_is_programmed(hand)
        self.assertEqual(self.house.stop_readers(), (0, ""))
        held = self.expect_dataset("Labor", LABOR)
        self.assertEqual([user["name"].rstrip() for user in held["users"]], ["Cleo", "Dirk", "Eva_001_FP"])

    def users_get_names_and_codes(self, hand):
        hand.press("Manage users")
        self.program.wait(TABLE, USERS)
        for row, name, code in ((CLEO, "Cleo", "314159"), (DIRK, "Dirk", "271828"), (EVA, "Eva", "161803")):
            hand.write(USERS, row, NAME, name)
            hand.write(USERS, row, USER_CODE, code)

    def readers_learn(self, hand):
        hand.choose(USERS, CLEO, KEY, "Learn", "E-Key/Switch")
        self.asked(r"Learn the E-Key as a new E-Key\?")
        hand.press("Yes")
        self.asked(r"(?s)Please have the E-Key ready.*")
        hand.press("OK")
        self.shows(CLEO, KEY, "10 : 20 : 30 : 40")
        hand.choose(USERS, DIRK, KEY, "Learn", "Transponder")
        self.shows(DIRK, KEY, "#3-ID#1:2:3:4:5:6:7:8:9:10")
        hand.choose(USERS, EVA, FINGER, "Learn finger")
        self.asked("Enroll Finger : OK")
        wait_for("the enrolment ends", lambda: self.program.find(LABEL, "Enroll Finger : OK") is None)
        self.shows(EVA, DESIGNATION, "Slot_Nr: 001")

    def users_get_locks(self, hand):
        labor = FIRST_LOCK + LABOR - 1
        for row, mark in ((CLEO, "X"), (DIRK, "X"), (EVA, "X"), (EVA, "F")):
            hand.step(USERS, row, labor)
            self.shows(row, labor, mark)
        hand.step(USERS, EVA, FIRST_LOCK + TOR - 1)
        self.shows(EVA, FIRST_LOCK + TOR - 1, "X")

    def table_is_saved(self, hand):
        hand.press("Save")
        wait_for("the file holds them", lambda: self.new_users() == [
            ("Cleo", "314159", "--X"), ("Dirk", "271828", "--X"), ("Eva", "161803", "X-F")])
        hand.press("Back")

    def lock_is_programmed(self, hand):
        hand.press("Program locks")
        hand.step(LOCKLIST, LABOR, PROGRAM)
        self.asked(r"Caution: this function requires a wireless adapter with a current version!\nLock 3: Labor")
        hand.press("OK")
        self.asked(r"Read the history before programming\?\nLock 3: Labor")
        hand.press("No")
        hand.fill("Administrator code", CODE)
        hand.press("OK")
        self.asked("Operation finished")

    def new_users(self):
        """Name, code and marks of the three locks of each new user in the file."""
        records = self.house.data_files().records("BX10X52WUJ9.UBW", 419)
        return [(text(record, 0, 16), text(record, 35, 10), record[218:221].decode("ascii"))
                for record in records[CLEO - 1:EVA]]

    def asked(self, words):
        self.program.wait(LABEL, words)

    def shows(self, row, column, wanted):
        """Waits until the cell of the users has this text."""
        wait_for(f"{wanted} in row {row}", lambda: self.program.cell_name(USERS, row, column) == wanted)

    def test_the_whole_way_by_mouse(self):
        self.prepare_the_way()
        self.go_the_whole_way(MouseHand(self.program))

    def test_the_whole_way_by_keyboard_alone(self):
        self.prepare_the_way()
        self.go_the_whole_way(KeyboardHand(self.program))

    def test_the_whole_way_through_the_accessible_tree_alone(self):
        self.prepare_the_way()
        self.go_the_whole_way(AccessibleHand(self.program))
