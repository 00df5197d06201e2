"""The check of the PC, for the tests of the built program."""
import os
import re
import stat

from accessible_hand import AccessibleHand
from mouse_hand import MouseHand
from screen import Atspi, wait_for

BUTTON, LABEL = Atspi.Role.PUSH_BUTTON, Atspi.Role.LABEL
CHECKS = "Checked"
VERDICT, WHAT, FINDING = 0, 1, 2  # columns
ROWS = 60


class PcCheckTests:
    def line_of(self, what):
        """Verdict and finding of the first check whose name begins so."""
        for row in range(1, ROWS):
            if self.program.cell_name(CHECKS, row, WHAT).startswith(what):
                return self.program.cell_name(CHECKS, row, VERDICT), self.program.cell_name(CHECKS, row, FINDING)
        return "", ""

    def check_is_over(self):
        self.program.wait(LABEL, r"(All is well\.|Faults: \d+, worth knowing or not to be told: \d+)")

    def check_the_pc(self, hand_of):
        users = self.house.place + "DAT/BX10X52WUJ9.UBW"
        os.chmod(users, 0o644)
        self.house.start_simulator()
        self.start()
        hand = hand_of(self.program)
        self.light("Ready")
        hand.take(r"\?", "Check this PC")
        self.check_is_over()
        wait_for("the adapter's answer", lambda: re.fullmatch(r"PROGSTATION.* answered, version \d+",
                                                              self.line_of("Answer of the adapter")[1]))
        self.assertEqual(self.line_of("Use of the port"), ("good", "this program is using it"))
        self.assertEqual(self.line_of("Data file DAT/BX10X52WUJ9.UBW")[0], "worth knowing")
        hand.press("Mend")
        self.program.wait(LABEL, r"(?s)This will be mended; what the files hold stays untouched\. Go on\?.*UBW.*")
        hand.press("Yes")
        wait_for("the right is taken away", lambda: stat.S_IMODE(os.stat(users).st_mode) == 0o640)
        wait_for("it is checked again",
                 lambda: self.line_of("Data file DAT/BX10X52WUJ9.UBW") == ("good", "in order"))
        self.check_is_over()
        hand.press("Back")
        self.light("Ready")
        hand.press("Exit program")
        self.expect_ended()

    def test_checks_the_pc_and_mends_a_right_by_mouse(self):
        self.check_the_pc(MouseHand)

    def test_checks_the_pc_and_mends_a_right_through_the_accessible_tree_alone(self):
        self.check_the_pc(AccessibleHand)
