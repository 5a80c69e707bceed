#!/usr/bin/env bash
# Eight users save bills of all kinds at once on one account set, then processes that save are killed again and again:
# scripts/many_users.sh SECONDS [server], for each of the two, on a file or on a PostgreSQL server of its own. The
# ordinary tests do the same for a few seconds.
set -euo pipefail
cd "$(dirname "$0")/.."
export WAREHOUSE_SECONDS=${1:?usage: scripts/many_users.sh SECONDS [server]}
folder=build/release
cmake -S . -B "$folder" -G Ninja >"$folder.log" 2>&1 || { cat "$folder.log"; exit 1; }
cmake --build "$folder" --target test_reliability
beside=()
[ "${2:-}" = server ] && beside=(tests/postgres_server.sh)
"${beside[@]}" "$PWD/$folder/tests/test_reliability" --gtest_filter='ManyUsers.*'
