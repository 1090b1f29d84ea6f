#!/usr/bin/env bash
# Whole-process timing of printing: `scltool print` of a schedule of 10,000 records (real text
# lengths, over years) to a PDF file, every run a fresh process that starts the printing
# companion. Prints the median wall time, the median processor time (which a busy machine
# disturbs less), the peak memory and the pages.
#
# usage: bench/print_bench.sh [BUILD_DIR] [RUNS] [ROWS]
# Needs make_schedule, scltool and scltool-qt built in BUILD_DIR (default build), /usr/bin/time
# and pdfinfo.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
runs=${2:-5}
rows=${3:-10000}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$build/bench/make_schedule" "$work/schedule.scl" "$rows"
scltool="$build/src/cli/scltool"

times=()
cpus=()
peaks=()
for ((i = 0; i < runs; i++)); do
  start=$(date +%s%N)
  /usr/bin/time -f '%M %U %S' -o "$work/peak" \
    "$scltool" print "$work/schedule.scl" --from 1901/01/01 --to 2099/12/31 "$work/out.pdf"
  end=$(date +%s%N)
  times+=($(((end - start) / 1000000)))
  read -r peak user sys < <(tail -n 1 "$work/peak")
  peaks+=("$peak")
  cpus+=("$(awk -v u="$user" -v s="$sys" 'BEGIN {print int((u + s) * 1000)}')")
done
median() { sort -n | awk '{v[NR] = $1} END {print v[int((NR + 1) / 2)]}'; }
echo "scltool print, $rows rows to PDF: $(printf '%s\n' "${times[@]}" | median) ms," \
  "processor $(printf '%s\n' "${cpus[@]}" | median) ms," \
  "peak $(($(printf '%s\n' "${peaks[@]}" | median) / 1024)) MB," \
  "$(pdfinfo "$work/out.pdf" | awk '/^Pages:/ {print $2}') pages," \
  "$(($(stat -c %s "$work/out.pdf") / 1024)) KB; median of $runs runs"
