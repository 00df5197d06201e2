"""Ports that lead to something else than an adapter."""
import os
import select
import threading
import tty


class FarEnd:
    """A port with something else than an adapter at its far end; to be used with "with"."""

    def __init__(self, link):
        self.link = link

    def __enter__(self):
        self.far, self.near = os.openpty()
        tty.setraw(self.near)
        os.set_blocking(self.far, False)
        os.symlink(os.ttyname(self.near), self.link)
        self.over = threading.Event()
        self.sender = threading.Thread(target=self.send)
        self.sender.start()
        return self

    def send(self):
        """Runs beside the test until `over`. This far end is silent."""

    def hang_up(self):
        """The far end is closed, as of an adapter that was switched off. Its link stays and leads nowhere: while the near
        end is open here, nobody else is given the terminal's number, as another test's virtual adapter might be."""
        self.over.set()
        self.sender.join()
        os.close(self.far)
        self.far = None

    def __exit__(self, *_):
        if self.far is not None:
            self.hang_up()
        os.close(self.near)
        os.unlink(self.link)


class Flood(FarEnd):
    """Sends garbage as fast as it is taken."""

    taken = 0  # bytes so far

    def send(self):
        garbage = bytes(range(3, 256)) * 16
        while not self.over.is_set():
            select.select([self.far], [self.far], [], 0.1)
            try:
                os.read(self.far, 65536)
            except OSError:
                pass  # the program has said nothing
            try:
                self.taken += os.write(self.far, garbage)
            except OSError:
                pass  # the line is full


class Drip(FarEnd):
    """Sends a byte a second; every other one begins a frame."""

    sent = 0

    def send(self):
        while not self.over.wait(1):
            os.write(self.far, b"\x02" if self.sent % 2 == 0 else b"\x55")
            self.sent += 1
