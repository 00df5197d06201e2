#!/usr/bin/env python3
"""Measures a whole run of 250 users over a pseudo-terminal against the paced virtual lock.

    bench/measure_run.py BUILD

BUILD is the folder of a release build (qvmctl, qvm-simulator, language files). Prints how much of the line's time the run
used (1920 bytes/s each way) and how much memory qvmctl held.
"""
import json
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

BYTES_PER_SECOND = 1920
USERS = 250


def installation():
    users = [{"record": n, "UserName": f"User {n}", "UserGroupId": "-", "UserRight": "1", "UserCode": "184027",
              "KeyLabel": f"Key {n}", "KeyId": f"{n % 200 + 3} : 3 : 4 : 5", "KeyData": " : ".join(["9"] * 16),
              "FingerFlag": "--", "LockMask": "X" + "-" * 199} for n in range(1, USERS + 1)]
    lock = {"record": 1, "Name": "Front door", "Sn1": "00", "Sn2": "0A", "Sn3": "10", "Sn4": "01", "Switch2": "X",
            "Switch3": "X", "Switch4": "X", "Switch5": "X"}
    channel = {"record": 1, "LockChannel": "1", "EKold": "1", "TargetChannel": "1", "LockChange": "0",
               "Ekeychange": "0"}
    return {"format": "qvm7702-export", "version": 1,
            "tables": {"UserRecord": users, "LockRecord": [lock], "ChannelRecord": [channel]},
            "lines": {"EST7CSB29A.I_1": ["English", "2", "USB-Port1", "1"]}}


def world():
    return {"locks": [{"serial": "00.0A.10.01", "admin_code": "123456", "channel": 1}]}


def stuffed_length(frame):
    return len(frame) + frame[2:].count(0x02)


def wire_bytes(trace):
    total = 0
    for line in trace.splitlines():
        if line[:2] in ("> ", "< "):
            octets = line[2:].split("  ")[0]  # what the telegram is called stands behind two blanks
            frame = [int(part, 16) for part in octets.split()]
            total += stuffed_length(frame) if line[0] == ">" else len(frame)
    return total


def main():
    build = sys.argv[1]
    place = tempfile.mkdtemp()
    qvmctl = os.path.join(build, "src/console/qvmctl")
    for language in ("Deutsch", "English", "Francais", "Nederlands"):
        shutil.copy(os.path.join(build, f"lang/QVM_{language}.DAT"), place)
    for name, content in (("installation.json", installation()), ("world.json", world())):
        with open(os.path.join(place, name), "w", encoding="utf-8") as file:
            json.dump(content, file)
    subprocess.run([qvmctl, "--dir", place, "import", os.path.join(place, "installation.json")], check=True,
                   stdout=subprocess.DEVNULL)
    trace_path = os.path.join(place, "trace")
    port = os.path.join(place, "com1")
    with open(trace_path, "w", encoding="utf-8") as trace_file:
        simulator = subprocess.Popen([os.path.join(build, "src/simulator/program/qvm-simulator"), "--world",
                                      os.path.join(place, "world.json"), "--link", port, "--pace", "--trace"],
                                     stdout=subprocess.DEVNULL, stderr=trace_file)
        while not os.path.islink(port):
            time.sleep(0.02)
        with open(os.path.join(place, "code"), "w", encoding="utf-8") as file:
            file.write("123456\n")
        run = subprocess.Popen([qvmctl, "--dir", place, "--port", port, "--json", "program", "1", "--code-from",
                                os.path.join(place, "code")], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        report = json.loads(run.stdout.read())
        _, status, usage = os.wait4(run.pid, 0)
        simulator.send_signal(signal.SIGTERM)
        simulator.wait()
    with open(trace_path, encoding="utf-8") as file:
        total = wire_bytes(file.read())
    result = report["locks"][0]
    line_seconds = total / BYTES_PER_SECOND
    print(f"outcome {result.get('result')}, exit code {os.waitstatus_to_exitcode(status)}")
    print(f"{total} bytes on the line, {line_seconds:.2f} s at {BYTES_PER_SECOND} bytes/s")
    print(f"run {result['seconds']:.2f} s: {100 * line_seconds / result['seconds']:.1f} % of the line's time used")
    print(f"qvmctl held {usage.ru_maxrss / 1024:.1f} MB")
    shutil.rmtree(place)


main()
