#!/usr/bin/env bash
# Programs a lock of the demonstration installation through a virtual adapter on a real serial device.
# Called by ./demo with the folder of the built programs; everything is written below a temporary folder.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
bin=$1
lock=${2:-1}
place=$(mktemp -d)
simulator=
cleanup() {
    [ -z "$simulator" ] || { kill "$simulator" 2>/dev/null; wait "$simulator" 2>/dev/null || true; }
    rm -rf "$place"
}
trap cleanup EXIT
trap 'exit 130' INT TERM

say() { printf '\n\033[1m%s\033[0m\n' "$*"; }

say "1. The demonstration installation: data files made from demonstration/installation.json"
cp "$bin"/lang/QVM_*.DAT "$place/"
"$bin/src/console/qvmctl" --dir "$place" import "$here/installation.json"
ls "$place/DAT" | sed 's/^/   /'

say "2. A virtual adapter and virtual locks behind a serial device"
"$bin/src/simulator/program/qvm-simulator" --world "$here/world.json" --state "$place/state.json" \
    --link "$place/com1" --pace >"$place/simulator.log" 2>&1 &
simulator=$!
for _ in $(seq 100); do [ -e "$place/com1" ] && break; sleep 0.05; done
[ -e "$place/com1" ] || { cat "$place/simulator.log"; exit 1; }
echo "   $(readlink "$place/com1") as com1"

say "3. Lock $lock: history first, then its whole dataset (administrator code 123456)"
echo 123456 | "$bin/src/console/qvmctl" --dir "$place" --port "$place/com1" program "$lock" --history --code-from -

say "4. The events that were read"
shopt -s nullglob
histories=("$place"/HIST/*.HST)
[ ${#histories[@]} -gt 0 ] || echo "   no events"
for file in "${histories[@]}"; do
    echo "   $(basename "$file")"
    tr -d '\r' <"$file" | sed 's/^/   /' | LC_ALL=C expand -t 4,28,42,52 | iconv -f CP1252 -t UTF-8
done

say "5. What the lock holds now"
kill "$simulator"; wait "$simulator" 2>/dev/null || true
simulator=
python3 "$here/show_state.py" "$place/state.json" "$here/installation.json" "$lock"
