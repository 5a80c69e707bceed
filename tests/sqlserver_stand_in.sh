#!/usr/bin/env bash
# acctset against a stand-in for SQL Server, which speaks its protocol and binds its statements strictly: the demonstration
# set there and in a file gives the same answers, and the same bills make the same rows. The stand-in is no part of this
# repository: WAREHOUSE_TDS_STAND_IN names its folder, else it is looked for beside the checkout. Exits with 77 without.
# What it cannot find: what the server's optimizer makes of a statement, and how a plan behaves under load.
# usage: sqlserver_stand_in.sh ACCTSET [TEST_PROGRAM ...], whose statements are bound as well
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
stand_in=${WAREHOUSE_TDS_STAND_IN:-$here/../../shared/tds}
python=/usr/bin/python3 # the package's own, whatever else is first in the path
skip() {
    echo "SKIPPED: $1"
    exit 77
}
[ -f "$stand_in/tds_server.py" ] || skip "there is no stand-in for SQL Server here (WAREHOUSE_TDS_STAND_IN)"
"$python" -c 'import sqlglot' 2>/dev/null || skip "there is no T-SQL parser here (package python3-sqlglot)"
odbcinst -q -d -n FreeTDS >/dev/null 2>&1 || skip "there is no driver for SQL Server here (package tdsodbc)"

acctset=$(realpath "$1")
shift
folder=$(mktemp -d)
servers=()
finish() {
    [ ${#servers[@]} -eq 0 ] || kill "${servers[@]}" 2>/dev/null || true
    rm -rf "$folder"
}
trap finish EXIT
export ODBCSYSINI=$folder ACCTSET_PASSWORD='se;c}r=e{t%41'
printf '[SQL Server]\nDriver=libtdsodbc.so\n' >"$folder/odbcinst.ini"
# The server that looks after databases, which tells whether they keep row versions.
{ "$acctset" ddl --server sqlserver; echo "create table databases(name nvarchar(128), is_read_committed_snapshot_on int);"; } \
    >"$folder/schema"
stand_in() { "$python" "$stand_in/tds_server.py" "$1" --schema "$folder/schema" "${@:2}"; }
failed=0
fail() {
    echo "FAILED: $1"
    failed=1
}

# Starts a server on a file of its own and waits until it listens; `place` is its address.
serve() {
    local port
    port=$("$python" -c 'import socket; s=socket.socket(); s.bind(("127.0.0.1",0)); print(s.getsockname()[1])')
    "$python" "$stand_in/tds_server.py" serve --schema "$folder/schema" --data "$1" --port "$port" \
        --password "$ACCTSET_PASSWORD" --log "$1.log" >"$1.out" 2>&1 &
    servers+=($!)
    place=sqlserver://sa@127.0.0.1:$port/demo
    until (: <"/dev/tcp/127.0.0.1/$port") 2>/dev/null; do kill -0 "${servers[-1]}" || { cat "$1.out"; exit 1; }; done
}

"$acctset" create "$folder/file.db" --demo
stand_in rounded --source "$folder/file.db"
"$python" - "$folder/file.db" <<'PYTHON'
import sqlite3, sys
with sqlite3.connect(sys.argv[1]) as file:
    file.execute("create table databases(name, is_read_committed_snapshot_on)")
    file.execute("insert into databases values('demo', 1)")
PYTHON
stand_in load --data "$folder/data" --source "$folder/file.db"
serve "$folder/data"

answers=$("$python" "$stand_in/compare.py" "$acctset" "$place" "$folder/file.db" --every "${WAREHOUSE_EVERY_GOOD:-60}")
grep -q ', 0 answered otherwise$' <<<"$answers" || fail "answers differ: $answers"
posts=$("$python" "$stand_in/posts.py" "$acctset" "$place" "$folder/file.db")
grep -q ', 0 answered otherwise$' <<<"$posts" || fail "bills are answered otherwise: $posts"
# The clock alone tells the rows of the two apart.
rows() { stand_in dump "$@" | grep -v '^databases' | sed -E 's/\tDateTimee=[^\t]*//'; }
diff <(rows --data "$folder/data") <(rows --source "$folder/file.db") >"$folder/rows" ||
    fail "rows differ: $(head -c 4000 "$folder/rows")"
# An integer may become a longer one.
grep -oP '^[0-9]+\t\K(WARN|ERROR 50001).*' "$folder/data.log" | grep -v 'from int to bigint' | sort -u >"$folder/warnings" || true
[ ! -s "$folder/warnings" ] || fail "statements that the server would take otherwise: $(cat "$folder/warnings")"

"$python" -c 'import sqlite3,sys; d=sqlite3.connect(sys.argv[1]); d.execute("update databases set is_read_committed_snapshot_on=0"); d.commit()' \
    "$folder/data"
echo '{"bill": "同价调拨单", "lines": []}' >"$folder/bill"
{ "$acctset" post "$place" "$folder/bill" || true; } | grep -q 'set read_committed_snapshot on' ||
    fail "nobody is told of a database without row versions"

# The statements of the rule tests, each value for a text; the one for a picture is none.
for program in "$@"; do
    WAREHOUSE_TEST_SHAPES=$folder/shapes WAREHOUSE_TEST_DIALECT=quoted "$program" --gtest_brief=1 >/dev/null || true # what fails there is said there
done
if [ $# -gt 0 ]; then
    grep -iE '^(select|insert|update|delete) ' "$folder/shapes" | sort -u >"$folder/statements"
    "$python" "$stand_in/strict.py" --schema "$folder/schema" --statements "$folder/statements" |
        grep -P '^nvarchar\(4000\)\t[0-9]' | grep -v ' to varbinary(max) ' >"$folder/refused" || true
    [ ! -s "$folder/refused" ] || fail "statements that the server refuses: $(cat "$folder/refused")"
    echo "$(wc -l <"$folder/statements") shapes of statements"
fi
tail -n 1 <<<"$answers"
tail -n 1 <<<"$posts"
exit $failed
