"""What is printed and handed over, for the tests of the built program."""
import os
import re
import subprocess

from installation import USERS
from keyboard_hand import KeyboardHand
from screen import Atspi, key, tell, typed, wait_for

LABEL, BUTTON = Atspi.Role.LABEL, Atspi.Role.PUSH_BUTTON
MANAGEMENT = "User management"
BERT = 2
LOCKS, KELLER = "Door lock settings", 2


class ReportTests:
    def save_report(self, hand, report, file):
        """From the menu "Extras", by keyboard, up to the file dialog's answer."""
        hand.reach(MANAGEMENT)
        key("alt+e")
        hand.take("Save as PDF", report)
        self.program.wait(BUTTON, "Save")
        wait_for("the dialog asks for a name", lambda: self.program.focused_name() == "File name:")
        typed(file)
        key("Return")

    def report_is_told(self, file):
        self.program.wait(LABEL, re.escape(f"The report was saved: {file}"))
        key("Return")
        wait_for("the table has the keyboard", lambda: self.program.focused_name() == MANAGEMENT)

    @staticmethod
    def texts_of(file):
        """What a reader of PDF finds, in one line."""
        found = subprocess.run(["pdftotext", "-raw", file, "-"], check=True, capture_output=True)
        return " ".join(found.stdout.decode("utf-8").split())

    @staticmethod
    def bytes_of(file):
        with open(file, "rb") as found:
            return found.read()

    def expect_texts(self, file, wanted):
        """These texts one behind the other, and no secret."""
        found = self.texts_of(file)
        self.assertIn(" ".join(wanted), found)
        for user in USERS:
            self.assertNotIn(user["UserCode"], found)

    def test_saves_reports_of_users_by_keyboard_alone(self):
        self.house.start_simulator()
        self.start()
        self.light("Ready")
        self.tab_to("Manage users")
        key("Return")
        hand = KeyboardHand(self.program)
        people, receipt = self.house.place + "people.pdf", self.house.place + "receipt.pdf"
        wait_for("the grid has the keyboard", lambda: self.program.focused_name() == MANAGEMENT)
        self.save_report(hand, "Users and their locks", people)
        self.report_is_told(people)
        self.expect_texts(people, [
            "Users and their locks", "No. Name Timer group Right E-Key / transponder Locks By fingerprint",
            "1 Zoë Timer-A 1 E-Key: Ring 1 1 Tor, 2 Keller", "2 Bert - ADMI 1 Tor", "3 Nur Keller Reinigung 1/2 2 Keller"])
        hand.go_to(MANAGEMENT, BERT, 1)
        self.save_report(hand, "Receipt", receipt)
        self.report_is_told(receipt)
        self.expect_texts(receipt, ["User 2: Bert", "Item Designation", "Personal code", "Locks", "No. Door lock", "1 Tor",
                                    "Times", "at any time", "I have received the items listed."])
        # A file that is there already is asked about.
        before = self.bytes_of(receipt)
        self.save_report(hand, "Users and their locks", receipt)
        self.program.wait(LABEL, r"(?s).*receipt\.pdf already exists.*")
        hand.press("No")
        key("Escape")
        wait_for("the table has the keyboard", lambda: self.program.focused_name() == MANAGEMENT)
        self.assertEqual(self.bytes_of(receipt), before)

    def test_prints_the_users_of_a_lock_by_keyboard_alone(self):
        self.house.start_simulator()
        self.start()
        self.light("Ready")
        self.tab_to("Set up door locks")
        key("Return")
        hand = KeyboardHand(self.program)
        wait_for("the grid has the keyboard", lambda: self.program.focused_name() == LOCKS)
        hand.go_to(LOCKS, KELLER, 1)
        key("alt+e")
        hand.take("Print", "Users of the lock")
        # Without a printer the system's dialog offers a file.
        wait_for("the dialog has the keyboard", lambda: self.program.focused_name() == "Print to File (PDF)")
        box = self.program.wait(Atspi.Role.TEXT, "Output file:")
        printed = tell(box, lambda of: Atspi.Text.get_text(of, 0, -1))
        self.assertTrue(printed.endswith(".pdf"), printed)
        key("Return")
        wait_for("the pages are printed", lambda: os.path.exists(printed) and self.bytes_of(printed).endswith(b"EOF\n"))
        wait_for("the table has the keyboard", lambda: self.program.focused_name() == LOCKS)
        found = self.texts_of(printed)
        for wanted in ("Keller", "Zoë", "Nur Keller"):
            self.assertIn(wanted, found)
        self.assertNotIn("Bert", found)
        for user in USERS:
            self.assertNotIn(user["UserCode"], found)
