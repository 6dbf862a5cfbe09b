#!/usr/bin/env bash
# Saves and opens outlines in a folder and on a PostgreSQL server side by side, beside what psql takes
# for the same bytes; and opens one outline with twenty clients at once. Run by tests/server/server.
# Seconds of the clock: most of them are spent in the server.
# Usage: bench/stores.sh [--smoke | --quick] [--turns=N] PROGRAM MAKE...; PROGRAM is bench_stores with
# the word that starts it, MAKE the words of the outline command
set -euo pipefail

sizes=(10000 100000 1000000)
turns=3
while [[ ${1-} == --* ]]; do
  case $1 in
    --smoke) sizes=(1000) turns=1 ;;
    --quick) sizes=(1000 10000) ;;
    --turns=*) turns=${1#*=} ;;
    *) echo "bench/stores.sh: unknown option '$1'" >&2; exit 2 ;;
  esac
  shift
done
program=("$1" "$2")
shift 2
outline=("$@")
server=${KEPOTL_SERVER:?}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

sql() { psql -X -q -At -v ON_ERROR_STOP=1 -h "$server" -U outline -d "$1" -c "$2"; }

# median COMMAND...: prints the middle one of what the command prints in all turns.
median() {
  local turn
  for (( turn = 0; turn < turns; ++turn )); do "$@" || exit; done | sort -g >"$work/turns"
  sed -n "$(( (turns + 1) / 2 ))p" "$work/turns"
}

# elapsed COMMAND...: prints the seconds that it takes.
elapsed() {
  local begun=$EPOCHREALTIME
  "$@" >/dev/null
  awk -v a="$begun" -v b="$EPOCHREALTIME" 'BEGIN { printf "%.3f\n", b - a }'
}

# timed DATABASE COMMAND: prints the seconds that one command of psql takes, without its start.
timed() {
  psql -X -q -v ON_ERROR_STOP=1 -h "$server" -U outline -d "$1" -c '\timing on' -c "$2" |
    awk '/^Time:/ { printf "%.3f\n", $2 / 1000 }'
}
fetch() { timed "$1" "\copy (SELECT data FROM kepotl.chunk) TO '$work/bytes' (FORMAT binary)"; }
send() {
  sql "$1" "SET client_min_messages = error; DROP TABLE IF EXISTS bytes; CREATE TABLE bytes(data bytea);
    ALTER TABLE bytes ALTER COLUMN data SET STORAGE EXTERNAL"
  timed "$1" "\copy bytes FROM '$work/bytes' (FORMAT binary)"
}
open_uncached() {
  rm -rf "$XDG_CACHE_HOME/outline"
  "${program[@]}" open "$1"
}

print_row() {
  awk -v what="$1" -v members="$2" -v folder="$3" -v store="$4" -v psql="$5" 'BEGIN {
    printf "%9d  %-5s %9.3f %9.3f %9.3f %12.2f\n", members, what, folder, store, psql,
      store / (2 * folder + psql) }'
}

echo "  members         folder    server      psql  server / (2 folder + psql)"
for members in "${sizes[@]}"; do
  sql postgres "CREATE DATABASE stores_$members"
  address="postgresql:///stores_$members?host=$server&user=outline"
  "${outline[@]}" store init --quiet --store "$address"
  folder=$work/store_$members
  folder_save=$(median "${program[@]}" save "$folder" "$members")
  server_save=$(median "${program[@]}" save "$address" "$members")
  fetch "stores_$members" >/dev/null
  psql_send=$(median send "stores_$members")
  print_row save "$members" "$folder_save" "$server_save" "$psql_send"
  folder_open=$(median "${program[@]}" open "$folder")
  server_open=$(median open_uncached "$address")
  psql_fetch=$(median fetch "stores_$members")
  print_row open "$members" "$folder_open" "$server_open" "$psql_fetch"
  cached_open=$(median "${program[@]}" open "$address")
  awk -v members="$members" -v folder="$folder_open" -v store="$cached_open" 'BEGIN {
    printf "%9d  open %10.3f %9.3f              %6.2f times the folder, from the cache\n", members, folder,
      store, store / folder }'
done

# Each client has a cache of its own, as on a machine of its own.
open_by() {
  local client clients=()
  for (( client = 0; client < $1; ++client )); do
    XDG_CACHE_HOME=$work/cache_$client "${program[@]}" open "$address" >/dev/null &
    clients+=($!)
  done
  for client in "${clients[@]}"; do wait "$client"; done
  rm -rf "$work"/cache_*
}
members=${sizes[-1]}
if (( members > 100000 )); then
  members=100000
  address="postgresql:///stores_$members?host=$server&user=outline"
fi
one=$(elapsed open_by 1)
twenty=$(elapsed open_by 20)
awk -v members="$members" -v one="$one" -v twenty="$twenty" -v cores="$(nproc)" 'BEGIN {
  printf "%9d members opened by one client: %.3f s; by twenty at once on %d cores: %.3f s, %.2f times as long\n",
    members, one, cores, twenty, twenty / one }'
