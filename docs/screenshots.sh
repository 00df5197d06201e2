#!/usr/bin/env bash
# Takes a picture of every window in German and English, under the colours of several desktops, light and dark, at 100 %
# and, for two of them, at 200 %, on a virtual display.
#
#   docs/screenshots.sh [FOLDER [BUILD]]
#
# FOLDER: where LANGUAGE-SCALE-PALETTE/WINDOW.png go, build/screenshots when not given. BUILD: a folder of built
# programs with their tests, build/debug when not given. Fails when a picture is missing or broken, or a text does not
# fit its place.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
folder=${1:-$root/build/screenshots}
build=${2:-$root/build/debug}
camera=$build/tests/qvm_screenshots
[ -x "$camera" ] || { echo "$camera is not there: build the preset debug first" >&2; exit 1; }

place=$(mktemp -d)
display=
cleanup() {
    [ -z "$display" ] || kill "$display" 2>/dev/null || true
    rm -rf "$place"
}
trap cleanup EXIT

cp "$build"/lang/QVM_*.DAT "$place/"
"$build/src/console/qvmctl" --dir "$place" import "$root/demonstration/installation.json" >/dev/null

mkfifo "$place/number"
Xvfb -displayfd 3 -screen 0 2800x2200x24 -nolisten tcp 3>"$place/number" 2>/dev/null &
display=$!
read -r number <"$place/number"
export DISPLAY=:$number QT_QPA_PLATFORM=xcb XDG_CONFIG_HOME=$place/config XDG_RUNTIME_DIR=$place
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=0}

status=0
declare -A palettes=([100]="breeze-light breeze-dark adwaita-dark high-contrast" [200]="breeze-light breeze-dark")
for language in Deutsch English; do
    for scale in 100 200; do
        for palette in ${palettes[$scale]}; do
            target=$folder/$language-$scale-$palette
            mkdir -p "$target"
            rm -f "$target"/*.png
            QT_SCALE_FACTOR=$((scale / 100)) "$camera" "$place" "$language" "$palette" "$target/" || status=1
        done
    done
done
"$camera" --check "$folder" || status=1
[ $status -ne 0 ] || echo "$folder"
exit $status
