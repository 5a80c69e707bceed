#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: as released, and under address and undefined-behaviour
# sanitizers.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install.sh
export LSAN_OPTIONS=suppressions=$PWD/tests/foreign_leaks.supp

# run NAME [cmake options]
run() {
    local folder=build/$1
    shift
    echo "== $folder"
    cmake -S . -B "$folder" -G Ninja "$@" >"$folder.log" 2>&1 || { cat "$folder.log"; return 1; }
    cmake --build "$folder" || return 1
    QT_QPA_PLATFORM=offscreen ctest --test-dir "$folder" --output-on-failure --parallel "$(nproc)"
}

mkdir -p build
run release -DCMAKE_BUILD_TYPE=RelWithDebInfo
run sanitize -DCMAKE_BUILD_TYPE=Debug -DWAREHOUSE_SANITIZE=ON
