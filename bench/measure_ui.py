#!/usr/bin/env python3
"""Measures the desktop program under a virtual display, with a virtual adapter behind com1 and 200 locks.

    bench/measure_ui.py BUILD [users | times]

BUILD is the folder of a release build (bench_ui, qvm7702, qvmctl, qvm-simulator, language files). Prints the time from
process start to the painted main window (of bench_ui exactly; of qvm7702 as seen from outside, with the delay of looking),
the time that the lock window takes (of bench_ui from the call to its first painting; of qvm7702 from the key to the last
change on the screen), the memory held, the processor time of the idle program (with the adapter, and pulled), and how
long qvm7702 takes from a key to a changed screen while its line misbehaves; before that what the user window at its
largest takes and what the windows of holidays, clocks and guests do, with "users" or "times" nothing else.
"""
import glob
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

import time_windows
import user_window
from grid_window import DOWN, PAGE_DOWN, PAGE_UP, UP, GridWindow, windows
from picture import Screen
from time_windows import WINDOWS, TimeWindow

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.append(os.path.join(os.path.dirname(HERE), "tests/desktop"))
from farend import Drip, FarEnd, Flood  # noqa: E402

STARTS = 7
IDLE_SECONDS = 10
LOCKS = 200
INPUTS = 60
TAB = 0xFF09
SIZE = 1600, 1200
USER_REGION = 1000, 500  # where the user window has marks
LOCK_FILES = ("C64UX12H3D.EBW", "CPRT88X3FDA.PRT", "LSOEMIPART.LMT", "SBSCLKZU.SB1", "LOCKCLASSCOMX.CMB",
              "DOOR1MODEDT.DTA")
KEYS = 1000, 600  # where the main window, at the corner of the display, has all that takes the focus
TITLE = "^QVM 7702 SOFTWARE SYSTEM$"


def open_display():
    read_end, write_end = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write_end), "-noreset", "-screen", "0",
                               f"{SIZE[0]}x{SIZE[1]}x24"], pass_fds=[write_end], stderr=subprocess.DEVNULL)
    os.close(write_end)
    with os.fdopen(read_end) as pipe:
        number = pipe.readline().strip()
    return server, dict(os.environ, DISPLAY=":" + number, QT_QPA_PLATFORM="xcb")


def full_house(source):
    """The demonstration installation, its locks made up to 200 and its users to 250."""
    with open(os.path.join(source, "installation.json"), encoding="utf-8") as file:
        document = json.load(file)
    tables = document["tables"]
    patterns = tables["LockRecord"]
    for n in range(len(patterns) + 1, LOCKS + 1):
        pattern = patterns[n % 12]
        serial = {"Sn1": pattern["Sn1"], "Sn2": pattern["Sn2"], "Sn3": pattern["Sn3"], "Sn4": f"{n:02X}"}
        patterns.append({**pattern, **serial, "record": n, "Name": f"{pattern['Name'][:14]} {n}"})
        tables["LockGroupRecord"].append({"record": n, "GroupId": "PB_815000001", "GroupName": "Schalterhalle"})
        tables["LockAdapterRecord"].append({"record": n, "AdapterId": "/46/108/1/2", "AdapterName": "PROGSTATION-1",
                                            **serial})
    user_window.fill(document)
    return document


def make_installation(build, source):
    place = tempfile.mkdtemp()
    for file in glob.glob(os.path.join(build, "lang/QVM_*.DAT")) + [os.path.join(build, "src/qvm7702")]:
        shutil.copy(file, place)
    subprocess.run([os.path.join(build, "src/console/qvmctl"), "--dir", place, "import", "-"], check=True,
                   input=json.dumps(full_house(source)), text=True, stdout=subprocess.DEVNULL)
    return place


