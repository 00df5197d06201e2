"""The program is killed at each step of a save of the users: each file is the old one or the new one, and the next start
has it."""
import os
import signal

from accessible_hand import AccessibleHand
from datafiles import text
from screen import PATIENCE, wait_for

USERS, KEY = "User management", 6
USER_FILE, CHANNEL_FILE = "BX10X52WUJ9.UBW", "RFCHANDIF12.RFX"
USER, CHANNEL = 419, 15  # bytes of a record
KEY_FIELDS = slice(61, 195)  # identification and data
# Lock channel, the key's old one, the wanted one, and whether the lock and the key are still to be told: of users 1 and 2.
CHANNELS = b"5  3  5  0  1  " b"5  7  5  0  0  "
SIBLING = "." + USER_FILE
# The channel of a pasted key goes to the disk at once, the users behind it. Of each step: whether channels and users are
# new, and whether a sibling lies about, for a program that is killed there. What was written and not flushed is there all
# the same: the system goes on.
STEPS = [("pwrite " + CHANNEL_FILE, False, False, False),
         ("fdatasync " + CHANNEL_FILE, True, False, False),
         ("write " + SIBLING, True, False, True),
         ("fsync " + SIBLING, True, False, True),
         ("rename " + USER_FILE, True, False, True),
         ("fsync .", True, True, False)]
STEPS_OF_THE_PASTE = 2


class KillTests:
    def contents(self, name):
        with open(self.house.place + "DAT/" + name, "rb") as file:
            return file.read()

    def left_behind(self):
        return [name for name in os.listdir(self.house.place + "DAT") if name.startswith(SIBLING)]

    def test_a_kill_at_each_step_of_a_save_of_the_users_leaves_each_file_old_or_new(self):
        self.house.start_simulator()
        self.save_with_the_key_moved(1, 2)
        wait_for("the users as the program writes them", lambda: self.owner() == 2 and not self.left_behind())
        self.process.kill()
        self.process.wait(PATIENCE)
        self.assertEqual(self.steps(), [step for step, *_ in STEPS])
        for number, (step, *left) in enumerate(STEPS, 1):
            with self.subTest(killed_at=step):
                self.assertEqual(self.killed_at(number), left)

    def save_with_the_key_moved(self, giver, taker, kill_at=0):
        """From one user to the other, whose channel is written at once; then all is saved."""
        self.start(["env", f"LD_PRELOAD={self.house.build}/tests/desktop/StepKill.so", f"QVM_KILL_AT={kill_at}",
                    f"QVM_STEPS_BELOW={self.house.place}DAT/", f"QVM_STEPS={self.house.place}steps"])
        self.light("Ready")
        hand = AccessibleHand(self.program)
        hand.press("Manage users")
        wait_for("the file is shown", lambda: self.program.cell_name(USERS, giver, KEY) == "12 : 200 : 33 : 7")
        self.assertEqual(self.left_behind(), [])
        hand.choose(USERS, giver, KEY, "Cut")
        wait_for("the key is cut", lambda: self.program.cell_name(USERS, giver, KEY) == "")
        hand.choose(USERS, taker, KEY, "Paste")
        if not 0 < kill_at <= STEPS_OF_THE_PASTE:
            hand.press("Save")

    def steps(self):
        """Those of the last start, siblings without the end of their names, which is a random one."""
        with open(self.house.place + "steps", encoding="ascii") as file:
            steps = [line.split() for line in file]
        os.remove(self.house.place + "steps")
        return [f"{call} {SIBLING if name.startswith(SIBLING) else name}" for call, name in steps]

    def owner(self):
        """Which of the first two users has the key in the file."""
        users = self.contents(USER_FILE)
        return next(n for n in (1, 2) if text(users[(n - 1) * USER:], 61, 41))

    def killed_at(self, number):
        """Starts with what the kill before has left, but for the channels, which another move would leave as they are.
        Gives whether channels and users are new, and whether a sibling lies about."""
        with open(self.house.place + "DAT/" + CHANNEL_FILE, "wb") as file:
            file.write(CHANNELS + b" " * (201 * CHANNEL - len(CHANNELS)))
        users, channels, owner = self.contents(USER_FILE), self.contents(CHANNEL_FILE), self.owner()
        self.save_with_the_key_moved(owner, 3 - owner, number)
        self.assertEqual(self.process.wait(PATIENCE), -signal.SIGKILL)
        self.assertEqual(self.steps(), [step for step, *_ in STEPS[:number]])
        new_users = self.contents(USER_FILE) == self.with_the_key_moved(users, owner, 3 - owner)
        new_channels = self.contents(CHANNEL_FILE) == self.with_the_channel_of(channels, owner, 3 - owner)
        self.assertTrue(new_users or self.contents(USER_FILE) == users, "the users are between old and new")
        self.assertTrue(new_channels or self.contents(CHANNEL_FILE) == channels, "the channels are between old and new")
        return [new_channels, new_users, bool(self.left_behind())]

    @staticmethod
    def with_the_key_moved(users, giver, taker):
        records = [bytearray(users[at:at + USER]) for at in range(0, len(users), USER)]
        records[taker - 1][KEY_FIELDS] = records[giver - 1][KEY_FIELDS]
        records[giver - 1][KEY_FIELDS] = b" " * 134
        return b"".join(records)

    @staticmethod
    def with_the_channel_of(channels, giver, taker):
        """A pasted key keeps whether it is still to be told; its old channel is the one that its row was to have."""
        records = [bytearray(channels[at:at + CHANNEL]) for at in range(0, len(channels), CHANNEL)]
        records[taker - 1][3:6] = records[giver - 1][6:9]
        records[taker - 1][12:15] = records[giver - 1][12:15]
        return b"".join(records)
