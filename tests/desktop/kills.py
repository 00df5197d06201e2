"""The program is killed while it saves the users: each file is the old one or the new one, and the next start has it."""
import os
import random
import threading

from accessible_hand import AccessibleHand, action, do
from datafiles import text
from screen import PATIENCE, Atspi, wait_for

BUTTON, MENU_ENTRY = Atspi.Role.PUSH_BUTTON, Atspi.Role.MENU_ITEM
USERS, KEY = "User management", 6
USER_FILE, CHANNEL_FILE = "BX10X52WUJ9.UBW", "RFCHANDIF12.RFX"
USER, CHANNEL = 419, 15  # bytes of a record
KEY_FIELDS = slice(61, 195)  # identification and data
KILLS = int(os.environ.get("QVM_KILLS", "5"))
# Each step of a save takes 30 ms, so that a kill finds each of them.
STEPS = "fsync,fdatasync,rename,pwrite64"
SLOWLY = ["strace", "-D", "-f", "--seccomp-bpf", "-qq", "-o", "/dev/null", "-e", "trace=" + STEPS,
          "-e", f"inject={STEPS}:delay_enter=30000"]
LONGEST = 0.2  # seconds from the first step to the last kill
# Lock channel, the key's old one, the wanted one, and whether the lock and the key are still to be told: of users 1 and 2.
CHANNELS = b"5  3  5  0  1  " b"5  7  5  0  0  "


class KillTests:
    def contents(self, name):
        with open(self.house.place + "DAT/" + name, "rb") as file:
            return file.read()

    def left_behind(self):
        return [name for name in os.listdir(self.house.place + "DAT") if name.startswith("." + USER_FILE)]

    def test_a_kill_while_the_users_are_saved_leaves_each_file_old_or_new(self):
        seed = random.randrange(1 << 30)
        chance = random.Random(seed)
        self.house.start_simulator()
        self.save_with_the_key_moved(1, 2)
        wait_for("the users as the program writes them", lambda: self.owner() == 2 and not self.left_behind())
        self.kill()
        ends = {}
        for number in range(KILLS):
            with self.subTest(seed=seed, kill=number):
                end = self.kill_while_saving(chance)
                ends[end] = ends.get(end, 0) + 1
        if "QVM_KILLS" in os.environ:
            print(ends)

    def save_with_the_key_moved(self, giver, taker, begins=lambda: None):
        """From one user to the other, whose channel is written at once; then all is saved. Nothing waits any more from
        `begins` on."""
        self.start(SLOWLY)
        self.light("Ready")
        hand = AccessibleHand(self.program)
        hand.press("Manage users")
        wait_for("the file is shown", lambda: self.program.cell_name(USERS, giver, KEY) == "12 : 200 : 33 : 7")
        self.assertEqual(self.left_behind(), [])
        save = self.program.wait(BUTTON, "Save")
        hand.choose(USERS, giver, KEY, "Cut")
        wait_for("the key is cut", lambda: self.program.cell_name(USERS, giver, KEY) == "")
        hand.open_menu(USERS, taker, KEY)
        paste = self.program.wait(MENU_ENTRY, "Paste")
        steps = [(paste, action(paste, "Press")), (save, action(save, "Press"))]
        begins()
        for step in steps:
            do(*step)

    def kill(self):
        self.process.kill()
        self.process.wait(PATIENCE)

    def owner(self):
        """Which of the first two users has the key in the file."""
        users = self.contents(USER_FILE)
        return next(n for n in (1, 2) if text(users[(n - 1) * USER:], 61, 41))

    def kill_while_saving(self, chance):
        """Starts with what the kill before has left, but for the channels, which another move would leave as they are.
        Gives which of the files are new, and how many lie about."""
        with open(self.house.place + "DAT/" + CHANNEL_FILE, "wb") as file:
            file.write(CHANNELS + b" " * (201 * CHANNEL - len(CHANNELS)))
        users, channels, owner = self.contents(USER_FILE), self.contents(CHANNEL_FILE), self.owner()
        taker = 3 - owner
        killer = threading.Timer(chance.uniform(0, LONGEST), self.kill)
        try:
            self.save_with_the_key_moved(owner, taker, killer.start)
            killer.join()
        finally:
            self.kill()
        new_users = self.contents(USER_FILE) == self.with_the_key_moved(users, owner, taker)
        new_channels = self.contents(CHANNEL_FILE) == self.with_the_channel_of(channels, owner, taker)
        self.assertTrue(new_users or self.contents(USER_FILE) == users, "the users are between old and new")
        self.assertTrue(new_channels or self.contents(CHANNEL_FILE) == channels, "the channels are between old and new")
        return new_users, new_channels, len(self.left_behind())

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
