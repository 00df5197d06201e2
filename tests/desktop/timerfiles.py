"""The bytes of the files of clocks and guests, from what stands in them. A field is filled up with blanks."""
from datetime import date, datetime

SLOT_FILE, SLOT_ROWS, PERSON_SLOTS = "TX33Y98BSG9.TBW", 15, 10
PERSON_GROUP_FILE, LOCK_GROUP_FILE, GROUP_ROWS = "TIMGRP33T7.PBG", "TIMGRP44T8_S.SBS", 8
OFFSET_FILE, DEFAULTS_FILE, GUEST_FILE = "T4OFFSETGST.FST", "OFSTSETUPDT.FST", "ASWTIMQVMLCK.FSN"
PERMANENT_FILE, OBJECT_FILE = "PERMSELECT.RFS", "ObJNR09DAT.OBN"
FIXED_GROUPS = [("1", "Timer-A", "XXXXX-----", "PB_2008TimA"), ("2", "Timer-B", "-----XXXXX", "PB_2008TimB")]
NAME_WIDTH, ID_WIDTH = 40, 15


def fields(*contents):
    """Texts, each with its width."""
    return b"".join(text.encode("cp1252").ljust(width) for text, width in contents)


def slot_file(slots):
    """Fifteen of day, beginning and end."""
    assert len(slots) == SLOT_ROWS
    return b"".join(bytes([day]) + fields((start, 5), (end, 5)) for day, start, end in slots)


def group_file(groups, slots):
    """Eight records. `groups` by their row: number, name, which of the slots, identifier. One whose slots
    were never chosen has a name and an identifier alone."""
    def record(number, name, days, identifier):
        return fields((number, 3), (name, NAME_WIDTH), (days, slots),
                      (str(days.count("X")) if days else "", 3), (identifier, ID_WIDTH))
    unused = fields(("", 3 + NAME_WIDTH + slots + 3 + ID_WIDTH))
    return b"".join(record(*groups[row]) if row in groups else unused for row in range(1, GROUP_ROWS + 1))


def seconds_since_2000():
    return int((datetime.now() - datetime(2000, 1, 1)).total_seconds())


def offset_file(offsets):
    """Four of name, time and default time; each has the identifier of its place."""
    assert len(offsets) == 4
    return b"".join(fields((name, 20), (when, 5), (base, 5), (f"OFST0x0{n}", 8))
                    for n, (name, when, base) in enumerate(offsets, 1))


def lines_of_today(*lines):
    """Files of lines begin with the day on which they were written."""
    return b"".join(line.encode("cp1252") + b"\r\n" for line in (f"{date.today():%d.%m.%Y}", *lines))


def defaults_file(check_in, check_out):
    return lines_of_today(check_in, check_out, "00", "01")


def guest_file(mode, slots):
    return lines_of_today(mode, *("X" if n in slots else "0" for n in range(1, 9)), "ENDE")


def permanent_file(serials):
    return lines_of_today(*serials, "ENDE")


def object_file(group):
    return lines_of_today(str(group), str(group + 1))
