#!/usr/bin/env python3
"""Writes golden.txt: telegrams to a network adapter, put together here a second time, from the description of the line
and without a look at the program. The cipher is the command line tool `openssl`.

    python3 golden.py > golden.txt

The dataset of the tests is described once more below (compare NetzFixture.cpp)."""

import subprocess

KEY = bytes(range(0xA0, 0xB0))
SERIAL = bytes.fromhex("01500C10")
ADMIN = bytes.fromhex("123A45")
# Units of type 2 have the places 0 and 1, units of type 1 the places 2 and 3; one more of type 1 is dropped.
UNITS = bytes.fromhex("02020202" "016F0001" "01601234" "01601235")


def checksum(data):
    c = 0
    for byte in data:
        c = 2 * c
        if c > 255:
            c -= 255
        c = c + byte
        if c > 255:
            c -= 255
    return c


def aes(block):
    out = subprocess.run(["openssl", "enc", "-aes-128-ecb", "-nopad", "-K", KEY.hex()], input=bytes(block),
                         stdout=subprocess.PIPE, check=True).stdout
    assert len(out) == len(block)
    return out


def header(block, blocks, length, code):
    head = bytes([0x02, block, 0x90, blocks, length // 256, length % 256]) + SERIAL + UNITS
    head += bytes([0, code, 0xFF, 0xFF, 0, 0])
    assert len(head) == 32
    return head


def groups(data):
    """Data with a checksum behind each 128 bytes and behind the rest."""
    out = b""
    for at in range(0, len(data), 128):
        piece = data[at:at + 128]
        out += piece + bytes([checksum(piece)])
    return out


def close(frame, length):
    """Fills with zeros up to the length word, where the checksum of all before stands."""
    assert len(frame) <= length
    frame = frame + bytes(length - len(frame))
    return frame + bytes([checksum(frame)])


def sent(frame):
    """As it goes out: 1 at index 26."""
    return frame[:26] + b"\x01" + frame[27:]


def enciphered(frame):
    """Payload without the frame checksum. Each 129th byte stays plain; of the bytes before it, or of a shorter last group
    with its sum, all whole blocks are enciphered."""
    payload = frame[32:-1]
    out = b""
    for at in range(0, len(payload), 129):
        group = payload[at:at + 129]
        whole = min(len(group), 128) // 16 * 16
        out += (aes(group[:whole]) if whole else b"") + group[whole:]
    return frame[:32] + out + frame[-1:]


# ---- the dataset

TEMPLATE = bytes([120, 0] + [(7 * n + 3) % 256 for n in range(2, 120)])


def code_bytes(digits):
    nibbles = [0xA if d == "0" else int(d) for d in digits]
    nibbles += [0xE] * (10 - len(nibbles))
    return bytes(nibbles[n] * 16 + nibbles[n + 1] for n in range(0, 10, 2))


def code_user(kind, name, code, masks, function, rest=b""):
    """masks: slots 1 to 8, 9 to 16, 17 to 24; the third goes first. The timer selector at 22 is 0."""
    record = bytes([kind]) + name.ljust(16, b"\0") + code + b"\0" + bytes(reversed(masks)) + bytes([function]) + rest
    return record.ljust(64, b"\0")


B = bytes(range(1, 17))
KINDS = [
    code_user(1, b"Anna", code_bytes("1234567890"), (0x81, 0x42, 0x24), 0x0C),
    code_user(2, b"Bert Plain", code_bytes("42"), (0, 0, 0), 0x0D, bytes([17, 34, 51, 68]) + B),
    code_user(3, b"Carl Long", code_bytes("777"), (0xFF, 1, 2), 0, bytes(4) + bytes([7]) + bytes(range(201, 211)) + B),
    (bytes([4]) + b"Dora_0263_FP".ljust(16) + bytes([1, 7, 0, 4, 2, 8, 6, 1]) + TEMPLATE[70:99]).ljust(64, b"\0"),
    code_user(1, b"Emil_0009_FP".ljust(16), bytes([0xEE] * 5), (0, 0, 0), 0x0A),
]


def plain_user(n):
    return code_user(1, b"USER%03d" % n, code_bytes("%06d" % (123450 + n)), (n % 256, 0x55, 0xAA), 4)


def table(rows, count):
    data = b"".join(bytes(row) for row in rows)
    assert len(data) == count
    return data.ljust(128, b"\0")


def fixed(n):
    """The five groups before the users."""
    first = bytes([n // 256, n % 256]) + ADMIN + b"\xEE\xEE" + ADMIN + b"\xEE\xEE"
    # radio channel 5, mode, calendar flag, timer flag, priority, filler, pair, 0, always on, time, erase option
    first += bytes([4, 0x14, 1, 0, 3, 0xFF, 3, 1, 0, 1, 0x12, 0x34, 1])
    timer_a = [(1 + n, 7, 2 * n, 18, 30) for n in range(11)]
    timer_b = [(6, 20 + n % 4, n, 23, 59) for n in range(6)]
    holiday_a = [(1 + n, 12, 26, 2 + n, 12, 26) for n in range(20)]
    holiday_b = [(1 + n, 1, 99, 2 + n, 1, 99) for n in range(20)]
    return (first.ljust(128, b"\0") + table(timer_a, 55) + table(timer_b, 30) + table(holiday_a, 120) +
            table(holiday_b, 120))


def data_blocks(users, finger_blocks=0):
    rest = max(len(users) - 9, 0)
    data = 1 + (rest + 18) // 19
    count = data + finger_blocks
    m = min(len(users), 9)
    length = 1258 if count > 1 else 677 + 64 * m + (m + 1) // 2
    out = [close(header(1, count, length, 0x14) + groups(fixed(len(users)) + b"".join(users[:9])), length)]
    for block in range(2, data + 1):
        part = users[9 + 19 * (block - 2):][:19]
        m = len(part)
        length = 1258 if block < data else 32 + 64 * m + (m + 1) // 2
        out.append(close(header(block, count, length, 0x14) + groups(b"".join(part)), length))
    return out


def finger_blocks(stream, first_number, count):
    out = []
    while stream:
        part, stream = stream[:1263], stream[1263:]
        body = groups(part)
        length = 32 + len(body)
        out.append(close(header(first_number + len(out), count, length, 0x16) + body, length))
    return out


def finger_stream(total):
    """One template of total - 3 bytes: number 263, premium, then the bytes."""
    size = total - 3
    return bytes([1, 7, 1]) + bytes([size % 256, size // 256] + [(5 * n + 1) % 256 for n in range(2, size)])


def clock():
    """05.03.26 10:30:00. The checksum runs over its own place, which is 0 until then."""
    body = header(1, 1, 0x25, 0x1E) + bytes([5, 3, 26, 10, 30, 0])
    return body + bytes([checksum(body[32:] + b"\0")])


def history(code, number):
    body = header(number, 1, 0x25, code) + ADMIN + b"\xEE\xEE"
    return body + bytes([checksum(body[32:] + b"\0")])


def history_start():
    frame = history(0x0A, 1).ljust(49, b"\0")
    return frame[:4] + bytes([0, 48]) + frame[6:]


# ---- output

def show(name, data):
    print("[" + name + "]")
    for at in range(0, len(data), 32):
        print(" ".join("%02X" % byte for byte in data[at:at + 32]))


def both(name, frame):
    show(name + ", plain", sent(frame))
    show(name + ", enciphered", sent(enciphered(frame)))


def main():
    for n in (0, 1, 9):
        (frame,) = data_blocks([plain_user(k) for k in range(1, n + 1)])
        both("data, %d users" % n, frame)
    for n, frame in enumerate(data_blocks([plain_user(k) for k in range(1, 11)])):
        both("data, 10 users, block %d" % (n + 1), frame)
    both("data, each kind of user", data_blocks(KINDS, 1)[0])
    for total in (127, 128, 129, 1262, 1263, 1264, 1274):
        stream = finger_stream(total)
        count = 2 + (total - 1) // 1263
        for n, frame in enumerate(finger_blocks(stream, 2, count)):
            both("fingerprints, %d bytes, block %d" % (total, n + 1), frame)
    show("clock", sent(clock()))
    show("history next 7", sent(history(0x0C, 7)))
    start = history_start()
    show("history start, plain", sent(start))
    show("history start, enciphered", sent(start[:32] + aes(start[32:48]) + start[48:]))
    # Number, count, length word, then every inner checksum and the frame's: of each block.
    for n in (28, 29, 250):
        for frame in data_blocks([plain_user(k) for k in range(1, n + 1)]):
            payload = frame[32:-1]
            sums = [payload[min(at + 128, len(payload) - 1)] for at in range(0, len(payload), 129)]
            show("sums, %d users, block %d" % (n, frame[1]), bytes([frame[1], frame[3], frame[4], frame[5]] + sums +
                                                                   [frame[-1]]))
            # Of the longest dataset a middle block and the last one.
            if n < 250 or frame[1] in (2, 14):
                both("data, %d users, block %d" % (n, frame[1]), frame)


main()
