#!/usr/bin/env python3
"""Prints what a lock of the virtual system holds: show_state.py STATE.json INSTALLATION.json LOCK

LOCK is a number of the installation, or "programmed" for all locks that were reached since the start."""
import json
import sys

DAYS = ["off", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun", "Mon-Fri", "Sat-Sun", "Mon-Sun"]


def timer_rows(rows):
    shown = []
    for number, (day, h1, m1, h2, m2) in enumerate(rows, 1):
        if day:
            shown.append(f"{number}: {DAYS[day]} {h1:02}:{m1:02}-{h2:02}:{m2:02}")
    return shown


def date(day, month, year):
    # 99 stands for every year.
    return f"{day:02}.{month:02}." + ("" if year in (0, 99) else f"{year:02}")


def day_rows(rows):
    return [f"{date(*row[:3])} to {date(*row[3:])}" for row in rows if any(row)]


def show_list(title, rows):
    print(f"   {title + ':':<18}{rows[0] if rows else 'none'}")
    for row in rows[1:]:
        print(f"   {'':<18}{row}")


def show_users(users):
    print(f"   {'users:':<18}{len(users)}")
    for user in users:
        if user["kind"] == "finger":
            what = f"fingerprint {user['finger_number']}"
        else:
            key = "transponder" if "long_id" in user else "key" if "id" in user else ""
            what = ("code" + (" and " + key if key else ""))
        print(f"   {'':<18}slot {user['slot']:>3}  {user.get('name', ''):<16}  {what}")


def read(path):
    with open(path, encoding="utf-8") as file:
        return json.load(file)


def show_lock(lock, units):
    print(f"   {'lock:':<18}{lock.get('label', '')} [{lock['serial']}], channel {lock['channel']}")
    clock = lock.get("clock")
    if clock:
        print(f"   {'clock set to:':<18}{clock['day']:02}.{clock['month']:02}.20{clock['year']:02} "
              f"{clock['hour']:02}:{clock['minute']:02}:{clock['second']:02}")
    show_users(lock.get("users", []))
    show_list("person timers", timer_rows(lock.get("table_a", [])))
    show_list("lock timers", timer_rows(lock.get("table_b", [])))
    show_list("single holidays", day_rows(lock.get("single_days", [])))
    show_list("permanent days", day_rows(lock.get("permanent_days", [])))
    for name in ("priority", "lock_mode", "lock_timer_flag", "calendar_flag"):
        if name in lock:
            print(f"   {name.replace('_', ' ') + ':':<18}{lock[name]}")
    for unit in units:
        if unit.get("lock") == lock["serial"]:
            print(f"   {'unit:':<18}{unit.get('label', '')} [{unit['serial']}], {len(unit.get('rows', []))} templates")
    print()


def main():
    state = read(sys.argv[1])
    if sys.argv[3] == "programmed":
        locks = [lock for lock in state["locks"] if lock["sessions"] > 0]
    else:
        record = next(r for r in read(sys.argv[2])["tables"]["LockRecord"] if r["record"] == int(sys.argv[3]))
        serial = ".".join(record[f"Sn{part}"] for part in range(1, 5))
        locks = [lock for lock in state["locks"] if lock["serial"] == serial]
    for lock in locks:
        show_lock(lock, state.get("units", []))
    if not locks:
        print("   none")
    faulty = state.get("judgements", [])
    print(f"   {'telegrams:':<18}{state['line'].get('telegrams', '?')} received, {len(faulty)} of them faulty")
    for finding in faulty[:10]:
        print(f"   {'':<18}{finding}")


main()
