#!/usr/bin/python3
"""The program as its operator meets it: on a display, with mouse and keyboard, against the virtual lock system.

    dbus-run-session -- desktop_test.py BUILD [TEST...]
"""
import datetime
import fcntl
import os
import re
import signal
import subprocess
import sys
import time
import unittest

from building import BuildingTests
from calendars import CalendarTests
from clocks import ClockTests
from datafiles import without_zeros
from firststart import FirstStartTests
from guests import GuestTests
from installation import CODE, Installation
from kills import KillTests
from lines import LineTests
from locks import LockTests
from pccheck import PcCheckTests
from reports import ReportTests
from screen import (PATIENCE, Atspi, Display, Heard, Program, click_at, drag, has_state, key, middle, name_of, tell,
                    typed, wait_for)
from users import UserTests
from way import WayTests

BUTTON, LABEL, MENU_ENTRY = Atspi.Role.PUSH_BUTTON, Atspi.Role.LABEL, Atspi.Role.MENU_ITEM
DIALOG, TABLE, PASSWORD = Atspi.Role.DIALOG, Atspi.Role.TABLE, Atspi.Role.PASSWORD_TEXT
NAME_COLUMN, PROGRAM_COLUMN, MARK_COLUMN = 1, 3, 7  # of those in sight
TITLE = "QVM 7702 SOFTWARE SYSTEM"
CLOCK = ("month", "day", "hour", "minute", "second")
BUILD = ""


