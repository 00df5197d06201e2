"""Looks at a display, and presses its keys and buttons, as fast as that can be done: by the X libraries, without another
program. The display itself tells of what is painted, so nothing has to be read out of it meanwhile."""
import ctypes
import ctypes.util
import os
import select
import time

ALL_PLANES, Z_PIXMAP = ctypes.c_ulong(-1), 2
NOW = ctypes.c_ulong(0)
RAW_RECTANGLES, DAMAGE_NOTIFY = 0, 0  # of the damage extension
QUIET = 0.6  # seconds without a painting, after which nothing more comes of a click
PAUSE = 0.05  # the same of a key


class Image(ctypes.Structure):
    """The beginning of the library's XImage."""

    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int),
                ("format", ctypes.c_int), ("data", ctypes.c_void_p), ("byte_order", ctypes.c_int),
                ("bitmap_unit", ctypes.c_int), ("bitmap_bit_order", ctypes.c_int), ("bitmap_pad", ctypes.c_int),
                ("depth", ctypes.c_int), ("bytes_per_line", ctypes.c_int)]


class Rectangle(ctypes.Structure):
    _fields_ = [("x", ctypes.c_short), ("y", ctypes.c_short), ("width", ctypes.c_ushort), ("height", ctypes.c_ushort)]


class Painting(ctypes.Structure):
    """XDamageNotifyEvent, in as much room as any event may take."""

    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("drawable", ctypes.c_ulong), ("damage", ctypes.c_ulong),
                ("level", ctypes.c_int), ("more", ctypes.c_int), ("timestamp", ctypes.c_ulong), ("area", Rectangle),
                ("geometry", Rectangle), ("room", ctypes.c_long * 24)]


def library(name, number):
    return ctypes.CDLL(ctypes.util.find_library(name) or f"lib{name}.so.{number}")


class Screen:
    """The part of the display from its corner on that has this size."""

    def __init__(self, display, width, height):
        self.size = width, height
        self.x11, self.test, self.damage = library("X11", 6), library("Xtst", 6), library("Xdamage", 1)
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x11.XGetImage.restype = ctypes.POINTER(Image)
        self.damage.XDamageCreate.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(display.encode()))
        if not self.display:
            raise OSError("no display " + display)
        self.root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))
        first, error = ctypes.c_int(), ctypes.c_int()
        if not self.damage.XDamageQueryExtension(self.display, ctypes.byref(first), ctypes.byref(error)):
            raise OSError("the display does not tell of what is painted")
        self.painted = first.value + DAMAGE_NOTIFY
        self.damage.XDamageCreate(self.display, self.root, RAW_RECTANGLES)
        self.x11.XSync(self.display, 0)

    def picture(self):
        image = self.x11.XGetImage(self.display, self.root, 0, 0, *self.size, ALL_PLANES, Z_PIXMAP)
        bytes_ = ctypes.string_at(image.contents.data, image.contents.bytes_per_line * image.contents.height)
        self.x11.XDestroyImage(image)
        return bytes_

    def wait_for_painting(self, seconds):
        """When something was painted in this part (time.monotonic); None when nothing is for so many seconds."""
        limit = time.monotonic() + seconds
        event = Painting()
        while True:
            while self.x11.XPending(self.display):
                self.x11.XNextEvent(self.display, ctypes.byref(event))
                if event.type == self.painted and event.area.x < self.size[0] and event.area.y < self.size[1]:
                    return time.monotonic()
            rest = limit - time.monotonic()
            if rest <= 0 or not select.select([self.x11.XConnectionNumber(self.display)], [], [], rest)[0]:
                return None

    def rest(self, quiet=QUIET, longest=10):
        """When something was painted for the last time before nothing was for `quiet` seconds; None: it was at rest."""
        last, limit = None, time.monotonic() + longest
        while (moment := self.wait_for_painting(quiet)) is not None:
            last = moment
            if moment > limit:
                raise TimeoutError("the screen does not come to rest")
        return last

    def press(self, *keysyms):
        """One key, or several at once."""
        codes = [self.x11.XKeysymToKeycode(self.display, ctypes.c_ulong(key)) for key in keysyms]
        for down, pressed in ((1, codes), (0, reversed(codes))):
            for code in pressed:
                self.test.XTestFakeKeyEvent(self.display, code, down, NOW)
        self.x11.XFlush(self.display)

    def click(self):
        for down in (1, 0):
            self.test.XTestFakeButtonEvent(self.display, 1, down, NOW)
        self.x11.XFlush(self.display)

    def settle(self, *keysyms):
        """Clicks where the pointer is, or presses the keys at once. Seconds to the last painting; the picture has to be
        another one then."""
        self.rest()
        before = self.picture()
        begin = time.monotonic()
        if keysyms:
            self.press(*keysyms)
        else:
            self.click()
        last = self.rest()
        if last is None or self.picture() == before:
            raise TimeoutError("nothing came of the click")
        return last - begin

    def answer(self, *keysyms, longest=2):
        """Presses the keys at once. Seconds to the last of the paintings that follow each other; the picture has to be
        another one then."""
        self.rest()
        before = self.picture()
        begin = time.monotonic()
        self.press(*keysyms)
        first = self.wait_for_painting(longest)
        last = self.rest(PAUSE) or first
        if last is None or self.picture() == before:
            raise TimeoutError("nothing came of the key")
        return last - begin

    def close(self):
        self.x11.XCloseDisplay(self.display)
