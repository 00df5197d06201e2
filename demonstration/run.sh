#!/usr/bin/env bash
# Programs a lock of the demonstration installation through a virtual adapter on a real serial device.
# Called by ./demo with the folder of the built programs; everything is written below a temporary folder.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
bin=$1
lock=${2:-1}
place=$(mktemp -d)
# shellcheck source=demonstration/common.sh
source "$here/common.sh"
trap cleanup EXIT
trap 'exit 130' INT TERM

say "1. The demonstration installation: data files made from demonstration/installation.json"
make_installation
find "$place/DAT" -type f -printf '   %f\n' | sort

say "2. A virtual adapter and virtual locks behind a serial device"
start_simulator

say "3. Lock $lock: history first, then its whole dataset (administrator code 123456)"
echo 123456 | "$bin/src/console/qvmctl" --dir "$place" --port "$place/com1" program "$lock" --history --code-from -

say "4. The events that were read"
show_events

say "5. What the lock holds now"
stop_simulator
python3 "$here/show_state.py" "$place/state.json" "$here/installation.json" "$lock"
