#!/usr/bin/env bash
# Runs a command beside a PostgreSQL server of its own: a new cluster in a folder of its own, reached through a socket
# there and nowhere else, gone when the command has ended. WAREHOUSE_TEST_SERVER tells the command the folder.
# The role "tester" needs no password, "keeper" needs 'se;c}r=e{t%41'. Exits with 77 where PostgreSQL is not installed.
# usage: postgres_server.sh COMMAND ...
set -euo pipefail

tools=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -1 || true)
if [ -z "$tools" ] || [ ! -x "$tools/initdb" ]; then
    echo "SKIPPED: there is no PostgreSQL server here (package postgresql)"
    exit 77
fi
if ! odbcinst -q -d -n "PostgreSQL Unicode" >/dev/null 2>&1; then
    echo "SKIPPED: there is no driver \"PostgreSQL Unicode\" here (package odbc-postgresql)"
    exit 77
fi

folder=$(mktemp -d "${TMPDIR:-/tmp}/warehouse-pg.XXXXXX")
# The server refuses to run as root.
as_user=()
if [ "$(id -u)" -eq 0 ]; then
    chown nobody "$folder"
    as_user=(setpriv --reuid=nobody --regid=nogroup --clear-groups)
fi

server=
finish() {
    if [ -n "$server" ]; then
        kill -INT "$server" 2>/dev/null || true
        wait "$server" 2>/dev/null || true
    fi
    rm -rf "$folder"
}
trap finish EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

cd "$folder"
"${as_user[@]}" "$tools/initdb" --pgdata=data --username=tester --auth=trust --encoding=UTF8 --locale=C --no-sync \
    >initdb.log 2>&1 || { cat initdb.log; exit 1; }
printf '%s\n' 'local all keeper scram-sha-256' 'local all all trust' >data/pg_hba.conf
# Nothing here outlives the run, so nothing needs to reach the disk.
"${as_user[@]}" "$tools/postgres" -D data -k "$folder" -c listen_addresses= -c fsync=off -c synchronous_commit=off \
    -c full_page_writes=off -c autovacuum=off -c shared_buffers=64MB -c log_min_messages=fatal >server.log 2>&1 &
server=$!
for _ in $(seq 300); do
    "$tools/pg_isready" -q -h "$folder" && break
    kill -0 "$server" 2>/dev/null || { cat server.log; exit 1; }
    sleep 0.1
done
"$tools/psql" -q -h "$folder" -U tester postgres -c "create role keeper login password 'se;c}r=e{t%41'"
cd - >/dev/null

WAREHOUSE_TEST_SERVER=$folder "$@"
