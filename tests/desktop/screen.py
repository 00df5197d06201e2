"""A virtual display with a window manager and an accessibility bus, and a program looked at and used through them.

What is on the screen is read through the accessibility interface, as a screen reader does; mouse and keyboard are those
of the display. Nothing reaches into the program.
"""
import os
import re
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

HERE = os.path.dirname(os.path.abspath(__file__))
PATIENCE = 60  # seconds that anything may take on a loaded machine
# Nothing to be looked for is below these: cells are asked for by their place, and the others have nothing below them.
NOT_ENTERED = (Atspi.Role.TABLE, Atspi.Role.LIST, Atspi.Role.LABEL, Atspi.Role.PUSH_BUTTON, Atspi.Role.TEXT,
               Atspi.Role.PASSWORD_TEXT)
ANSWER = 2000  # ms in which the program answers a question; it tells nothing when it takes longer
# Seconds between two looks: a tenth of the time that was waited, so that hardly any is lost, within these.
SHORTEST, LONGEST = 0.03, 0.2


def wait_for(what, probe, seconds=PATIENCE):
    """Polls `probe` until it gives something true, and returns that. A look at the tree is hundreds of questions over the
    bus, so a long wait takes fewer of them."""
    begin = time.monotonic()
    while True:
        result = probe()
        if result:
            return result
        waited = time.monotonic() - begin
        if waited > seconds:
            raise AssertionError(f"not within {seconds} s: {what}")
        time.sleep(min(max(waited / 10, SHORTEST), LONGEST))


