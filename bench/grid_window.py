"""A window with a grid of qvm7702, as seen from outside."""
import os
import subprocess
import time

from picture import Screen

KEYS = 30  # presses of each key
DOWN, UP, RIGHT, PAGE_DOWN, PAGE_UP, SPACE, A, CONTROL = (0xFF54, 0xFF52, 0xFF53, 0xFF56, 0xFF55, 0x20, 0x61, 0xFFE3)
RETURN, ESCAPE = 0xFF0D, 0xFF1B


class GridWindow:
    """Open on the screen, with the keyboard. `keys`: where those of the tool bar are; `files`: what a save replaces."""

    def __init__(self, env, size, place, keys, files):
        self.env, self.keys = env, keys
        self.files = [os.path.join(place, "DAT", file) for file in files]
        self.screen = Screen(env["DISPLAY"], *size)

    def open(self, key, before):
        """Milliseconds from the click on the key of the main window to the last change. `before`: the windows then."""
        subprocess.run(["xdotool", "mousemove", *key], env=self.env, check=True)
        time.sleep(3)  # the adapter is found
        elapsed = self.screen.settle()
        self.take_keyboard(before)
        return elapsed * 1000

    def take_keyboard(self, before):
        """No window manager gives it to the window that was not there before."""
        opened = [window for window in windows(self.env) if window not in before]
        subprocess.run(["xdotool", "windowfocus", "--sync", *opened], env=self.env, check=True)

    def key(self, *keysyms, presses=KEYS):
        """Milliseconds from a key to the changed screen, for many presses of the keys in turn."""
        return [self.screen.answer(keysyms[n % len(keysyms)]) * 1000 for n in range(presses)]

    def go_to(self, what):
        subprocess.run(["xdotool", "mousemove", *self.keys[what]], env=self.env, check=True)
        time.sleep(0.5)

    def save(self):
        """Milliseconds from the click on the key that saves until the new files stand in the place of the old ones."""
        def numbers():
            return [os.stat(file).st_ino if os.path.exists(file) else 0 for file in self.files]
        before = numbers()
        self.go_to("save")
        begin = time.monotonic()
        self.screen.click()
        while any(old == new for old, new in zip(before, numbers())):
            if time.monotonic() - begin > 5:
                raise TimeoutError("the files were not saved")
        return (time.monotonic() - begin) * 1000


def windows(env):
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^QVM 7702"], env=env, text=True,
                           stdout=subprocess.PIPE, check=False)
    return found.stdout.split()
