#!/usr/bin/env bash
# Holds the code to .clang-format and .clang-tidy.
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -t files < <(git ls-files 'src/*.cpp' 'src/*.h' 'tools/*.cpp' 'tools/*.h' 'tests/*.cpp' 'tests/*.h' 'bench/*.cpp')
clang-format --dry-run --Werror "${files[@]}"
[ -f build/release/compile_commands.json ] || cmake -S . -B build/release -G Ninja >/dev/null
git ls-files 'src/*.cpp' 'tools/*.cpp' |
    xargs -P "$(nproc)" -n 4 clang-tidy --quiet -p build/release 2>/dev/null
