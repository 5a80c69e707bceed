#!/usr/bin/env bash
# Feeds the readers of what comes from outside with bytes that coverage leads to: scripts/fuzz.sh SECONDS [TARGET]
# TARGET is handover, statement or bill_file; all three in turn without it. Finds are left in build/fuzz/finds.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:?usage: scripts/fuzz.sh SECONDS [TARGET]}
targets=${2:-handover statement bill_file}
folder=build/fuzz
mkdir -p "$folder/finds"
cmake -S . -B "$folder" -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo -DWAREHOUSE_FUZZ=ON \
    >"$folder.log" 2>&1 || { cat "$folder.log"; exit 1; }
for target in $targets; do
    cmake --build "$folder" --target "fuzz_$target"
    mkdir -p "$folder/corpus/$target"
    # A good deal of a hand-over's time is spent on its file: in memory it is quicker.
    TMPDIR=/dev/shm "$folder/tests/fuzz/fuzz_$target" -max_total_time="$seconds" -max_len=4096 -timeout=20 \
        -print_final_stats=1 -artifact_prefix="$folder/finds/$target-" \
        "$folder/corpus/$target" "tests/fuzz/corpus/$target"
done
