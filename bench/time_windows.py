"""The windows of holidays, clocks and guests of qvm7702, as seen from outside."""
import subprocess
import time

from grid_window import DOWN, ESCAPE, RETURN, RIGHT, SPACE, GridWindow

# Name, key of the main window, entry of the menu that it opens (None: it opens the window), keys to a cell from the
# first one, and keys that change something there: a month or a list that comes and goes, a mark. An editor would not do,
# as its caret blinks.
WINDOWS = (("F3", "calendars", 0, (), (RETURN, ESCAPE)), ("F10", "calendars", 1, (), (RETURN, ESCAPE)),
           ("F4", "clocks", 0, (), (RETURN, ESCAPE)), ("F41", "clocks", 1, (), (RETURN, ESCAPE)),
           ("F42", "clocks", 2, (RIGHT, RIGHT), (RETURN, ESCAPE)), ("F60", "cards", None, (), (SPACE,)))
STARTS = 5
PRESSES = 16
TIP = 1.5  # seconds, after which the key under the pointer has shown what it is


class TimeWindow(GridWindow):
    def __init__(self, env, size, place):
        super().__init__(env, size, place, {}, ())

    def open_by(self, key, entry, before):
        """Milliseconds from the click on the key of the main window, or from the entry of its menu, to the last change.
        `before`: the windows then."""
        subprocess.run(["xdotool", "mousemove", *key], env=self.env, check=True)
        time.sleep(TIP)
        elapsed = self.screen.settle()
        if entry is not None:
            for _ in range(entry + 1):
                self.screen.answer(DOWN)
            elapsed = self.screen.settle(RETURN)
        self.take_keyboard(before)
        return elapsed * 1000

    def leave(self):
        """Back to the main window, nothing having been changed."""
        self.screen.settle(ESCAPE)
