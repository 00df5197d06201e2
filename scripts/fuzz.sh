#!/usr/bin/env bash
# Builds every fuzzer with clang and runs each of them.
#
#   scripts/fuzz.sh [SECONDS] [NAME...]     seconds for each fuzzer (default 3); all fuzzers when none is named
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
seconds=${1:-3}
[ $# -eq 0 ] || shift

log=$(mktemp)
cmake --preset fuzz >"$log" 2>&1 || { cat "$log"; exit 1; }
cmake --build --preset fuzz --target fuzzers >"$log" 2>&1 || { tail -40 "$log"; exit 1; }

names=("$@")
if [ ${#names[@]} -eq 0 ]; then
    for source in tests/fuzz/Fuzz*.cpp; do
        name=$(basename "$source" .cpp)
        names+=("${name#Fuzz}")
    done
fi

run_one() {
    local name=$1 work
    work=$(mktemp -d)
    local seeds=()
    [ -d "tests/fuzz/corpus/$name" ] && seeds=("tests/fuzz/corpus/$name")
    if ! "build/fuzz/tests/fuzz/fuzz_$name" -max_total_time="$seconds" -artifact_prefix="$work/" -rss_limit_mb=2048 \
        -print_final_stats=1 "$work" "${seeds[@]}" >"$work/log" 2>&1; then
        tail -40 "$work/log"
        echo "fuzzer $name: FAILED (input under $work)"
        return 1
    fi
    echo "  $name: $(sed -n 's/.*number_of_executed_units: *//p' "$work/log") inputs"
    rm -rf "$work"
}
export -f run_one
export seconds
printf '%s\n' "${names[@]}" | xargs -P2 -I{} bash -c 'run_one {}'