class Display:
    """An X server on a free number with a window manager. Ends with close()."""

    def __init__(self, size="1400x1000"):
        read_end, write_end = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write_end), "-screen", "0", size + "x24", "-nolisten", "tcp"],
            pass_fds=[write_end], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            self.name = ":" + pipe.readline().strip()
        os.environ["DISPLAY"] = self.name
        self.manager = subprocess.Popen(["jwm", "-f", os.path.join(HERE, "jwmrc")],
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()


def xdotool(*arguments):
    subprocess.run(["xdotool", *arguments], check=True, stdout=subprocess.DEVNULL)


def key(*names):
    """Keys as xdotool names them: Tab, Return, alt+d. To whatever has the focus."""
    xdotool("key", "--clearmodifiers", *names)


def typed(text):
    xdotool("type", "--delay", "15", text)


def click_at(x, y):
    xdotool("mousemove", str(x), str(y), "click", "1")


def double_click_at(x, y):
    xdotool("mousemove", str(x), str(y), "click", "--repeat", "2", "--delay", "60", "1")


def wheel_down_at(x, y):
    xdotool("mousemove", str(x), str(y), "click", "5")


def drag(start, end):
    """With the left button from one place to another, with a stop between as a hand makes it."""
    between = [(a + b) // 2 for a, b in zip(start, end)]
    xdotool("mousemove", *map(str, start), "mousedown", "1", "mousemove", *map(str, between),
            "mousemove", *map(str, end), "mouseup", "1")


def tell(node, ask, otherwise=None):
    """What an accessible tells; `otherwise` when it went away meanwhile."""
    try:
        node.clear_cache_single() if hasattr(node, "clear_cache_single") else node.clear_cache()
        return ask(node)
    except GLib.Error:
        return otherwise


def states(node):
    return tell(node, lambda n: n.get_state_set(), None)


def has_state(node, state):
    found = states(node)
    return found is not None and found.contains(state)


def name_of(node):
    return tell(node, lambda n: n.get_name(), "") or ""


class Tree:
    """Roles and children, which are most of what a look asks for, with the fewest questions."""

    def __init__(self):
        self.bus = None
        self.roles = {}  # by accessible: what a control is never changes
        self.known = {}  # accessibles by their bus name and path, neither of which another one ever gets

    def role(self, node):
        if node not in self.roles:
            role = tell(node, lambda n: n.get_role())
            if role is None:
                return None
            self.roles[node] = role
        return self.roles[node]

    def children(self, node):
        """The first 120. One question, where the library puts one for their number and one for each."""
        found = []
        for number, reference in enumerate(self.references(node)[:120]):
            child = self.known.get(reference) or tell(node, lambda n, i=number: n.get_child_at_index(i))
            if child is not None:
                self.known[(child.app.bus_name, child.path)] = child
                found.append(child)
        return found

    def references(self, node):
        if self.bus is None:
            self.bus = self.connected()
        try:
            return self.bus.call_sync(node.app.bus_name, node.path, "org.a11y.atspi.Accessible", "GetChildren", None,
                                      None, Gio.DBusCallFlags.NONE, ANSWER, None).unpack()[0]
        except GLib.Error:
            return []

    @staticmethod
    def connected():
        session = Gio.bus_get_sync(Gio.BusType.SESSION)
        address = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None,
                                    Gio.DBusCallFlags.NONE, -1, None).unpack()[0]
        kind = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        return Gio.DBusConnection.new_for_address_sync(address, kind, None, None)


TREE = Tree()
role_of, children = TREE.role, TREE.children


def showing(node):
    return has_state(node, Atspi.StateType.SHOWING)


def enabled(node):
    return has_state(node, Atspi.StateType.ENABLED)


def walk(node, role):
    """All accessibles of this role below the node; grids are not entered."""
    found = []
    for child in children(node):
        kind = role_of(child)
        if kind == role:
            found.append(child)
        if kind not in NOT_ENTERED:
            found += walk(child, role)
    return found


def box_of(node):
    box = tell(node, lambda n: n.get_extents(Atspi.CoordType.SCREEN))
    if box is None or box.width <= 0:
        raise AssertionError(f"has no place on the screen: {name_of(node)}")
    return box


def middle(node):
    box = box_of(node)
    return box.x + box.width // 2, box.y + box.height // 2


def start_of(node):
    """Where its first letter or its check box is."""
    box = box_of(node)
    return box.x + min(5, box.width // 2), box.y + box.height // 2


class Heard:
    """What the accessibility bus tells of one kind of change from now on, by place among the parent's children and the
    event's own number."""

    def __init__(self, kind):
        self.kind = kind
        self.told = []
        self.listener = Atspi.EventListener.new(self.take)
        self.listener.register(kind)

    def take(self, event):
        self.told.append((tell(event.source, lambda n: n.get_index_in_parent()), event.detail1))

    def events(self):
        context = GLib.MainContext.default()
        while context.pending():
            context.iteration(False)
        return self.told

    def close(self):
        self.listener.deregister(self.kind)


class Program:
    """A program by its process number."""

    def __init__(self, number):
        self.number = number

    def application(self):
        desktop = Atspi.get_desktop(0)
        for child in children(desktop):
            if tell(child, lambda n: n.get_process_id(), 0) == self.number:
                return child
        return None

    def windows(self):
        application = self.application()
        return [] if application is None else [w for w in children(application) if showing(w)]

    def find(self, role, name):
        """A visible control by its accessible name, of whichever window, rather one that can be used; None when there
        is none. `name`: a regular expression for the whole of it."""
        found = None
        # The one in front is asked first: each question goes over the bus.
        for window in sorted(self.windows(), key=lambda w: not has_state(w, Atspi.StateType.ACTIVE)):
            for node in walk(window, role):
                if re.fullmatch(name, name_of(node)) and showing(node):
                    if enabled(node):
                        return node
                    found = found or node
        return found

    def wait(self, role, name, usable=True):
        """The same, once it is there and, if asked for, can be used."""
        def probe():
            node = self.find(role, name)
            return node if node is not None and (not usable or enabled(node)) else None
        try:
            return wait_for(f"{role.value_nick} {name}", probe)
        except AssertionError as fault:
            raise AssertionError(f"{fault}\n{self.describe()}") from None

    def cell(self, table, row, column):
        """A cell of the table of this name, rows counted from 1, columns from 0 of those in sight."""
        grid = self.wait(Atspi.Role.TABLE, table)
        return tell(grid, lambda node: Atspi.Table.get_accessible_at(node, row - 1, column))

    def cell_name(self, table, row, column):
        """What a cell shows; empty when it is not there."""
        grid = self.find(Atspi.Role.TABLE, table)
        cell = grid and tell(grid, lambda node: Atspi.Table.get_accessible_at(node, row - 1, column))
        return name_of(cell) if cell else ""

    def over(self, table):
        """What is open over the table's cells, as an editor or a month; it is behind them in the tree."""
        grid = self.find(Atspi.Role.TABLE, table)
        last = grid and tell(grid, lambda node: node.get_child_at_index(node.get_child_count() - 1))
        cell = last and role_of(last) == Atspi.Role.TABLE_CELL
        return last if last and not cell else None

    def editor_is_open(self, table):
        """An editor lies over one of the table's cells; it is behind them in the tree."""
        grid = self.wait(Atspi.Role.TABLE, table)
        last = tell(grid, lambda node: node.get_child_at_index(node.get_child_count() - 1))
        return last is not None and role_of(last) == Atspi.Role.TEXT

    def entry_of(self, box, number):
        """An entry of the list that a combo box has opened; None while it is shut."""
        lists = [child for child in children(box) if role_of(child) == Atspi.Role.LIST]
        entry = next((tell(opened, lambda node: node.get_child_at_index(number)) for opened in lists
                      if showing(opened)), None)
        return entry if entry is not None and showing(entry) else None

    def describe(self):
        """What is on the screen, for whoever looks into a failure."""
        lines = []

        def add(node, depth):
            if showing(node):
                kind = tell(node, lambda n: n.get_role_name(), "?")
                marks = [state for state in ("FOCUSED", "ACTIVE") if has_state(node, getattr(Atspi.StateType, state))]
                marks += [] if enabled(node) else ["disabled"]
                lines.append("  " * depth + " ".join([kind, repr(name_of(node)), *marks]))
                if kind != "table":
                    for child in children(node):
                        add(child, depth + 1)
        for window in self.windows():
            add(window, 0)
        return "\n".join(lines)

    def places(self):
        """Left, top, right and bottom of each of the program's windows on the screen, in pixels."""
        boxes = [tell(window, lambda w: w.get_extents(Atspi.CoordType.SCREEN)) for window in self.windows()]
        return [(box.x, box.y, box.x + box.width, box.y + box.height) for box in boxes if box is not None]

    def press(self, name, role=Atspi.Role.PUSH_BUTTON):
        """Clicks the button with the mouse."""
        click_at(*middle(self.wait(role, name)))

    def focused(self):
        """Role and name of the control that has the keyboard; None when none of this program has it."""
        def seek(node):
            for child in children(node):
                kind = role_of(child)
                if has_state(child, Atspi.StateType.FOCUSED) and name_of(child):
                    return kind, name_of(child)
                found = None if kind in NOT_ENTERED else seek(child)
                if found:
                    return found
            return None
        return next((seek(window) for window in self.windows() if has_state(window, Atspi.StateType.ACTIVE)), None)

    def focused_name(self):
        """The name alone; empty when there is none."""
        return (self.focused() or (None, ""))[1]

    def has_keyboard(self):
        return any(has_state(window, Atspi.StateType.ACTIVE) for window in self.windows())

    def minimise(self, title):
        xdotool("search", "--onlyvisible", "--name", f"^{title}$", "windowminimize")

    def window(self, title):
        """The display's number of the visible window of this title, there being one."""
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{title}$"],
                               stdout=subprocess.PIPE, text=True, check=False).stdout.split()
        return found[0] if len(found) == 1 else None

    def place(self, title):
        """Where that window stands; None when it is not alone."""
        number = self.window(title)
        if number is None:
            return None
        told = subprocess.run(["xdotool", "getwindowgeometry", "--shell", number],
                              stdout=subprocess.PIPE, text=True, check=False).stdout
        values = dict(line.split("=", 1) for line in told.split())
        return int(values["X"]), int(values["Y"])

    def move(self, title, x, y):
        xdotool("windowmove", self.window(title), str(x), str(y))

    def processor_seconds(self):
        """Processor time used since the start."""
        with open(f"/proc/{self.number}/stat", encoding="ascii") as file:
            fields = file.read().rsplit(")", 1)[1].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")
