"""A program directory with a small installation of its own, and the virtual lock system behind its link com1."""
import glob
import json
import os
import select
import shutil
import signal
import subprocess
import tempfile
import threading
import tty

from screen import PATIENCE, wait_for

CODE = "104212"
CHANNEL = {"LockChannel": "5", "EKold": "5", "TargetChannel": "5", "LockChange": "0", "Ekeychange": "0"}
USERS = [
    {"UserName": "Zoë", "UserGroupId": "PB_2008TimA", "UserRight": "1", "UserCode": "918273", "LockMask": "XX"},
    {"UserName": "Bert", "UserGroupId": "-", "UserRight": "ADMI", "UserCode": "405060", "LockMask": "X-"},
    {"UserName": "Nur Keller", "UserGroupId": "-", "UserRight": "1", "UserCode": "771204", "LockMask": "-X"},
]
LOCKS = [
    {"Name": "Tor", "Sn1": "00", "Sn2": "0A", "Sn3": "10", "Sn4": "01", "Switch5": "X"},
    {"Name": "Keller", "Sn1": "00", "Sn2": "0A", "Sn3": "10", "Sn4": "02", "Switch5": "X"},
]
ADAPTER = {"AdapterId": "/46/108/1/2", "AdapterName": "PROGSTATION-1"}


def numbered(rows):
    return [{"record": n, **row} for n, row in enumerate(rows, 1)]


def tables():
    serials = [{part: lock[part] for part in ("Sn1", "Sn2", "Sn3", "Sn4")} for lock in LOCKS]
    return {
        "UserRecord": numbered([{"FingerFlag": "--", **user} for user in USERS]),
        "ChannelRecord": numbered([CHANNEL] * len(LOCKS)),
        "LockRecord": numbered(LOCKS),
        "LockPrioRecord": [{"record": 1, "Prio": "5", "Spare1": "3", "Spare2": "3", "Spare3": "3"}],
        "LockEmiRecord": numbered([{"Emi": "X"}] * len(LOCKS)),
        "LockAdapterRecord": numbered([{**ADAPTER, **serial} for serial in serials]),
    }


def configuration(language):
    return {"EST7CSB29A.I_1": [language, "1", "USB-Port1", "5"], "CHEUSB25C.I_2": ["SET"]}


def serial_of(lock):
    return ".".join(lock[part] for part in ("Sn1", "Sn2", "Sn3", "Sn4"))


WORLD = {"adapter": {"name": ADAPTER["AdapterName"]},
         "locks": [{"label": lock["Name"], "serial": serial_of(lock), "admin_code": CODE, "channel": 5}
                   for lock in LOCKS]}


class Flood:
    """A port whose far end sends garbage as fast as it is taken; to be used with "with"."""

    def __init__(self, link):
        self.link = link
        self.taken = 0  # bytes so far
        self.over = False

    def __enter__(self):
        self.far, self.near = os.openpty()
        tty.setraw(self.near)
        os.set_blocking(self.far, False)
        os.symlink(os.ttyname(self.near), self.link)
        self.sender = threading.Thread(target=self.send)
        self.sender.start()
        return self

    def send(self):
        garbage = bytes(range(3, 256)) * 16
        while not self.over:
            select.select([self.far], [self.far], [], 0.1)
            try:
                os.read(self.far, 65536)
            except OSError:
                pass  # the program has said nothing
            try:
                self.taken += os.write(self.far, garbage)
            except OSError:
                pass  # the line is full

    def __exit__(self, *_):
        self.over = True
        self.sender.join()
        os.unlink(self.link)
        os.close(self.far)
        os.close(self.near)


class Installation:
    """`build`: folder of the built programs. Ends with close()."""

    def __init__(self, build, language="English"):
        self.build = build
        self.place = tempfile.mkdtemp(prefix="qvm-desktop-") + "/"
        self.simulator = None
        self.programs = []
        for file in glob.glob(build + "/lang/QVM_*.DAT"):
            shutil.copy(file, self.place)
        shutil.copy(build + "/src/qvm7702", self.place)
        document = {"format": "qvm7702-export", "version": 1, "tables": tables(), "lines": configuration(language)}
        subprocess.run([build + "/src/console/qvmctl", "--dir", self.place, "import", "-"], check=True,
                       input=json.dumps(document), text=True, stdout=subprocess.DEVNULL)
        with open(self.place + "world.json", "w", encoding="utf-8") as file:
            json.dump(WORLD, file)

    def start_simulator(self, *options):
        """`options`: as --pace or --fault."""
        arguments = ["--world", self.place + "world.json", "--state", self.place + "state.json",
                     "--link", self.place + "com1", *options]
        self.simulator = subprocess.Popen([self.build + "/src/simulator/program/qvm-simulator", *arguments],
                                          stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
        wait_for("the virtual adapter", lambda: os.path.islink(self.place + "com1"))

    def stop_simulator(self):
        """Ends the virtual system. Gives its exit code, 0 when all telegrams were good, and what it found."""
        self.simulator.terminate()
        _, found = self.simulator.communicate(timeout=PATIENCE)
        code, self.simulator = self.simulator.returncode, None
        return code, found

    def forget_simulator(self):
        """Of a virtual system that has ended by itself."""
        self.simulator.stderr.close()
        self.simulator = None

    def flooded_port(self):
        return Flood(self.place + "com1")

    def start_program(self, **streams):
        environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb",
                           XDG_CONFIG_HOME=self.place + "config")
        # What is never given back at the end is the business of other tests.
        environment.setdefault("ASAN_OPTIONS", "detect_leaks=0")
        program = subprocess.Popen([self.place + "qvm7702"], env=environment, **streams)
        self.programs.append(program)
        return program

    def lock(self, name):
        """What the lock holds, after stop_simulator."""
        with open(self.place + "state.json", encoding="utf-8") as file:
            return next(lock for lock in json.load(file)["locks"] if lock["label"] == name)

    def users_by_files(self, lock):
        """Names and codes of a lock's users as the data files have them now, in their order. `lock` counts from 1."""
        run = subprocess.run([self.build + "/src/console/qvmctl", "--dir", self.place, "export"], check=True,
                             stdout=subprocess.PIPE, text=True)
        users = json.loads(run.stdout)["tables"]["UserRecord"]
        return [(user["UserName"], user["UserCode"]) for user in users if user["LockMask"][lock - 1] == "X"]

    def close(self):
        for process in self.programs + [self.simulator]:
            if process is not None and process.poll() is None:
                process.send_signal(signal.SIGKILL)
                process.wait()
        if self.simulator is not None:
            self.simulator.stderr.close()
        shutil.rmtree(self.place, ignore_errors=True)
