#!/usr/bin/env bash
# Opens the program in its virtual building, on the demonstration installation. Called by ./demo with the folder of the
# built programs. Nothing is written but into a temporary folder.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
bin=$1
place=$(mktemp -d)
# shellcheck source=demonstration/common.sh
source "$here/common.sh"
trap cleanup EXIT
trap 'exit 130' INT TERM
cp "$bin"/lang/QVM_*.DAT "$place/"

say "The program is open, in its virtual building: nothing real is touched. What to try:"
cat <<'TEXT'
   1. Wait some seconds: the adapter is found, and the light turns from red over yellow to green.
   2. "Program locks", then the program cell of a lock: a click, or the arrow keys and Return.
   3. Answer the questions, type the administrator code 123456, press OK, and watch the progress.
   4. In the window of the virtual building choose that lock, and enter the code of a user (see "Manage users").
   5. Read the history of the lock: it tells who came in.
   6. Take the lock away, set its clock wrong, pull the adapter out, and try again.
   7. File > Language changes all words at once. File > Exit ends the program.
TEXT
QVM_DIR=$place "$bin/src/qvm7702" --building
