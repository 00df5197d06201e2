"""The user window of qvm7702 at its largest, as seen from outside: 250 users, 200 locks, a mark in every cell."""
import os
import subprocess
import time

from picture import Screen

USERS = 250
KEYS = 30  # presses of each key
DOWN, UP, RIGHT, PAGE_DOWN, PAGE_UP, SPACE, A, CONTROL = (0xFF54, 0xFF52, 0xFF53, 0xFF56, 0xFF55, 0x20, 0x61, 0xFFE3)
FILE = "DAT/BX10X52WUJ9.UBW"
FIRST_LOCK = 8  # its column; the window begins in column 1


def fill(document):
    """Users in the reverse of their order, so that a sort moves all of them."""
    document["tables"]["UserRecord"] = [
        {"record": n, "UserName": f"Benutzer {USERS - n:03d}", "UserGroupId": "-", "UserRight": "1",
         "UserCode": f"{100000 + n}", "FingerFlag": "--", "LockMask": "X" * 200} for n in range(1, USERS + 1)]


def put_back(place, bytes_):
    """The file of the users as it was before a sort was saved."""
    with open(os.path.join(place, FILE), "wb") as file:
        file.write(bytes_)


class UserWindow:
    """Open on the screen, with the keyboard. `keys`: where those of the tool bar are that sort and save."""

    def __init__(self, env, size, place, keys):
        self.env, self.place, self.keys = env, place, keys
        self.screen = Screen(env["DISPLAY"], *size)

    def open(self, key, before):
        """Milliseconds from the click on the key of the main window to the last change. `before`: the windows then."""
        subprocess.run(["xdotool", "mousemove", *key], env=self.env, check=True)
        time.sleep(3)  # the adapter is found
        click = subprocess.Popen(["xdotool", "click", "1"], env=self.env)
        elapsed = self.screen.settle(time.monotonic())
        click.wait()
        opened = [window for window in windows(self.env) if window not in before]
        subprocess.run(["xdotool", "windowfocus", "--sync", *opened], env=self.env, check=True)
        for _ in range(FIRST_LOCK):
            self.screen.answer(RIGHT)
        return elapsed * 1000

    def key(self, *keysyms):
        """Milliseconds from a key to the changed screen, for many presses of the keys in turn."""
        waits = []
        for n in range(KEYS):
            waits.append(self.screen.answer(keysyms[n % len(keysyms)]) * 1000)
            time.sleep(0.1)
        return waits

    def toggle(self):
        """The same of a mark of all cells."""
        self.screen.answer(A, held=CONTROL)
        time.sleep(0.3)
        return self.key(SPACE)

    def click(self, what):
        subprocess.run(["xdotool", "mousemove", *self.keys[what]], env=self.env, check=True)
        time.sleep(0.5)
        click = subprocess.Popen(["xdotool", "click", "1"], env=self.env)
        begin = time.monotonic()
        return click, begin

    def sort(self):
        """Milliseconds from the click on the key that sorts to the last change."""
        click, begin = self.click("sort")
        elapsed = self.screen.settle(begin)
        click.wait()
        return elapsed * 1000

    def save(self):
        """Milliseconds from the click on the key that saves until the new file stands in the place of the old one."""
        file = os.path.join(self.place, FILE)
        before = os.stat(file).st_ino
        click, begin = self.click("save")
        while os.stat(file).st_ino == before:
            if time.monotonic() - begin > 5:
                raise TimeoutError("the users were not saved")
        elapsed = time.monotonic() - begin
        click.wait()
        return elapsed * 1000


def windows(env):
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^QVM 7702"], env=env, text=True,
                           stdout=subprocess.PIPE, check=False)
    return found.stdout.split()
