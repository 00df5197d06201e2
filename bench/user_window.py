"""The user window of qvm7702 at its largest, as seen from outside: 250 users, 200 locks, a mark in every cell."""
import os

from grid_window import A, CONTROL, RIGHT, SPACE, GridWindow

USERS = 250
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


class UserWindow(GridWindow):
    def __init__(self, env, size, place, keys):
        super().__init__(env, size, place, keys, [os.path.basename(FILE)])

    def open(self, key, before):
        elapsed = super().open(key, before)
        for _ in range(FIRST_LOCK):
            self.screen.answer(RIGHT)
        return elapsed

    def toggle(self):
        """Milliseconds from the key to a changed mark of all cells."""
        self.screen.answer(CONTROL, A)
        return self.key(SPACE)

    def sort(self):
        """Milliseconds from the click on the key that sorts to the last change."""
        self.go_to("sort")
        return self.screen.settle() * 1000
