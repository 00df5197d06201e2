#!/usr/bin/env bash
# Runs desktop_test.py on an accessibility bus of its own: run.sh BUILD [TEST...]
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# Buses and settings are found by these two: nothing of whoever runs the tests is touched.
HOME=$(mktemp -d)
XDG_RUNTIME_DIR=$HOME
export HOME XDG_RUNTIME_DIR
unset QVM_DIR XDG_DATA_HOME
trap 'rm -rf "$HOME"' EXIT
# Debian's own Python, as its packages bring the accessibility interface.
dbus-run-session -- /usr/bin/python3 -B "$here/desktop_test.py" "$@"
