"""From the times of the guests to a guest's card, for the tests of the built program: once with each hand."""
import json
import os
from datetime import date, timedelta

from accessible_hand import AccessibleHand
from installation import LOCKS, WORLD, numbered, serial_of
from keyboard_hand import KeyboardHand
from mouse_hand import MouseHand
from screen import Atspi, wait_for
from timerfiles import (DEFAULTS_FILE, GUEST_FILE, OBJECT_FILE, OFFSET_FILE, PERMANENT_FILE, defaults_file, guest_file,
                        object_file, offset_file, permanent_file)

BUTTON, LABEL, TABLE = Atspi.Role.PUSH_BUTTON, Atspi.Role.LABEL, Atspi.Role.TABLE
OFFSET_GRID, GUEST_GRID, DOOR_GRID = "Time offset", "Timer group", "Guest card"
NAME, TIME, BASE, SELECTED = 1, 2, 3, 4  # columns of the offsets; of the guest slots
MARK = 3  # column of the doors
HOTEL, OBJECT = "HOTEL", "OBJEKT"
TOR, KELLER, LABOR = 1, 2, 3  # rows of the doors
ROOM, GROUP, LOWER_GROUP = 9731, 9, 8
BATTERY = "01022A04"

# The second offset is as one that was deleted: its identifier goes on.
OFFSETS = [("Early", "13:00", "15:00"), ("", "00:00", "00:00"), ("OFF", "00:00", "00:00"), ("OFF", "00:00", "00:00")]
LABOR_LOCK = {"Name": "Labor", "Sn1": "01", "Sn2": "51", "Sn3": "20", "Sn4": "05"}
DOORS = [{**LOCKS[0], "OffsetId": "OFST0x02"}, {**LOCKS[1], "OffsetId": "OFST0x01"}, LABOR_LOCK]


