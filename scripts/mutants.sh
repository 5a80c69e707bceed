#!/usr/bin/env bash
# How many faults the tests would catch: puts those of tests/mutants.txt into a copy of the tree, one at a time, builds,
# and runs the test programs until the first fails. scripts/mutants.sh [FILTER], a regular expression on its lines.
# Without server and office tests; some 25 seconds each on two cores. What no test caught is listed at the end.
set -euo pipefail
cd "$(dirname "$0")/.."
filter=${1:-.}
tree=build/mutants/tree
build=build/mutants/build
rm -rf "$tree"
git checkout-index --all --prefix="$tree/"
cmake -S "$tree" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -g0" >"$build.log"
exec python3 scripts/mutants.py "$filter" "$tree" "$build"
