#!/usr/bin/env bash
# Holds the code to .clang-format and .clang-tidy. scripts/lint.sh [BASE]: with a commit, clang-tidy reads what has
# changed since; without one the whole tree.
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -t files < <(git ls-files 'src/*.cpp' 'src/*.h' 'tools/*.cpp' 'tools/*.h' 'tests/*.cpp' 'tests/*.h' 'bench/*.cpp')
clang-format --dry-run --Werror "${files[@]}"
# Without precompiled headers: they are the compiler's own, and they hide a missing include.
cmake -S . -B build/lint -G Ninja -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON >/dev/null
cmake --build build/lint --target uno_headers >/dev/null
if [ -n "${1:-}" ]; then
    git diff --name-only --diff-filter=d "$1" -- 'src/*.cpp' 'tools/*.cpp'
else
    git ls-files 'src/*.cpp' 'tools/*.cpp'
fi | xargs -r -P "$(nproc)" -n 4 clang-tidy --quiet -p build/lint 2>/dev/null
