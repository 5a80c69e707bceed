#!/bin/bash
# Presses random keys, types digits, clicks and turns the wheel in the bill windows, the pickers and the main window:
#   scripts/monkey.sh MINUTES [SEED] [FOLDER]
# FOLDER holds WHMO.exe and acctset, build/demo as demo.sh makes it unless named. It works on a copy of the demo
# account set under an X server of its own. A crash or a hang ends it with the seed and the last hundred inputs; at the
# end `acctset check` prints what it finds, to be read by a person.
set -euo pipefail

minutes=${1:?usage: scripts/monkey.sh MINUTES [SEED] [FOLDER]}
seed=${2:-$(date +%s)}
cd "$(dirname "$0")/.."
folder=$(realpath "${3:-build/demo}")
. scripts/xvfb.sh

work=$(mktemp -d)
program=
cleanup() {
    [ -z "$program" ] || kill -9 "$program" 2>/dev/null || true
    kill "$XVFB_PID" 2>/dev/null || true
    wait 2>/dev/null || true
    rm -rf "$work"
}
start_xvfb
trap cleanup EXIT
mkdir -p "$work/Data" "$work/DataBak"
cp "$folder/WHMO.exe" "$folder/acctset" "$work"
acctset=$work/acctset
"$acctset" create "$work/Data/demo.db" --demo
export XDG_RUNTIME_DIR=$work XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/share
chmod 700 "$work"
RANDOM=$((seed % 32768))
echo "Seed $seed, $minutes minutes."

# What a start opens: operation and head table of a saved bill, or the main window.
starts=(
    "同价调拨 TabSamePriceMove" "异价调拨 TabDiffPriceMove" "商品调价 TabChangePrice" "盘点报损 TabCheckLose"
    "盘点报溢 TabCheckOver" "商品组装 TabWareGroup" "商品拆卸 TabWarePiece" "- -"
)
keys=(
    Return Return Return Tab Tab shift+Tab Left Right Up Down Home End Prior Next Escape space BackSpace Delete F1 F2 F4
    F6 F7 F8 F9 F11 F12 ctrl+n ctrl+s ctrl+s ctrl+i ctrl+p ctrl+t ctrl+Insert ctrl+Delete ctrl+Prior ctrl+Next ctrl+v
    ctrl+a ctrl+c alt+f alt+e alt+b alt+p alt+h alt+Down alt+3 alt+4 alt+y alt+n
)
texts=(0 1 2 3 7 12 0101 0202 002 010 01010 1.5 -3 +1 1115 20231115 1332 99999 1e20 . % x)

pick() { # pick NAME: a random element of an array
    local -n list=$1
    picked=${list[RANDOM % ${#list[@]}]}
}

open_window() {
    local start word table code=
    pick starts
    read -r word table <<<"$picked"
    local options=()
    [ $((RANDOM % 3)) -gt 0 ] || options=(--currencies)
    if [ "$word" != - ]; then
        code=$(sqlite3 "$work/Data/demo.db" "select Code from $table order by Code limit 1 offset $((RANDOM % 20))")
        options+=(--directive1 "$word" --directive2 "$word" --directive3 "$table" --directive4 "$code")
    fi
    "$acctset" handover "$work" --data demo.db --date 2023-12-30 "${options[@]}"
    "$work/WHMO.exe" 2>>"$work/stderr" &
    program=$!
    starts_made=$((starts_made + 1))
    record "start $word $code"
    wait_for_window "$program" || fail "no window"
}

record() {
    inputs+=("$1")
    [ ${#inputs[@]} -le 100 ] || inputs=("${inputs[@]: -100}")
}

fail() {
    echo "FAILED: $1. Seed $seed, start $starts_made, the last inputs:"
    printf '%s\n' "${inputs[@]}"
    tail -20 "$work/stderr"
    cp "$work/Data/demo.db" "monkey-$seed.db"
    exit 1
}

# Where no window manager is, the newest window gets the keys: a box or a picker over the bill.
focus_newest() {
    local window
    window=$(xdotool search --onlyvisible --pid "$program" 2>/dev/null | tail -1) || return 0
    [ -z "$window" ] || xdotool windowfocus "$window" 2>/dev/null || true
}

is_alive() {
    kill -0 "$program" 2>/dev/null
}

# A process that neither sleeps nor ends for twenty seconds hangs.
is_hung() {
    local round
    for round in $(seq 20); do
        is_alive || return 1
        case $(awk '{print $3}' "/proc/$program/stat") in
        S) return 1 ;;
        esac
        sleep 1
    done
    return 0
}

act() {
    case $((RANDOM % 20)) in
    0 | 1 | 2 | 3 | 4 | 5)
        pick texts
        record "type $picked"
        xdotool type --delay 1 -- "$picked"
        ;;
    6 | 7)
        local x=$((RANDOM % 1366)) y=$((RANDOM % 768))
        record "click $x $y"
        xdotool mousemove "$x" "$y" click $((RANDOM % 8 == 0 ? 3 : 1))
        ;;
    8)
        local wheel=$((4 + RANDOM % 2))
        record "wheel $wheel"
        xdotool click --repeat 3 --delay 1 "$wheel"
        ;;
    *)
        pick keys
        record "key $picked"
        xdotool key --delay 1 "$picked"
        ;;
    esac
}

inputs=()
starts_made=0
actions=0
until_second=$((SECONDS + minutes * 60))
while [ "$SECONDS" -lt "$until_second" ]; do
    open_window
    for _ in $(seq 400); do
        is_alive && [ "$SECONDS" -lt "$until_second" ] || break
        focus_newest
        act
        actions=$((actions + 1))
    done
    ! is_hung || fail "it hangs"
    status=0
    if is_alive; then
        kill "$program"
        wait "$program" 2>/dev/null || true
    else
        wait "$program" || status=$?
    fi
    program=
    [ "$status" -lt 128 ] || fail "it ended with signal $((status - 128))"
done
echo "$actions inputs in $starts_made starts, no crash and no hang. The account set:"
"$acctset" check "$work/Data/demo.db" || true
