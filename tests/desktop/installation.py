"""A program directory with a small installation of its own, and the virtual lock system behind its link com1."""
import glob
import json
import os
import shutil
import signal
import subprocess
import tempfile

from datafiles import DataFiles
from farend import Drip, FarEnd, Flood
from screen import PATIENCE, wait_for

CODE = "104212"
CHANNEL = {"LockChannel": "5", "EKold": "5", "TargetChannel": "5", "LockChange": "0", "Ekeychange": "0"}
USERS = [
    {"UserName": "Zoë", "UserGroupId": "PB_2008TimA", "UserRight": "1", "UserCode": "918273", "LockMask": "XX",
     "KeyLabel": "Ring 1", "KeyId": "12 : 200 : 33 : 7",
     "KeyData": "48 : 101 : 154 : 207 : 4 : 57 : 110 : 163 : 216 : 13 : 66 : 119 : 172 : 225 : 22 : 75"},
    {"UserName": "Bert", "UserGroupId": "-", "UserRight": "ADMI", "UserCode": "405060", "LockMask": "X-"},
    {"UserName": "Nur Keller", "UserGroupId": "PB_815100003", "UserRight": "1/2", "UserCode": "771204",
     "LockMask": "-X"},
]
# The second lock has its timer groups by user, and its timers go into it without a question.
LOCKS = [
    {"Name": "Tor", "Sn1": "00", "Sn2": "0A", "Sn3": "10", "Sn4": "01",
     "Switch2": "X", "Switch4": "X", "Switch5": "X"},
    {"Name": "Keller", "Sn1": "01", "Sn2": "1A", "Sn3": "20", "Sn4": "05",
     "Switch1": "X", "Switch2": "X", "Switch3": "X", "Switch5": "X"},
]
SLOTS = [(8, "07:00", "18:00"), (6, "08:00", "13:00"), (0, "00:00", "00:00"), (5, "07:05", "16:00"),
         (7, "10:00", "12:00"), (1, "06:00", "09:00"), (3, "06:00", "09:59"), (10, "20:00", "23:59"),
         (9, "09:00", "17:00"), (2, "12:00", "14:00"), (8, "08:30", "16:30"), (9, "00:00", "23:59"),
         (10, "22:00", "23:59"), (10, "00:00", "05:00"), (4, "11:00", "12:00")]
HOLIDAYS = [
    {"record": 1, "DateFrom": "24.12.2026", "DateTo": "26.12.2026", "Kind": "1"},
    {"record": 2, "DateFrom": "31.12.2026", "DateTo": "31.12.2026", "Kind": "1"},
    {"record": 3, "DateFrom": "26.02.2028", "DateTo": "28.02.2028", "Kind": "0"},
    {"record": 22, "DateFrom": "01.01. - -", "DateTo": "01.01. - -"},
    {"record": 23, "DateFrom": "24.06. - -", "DateTo": "26.06. - -"},
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
        "LockEmiRecord": numbered([{"Emi": "X"}, {"Emi": "Y"}]),
        "LockGroupRecord": [{"record": 2, "GroupId": "PB_815000002", "GroupName": "Nachtsperre"}],
        "TimeSlot": numbered({"DayIndex": day, "From": start, "To": end} for day, start, end in SLOTS),
        "TimeGroup": [{"record": 3, "Num": "3", "Name": "Reinigung", "Days": "-----XX--X", "Count": "3",
                       "PbId": "PB_815100003"}],
        "LockTimeGroup": [{"record": 2, "Num": "2", "Name": "Nachtsperre", "Days": "--XX-", "Count": "2",
                           "PbId": "PB_815000002"}],
        "CalendarEntry": HOLIDAYS,
        "LockAdapterRecord": numbered([{**ADAPTER, **serial} for serial in serials]),
    }


def configuration(language):
    return {"EST7CSB29A.I_1": [language, "1", "USB-Port1", "5"], "CHEUSB25C.I_2": ["SET"]}


def serial_of(lock):
    return ".".join(lock[part] for part in ("Sn1", "Sn2", "Sn3", "Sn4"))


