"""What a lock must hold by the data files, worked out from their bytes alone."""
from datetime import date, timedelta

FIXED_GROUPS = {"PB_2008TimA": "XXXXX-----", "PB_2008TimB": "-----XXXXX"}
SELECTORS = {"PB_2008TimA": 1, "PB_2008TimB": 2}
WEIGHTS = {"0": 0, "1/2": 6, "1/3": 4, "ADMI": 0x0D, "FS+": 0x0A}
OTHER_WEIGHT = 0x0C
MODES = {"X": 10, "Y": 20}
UNITS = 241  # bytes of the record of a lock's units


def text(record, offset, width):
    return record[offset:offset + width].split(b"\0")[0].decode("cp1252").strip(" ")


def serial_text(record, offset):
    return ".".join(text(record, offset + 3 * part, 3) for part in range(4))


def numbers(words):
    """Decimal numbers between colons, as hexadecimal digits."""
    return "".join(f"{int(word):02X}" for word in words.split(":")) if words else ""


def without_zeros(rows):
    """Rows up to the last one that is not all zero."""
    rows = [list(row) for row in rows]
    while rows and not any(rows[-1]):
        rows.pop()
    return rows


def timers_by_user(serial):
    return 0x1000001 <= serial <= 0x1600000 or 0x1C00001 <= serial <= 0x2000000


def takes_long_ids(serial):
    return 0x1500C06 <= serial <= 0x1600000 or 0x1C000AE <= serial <= 0x1D00000


def leading_digits(words):
    return words[:len(words) - len(words.lstrip("0123456789"))]


