#!/usr/bin/env bash
# Loads, exports and compares tables with the outline command, beside what sqlite3 takes for the same
# files: processor seconds of both, their ratio, memory, and the growth of the cost per row. Tells
# first how long `info` takes on a small outline.
# Usage: bench/command.sh [--smoke | --quick] OUTLINE...; the command with the words that start it
set -euo pipefail

sizes=(10000 100000 1000000)
case ${1-} in
  --smoke) sizes=(1000); shift ;;
  --quick) sizes=(1000 10000); shift ;;
esac
outline=("$@")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
export OUTLINE_STORE=$work/store

# A thousand rows per parent, two aliases and a UDA.
make_table() {
  awk -v rows="$1" 'BEGIN {
    print "parent,name,alias,alias:German,uda"
    print ",Root,Root,Wurzel,"
    groups = int((rows - 1) / 1001) + 1
    for (i = 0; i < groups; ++i) printf "Root,G%d,Group %d,Gruppe %d,group\n", i, i, i
    for (i = 0; i < rows - groups - 1; ++i)
      printf "G%d,M%07d,Member number %d,Mitglied Nummer %d,uda %d\n", i % groups, i, i, i, i % 50
  }'
}

# seconds NAME COMMAND...: sets NAME to the processor seconds that the command takes, and peak to
# its memory in MB.
seconds() {
  local -n result=$1
  shift
  local user system kilobytes
  /usr/bin/time -f '%U %S %M' -o "$work/time" "$@" >/dev/null 2>"$work/messages" || (( $? == 1 )) || {
    cat "$work/messages" >&2
    return 1
  }
  read -r user system kilobytes < <(tail -n 1 "$work/time")
  # shellcheck disable=SC2034  # the caller's variable
  result=$(awk "BEGIN { print $user + $system }")
  peak=$(( kilobytes / 1024 ))
}

theirs=0 ours=0 load=0 opening=0

ratio() { awk "BEGIN { if ($2 > 0) printf \"%.1f\", $1 / $2; else printf \"-\" }"; }

# How long a person waits for the settings of a small outline. Other processes make it longer, so the
# shortest wait counts.
make_table 100 >rows.csv
"${outline[@]}" create Bench Small --quiet
"${outline[@]}" load Bench Small rows.csv --quiet
for _ in {1..41}; do
  begun=$(date +%s%N)
  "${outline[@]}" info Bench Small >/dev/null
  echo $(( ($(date +%s%N) - begun) / 1000 ))
done | sort -n | awk '{ waits[NR] = $1 / 1000 }
  END { printf "info on an outline of 100 members: %.1f ms, the median of %d is %.1f ms\n",
               waits[1], NR, waits[int((NR + 1) / 2)] }'

printf '%-9s  %-22s  %8s  %8s  %6s  %s\n' rows work outline sqlite3 ratio 'memory (MB)'
for rows in "${sizes[@]}"; do
  make_table "$rows" >rows.csv
  { head -n 1 rows.csv; tail -n +2 rows.csv | shuf --random-source=rows.csv; } >shuffled.csv
  rm -rf store t.db
  "${outline[@]}" create Bench A --quiet
  "${outline[@]}" create Bench B --quiet
  for order in rows shuffled; do
    rm -f t.db
    seconds theirs sqlite3 t.db 'CREATE TABLE t(parent, name, alias, german, uda)' \
      'CREATE UNIQUE INDEX t_name ON t(name)' '.mode csv' ".import --skip 1 $order.csv t"
    database=A
    [[ $order == rows ]] || database=B
    seconds ours "${outline[@]}" load Bench $database $order.csv --quiet
    loading=$peak
    [[ $order == rows ]] && load=$ours
    printf '%-9s  %-22s  %8s  %8s  %6s  %s\n' "$rows" "load $order" "$ours" "$theirs" \
      "$(ratio "$ours" "$theirs")" "$loading"
  done
  seconds opening "${outline[@]}" tree Bench A --depth 0
  printf '%-9s  %-22s  %8s  %8s  %6s  %s\n' "$rows" 'open' "$opening" '' '' "$peak"
  seconds theirs sqlite3 t.db '.mode csv' '.once out.csv' 'SELECT * FROM t'
  seconds ours "${outline[@]}" export Bench A export.csv
  written=$(awk "BEGIN { print $ours - $opening }")
  printf '%-9s  %-22s  %8s  %8s  %6s  %s\n' "$rows" 'export, opening aside' "$written" "$theirs" \
    "$(ratio "$written" "$theirs")" "$peak"
  "${outline[@]}" save-as Bench A Bench C --quiet
  seconds ours "${outline[@]}" diff Bench A Bench C --quiet
  printf '%-9s  %-22s  %8s  %8s  %6s  %s\n' "$rows" 'diff, against a load' "$ours" "$load" \
    "$(ratio "$ours" "$load")" "$peak"
  tail -n +2 rows.csv | awk -F, 'NR % 100 == 50 { print "alias", $2, "German", "changed" }' >edits
  "${outline[@]}" apply Bench C edits --quiet
  seconds ours "${outline[@]}" diff Bench A Bench C --quiet
  printf '%-9s  %-22s  %8s  %8s  %6s  %s\n' "$rows" 'diff, 1 % changed' "$ours" "$load" \
    "$(ratio "$ours" "$load")" "$peak"
  printf '%-9s  %-22s  %8s us a row\n' "$rows" 'load' "$(awk "BEGIN { printf \"%.2f\", $load / $rows * 1e6 }")"
done