class GuestTests:
    def prepare_guests(self, mode):
        """Two doors with offsets, a room, files of the guests as they were left, and a card that lies on the adapter."""
        room = {part: LABOR_LOCK[part] for part in ("Sn1", "Sn2", "Sn3", "Sn4")}
        self.house.import_document({"format": "qvm7702-export", "version": 1, "tables": {
            "LockRecord": numbered(DOORS),
            "DoorModeRecord": [{"record": LABOR, "Mode": "AA", "Days": str(ROOM), **room}],
        }}).check_returncode()
        for name, contents in ((OFFSET_FILE, offset_file(OFFSETS)), (DEFAULTS_FILE, defaults_file("15:00", "10:30")),
                               (GUEST_FILE, guest_file(mode, {4})), (OBJECT_FILE, object_file(GROUP))):
            with open(self.house.place + "DAT/" + name, "wb") as file:
                file.write(contents)
        self.house.write_world({**WORLD, "desk": {"card": {"battery": BATTERY}}})
        self.house.start_simulator()
        self.start()
        self.light("Ready")

    def set_guest_times(self, hand, mode):
        """A default time, an offset from the other one, and two slots of which one was none before."""
        hand.press("Switch clocks")
        hand.take("Guest timers")
        self.program.wait(TABLE, OFFSET_GRID)
        hand.set_time("Check-in time :", "14:15")
        hand.write(OFFSET_GRID, 2, NAME, "Spa")
        hand.write(OFFSET_GRID, 2, TIME, "12:45")
        hand.choose_row(OFFSET_GRID, 2, BASE, 1, "10:30")
        wait_for("the base is taken over", lambda: self.program.cell_name(OFFSET_GRID, 2, BASE) == "10:30")
        for slot, mark in ((2, "X"), (4, ""), (7, "X")):
            hand.step(GUEST_GRID, slot, SELECTED)
            wait_for("the slot is marked",
                     lambda row=slot, wanted=mark: self.program.cell_name(GUEST_GRID, row, SELECTED) == wanted)
        saved = guest_file(mode, {2, 7})
        hand.press("Save")
        wait_for("the slots are saved", lambda: self.contents(GUEST_FILE) == saved)
        self.assertEqual(self.contents(DEFAULTS_FILE), defaults_file("14:15", "10:30"))
        self.assertEqual(self.contents(OFFSET_FILE), offset_file([OFFSETS[0], ("Spa", "12:45", "10:30"), *OFFSETS[2:]]))
        hand.press("Back")
        self.program.wait(BUTTON, "Guest card")

    def write_card(self, hand, mode):
        hand.press("Guest card")
        self.program.wait(TABLE, DOOR_GRID)
        for row, marks in ((TOR, "XP"), (KELLER, "XP"), (LABOR, "X")):
            for mark in marks:
                hand.step(DOOR_GRID, row, MARK)
                wait_for("the door is marked",
                         lambda at=row, wanted=mark: self.program.cell_name(DOOR_GRID, at, MARK) == wanted)
        if mode == OBJECT:
            hand.select(f"Grp - {GROUP}", LOWER_GROUP, f"Grp - {LOWER_GROUP}")
        hand.pick_date("Valid from :", self.first)
        hand.pick_date("Valid until :", self.last)
        hand.press("Save")
        wanted = permanent_file([serial_of(DOORS[0]), serial_of(DOORS[1])])
        wait_for("the permanent doors are saved",  # into a file that there may not be before
                 lambda: os.path.exists(self.house.place + "DAT/" + PERMANENT_FILE)
                 and self.contents(PERMANENT_FILE) == wanted)
        hand.press("Write card")
        self.program.wait(LABEL, r"The guest card has been written\.")
        hand.press("OK")
        wait_for("the single door is done", lambda: self.program.cell_name(DOOR_GRID, LABOR, MARK) == "")

    def moments(self):
        return f"{self.first:%d.%m.%Y} 14:15", f"{self.last:%d.%m.%Y} 10:30"

    def read_card(self, hand):
        check_in, check_out = self.moments()
        hand.press("Battery status")
        self.program.wait(LABEL, f"Card read: valid from {check_in} until {check_out}, battery 01 02 2A 04")

    def card(self, mode):
        """What it must hold. The first offset was for another default time, and is none any more."""
        check_in, check_out = self.moments()
        permanent = [{"place": 1, "serial": serial_of(DOORS[0]), "base": 2, "minutes": 135},
                     {"place": 2, "serial": serial_of(DOORS[1])}]
        single = serial_of(LABOR_LOCK)
        kind = {HOTEL: {"mode": "hotel", "room": ROOM, "doors": [{"place": 0, "serial": single}, *permanent]},
                OBJECT: {"mode": "object", "room": (date.today() - date(2000, 1, 1)).days, "group": LOWER_GROUP,
                         "doors": [*permanent, {"place": 5, "serial": single}]}}[mode]
        return {"check_in": check_in, "check_out": check_out, "slots": [2, 7], "battery": BATTERY, "writes": 1, **kind}

    def contents_of_card(self):
        with open(self.house.place + "state.json", encoding="utf-8") as file:
            return json.load(file)["desk"]["card"]

    def serve_a_guest(self, hand_of, mode):
        self.prepare_guests(mode)
        hand = hand_of(self.program)
        self.set_guest_times(hand, mode)
        self.write_card(hand, mode)
        self.read_card(hand)
        self.assertEqual(self.house.stop_simulator(), (0, ""))
        self.assertEqual(self.contents_of_card(), self.card(mode))

    def test_serves_a_guest_of_a_hotel_by_mouse(self):
        following = (date.today().replace(day=1) + timedelta(days=31)).replace(day=1)
        self.first, self.last = following.replace(day=16), following.replace(day=18)
        self.serve_a_guest(MouseHand, HOTEL)

    def test_serves_a_guest_of_an_object_by_keyboard_alone(self):
        self.first, self.last = date.today() + timedelta(days=9), date.today() + timedelta(days=15)
        self.serve_a_guest(KeyboardHand, OBJECT)

    def test_serves_a_guest_of_an_object_through_the_accessible_tree_alone(self):
        self.first, self.last = date.today() + timedelta(days=31), date.today() + timedelta(days=40)
        self.serve_a_guest(AccessibleHand, OBJECT)
