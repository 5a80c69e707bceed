#!/usr/bin/env bash
# start.sh BUILD SET: how long WHMO.exe takes from its start to the window of a saved transfer, on an account set of its
# own, and the memory it holds then. Prints two rows of the table of figures; runs under an X server of its own.
set -euo pipefail
build=$1
set=$2
cd "$(dirname "$0")/.."
. scripts/xvfb.sh

runs=9
folder=$build/bench/start
acctset=$build/tools/acctset/acctset
mkdir -p "$folder/Data"
cp -u "$build/src/WHMO.exe" "$folder/"
ln -sf "$(realpath "$set")" "$folder/Data/set.db"

start_xvfb
program=
trap 'kill $program "$XVFB_PID" 2>/dev/null || true; wait 2>/dev/null || true' EXIT

median() { sort -n | sed -n "$(((runs + 1) / 2))p"; }

# Milliseconds with one decimal from two readings of EPOCHREALTIME.
elapsed() { echo "$1 $2" | tr -d . | awk '{printf "%.1f\n", ($2 - $1) / 1000}'; }

# One start; appends to the lists.
measure() {
    "$acctset" handover "$folder" --data set.db --date 2025-12-31 --directive1 同价调拨原单查看 \
        --directive2 同价调拨 --directive3 TabSamePriceMove --directive4 TDD202512310001
    local from=$EPOCHREALTIME
    "$folder/WHMO.exe" 2>>"$folder/start.log" &
    program=$!
    until xdotool search --onlyvisible --all --pid "$program" --name 调拨 >/dev/null 2>&1; do
        kill -0 "$program" || return 1
    done
    times+=("$(elapsed "$from" "$EPOCHREALTIME")")
    sleep 0.5
    memory+=("$(awk '/^VmRSS/ {printf "%.1f\n", $2 / 1024}' "/proc/$program/status")")
    kill "$program"
    wait "$program" 2>/dev/null || true
    program=
}

times=()
memory=()
measure # the first one reads the files into memory
times=()
memory=()
for _ in $(seq $runs); do measure; done

# row NAME VALUE UNIT MOST
row() {
    echo "| $1 | – | $2 $3 | – | below $4 $3 | $(awk "BEGIN {print ($2 < $4) ? \"met\" : \"**missed**\"}") |"
}
row "From start to a saved bill on the screen" "$(printf '%s\n' "${times[@]}" | median)" ms 200
row "Resident memory with that bill open" "$(printf '%s\n' "${memory[@]}" | median)" MB 80