class Desktop(BuildingTests, CalendarTests, ClockTests, FirstStartTests, GuestTests, LineTests, LockTests, PcCheckTests,
              ReportTests, UserTests, WayTests, KillTests, unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.began = datetime.datetime.now().replace(microsecond=0)
        self.display = Display()
        self.addCleanup(self.display.close)
        self.house = Installation(BUILD)
        self.addCleanup(self.house.close)

    def start(self, before=()):
        self.process = self.house.start_program(before=before)
        self.program = Program(self.process.pid)

    def light(self, words):
        """Waits until the link light has this state. It is green before the search is over, during which nothing opens."""
        self.program.wait(LABEL, words)
        if words == "Ready":
            self.program.wait(BUTTON, r"Adapter: .+ \(.+\).*")

    def cell(self, row, column):
        """A cell of the lock window's grid, rows counted from 1, columns from 0."""
        return self.program.cell("Locks", row, column)

    def start_run(self):
        """From the main window to the first telegram of lock 1, by mouse."""
        self.program.press("Program locks")
        click_at(*middle(self.cell(1, PROGRAM_COLUMN)))
        self.program.wait(LABEL, r"Read the history before programming\?\nLock 1: Tor")
        self.program.press("No")
        click_at(*middle(self.program.wait(PASSWORD, "Administrator code")))
        typed(CODE)
        self.program.press("OK")

    def wait_for_end(self):
        self.program.wait(LABEL, "Operation finished")

    def leave_lock_window(self):
        """Out of the progress window and the lock window, by mouse."""
        self.program.press("Back")
        wait_for("the progress window goes", lambda: self.program.find(BUTTON, "Cancel") is None)
        self.program.press("Back")
        self.program.wait(BUTTON, "Program locks")

    def tab_to(self, name):
        """Presses Tab until the control of this name has the keyboard."""
        for _ in range(20):
            before = wait_for("a control with the keyboard", self.program.focused_name)
            if before == name:
                return
            key("Tab")
            wait_for("the keyboard moves on", lambda: self.program.focused_name() not in ("", before))
        raise AssertionError(f"Tab never comes to {name}\n{self.program.describe()}")

    def expect_dataset(self, name, number):
        """The lock holds what the data files say, and no telegram was wrong."""
        self.assertEqual(self.house.stop_simulator(), (0, ""))
        lock = self.house.lock(name)
        self.assertTrue(lock["data_complete"])
        wanted = self.house.data_files().lock(number)
        held = {part: lock.get(part, [] if isinstance(wanted[part], list) else None) for part in wanted}
        for part in ("table_a", "table_b"):
            held[part] = without_zeros(held[part])
        for user in held["users"]:
            del user["slot"]  # the lock's own choice
        for user in held["users"] + wanted["users"]:
            user.setdefault("timer_selector", 0)
        self.assertEqual(held, wanted)
        clock = lock["clock"]
        told = datetime.datetime(2000 + clock["year"], *(clock[part] for part in CLOCK))
        self.assertLessEqual(self.began, told)
        self.assertLessEqual(told, datetime.datetime.now())
        return lock

    def expect_ended(self):
        self.assertEqual(self.process.wait(PATIENCE), 0)

    def test_is_refused_beside_a_program_of_another_login_that_may_write(self):
        directory = os.open(self.house.place + "DAT", os.O_RDONLY)
        self.addCleanup(os.close, directory)
        fcntl.flock(directory, fcntl.LOCK_EX)
        self.start()
        self.program.wait(LABEL, rf"Another program is working on the data files: [^,]+, {os.getpid()}, .*")
        self.program.press("OK")
        self.assertEqual(self.process.wait(PATIENCE), 1)

    def test_keeps_an_import_out_while_it_runs(self):
        self.start()
        self.light("Not connected")
        refused = self.house.import_document({"format": "qvm7702-export", "version": 1,
                                              "tables": {"LockEmiRecord": []}})
        self.assertEqual(refused.returncode, 1)
        self.assertIn(f"The data files are in use by qvm7702 (process {self.process.pid}) of user ", refused.stderr)

    def test_finds_the_adapter_and_programs_a_lock_by_mouse(self):
        self.start()
        self.light("Not connected")
        self.house.start_simulator()
        self.house.simulator.send_signal(signal.SIGSTOP)
        self.light("Searching for the wireless adapter")
        self.house.simulator.send_signal(signal.SIGCONT)
        self.light("Ready")
        self.start_run()
        self.wait_for_end()
        self.leave_lock_window()
        lock = self.expect_dataset("Tor", 1)
        self.assertEqual([(user["name"], user["code"]) for user in lock["users"]],
                         [("Zoë", "918273----"), ("Bert", "405060----")])
        self.assertEqual(lock["single_days"][0], [24, 12, 26, 27, 12, 26])
        self.program.press("Exit program")
        self.expect_ended()

    def test_programs_a_lock_by_keyboard_alone(self):
        self.house.start_simulator()
        self.start()
        self.light("Ready")
        self.tab_to("Program locks")
        key("Return")
        self.tab_to("Locks")
        key("Down", "Right", "Right", "Right")  # the second lock; number, name, serial, program
        key("Return")
        self.program.wait(LABEL, r"Read the history before programming\?\nLock 2: Keller")
        key("alt+n")
        wait_for("the code box has the keyboard", lambda: self.program.focused_name() == "Administrator code")
        typed(CODE)
        key("Return")
        self.wait_for_end()
        wait_for("the closing button has the keyboard", lambda: self.program.focused_name() == "Back")
        key("Return")
        wait_for("the grid has the keyboard", lambda: self.program.focused_name() == "Locks")
        self.tab_to("Back")
        key("space")
        self.program.wait(BUTTON, "Program locks")
        self.leave_by_keyboard()
        lock = self.expect_dataset("Keller", 2)
        self.assertEqual(lock["table_a"][0], [8, 7, 0, 18, 0])
        self.assertEqual(lock["table_b"][2:4], [[10, 22, 0, 23, 59], [10, 0, 0, 5, 0]])

    def marked(self):
        """Numbers of the first two locks whose check box is checked."""
        return [row for row in (1, 2) if has_state(self.cell(row, MARK_COLUMN), Atspi.StateType.CHECKED)]

    def wait_for_marks(self, rows):
        wait_for(f"the locks {rows} are marked", lambda: self.marked() == rows)

    def open_locks(self):
        self.house.start_simulator()
        self.start()
        self.light("Ready")
        self.program.press("Program locks")
        wait_for("the grid has the keyboard", lambda: self.program.focused_name() == "Locks")

    def test_finds_and_marks_locks_by_keyboard(self):
        self.open_locks()
        key("ctrl+f")
        wait_for("the filter line has the keyboard", lambda: self.program.focused_name() == "Filter")
        typed("KEL")
        self.program.wait(LABEL, "1 of 2")
        key("Return")
        wait_for("the grid has the keyboard", lambda: self.program.focused_name() == "Locks")
        key("ctrl+a", "space")
        self.program.wait(LABEL, "1 marked")
        key("Escape")
        wait_for("all rows are back", lambda: self.program.find(LABEL, "1 of 2") is None)
        self.wait_for_marks([2])
        typed("to")
        key("space")
        self.wait_for_marks([1, 2])
        key("shift+Down", "space")
        self.wait_for_marks([])

    def test_tells_a_screen_reader_of_a_mark_that_comes_and_goes(self):
        self.open_locks()
        wait_for("the cell is there", lambda: name_of(self.cell(2, MARK_COLUMN)) != "")
        cell = self.cell(2, MARK_COLUMN)
        place = tell(cell, lambda n: n.get_index_in_parent())
        heard = Heard("object:state-changed:checked")
        self.addCleanup(heard.close)
        click_at(*middle(cell))
        wait_for("the mark is told", lambda: heard.events() == [(place, 1)])
        key("space")  # a second click so soon would be a double click
        wait_for("its end is told", lambda: heard.events() == [(place, 1), (place, 0)])

    def test_marks_locks_by_a_drag_and_keeps_the_marks_of_a_list_that_is_not_started(self):
        self.open_locks()
        self.program.press("Program marked locks")
        self.program.wait(LABEL, "No lock is marked.*")
        self.program.press("OK")
        drag(middle(self.cell(1, NAME_COLUMN)), middle(self.cell(2, PROGRAM_COLUMN)))
        key("space")
        self.program.wait(LABEL, "2 marked")
        self.wait_for_marks([1, 2])
        click_at(*middle(self.cell(2, MARK_COLUMN)))
        self.wait_for_marks([1])
        self.program.press("Program marked locks")
        for question in (r"Read the history before programming\?", r"Start the operation at a later time\?"):
            self.program.wait(LABEL, question)
            self.program.press("No")
        self.program.wait(PASSWORD, "Administrator code")
        self.program.press("Cancel")
        self.wait_for_marks([1])

    def test_does_not_cancel_a_run_by_the_keys_that_began_it(self):
        self.house.start_simulator("--fault", "silent@8")
        self.start()
        self.light("Ready")
        self.start_run()
        self.program.wait(LABEL, "No answer for .*")
        wait_for("the progress window has the keyboard", lambda: self.program.window("Tor") is not None)
        key("Return", "space", "Tab", "Return", "space")
        self.assertIsNone(self.program.find(LABEL, "Operation cancelled"))
        self.assertIsNotNone(self.program.find(LABEL, "No answer for .*"))
        key("Escape")
        self.program.wait(LABEL, "Operation cancelled")
        key("Return", "space")
        self.assertIsNotNone(self.program.find(LABEL, "Operation cancelled"))
        self.leave_lock_window()

    def test_a_list_keeps_the_keyboard_at_every_row(self):
        self.open_locks()
        for row in (1, 2):
            click_at(*middle(self.cell(row, MARK_COLUMN)))
        self.wait_for_marks([1, 2])
        self.program.press("Program marked locks")
        for question in (r"Read the history before programming\?", r"Start the operation at a later time\?"):
            self.program.wait(LABEL, question)
            self.program.press("No")
        click_at(*middle(self.program.wait(PASSWORD, "Administrator code")))
        typed(CODE)
        self.program.press("OK")
        seen = set()

        def ended():
            for place in ("Lock 1 of 2", "Lock 2 of 2"):
                if self.program.find(LABEL, place + " .*") is not None:
                    self.assertEqual(self.program.focused_name(), "List of locks")
                    seen.add(place)
            return self.program.find(LABEL, "2 done, 0 failed or skipped")
        wait_for("both locks are done", ended)
        self.assertIn("Lock 2 of 2", seen)  # the first one may be too quick to be seen
        self.assertEqual(self.program.focused_name(), "List of locks")

    def test_asks_before_marks_are_lost_and_goes_back_at_escape(self):
        self.open_locks()
        key("Down", "space")
        self.program.wait(LABEL, "1 marked")
        key("Escape")
        self.program.wait(LABEL, r"Marked locks: 1\. If you leave the window, the marks are lost\. .*")
        key("Escape")
        wait_for("the grid has the keyboard", lambda: self.program.focused_name() == "Locks")
        self.program.wait(LABEL, "1 marked")
        self.program.press("Back")
        self.program.wait(LABEL, "Marked locks: 1.*")
        self.program.press("Yes")
        self.program.wait(BUTTON, "Program locks")

    def test_begins_with_the_keyboard_where_return_and_space_do_nothing(self):
        self.start()
        self.light("Not connected")
        wait_for("the state has the keyboard", lambda: self.program.focused_name() == "Not connected")
        key("Return", "space", "Escape")
        self.tab_to("Exit program")
        self.assertIsNone(self.process.poll())
        key("Return")
        self.expect_ended()

    def test_opens_one_of_the_latest_histories_without_an_adapter(self):
        os.makedirs(self.house.place + "HIST", exist_ok=True)
        for name in ("H_20260104_083000_Tor.HST", "H_20251231_120000_Keller.HST"):
            with open(self.house.place + "HIST/" + name, "wb") as file:
                file.write(b"00.0A.10.01\r\nAnna\t04.01.2026\t08:12\tCode\r\n")
        self.start()
        self.light("Not connected")
        key("alt+f")
        self.program.wait(MENU_ENTRY, "1 +Tor, 04.01.2026 08:30")
        key("2")
        self.program.wait(LABEL, ".*H_20251231_120000_Keller.HST.*")
        key("Escape")
        self.light("Not connected")

    def test_a_fact_of_the_main_window_leads_to_the_window_behind_it(self):
        self.house.start_simulator()
        self.start()
        self.light("Ready")
        self.program.wait(BUTTON, "Locks: 2")
        self.program.press(r"Port: 1: com1 -> /dev/pts/[0-9]+")
        self.program.press("Back")
        wait_for("the port window goes", lambda: self.program.find(BUTTON, "Save") is None)
        self.program.press("Radio channel: 5")
        self.program.wait(BUTTON, "Save")
        self.program.press("Back")
        wait_for("the channel window goes", lambda: self.program.find(BUTTON, "Save") is None)

    def test_the_main_window_comes_back_where_it_was_put(self):
        self.house.start_simulator()
        self.start()
        self.light("Ready")
        for corner in ((40, 70), (330, 160)):
            before = self.program.place(TITLE)
            self.program.move(TITLE, *corner)
            wait_for("the window is moved", lambda: self.program.place(TITLE) not in (None, before))
            place = self.program.place(TITLE)
            for _ in range(2):
                self.program.press("Program locks")
                wait_for("the main window goes", lambda: self.program.find(BUTTON, "Program locks") is None)
                self.program.press("Back")
                self.program.wait(BUTTON, "Program locks")
                wait_for("the main window stands still", lambda: self.program.window(TITLE))
                self.assertEqual(self.program.place(TITLE), place)

    def test_survives_an_adapter_pulled_out_in_the_middle_of_a_run(self):
        self.house.start_simulator("--fault", "unplug@8")
        self.start()
        self.light("Ready")
        self.start_run()
        self.house.simulator.wait(PATIENCE)
        self.program.wait(LABEL, r"The wireless adapter was disconnected\..*")
        used = self.program.processor_seconds()
        time.sleep(1)
        self.assertLess(self.program.processor_seconds() - used, 0.3)
        key("alt+c")
        self.program.wait(LABEL, "Operation cancelled")
        self.leave_lock_window()
        self.light("Not connected")
        self.house.forget_simulator()
        self.house.start_simulator()
        self.light("Ready")
        self.start_run()
        self.wait_for_end()
        self.leave_lock_window()
        self.expect_dataset("Tor", 1)

    def leave_by_keyboard(self):
        """By the menu."""
        key("alt+f")
        self.program.wait(MENU_ENTRY, "Exit")
        key("Up", "Return")
        self.expect_ended()

    def test_a_click_brings_the_main_window_not_before_the_channel_window(self):
        self.house.start_simulator()
        self.start()
        self.light("Ready")
        main = tell(self.program.windows()[0], lambda n: n.get_extents(Atspi.CoordType.SCREEN))
        self.program.press("Set radio channel")
        middle(self.program.wait(BUTTON, "Save"))
        click_at(main.x + main.width - 15, main.y + main.height - 15)
        time.sleep(1)  # a window manager says nothing when it has finished
        self.program.press("Back")
        wait_for("the channel window goes", lambda: self.program.find(BUTTON, "Save") is None)
        self.program.press("Exit program")
        self.expect_ended()

    def test_a_second_start_ends_in_silence_and_raises_the_first_window(self):
        self.start()
        self.program.wait(BUTTON, "Exit program")
        self.program.minimise(TITLE)
        wait_for("the window is an icon", lambda: not self.program.has_keyboard())
        second = self.house.start_program(stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        said, _ = second.communicate(timeout=PATIENCE)
        self.assertEqual((second.returncode, said), (0, b""))
        wait_for("the first window has the keyboard", self.program.has_keyboard)
        self.assertIsNone(self.process.poll())

    def test_starts_after_a_crash(self):
        self.start()
        self.program.wait(BUTTON, "Exit program")
        self.process.kill()
        self.process.wait()
        self.start()
        self.program.wait(BUTTON, "Exit program")
        self.program.press("Exit program")
        self.expect_ended()

    def note(self, title):
        """Waits for the window of this title and keeps its role."""
        def seek():
            return next((w for w in self.program.windows() if re.fullmatch(title, name_of(w))), None)
        try:
            window = wait_for("the window " + title, seek)
        except AssertionError as fault:
            raise AssertionError(f"{fault}\n{self.program.describe()}") from None
        self.roles.append((name_of(window), tell(window, lambda w: w.get_role_name())))
        for other in self.program.windows():
            self.assertNotEqual(tell(other, lambda w: w.get_role_name()), "filler", name_of(other))

    def test_tells_a_screen_reader_what_each_window_is(self):
        self.roles = []
        self.house.start_simulator()
        self.start()
        self.light("Ready")
        self.note("QVM 7702 SOFTWARE SYSTEM")
        for entry, leave in (("Interface", "Back"), ("Language", "Cancel")):
            key("alt+f")
            self.program.press(entry, MENU_ENTRY)
            self.note(".* - " + entry)
            self.program.press(leave)
            wait_for("the window goes", lambda: len(self.program.windows()) == 1)
        self.program.press("Program locks")
        click_at(*middle(self.cell(1, PROGRAM_COLUMN)))
        self.program.wait(LABEL, r"Read the history before programming\?\nLock 1: Tor")
        self.program.press("Yes")
        self.note("Start transfer")
        self.program.press("Read history from .*")
        month = self.program.wait(DIALOG, "Calendar")
        self.assertEqual(name_of(tell(month, lambda m: m.get_parent())), "Start transfer")
        key("Escape")
        code = self.program.wait(PASSWORD, "Administrator code")
        click_at(*middle(code))
        typed(CODE[:3])
        wait_for("the count is told", lambda: tell(code, lambda c: c.get_description()) == "3 of 6")
        typed(CODE[3:])
        self.program.press("OK")
        self.wait_for_end()
        self.note("Tor")
        self.assertEqual([role for _, role in self.roles], ["frame", "dialog", "dialog", "dialog", "dialog"])

    def test_opens_every_window_within_a_small_screen_at_a_large_scale(self):
        self.display.close()
        self.display = Display("1366x768")
        self.addCleanup(self.display.close)
        self.process = self.house.start_program(scale="1.5")
        self.program = Program(self.process.pid)
        self.program.wait(BUTTON, "Exit program")
        key("alt+f")
        self.program.press("Interface", MENU_ENTRY)
        self.program.wait(TABLE, ".*")
        wait_for("both windows", lambda: len(self.program.places()) >= 2)
        for left, top, right, bottom in self.program.places():
            self.assertGreater(right - left, 600)  # it is in pixels
            self.assertGreaterEqual(min(left, top), 0)
            self.assertLessEqual(right, 1366)
            self.assertLessEqual(bottom, 768)


if __name__ == "__main__":
    BUILD = os.path.abspath(sys.argv[1])
    unittest.main(argv=[sys.argv[0]] + sys.argv[2:])
