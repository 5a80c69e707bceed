#!/bin/bash
# Takes all screenshots of the documentation from a built release folder:
#   docs/screenshots.sh BUILD [OUTPUT]
# Needs Xvfb, xdotool and ImageMagick. Starts a screen of its own and ends only what it started.
set -euo pipefail

build=$(realpath "$1")
output=$(realpath -m "${2:-$(dirname "$0")/screenshots}")
work=$(mktemp -d)
program=
screen=

cleanup() {
    [ -z "$program" ] || kill "$program" 2>/dev/null || true
    [ -z "$screen" ] || kill "$screen" 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT

acctset=$build/tools/acctset/acctset
mkdir -p "$output" "$work/Data"
cp "$build/src/WHMO.exe" "$build/src/warehouse_office.so" "$work"
"$acctset" create "$work/Data/demo.db" --demo

Xvfb -displayfd 3 -noreset -screen 0 1366x768x24 3>"$work/display" 2>/dev/null &
screen=$!
until [ -s "$work/display" ]; do sleep 0.05; done
DISPLAY=:$(cat "$work/display")
XDG_RUNTIME_DIR=$work
XDG_CONFIG_HOME=$work/config
XDG_DATA_HOME=$work/share
export DISPLAY XDG_RUNTIME_DIR XDG_CONFIG_HOME XDG_DATA_HOME
chmod 700 "$work"

# open DIRECTIVE2 TABLE CODE [OPTION...]: the program on a bill, or its main window without directives
open() {
    local word=$1 table=$2 code=$3
    shift 3
    "$acctset" handover "$work" --data demo.db --date 2023-12-30 "$@" \
        --directive1 "$word" --directive2 "$word" --directive3 "$table" --directive4 "$code"
    "$work/WHMO.exe" &
    program=$!
    local window
    until window=$(xdotool search --onlyvisible --pid "$program" 2>/dev/null | tail -1) && [ -n "$window" ]; do
        sleep 0.05
    done
    xdotool windowmove "$window" 0 0 windowsize "$window" 1366 768 windowfocus "$window"
    sleep 0.5
}

keys() {
    xdotool key --delay 40 "$@"
    sleep 0.3
}

words() {
    xdotool type --delay 20 "$1"
    sleep 0.2
}

# dialog TITLE: waits for a dialog over the window, puts it in the middle and gives it the keys
dialog() {
    local window
    until window=$(xdotool search --onlyvisible --pid "$program" --name "^$1" 2>/dev/null | tail -1) &&
        [ -n "$window" ]; do
        sleep 0.05
    done
    eval "$(xdotool getwindowgeometry --shell "$window")"
    xdotool windowmove "$window" $(((1366 - WIDTH) / 2)) $(((768 - HEIGHT) / 2)) windowfocus "$window"
    sleep 0.5
}

# behind: the keys go to the bill's window again
behind() {
    xdotool windowfocus "$(xdotool search --onlyvisible --pid "$program" --name '单' 2>/dev/null | head -1)"
    sleep 0.3
}

shot() {
    import -window root "$output/$1.png"
}

close() {
    kill "$program"
    wait "$program" 2>/dev/null || true
    program=
}

# first TABLE CONDITION: code of the first bill that meets it
first() {
    sqlite3 "$work/Data/demo.db" "select Code from $1 where $2 order by Datee, Code limit 1"
}

open "" "" ""
shot main
close

# The five kinds in the states of a bill.
open 同价调拨 TabSamePriceMove "$(first TabSamePriceMove "Datee>'2023-07-01' and Auditing='' and State='正常'")"
shot transfer_saved
keys ctrl+n
shot transfer_new
for text in 0101 0202 002; do words "$text"; keys Return; done
keys ctrl+i
dialog 从Excel
shot import_rules
keys Escape
behind
keys Return Return
words 01010
shot transfer_goods_list
keys Down Down Return Right Right Right Right
keys alt+Down
shot transfer_units
keys Escape Right
words 12
shot transfer_typing
keys ctrl+s
shot transfer_stored
keys Return
close

# What is asked over a bill.
ware=$(sqlite3 "$work/Data/demo.db" "select Code from TabWare where AttributeCode<>'' order by Code limit 1")
open 同价调拨 TabSamePriceMove "$(first TabSamePriceMove "Datee>'2023-07-01' and Auditing='' and State='正常'")"
keys ctrl+n
words 0
keys Return
dialog 选择仓库
keys Down Down Down
shot warehouse_picker
keys Return
behind
for text in 0202 002; do words "$text"; keys Return; done
keys Return Return
words no-such-good
keys Return
dialog 选择商品
words 01
shot goods_picker
keys Escape
behind
keys ctrl+a
words "$ware"
keys Return Right Right Right
dialog 选择属性
keys Down Down Down
shot attribute_picker
keys Return
behind
keys F6
dialog 扫描录入
words "$(sqlite3 "$work/Data/demo.db" "select TiaoXingCode from TabWare where TiaoXingCode<>'' order by Code limit 1")"
keys Return
shot scan
keys Escape
behind
keys alt+f Up Up Up Up
shot file_menu
keys Return
dialog 界面显示格式设置
shot formats
close

open 同价调拨 TabSamePriceMove "$(first TabSamePriceMove "Datee>'2023-07-01' and Auditing<>'' and State='正常'")"
shot transfer_audited
keys alt+p Down Right
shot print_menu
keys Down Return
dialog 打印
xdotool windowsize "$(xdotool getwindowfocus)" 1366 768
xdotool windowmove "$(xdotool getwindowfocus)" 0 0
sleep 3 # the page is drawn behind the window
shot print_preview
close
open 同价调拨 TabSamePriceMove "$(first TabSamePriceMove "State='作废' and Datee>'2023-07-01'")"
shot transfer_voided
close
open 异价调拨 TabDiffPriceMove "$(first TabDiffPriceMove "Datee>'2023-07-01'")" --currencies
shot priced_transfer
close
open 商品调价 TabChangePrice "$(first TabChangePrice "Datee>'2023-07-01'")"
shot revaluation
close
open 盘点报损 TabCheckLose "$(first TabCheckLose "Datee<'2023-06-30'")"
shot loss_closed_period
close
open 盘点报溢 TabCheckOver "$(first TabCheckOver "Datee>'2023-07-01'")"
keys ctrl+n
words 0101
keys Return Return Return Return
words A
keys Return
shot overflow_new
close

# Assembly and disassembly, and an earlier one as the pattern of a new one.
open 商品拆卸 TabWarePiece "$(first TabWarePiece "Datee>'2023-07-01' and Auditing<>'' and State='正常'")"
shot disassembly_audited
close
open 商品组装 TabWareGroup "$(first TabWareGroup "Datee>'2023-07-01' and Auditing='' and State='正常'")" --currencies
shot assembly_saved
keys ctrl+n
for text in 0101 0101 002; do words "$text"; keys Return; done
keys Return Return
words 010501001
keys Return
shot assembly_new
keys ctrl+t
shot assembly_pattern
keys alt+q
shot assembly_list
keys Return
shot assembly_called_in
close

QT_FONT_DPI=144 open 同价调拨 TabSamePriceMove "$(first TabSamePriceMove "Datee>'2023-07-01' and Auditing=''")"
shot large_font
close

ls "$output"
