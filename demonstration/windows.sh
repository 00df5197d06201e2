#!/usr/bin/env bash
# Opens the program on the demonstration installation, with a virtual adapter behind com1, and shows afterwards what the
# locks hold that were programmed. Called by ./demo with the folder of the built programs; everything is written below
# a temporary folder.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
bin=$1
place=$(mktemp -d)
# shellcheck source=demonstration/common.sh
source "$here/common.sh"
trap cleanup EXIT
trap 'exit 130' INT TERM

say "The demonstration installation, with a virtual adapter and virtual locks behind a serial device"
make_installation >/dev/null

say "The program is open. What to try:"
cat <<'TEXT'
   1. Wait some seconds: the adapter is plugged in, the light turns from red over yellow to green by itself, and the
      tool bar comes alive.
   2. "Program locks", then the program cell of a lock: a click, or the arrow keys and Return.
   3. Answer the questions, type the administrator code 123456, press OK, and watch the progress.
   4. File > Language changes all words at once. File > Exit ends the program.
TEXT
QVM_DIR=$place "$bin/src/qvm7702" &
program=$!
sleep 3
start_simulator
wait "$program"

say "The events that were read"
show_events

say "What the locks hold that were programmed"
stop_simulator
python3 "$here/show_state.py" "$place/state.json" "$here/installation.json" programmed
