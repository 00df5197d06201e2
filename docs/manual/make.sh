#!/usr/bin/env bash
# Makes the manuals QVM_System_<language>.pdf in BUILD/manual, with pictures of the built program.
#
#   docs/manual/make.sh BUILD
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
build=$1
folder=$build/manual
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT

cp "$build"/lang/QVM_*.DAT "$place/"
"$build/src/console/qvmctl" --dir "$place" import "$root/demonstration/installation.json" >/dev/null
export QT_QPA_PLATFORM=offscreen XDG_CONFIG_HOME=$place/config XDG_RUNTIME_DIR=$place
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=0}

declare -A names=([de]=Deutsch [en]=English [fr]=Francais [nl]=Nederlands)
for code in de en fr nl; do
    [ -d "$root/docs/manual/$code" ] || continue
    pictures=$folder/pictures-$code
    mkdir -p "$pictures"
    rm -f "$pictures"/*.png
    "$build/tests/qvm_screenshots" "$place" "${names[$code]}" breeze-light "$pictures/"
    "$build/docs/manual/build/qvm_manual" "$root" "$code" "$pictures" "$folder/QVM_System_$code.pdf"
    echo "$folder/QVM_System_$code.pdf"
done
