#!/usr/bin/env python3
"""Measures the desktop program under a virtual display, with a virtual adapter behind com1.

    bench/measure_ui.py BUILD

BUILD is the folder of a release build (bench_ui, qvm7702, qvmctl, qvm-simulator, language files). Prints the time from
process start to the painted main window (of bench_ui exactly; of qvm7702 as seen from outside, with the delay of looking),
the memory held with four windows open, and the processor time of the idle program: with the adapter, and pulled.
"""
import glob
import os
import shutil
import subprocess
import sys
import tempfile
import time

STARTS = 7
IDLE_SECONDS = 10


def open_display():
    read_end, write_end = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write_end), "-noreset", "-screen", "0", "1600x1200x24"],
                              pass_fds=[write_end], stderr=subprocess.DEVNULL)
    os.close(write_end)
    with os.fdopen(read_end) as pipe:
        number = pipe.readline().strip()
    return server, dict(os.environ, DISPLAY=":" + number, QT_QPA_PLATFORM="xcb")


def make_installation(build, source):
    place = tempfile.mkdtemp()
    for file in glob.glob(os.path.join(build, "lang/QVM_*.DAT")) + [os.path.join(build, "src/qvm7702")]:
        shutil.copy(file, place)
    subprocess.run([os.path.join(build, "src/console/qvmctl"), "--dir", place, "import",
                    os.path.join(source, "installation.json")], check=True, stdout=subprocess.DEVNULL)
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
    first, *rest = run.stdout.splitlines()
    return (int(first) - begin) / 1e6, rest


def seen_from_outside(place, env):
    begin = time.monotonic()
    program = subprocess.Popen([os.path.join(place, "qvm7702")], env=env, stderr=subprocess.DEVNULL)
    search = ["xdotool", "search", "--onlyvisible", "--name", "^QVM 7702 SOFTWARE SYSTEM$"]
    while subprocess.run(search, env=env, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode != 0:
        if program.poll() is not None:
            sys.exit(f"qvm7702 ended with {program.returncode}")
    elapsed = time.monotonic() - begin
    program.terminate()
    program.wait()
    return elapsed * 1000


def median(values):
    return sorted(values)[len(values) // 2]


def main():
    build = os.path.abspath(sys.argv[1])
    source = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "demonstration")
    place = make_installation(build, source)
    server, env = open_display()
    simulator = start_simulator(build, source, place)
    try:
        starts = [bench(build, place, env, 0)[0] for _ in range(STARTS)]
        print(f"start to painted main window: {median(starts):.0f} ms (best {min(starts):.0f}, worst {max(starts):.0f})")
        outside = [seen_from_outside(place, env) for _ in range(STARTS)]
        print(f"the same of qvm7702 seen from outside: {median(outside):.0f} ms")
        print("with the adapter:")
        print("\n".join("  " + line for line in bench(build, place, env, IDLE_SECONDS)[1]))
        simulator.terminate()
        simulator.wait()
        print("without an adapter:")
        print("\n".join("  " + line for line in bench(build, place, env, IDLE_SECONDS)[1]))
    finally:
        simulator.terminate()
        server.terminate()
        shutil.rmtree(place)


main()
