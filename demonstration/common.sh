# What the two demonstrations share. To be sourced after `here`, `bin` (the build folder) and `place` (a temporary one).
# shellcheck shell=bash disable=SC2154
simulator=
cleanup() {
    stop_simulator
    rm -rf "$place"
}

say() { printf '\n\033[1m%s\033[0m\n' "$*"; }

make_installation() {
    cp "$bin"/lang/QVM_*.DAT "$place/"
    "$bin/src/console/qvmctl" --dir "$place" import "$here/installation.json"
}

start_simulator() {
    "$bin/src/simulator/program/qvm-simulator" --world "$here/world.json" --state "$place/state.json" \
        --link "$place/com1" --pace >"$place/simulator.log" 2>&1 &
    simulator=$!
    for _ in $(seq 100); do [ -e "$place/com1" ] && break; sleep 0.05; done
    [ -e "$place/com1" ] || { cat "$place/simulator.log"; exit 1; }
    echo "   $(readlink "$place/com1") as com1"
}

# The virtual system writes its state when it ends.
stop_simulator() {
    [ -z "$simulator" ] || { kill "$simulator" 2>/dev/null; wait "$simulator" 2>/dev/null || true; }
    simulator=
}

show_events() {
    shopt -s nullglob
    local histories=("$place"/HIST/*.HST) file
    [ ${#histories[@]} -gt 0 ] || echo "   no events"
    for file in "${histories[@]}"; do
        echo "   $(basename "$file")"
        tr -d '\r' <"$file" | sed 's/^/   /' | LC_ALL=C expand -t 4,28,42,52 | iconv -f CP1252 -t UTF-8
    done
}
