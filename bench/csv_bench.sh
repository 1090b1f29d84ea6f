#!/usr/bin/env bash
# Whole-process timings of the CSV commands beside the schedule file's own save, on the same
# rows in the same run: a schedule of real texts (make_schedule), written as CSV by
# `scltool export-csv`, and read back by `scltool import-csv`. Prints the median wall time of
# each and its ratio to `scltool resave` of the schedule; the import should stay within 1.5
# times the resave, the export within 1.0 times.
#
# usage: bench/csv_bench.sh [BUILD_DIR] [RUNS] [ROWS]
# Needs make_schedule and scltool built in BUILD_DIR (default build).
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
runs=${2:-11}
rows=${3:-100000}
scltool="$build/src/cli/scltool"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$build/bench/make_schedule" "$work/schedule.scl" "$rows"
"$scltool" export-csv "$work/schedule.scl" "$work/schedule.csv"

. bench/measure.sh
# The three commands take turns, run after run, so that a change in the load of the machine
# falls on all of them alike.
declare -A times
for ((i = 0; i < runs; i++)); do
  for command in resave export-csv import-csv; do
    case $command in
      resave) args=("$work/schedule.scl" "$work/out.scl") ;;
      export-csv) args=("$work/schedule.scl" "$work/out.csv") ;;
      import-csv) args=("$work/schedule.csv" "$work/in.scl") ;;
    esac
    start=$(date +%s%N)
    "$scltool" "$command" "${args[@]}" >/dev/null
    times[$command]+="$((($(date +%s%N) - start) / 1000000)) "
  done
done
# The median wall time in ms of the command.
ms_of() { printf '%s\n' ${times[$1]} | median; }

echo "Schedule: $("$scltool" info "$work/schedule.scl" | sed -n 's/^Rows (one a day of each item): //p') rows," \
  "$(($(stat -c %s "$work/schedule.scl") / 1024)) KB; CSV $(($(stat -c %s "$work/schedule.csv") / 1024)) KB;" \
  "median of $runs runs"
resave=$(ms_of resave)
export=$(ms_of export-csv)
import=$(ms_of import-csv)
printf '%-20s %8s %8s\n' command ms ratio
for line in "scltool resave:$resave" "scltool export-csv:$export" "scltool import-csv:$import"; do
  awk -v n="${line%%:*}" -v ms="${line##*:}" -v base="$resave" \
    'BEGIN {printf "%-20s %8d %8.2f\n", n, ms, ms / base}'
done