def start_simulator(build, source, place):
    link = os.path.join(place, "com1")
    simulator = subprocess.Popen([os.path.join(build, "src/simulator/program/qvm-simulator"), "--world",
                                  os.path.join(source, "world.json"), "--link", link],
                                 stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    while not os.path.islink(link):
        time.sleep(0.02)
    return simulator


def bench(build, place, env, seconds):
    begin = time.monotonic_ns()
    run = subprocess.run([os.path.join(build, "bench/bench_ui"), place + "/", str(seconds)], env=env,
                         stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=True)
    first, *keys = run.stdout.splitlines()
    names = ("locks", "users", "setup", "calendars", "clocks", "cards")
    places = dict(zip(names, (key.split() for key in keys)))
    return (int(first) - begin) / 1e6, places, keys[len(places):]


def start_program(place, env):
    """qvm7702, and the milliseconds until its window was there."""
    begin = time.monotonic()
    program = subprocess.Popen([os.path.join(place, "qvm7702")], env=env, stderr=subprocess.DEVNULL)
    search = ["xdotool", "search", "--onlyvisible", "--name", TITLE]
    while subprocess.run(search, env=env, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode != 0:
        if program.poll() is not None:
            sys.exit(f"qvm7702 ended with {program.returncode}")
    return program, (time.monotonic() - begin) * 1000


def end(program):
    program.terminate()
    program.wait()


def seen_from_outside(place, env):
    program, elapsed = start_program(place, env)
    end(program)
    return elapsed


def resident(program):
    with open(f"/proc/{program.pid}/status", encoding="ascii") as file:
        return int(re.search(r"VmRSS:\s*(\d+)", file.read()).group(1)) / 1024


def lock_window(place, env, key):
    """Milliseconds from the click that opens the lock window of qvm7702 to the last change on the screen, and the memory
    in MB then. `key`: where to click."""
    screen = Screen(env["DISPLAY"], *SIZE)
    program, _ = start_program(place, env)
    try:
        subprocess.run(["xdotool", "mousemove", *key], env=env, check=True)
        time.sleep(3)  # the adapter is found
        before = screen.picture()
        elapsed = screen.settle()
        if sum(a != b for a, b in zip(before[::400], screen.picture()[::400])) < 500:
            sys.exit("the lock window did not open")
        return elapsed * 1000, resident(program)
    finally:
        end(program)
        screen.close()


def measure_users(build, place, env):
    """The user window, in bench_ui without the delay of the display, and in qvm7702 as seen on the screen."""
    _, keys, (*lines, sort, save, opened_locks, save_locks) = bench(build, place, env, "users")
    print("\n".join("  " + line for line in [*lines, opened_locks]))
    opened, sorts, saves, more = [], [], [], []
    with open(os.path.join(place, user_window.FILE), "rb") as file:
        unsorted = file.read()
    for n in range(STARTS):
        user_window.put_back(place, unsorted)
        program, _ = start_program(place, env)
        try:
            before = resident(program)
            window = user_window.UserWindow(env, USER_REGION, place, {"sort": sort.split(), "save": save.split()})
            opened.append(window.open(keys["users"], windows(env)))
            more.append(resident(program) - before)
            if n == 0:
                report(window.key(DOWN, UP), "an arrow key")
                report(window.key(PAGE_DOWN, PAGE_UP), "a page")
                report(window.toggle(), "a mark of 250 x 200 cells")
            sorts.append(window.sort())
            saves.append(window.save())
            window.screen.close()
        finally:
            end(program)
    report(opened, "from the click to the last change of the user window with 250 users and 200 locks")
    report(sorts, "sorted")
    report(saves, "saved, with the flush")
    print(f"  memory more than without the window: {max(more):.0f} MB")
    measure_setup(place, env, keys["setup"], save_locks.split())


def measure_setup(place, env, key, save):
    """The lock window of qvm7702, as seen on the screen. `key`, `save`: where to click to open it, and in it."""
    opened, saves = [], []
    for n in range(STARTS):
        program, _ = start_program(place, env)
        try:
            window = GridWindow(env, USER_REGION, place, {"save": save}, LOCK_FILES)
            opened.append(window.open(key, windows(env)))
            if n == 0:
                report(window.key(DOWN, UP), "an arrow key in the lock window")
                report(window.key(PAGE_DOWN, PAGE_UP), "a page in the lock window")
            saves.append(window.save())
            window.screen.close()
        finally:
            end(program)
    report(opened, f"from the click to the last change of the lock window with {LOCKS} locks")
    report(saves, "its six files saved, with the flush of each")


def measure_times(build, place, env):
    """The windows of times, in bench_ui without the delay of the display, and in qvm7702 as seen on the screen."""
    _, keys, lines = bench(build, place, env, "times")
    print("\n".join("  " + line for line in lines))
    opened = {name: [] for name, *_ in WINDOWS}
    for n in range(time_windows.STARTS):
        program, _ = start_program(place, env)
        try:
            time.sleep(3)  # the adapter is found
            window = TimeWindow(env, USER_REGION, place)
            for name, key, entry, *_ in WINDOWS:
                opened[name].append(window.open_by(keys[key], entry, windows(env)))
                if n == 0:
                    report(window.key(DOWN, UP, presses=time_windows.PRESSES), f"an arrow key in {name}")
                window.leave()
            window.screen.close()
        finally:
            end(program)
    for name, *_ in WINDOWS:
        report(opened[name], f"from the click to the last change of {name}")
    for name, key, entry, way, changes in WINDOWS:
        program, _ = start_program(place, env)  # it is not left, as that would ask
        try:
            time.sleep(3)
            window = TimeWindow(env, USER_REGION, place)
            window.open_by(keys[key], entry, windows(env))
            for step in way:
                window.screen.answer(step)
            report(window.key(*changes, presses=time_windows.PRESSES), f"a list that comes or goes, or a mark, in {name}")
            window.screen.close()
        finally:
            end(program)


def served(place, env, line, closed=False):
    """Milliseconds from a key to the changed screen, one for each of many keys. `line` leads to the far end."""
    screen = Screen(env["DISPLAY"], *KEYS)
    with line:
        program, _ = start_program(place, env)
        try:
            found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", TITLE], env=env, check=True,
                                   stdout=subprocess.PIPE, text=True)
            subprocess.run(["xdotool", "windowfocus", "--sync", *found.stdout.split()], env=env, check=True)
            time.sleep(2)
            if closed:
                line.hang_up()
            waits = []
            for _ in range(INPUTS):
                waits.append(screen.answer(TAB) * 1000)
            return waits
        finally:
            end(program)
            screen.close()


def median(values):
    return sorted(values)[len(values) // 2]


def report(values, what):
    print(f"{what}: {median(values):.0f} ms (best {min(values):.0f}, worst {max(values):.0f})")


def main():
    build = os.path.abspath(sys.argv[1])
    only = sys.argv[2] if len(sys.argv) > 2 else ""
    source = os.path.join(os.path.dirname(HERE), "demonstration")
    place = make_installation(build, source)
    server, env = open_display()
    env["XDG_CONFIG_HOME"] = os.path.join(place, "config")
    simulator = start_simulator(build, source, place)
    try:
        if only != "times":
            measure_users(build, place, env)
        if only != "users":
            measure_times(build, place, env)
        if only:
            return
        runs = [bench(build, place, env, 0) for _ in range(STARTS)]
        report([run[0] for run in runs], "start to painted main window")
        report([seen_from_outside(place, env) for _ in range(STARTS)], "the same of qvm7702 seen from outside")
        opened = [lock_window(place, env, runs[0][1]["locks"]) for _ in range(STARTS)]
        report([elapsed for elapsed, _ in opened],
               f"qvm7702, from the click to the last change of its lock window with {LOCKS} locks")
        print(f"  its memory then: {max(memory for _, memory in opened):.0f} MB")
        print("with the adapter:")
        print("\n".join("  " + line for line in bench(build, place, env, IDLE_SECONDS)[2]))
        simulator.terminate()
        simulator.wait()
        print("without an adapter:")
        print("\n".join("  " + line for line in bench(build, place, env, IDLE_SECONDS)[2]))
        link = os.path.join(place, "com1")
        for line, closed, what in ((FarEnd(link), False, "silent"), (Flood(link), False, "flooded with garbage"),
                                   (Drip(link), False, "bringing a byte a second"),
                                   (FarEnd(link), True, "closed at its far end")):
            report(served(place, env, line, closed), f"a key of qvm7702 shows on the screen, line {what}")
    finally:
        simulator.terminate()
        simulator.wait()
        server.terminate()
        shutil.rmtree(place)


main()
