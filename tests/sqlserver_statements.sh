#!/usr/bin/env bash
# Gathers the statements that the rule tests run, in SQL Server's words, and has them and the schema read by a parser
# of T-SQL. usage: sqlserver_statements.sh ACCTSET TEST_PROGRAM ...
set -euo pipefail
python=/usr/bin/python3 # the package's own, whatever else is first in the path
if ! "$python" -c 'import sqlglot' 2>/dev/null; then
    echo "SKIPPED: there is no T-SQL parser here (package python3-sqlglot)"
    exit 77
fi
here=$(cd "$(dirname "$0")" && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
acctset=$1
shift
for program in "$@"; do
    WAREHOUSE_TEST_SHAPES=$folder/shapes WAREHOUSE_TEST_DIALECT=quoted "$program" --gtest_brief=1 >/dev/null || true # what fails there is said there
done
"$acctset" ddl --server sqlserver >"$folder/schema"
sort -u "$folder/shapes" >"$folder/statements"
"$python" "$here/sqlserver_statements.py" "$folder/schema" "$folder/statements"
