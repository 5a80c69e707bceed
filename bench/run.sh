#!/usr/bin/env bash
# Builds as released, takes all figures on a large account set, and prints them as one Markdown table. The set is made
# once into the build folder (delete it after a change of tables or indexes); WAREHOUSE_BENCH_SET names another file.
# Options go to the benchmark program.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install.sh
build=$PWD/build/release
export WAREHOUSE_BENCH_SET=${WAREHOUSE_BENCH_SET:-$build/bench/set.db}

mkdir -p build
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DWAREHOUSE_BENCH=ON >"$build.log" 2>&1 ||
    { cat "$build.log" >&2; exit 1; }
cmake --build "$build" --target core_bench assembly_bench window_bench office_bench import_bench WHMO acctset >&2
missed=0
"$build/bench/core_bench" "$@" 2>"$build/bench/core_bench.log" || missed=1
"$build/bench/assembly_bench" "$@" 2>"$build/bench/assembly_bench.log" || missed=1
bench/start.sh "$build" "$WAREHOUSE_BENCH_SET"
# The windows, where the list of goods is longer.
QT_QPA_PLATFORM=offscreen WAREHOUSE_BENCH_SET=$build/bench/goods.db WAREHOUSE_BENCH_GOODS=100000 \
    "$build/bench/window_bench" "$@" 2>"$build/bench/window_bench.log" || missed=1
"$build/bench/office_bench" "$@" 2>"$build/bench/office_bench.log" || missed=1
"$build/bench/import_bench" "$@" 2>"$build/bench/import_bench.log" || missed=1
exit $missed
