#!/usr/bin/env bash
# Builds as released and takes the figures of a PostgreSQL server of its own, as one Markdown table. Options go to the
# benchmark program.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install.sh
build=$PWD/build/release
mkdir -p build
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DWAREHOUSE_BENCH=ON >"$build.log" 2>&1 ||
    { cat "$build.log" >&2; exit 1; }
cmake --build "$build" --target server_bench >&2
tests/postgres_server.sh "$build/bench/server_bench" "$@" 2>"$build/bench/server_bench.log"
