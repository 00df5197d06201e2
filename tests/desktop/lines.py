"""A line that misbehaves, for the tests of the built program: the keys are answered all the same."""
from screen import Atspi, wait_for

LABEL = Atspi.Role.LABEL


class LineTests:
    def test_answers_keys_while_the_line_is_flooded_with_garbage(self):
        with self.house.flooded_port() as flood:
            self.start()
            self.light("Searching for the wireless adapter")
            wait_for("the program takes from the flood", lambda: flood.taken > 100000)
            taken = flood.taken
            self.tab_to("Program locks")
            self.leave_by_keyboard()
            self.assertGreater(flood.taken, taken)

    def test_answers_keys_while_a_device_sends_a_byte_a_second(self):
        with self.house.dripping_port() as drip:
            self.start()
            self.light("Searching for the wireless adapter")
            wait_for("some bytes are sent", lambda: drip.sent >= 3)
            self.tab_to("Program locks")
            self.light("Searching for the wireless adapter")
            self.program.wait(LABEL, "No connection to the wireless adapter!")  # the search has ended
            self.light("Searching for the wireless adapter")
            self.leave_by_keyboard()

    def test_answers_keys_and_says_why_when_the_far_end_is_closed(self):
        with self.house.silent_port() as line:
            self.start()
            self.light("Searching for the wireless adapter")
            line.hang_up()
            self.light("Not connected")
            # The second as soon as the ports have been looked at anew.
            self.program.wait(LABEL, r".*/com1 is not there\. Is the adapter plugged in\?|"
                                     r"No wireless adapter is connected\.")
            self.tab_to("Program locks")
            self.leave_by_keyboard()
