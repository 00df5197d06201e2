"""The virtual building, for the tests of the built program."""
import os

from accessible_hand import AccessibleHand
from keyboard_hand import KeyboardHand
from mouse_hand import MouseHand
from screen import Atspi, Program, wait_for

BUTTON, LABEL = Atspi.Role.PUSH_BUTTON, Atspi.Role.LABEL
STRIP, DEVICES = "Virtual building: nothing real is touched", "Device"
SMALL = "QVM 7702 SOFTWARE SYSTEM - Virtual devices"
EVENTS, STATE = 4, 6  # columns
VIRTUAL_CODE = "123456"
TOR, PROGRAM_COLUMN = 1, 3
BERT = "405060"  # he has no time slots


class BuildingTests:
    def real_files(self):
        """All that the installation holds, by path. Beside it stands where the real windows were, which they may note."""
        found = {}
        for folder, _, files in os.walk(self.house.place):
            for name in files if not folder.startswith(self.house.place + "config") else []:
                with open(os.path.join(folder, name), "rb") as file:
                    found[os.path.join(folder, name)] = file.read()
        return found

    def enter_the_building(self, hand_of):
        """Gives the hand, and what the installation holds meanwhile."""
        self.start()
        hand = hand_of(self.program)
        self.program.wait(BUTTON, "Manage users")
        hand.take_from_bar(r"\?", "Virtual building")
        self.program.wait(LABEL, r"(?s)In the virtual building the program works with a copy of your data.*")
        hand.press("Yes")
        self.program.wait(LABEL, STRIP)
        self.light("Ready")
        return hand, self.real_files()

    def program_tor(self, hand):
        hand.leave(SMALL)
        hand.press("Program locks")
        hand.step("Locks", TOR, PROGRAM_COLUMN)
        self.program.wait(LABEL, r"Read the history before programming\?\nLock 1: Tor")
        hand.press("No")
        hand.fill("Administrator code", VIRTUAL_CODE)
        hand.press("OK")
        self.wait_for_end()
        hand.press("Back")
        wait_for("the progress window goes", lambda: self.program.find(BUTTON, "Cancel") is None)
        hand.press("Back")
        self.program.wait(BUTTON, "Program locks")

    def try_the_door(self, hand, code, words):
        hand.set_time("Code at the door", code)
        hand.press("Enter the code")
        self.program.wait(LABEL, words)

    def live_in_the_building(self, hand_of):
        before = self.real_files()
        hand, inside = self.enter_the_building(hand_of)
        self.assertEqual(self.program.cell_name(DEVICES, TOR, STATE), "not programmed")
        self.program_tor(hand)
        hand.take_from_bar(r"\?", "Virtual building")
        wait_for("the lock holds its data", lambda: self.program.cell_name(DEVICES, TOR, STATE) == "programmed")
        self.try_the_door(hand, "999999", r"Tor stays shut: the lock knows nobody by this\.")
        self.try_the_door(hand, BERT, r"Tor opens for Bert\.")
        hand.leave(SMALL)
        hand.take_from_bar(r"\?", "End the virtual building")
        self.program.wait(LABEL, "What was changed in the virtual building is lost.*")
        hand.press("Yes")
        wait_for("the strip goes", lambda: self.program.find(LABEL, STRIP) is None)
        self.program.wait(BUTTON, "Manage users")
        self.light("Not connected")
        self.assertEqual(self.real_files(), inside)
        hand.press("Exit program")
        self.expect_ended()
        settings = {self.house.place + "DAT/" + name for name in ("EST7CSB29A.I_1", "CHEUSB25C.I_2")}
        after = self.real_files()
        self.assertEqual({path: after[path] for path in after if path not in settings},
                         {path: before[path] for path in before if path not in settings})

    def test_lives_in_the_virtual_building_and_leaves_it_by_mouse(self):
        self.live_in_the_building(MouseHand)

    def test_lives_in_the_virtual_building_and_leaves_it_by_keyboard_alone(self):
        self.live_in_the_building(KeyboardHand)

    def test_lives_in_the_virtual_building_and_leaves_it_through_the_accessible_tree_alone(self):
        self.live_in_the_building(AccessibleHand)

    def test_killed_in_the_virtual_building_leaves_the_installation_as_it_was(self):
        _, inside = self.enter_the_building(MouseHand)
        self.process.kill()
        self.process.wait()
        self.assertEqual(self.real_files(), inside)

    def test_begins_in_the_virtual_building_with_the_demonstration_where_there_are_no_data(self):
        empty = self.house.place + "empty/"
        os.mkdir(empty)
        self.process = self.house.start_program(options=["--building"], directory=empty)
        self.program = Program(self.process.pid)
        self.program.wait(LABEL, STRIP)
        self.light("Ready")
        self.program.wait(BUTTON, "People: 25")
        wait_for("the events of the first lock", lambda: self.program.cell_name(DEVICES, 1, EVENTS) == "6")
        self.program.press("Exit program")
        self.expect_ended()
        self.assertEqual(os.listdir(empty), [])