WORLD = {"adapter": {"name": ADAPTER["AdapterName"]},
         "locks": [{"label": lock["Name"], "serial": serial_of(lock), "admin_code": CODE, "channel": 5}
                   for lock in LOCKS]}


class Installation:
    """`build`: folder of the built programs. Ends with close()."""

    def __init__(self, build, language="English"):
        self.build = build
        self.place = tempfile.mkdtemp(prefix="qvm-desktop-") + "/"
        self.simulator = None
        self.readers = None
        self.programs = []
        for file in glob.glob(build + "/lang/QVM_*.DAT"):
            shutil.copy(file, self.place)
        shutil.copy(build + "/src/qvm7702", self.place)
        document = {"format": "qvm7702-export", "version": 1, "tables": tables(), "lines": configuration(language)}
        self.import_document(document).check_returncode()
        self.write_world(WORLD)

    def import_document(self, document):
        """Gives the finished import."""
        return subprocess.run([self.build + "/src/console/qvmctl", "--dir", self.place, "import", "-"], check=False,
                              input=json.dumps(document), text=True, capture_output=True)

    def write_world(self, world, name="world.json"):
        with open(self.place + name, "w", encoding="utf-8") as file:
            json.dump(world, file)

    def start_simulator(self, *options):
        """`options`: as --pace or --fault."""
        self.simulator = self.virtual_system("com1", "--world", self.place + "world.json",
                                             "--state", self.place + "state.json", *options)

    def start_readers(self, desk):
        """The adapter for enrolment, behind com2, and what is presented to it."""
        self.write_world({"adapter": {"name": "ENROLLMENT1", "address": "04.03.02.01"}, "desk": desk}, "readers.json")
        self.readers = self.virtual_system("com2", "--world", self.place + "readers.json")

    def virtual_system(self, link, *options):
        system = subprocess.Popen(
            [self.build + "/src/simulator/program/qvm-simulator", "--link", self.place + link, *options],
            stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
        wait_for("the virtual adapter", lambda: os.path.islink(self.place + link))
        return system

    def stop_simulator(self):
        """Ends the virtual system. Gives its exit code, 0 when all telegrams were good, and what it found."""
        ended = self.stop(self.simulator)
        self.simulator = None
        return ended

    def stop_readers(self):
        """The same of the adapter for enrolment."""
        ended = self.stop(self.readers)
        self.readers = None
        return ended

    @staticmethod
    def stop(system):
        system.terminate()
        _, found = system.communicate(timeout=PATIENCE)
        return system.returncode, found

    def forget_simulator(self):
        """Of a virtual system that has ended by itself."""
        self.simulator.stderr.close()
        self.simulator = None

    def flooded_port(self):
        return Flood(self.place + "com1")

    def dripping_port(self):
        return Drip(self.place + "com1")

    def silent_port(self):
        return FarEnd(self.place + "com1")

    def start_program(self, scale="1", before=(), options=(), directory=None, **streams):
        """`before`: a program that runs this one in its own place. `directory`: of the data, if another one."""
        environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb",
                           XDG_CONFIG_HOME=self.place + "config", QT_SCALE_FACTOR=scale)
        # What is never given back at the end is the business of other tests.
        environment.setdefault("ASAN_OPTIONS", "detect_leaks=0")
        if directory is not None:
            environment["QVM_DIR"] = directory
        program = subprocess.Popen([*before, self.place + "qvm7702", *options], env=environment, **streams)
        self.programs.append(program)
        return program

    def lock(self, name):
        """What the lock holds, after stop_simulator."""
        return self.device("locks", "label", name)

    def unit(self, serial):
        """The same of a wireless unit."""
        return self.device("units", "serial", serial)

    def device(self, kind, field, value):
        with open(self.place + "state.json", encoding="utf-8") as file:
            return next(device for device in json.load(file)[kind] if device[field] == value)

    def data_files(self):
        return DataFiles(self.place + "DAT")

    def close(self):
        for process in self.programs + [self.simulator, self.readers]:
            if process is not None and process.poll() is None:
                process.send_signal(signal.SIGKILL)
                process.wait()
        for system in (self.simulator, self.readers):
            if system is not None:
                system.stderr.close()
        shutil.rmtree(self.place, ignore_errors=True)