class DataFiles:
    """`folder`: the directory DAT."""

    def __init__(self, folder):
        self.folder = folder

    def records(self, name, length):
        try:
            with open(self.folder + "/" + name, "rb") as file:
                data = file.read()
        except FileNotFoundError:
            return []
        return [data[at:at + length].ljust(length, b"\0") for at in range(0, len(data), length)]

    def record(self, name, length, number):
        found = self.records(name, length)
        return found[number - 1] if number <= len(found) else b"\0" * length

    def lock(self, number):
        """What lock `number` must hold, in the words of the virtual system; its clock left out."""
        lock = self.record("C64UX12H3D.EBW", 45, number)
        serial = int("".join(text(lock, at, 3) for at in (28, 31, 34, 37)), 16)
        timers, calendars, lock_timer, calendar, _ = (lock[at:at + 1] == b"X" for at in range(40, 45))
        priority = text(self.record("CPRT88X3FDA.PRT", 12, number), 0, 3)
        table_a, table_b = self.tables(number, serial) if timers else ([], [])
        single, permanent = self.holidays() if calendars else ([], [])
        return {
            "serial": serial_text(lock, 28),
            "channel": int(text(self.record("RFCHANDIF12.RFX", 15, number), 0, 3) or 1),
            "listen_time": self.listen_time(number),
            "users": self.users(number, serial, timers),
            "table_a": without_zeros(table_a), "table_b": without_zeros(table_b),
            "single_days": single, "permanent_days": permanent,
            "lock_timer_flag": int(lock_timer), "calendar_flag": int(calendar),
            "priority": int(priority) - 1 if priority in ("1", "2", "3", "4", "5") else 2,
            "lock_mode": MODES.get(text(self.record("LSOEMIPART.LMT", 1, number), 0, 1)),
        }

    def listen_time(self, number):
        """How a lock is told to listen for units that have a time window: seconds in two bytes, and two marks. Behind
        mode, mark for always and a spare one stand the signal, hours, minutes and seconds."""
        unit = self.record("T6WRSSISN.TSD", UNITS, number)
        if unit[:1] != b"3":
            return None
        hours, minutes, seconds = (int(text(unit, at, 2) or 0) for at in (6, 8, 10))
        high, low = divmod(3600 * hours + 60 * minutes + seconds, 256)
        return {"first": int(unit[2:3] == b"1"), "second": int(unit[1:2] == b"1"), "high": high, "low": low}

    def units(self, number):
        """The units of a lock that have a serial number: their names, numbers and channels."""
        record = self.record("T6WRSSISN.TSD", UNITS, number)
        return [{"name": text(record, at, 30), "serial": serial_text(record, at + 30),
                 "channel": int(text(record, at + 43, 2) or 1)}
                for at in range(16, UNITS, 45) if text(record, at + 30, 3)]

    def slot(self, number):
        record = self.record("TX33Y98BSG9.TBW", 11, number)
        start, end = text(record, 1, 5), text(record, 6, 5)
        return [record[0], int(start[:2]), int(start[3:]), int(end[:2]), int(end[3:])]

    def tables(self, number, serial):
        """The weekly timers of a lock that has its timer groups by user."""
        assert timers_by_user(serial), "other locks tell the operator first"
        group = text(self.record("SBSCLKZU.SB1", 55, number), 0, 15)
        marks = [text(record, 43, 5) for record in self.records("TIMGRP44T8_S.SBS", 66)[:5]
                 if text(record, 51, 15) == group]
        chosen = marks[0] if marks else "-----"
        return ([self.slot(n) for n in range(1, 11)],
                [self.slot(11 + n) if chosen[n] == "X" else [0] * 5 for n in range(5)])

    def holidays(self):
        """Single ones, whose end is the day after; and those of every year, with the year 99 (serials to 0xA000000)."""
        single, permanent = [], []
        for n, record in enumerate(self.records("KL10X49WTTI.CBW", 21), 1):
            start, end = text(record, 0, 10), text(record, 10, 10)
            if n <= 20 and text(record, 20, 1) in ("0", "1"):
                first = date(int(start[6:]), int(start[3:5]), int(start[:2]))
                after = date(int(end[6:]), int(end[3:5]), int(end[:2])) + timedelta(days=1)
                single.append([number for day in (first, after) for number in (day.day, day.month, day.year % 100)])
            elif n >= 22 and start:
                permanent.append([int(start[:2]), int(start[3:5]), 99, int(end[:2]), int(end[3:5]), 99])
        return single, permanent

    def group(self, identifier):
        """The ten marks of a timer group of persons."""
        found = dict(FIXED_GROUPS)
        for record in self.records("TIMGRP33T7.PBG", 71)[2:7]:
            found[text(record, 56, 15)] = text(record, 43, 10)
        return found.get(identifier, "")

    def users(self, number, serial, timers):
        users = []
        for record in self.records("BX10X52WUJ9.UBW", 419):
            mark = record[218 + number - 1:218 + number]
            if mark not in (b"X", b"F"):
                continue
            group = text(record, 16, 15)
            user = {"weighting": WEIGHTS.get(text(record, 31, 4), OTHER_WEIGHT)}
            if timers:
                user["groups"] = self.group(group).ljust(24, "-")
            if mark == b"F":
                user.update(self.finger(record))
            else:
                user.update(kind="code", name=text(record, 0, 16), code=text(record, 35, 10).ljust(10, "-"),
                            timer_selector=SELECTORS.get(group, 0))
                user.update(self.identification(record, serial))
                if timers:
                    user["timer_selector"] = sum(0x80 >> n for n in range(8) if user["groups"][n] == "X")
            users.append(user)
        return users

    def identification(self, record, serial):
        """An E-Key has four bytes. Those of a transponder stand behind "#n-ID#"; locks that know them take eleven."""
        words, data = text(record, 61, 41), numbers(text(record, 102, 93).rstrip(" :"))
        if not words.startswith("#"):
            return {"id": {"bytes": numbers(words), "data": data}} if words else {}
        assert takes_long_ids(serial), "other locks take the beginning of it"
        return {"long_id": {"group": int(words[1]), "bytes": numbers(words.partition("-ID#")[2]).ljust(22, "0"),
                            "data": data}}

    def finger(self, record):
        """Users by fingerprint have the number of their finger in their name, and 28 bytes of its template."""
        number = text(record, 45, 16)[9:12].strip()
        finger = leading_digits(text(record, 197, 21).removeprefix("PR"))
        assert text(record, 195, 2) == "FS" and finger
        template = next(text(stored, 26, 3000) for stored in self.records("TEmpTCD0UPK.FSD", 3028)
                        if leading_digits(text(stored, 5, 21)) == finger)
        values = [int(word) for word in template.split(":") if word.strip()]
        return {"kind": "finger", "name": f"{text(record, 0, 16)[:9]}_{number}_FP".ljust(16),
                "finger_number": int(number), "slice": bytes(values[70:98]).hex().upper()}
