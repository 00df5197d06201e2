"""Looks at a display and presses its keys as fast as that can be done: by the X libraries, without another program."""
import ctypes
import ctypes.util
import time

ALL_PLANES, Z_PIXMAP = ctypes.c_ulong(-1), 2


class Image(ctypes.Structure):
    """The beginning of the library's XImage."""

    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int),
                ("format", ctypes.c_int), ("data", ctypes.c_void_p), ("byte_order", ctypes.c_int),
                ("bitmap_unit", ctypes.c_int), ("bitmap_bit_order", ctypes.c_int), ("bitmap_pad", ctypes.c_int),
                ("depth", ctypes.c_int), ("bytes_per_line", ctypes.c_int)]


class Screen:
    def __init__(self, display, width, height):
        self.size = width, height
        self.library = ctypes.CDLL(ctypes.util.find_library("X11") or "libX11.so.6")
        self.library.XOpenDisplay.restype = ctypes.c_void_p
        self.library.XDefaultRootWindow.restype = ctypes.c_ulong
        self.library.XGetImage.restype = ctypes.POINTER(Image)
        self.keys = ctypes.CDLL(ctypes.util.find_library("Xtst") or "libXtst.so.6")
        self.display = ctypes.c_void_p(self.library.XOpenDisplay(display.encode()))
        if not self.display:
            raise OSError("no display " + display)
        self.root = ctypes.c_ulong(self.library.XDefaultRootWindow(self.display))

    def picture(self):
        image = self.library.XGetImage(self.display, self.root, 0, 0, *self.size, ALL_PLANES, Z_PIXMAP)
        bytes_ = ctypes.string_at(image.contents.data, image.contents.bytes_per_line * image.contents.height)
        self.library.XDestroyImage(image)
        return bytes_

    def settle(self, begin, quiet=0.6, longest=10):
        """Seconds from `begin` (time.monotonic) to the last change of the picture, once it has not changed for
        `quiet` seconds. None when it never comes to rest."""
        last, changed = self.picture(), begin
        while time.monotonic() - begin < longest:
            now = self.picture()
            moment = time.monotonic()
            if now != last:
                last, changed = now, moment
            elif moment - changed > quiet:
                return changed - begin
        return None

    def answer(self, keysym, longest=2, held=None):
        """Presses a key, with another one held down meanwhile where it is given. Seconds until the picture changes,
        `longest` when it does not."""
        keys = [self.library.XKeysymToKeycode(self.display, ctypes.c_ulong(key)) for key in (held, keysym) if key]
        before = self.picture()
        begin = time.monotonic()
        for down, pressed in ((1, keys), (0, reversed(keys))):
            for code in pressed:
                self.keys.XTestFakeKeyEvent(self.display, code, down, ctypes.c_ulong(0))
        self.library.XFlush(self.display)
        while time.monotonic() - begin < longest:
            if self.picture() != before:
                return time.monotonic() - begin
        return longest

    def close(self):
        self.library.XCloseDisplay(self.display)
