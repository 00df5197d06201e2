#!/usr/bin/env python3
"""Measures whole scans of the radio channels over a pseudo-terminal against a line on which nobody says anything.

    bench/measure_scan.py BUILD

BUILD is the folder of a release build (qvmctl, qvm-simulator, language files). Prints for the scan for keypads and the one
by logins how long it took from its first telegram to the end of the program, and the processor time of the program.
"""
import json
import os
import shutil
import subprocess
import sys
import tempfile
import threading
import time

WAITS = 12 * (0.4 + 0.1 + 3)  # to go to a channel, a tick, and the answer that does not come
INSTALLATION = {"format": "qvm7702-export", "version": 1,
                "tables": {"LockRecord": [{"record": 1, "Name": "Front door"}]},
                "lines": {"EST7CSB29A.I_1": ["English", "2", "USB-Port1", "1"], "CHEUSB25C.I_2": ["RESET"]}}


def first_telegram(trace, seen):
    """Notes when the adapter is sent to the first channel; reads to the end, so that the line does not fill."""
    for line in trace:
        if line.startswith("> 02 0E 6B 01") and not seen:
            seen.append(time.monotonic())


def measure(build, place, words):
    port = os.path.join(place, "com1")
    simulator = subprocess.Popen([os.path.join(build, "src/simulator/program/qvm-simulator"), "--link", port,
                                  "--world", os.path.join(place, "world.json"), "--fault", "silent@0+", "--trace"],
                                 stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
    seen = []
    reader = threading.Thread(target=first_telegram, args=(simulator.stderr, seen))
    reader.start()
    while not os.path.islink(port):
        time.sleep(0.02)
    program = subprocess.Popen([os.path.join(build, "src/console/qvmctl"), "--dir", place, "--port", port, "scan",
                                *words], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    told = program.stdout.read().strip()
    _, _, usage = os.wait4(program.pid, 0)
    took = time.monotonic() - seen[0]
    simulator.terminate()
    simulator.wait()
    reader.join()
    used = usage.ru_utime + usage.ru_stime
    print(f"scan {' '.join(words[:2])}: {told} {took:.2f} s, {100 * (took / WAITS - 1):.2f} % more than its waits; "
          f"{1000 * used:.0f} ms of processor time, {100 * used / took:.2f} %")


def main():
    build = sys.argv[1]
    place = tempfile.mkdtemp()
    for language in ("Deutsch", "English", "Francais", "Nederlands"):
        shutil.copy(os.path.join(build, f"lang/QVM_{language}.DAT"), place)
    code = os.path.join(place, "code")
    for name, content in ((code, "123456\n"), ("installation.json", json.dumps(INSTALLATION)),
                          ("world.json", json.dumps({"adapter": {"name": "PROGSTATION-1"}}))):
        with open(os.path.join(place, name), "w", encoding="utf-8") as file:
            file.write(content)
    subprocess.run([os.path.join(build, "src/console/qvmctl"), "--dir", place, "import",
                    os.path.join(place, "installation.json")], check=True, stdout=subprocess.DEVNULL)
    measure(build, place, [])
    measure(build, place, ["--lock", "1", "--code-from", code])
    shutil.rmtree(place)


main()
