#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: as released, and under address and undefined-behaviour
# sanitizers.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install.sh
export LSAN_OPTIONS=suppressions=$PWD/tests/foreign_leaks.supp

# run NAME LEFT_OUT [cmake options]: LEFT_OUT is a regular expression on the names of tests
run() {
    local folder=build/$1 left_out=$2
    shift 2
    echo "== $folder"
    cmake -S . -B "$folder" -G Ninja "$@" >"$folder.log" 2>&1 || { cat "$folder.log"; return 1; }
    cmake --build "$folder" || return 1
    QT_QPA_PLATFORM=offscreen ctest --test-dir "$folder" --output-on-failure --parallel "$(nproc)" --exclude-regex "$left_out"
}

mkdir -p build
# The benchmarks are built, so that they still do when they are wanted.
run release '^$' -DCMAKE_BUILD_TYPE=Release -DWAREHOUSE_BENCH=ON
# Rules that run on a file already are the same code on a server; its store and its users are not.
run sanitize '^(quoted\..*|sqlserver\..*|postgres\.(handover|data|stock|bills|assembly))$' \
    -DCMAKE_BUILD_TYPE=Debug "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -g1" -DWAREHOUSE_SANITIZE=ON
