#!/bin/bash
# A clerk's day by keyboard alone: a transfer is entered, saved, audited, taken back, voided and deleted in the real
# program, and what stands in the account set is checked after each step.
#   tests/end_to_end.sh PROGRAM ACCTSET
# Starts a screen of its own and ends only what it started. Exits with 77 where the screen or the keys are missing.
set -uo pipefail

for tool in Xvfb xdotool; do
    command -v "$tool" >/dev/null || { echo "skipped: no $tool"; exit 77; }
done
program=$(realpath "$1")
acctset=$(realpath "$2")
work=$(mktemp -d)
data=$work/Data/demo.db
XVFB_PID=
pid=

cleanup() {
    [ -z "$pid" ] || kill "$pid" 2>/dev/null
    [ -z "$XVFB_PID" ] || kill "$XVFB_PID" 2>/dev/null
    rm -rf "$work"
}
trap cleanup EXIT

fail() {
    echo "failed: $*"
    [ -z "$pid" ] || titles
    cat "$work/errors" 2>/dev/null
    exit 1
}

# until_true COMMAND...: until it succeeds, a minute at most; a loaded machine is slow.
until_true() {
    for _ in $(seq 300); do
        "$@" && return 0
        kill -0 "$pid" 2>/dev/null || fail "the program has ended"
        sleep 0.2
    done
    return 1
}

titles() {
    local window
    for window in $(xdotool search --onlyvisible --pid "$pid" 2>/dev/null); do
        echo "window: $(xdotool getwindowname "$window" 2>/dev/null)"
    done
}

# Windows are told apart by their titles; a box has the one of the suite.
window_of() { xdotool search --onlyvisible --pid "$pid" --name "$1" 2>/dev/null | tail -1; }
is_open() { [ -n "$(window_of "$1")" ]; }
is_shut() { ! is_open "$1"; }
has_focus() { [ "$(xdotool getwindowfocus 2>/dev/null)" = "$(window_of "$1")" ]; }

# go_to TITLE: the keys go to this window from now on. Without a window manager nobody else hands the focus over.
go_to() {
    until_true is_open "$1" || fail "no window $1"
    local window
    window=$(window_of "$1")
    xdotool windowfocus "$window" 2>/dev/null
    until_true has_focus "$1" || fail "no focus in $1"
}

keys() { xdotool key --clearmodifiers --delay 60 "$@"; }
words() { xdotool type --clearmodifiers --delay 40 "$1"; }

# answer KEY: leaves the open box.
answer() {
    go_to '^系统提示$'
    local box
    box=$(window_of '^系统提示$')
    keys "$1"
    until_true box_left "$box" || fail "the box stays open"
}
box_left() { ! xdotool search --onlyvisible --pid "$pid" --name '^系统提示$' 2>/dev/null | grep -qx "$1"; }

stored() { "$acctset" show "$data" 同价调拨单 "$code" 2>/dev/null; }
has() { stored | grep -qE "$1"; }
has_not() { ! has "$1"; }
gone() { ! stored | grep -q .; }
step() { until_true "${@:2}" || { stored; fail "$1"; }; echo "ok: $1"; }

mkdir "$work/Data"
cp "$program" "$work/WHMO.exe"
"$acctset" create "$data" --demo >/dev/null || fail "no demo account set"
"$acctset" handover "$work" --data demo.db --date 2023-12-30 --directive1 同价调拨原单查看 --directive2 同价调拨 \
    --directive3 TabSamePriceMove --directive4 TDD202312290001 || fail "no hand-over"
. "$(dirname "$0")/../scripts/xvfb.sh"
start_xvfb
export XDG_CONFIG_HOME=$work/config QT_QPA_PLATFORM=xcb
"$work/WHMO.exe" 2>"$work/errors" &
pid=$!
go_to '^同价调拨单 TDD202312290001$'

# A new bill: warehouses and person by their codes, remark, then two lines of code, quantity and remark.
keys ctrl+n
go_to '^同价调拨单$'
for text in 0101 0202 002 keyboard ''; do
    [ -z "$text" ] || words "$text"
    keys Return
done
for line in '010101001 2 first' '010101002 3 second'; do
    read -r ware amount remark <<<"$line"
    words "$ware"
    keys Return Right Right Right Right Right
    words "$amount"
    keys Return
    words "$remark"
    keys Return
done

keys ctrl+s
answer Return
until_true is_open '^同价调拨单 TDD[0-9]+$' || fail "the bill got no code"
code=$(xdotool getwindowname "$(window_of '^同价调拨单 TDD')" | grep -o 'TDD[0-9]*')
bill="^同价调拨单 $code\$"
step "saved as $code" has '"WarehouseCodeF":"0101".*"WarehouseCodeS":"0202".*"Remark":"keyboard"'
step "two lines" has '"WareCode":"010101001".*"Amount":2,"Remark":"first".*"WareCode":"010101002".*"Amount":3,"Remark":"second"'
step "not audited" has '"SaleMan":"[^"]+".*"Auditing":"".*"lines"'

go_to "$bill"
keys F7
step "audited" has '"Auditing":"系统管理员"}.*"Auditing":"系统管理员"'
keys F8
step "audit taken back" has '"Auditing":""}.*"Auditing":""'
keys F9
answer Return # asked
answer Return # said
step "voided" has '"State":"作废".*"lines".*"State":"作废"'
go_to "$bill"
keys F12
answer Return
answer Return
step "deleted" gone
go_to '^同价调拨单$'
keys ctrl+q
for _ in $(seq 300); do
    kill -0 "$pid" 2>/dev/null || break
    sleep 0.2
done
kill -0 "$pid" 2>/dev/null && fail "the program stays after its last window"
pid=
echo "ok: left"
