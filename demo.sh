#!/usr/bin/env bash
# Builds the program, makes a program folder with a demo account set in build/demo, and starts the program there on a
# saved transfer. Without a display the same happens under Xvfb: a screenshot is saved, a bill is posted with the
# companion, the stock is shown before and after, and the script ends by itself.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install.sh

demo=build/demo
mkdir -p "$demo/Data" "$demo/DataBak"
cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release >build/release.log 2>&1 ||
    { cat build/release.log; exit 1; }
cmake --build build/release --target WHMO warehouse_office acctset
cp -u build/release/src/WHMO.exe build/release/src/warehouse_office.so build/release/tools/acctset/acctset "$demo/"

acctset=$demo/acctset
data=$demo/Data/demo.db
[ -f "$data" ] || "$acctset" create "$data" --demo
"$acctset" handover "$demo" --data demo.db --date "$(date +%F)" --directive1 同价调拨原单查看 --directive2 同价调拨 \
    --directive3 TabSamePriceMove --directive4 TDD202312290001

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$demo/WHMO.exe"
fi

echo "No display here: the same under Xvfb."
. scripts/xvfb.sh
start_xvfb
program=
trap 'kill $program "$XVFB_PID" 2>/dev/null || true; wait 2>/dev/null || true' EXIT
"$demo/WHMO.exe" &
program=$!
wait_for_window "$program"
sleep 1
import -window root "$demo/screenshot.png"
echo "Screenshot: $demo/screenshot.png"

stock() { "$acctset" stock "$data" --ware 010101001 --warehouse "$1" --date 2023-12-31; }
echo "Stock of 010101001 before: 主仓 $(stock 0101), 门店仓 $(stock 0201)"
"$acctset" post "$data" scripts/demo-transfer.json
echo "Stock of 010101001 after:  主仓 $(stock 0101), 门店仓 $(stock 0201)"
