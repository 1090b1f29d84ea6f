#!/usr/bin/env bash
# How the cost of a schedule grows with its size: generated schedules of 2k, 20k, 200k and 2M
# rows (the last about 150 MB), each opened by `scltool info` and `scltool resave` in fresh
# processes. Prints the median wall time and peak memory of each, net of the same command on an
# empty schedule, and each step's growth against the growth of the rows.
#
# usage: bench/scale_bench.sh [BUILD_DIR] [RUNS] [SIZES...]
# Needs make_schedule and scltool built in BUILD_DIR (default build), and /usr/bin/time.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
runs=${2:-5}
shift $(($# > 2 ? 2 : $#))
sizes=("${@:-2000 20000 200000 2000000}")
read -r -a sizes <<<"${sizes[*]}"
scltool="$build/src/cli/scltool"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
. bench/measure.sh

"$build/bench/make_schedule" "$work/empty.scl" 0 >/dev/null
read -r info0 infoKb0 < <(measure - "$scltool" info "$work/empty.scl")
read -r resave0 resaveKb0 < <(measure - "$scltool" resave "$work/empty.scl" "$work/out.scl")
echo "Empty schedule: info $info0 ms ${infoKb0} KB, resave $resave0 ms ${resaveKb0} KB (taken off below)"
printf '%9s %8s %9s %9s %9s %9s %9s %8s\n' rows file_MB info_ms info_MB resave_ms resave_MB \
  time_step mem_step
prev_rows=0 prev_ms=0 prev_kb=0
for rows in "${sizes[@]}"; do
  file="$work/s$rows.scl"
  "$build/bench/make_schedule" "$file" "$rows" >/dev/null
  read -r info kb < <(measure - "$scltool" info "$file")
  read -r resave rkb < <(measure - "$scltool" resave "$file" "$work/out.scl")
  net_ms=$((info - info0)) net_kb=$((kb - infoKb0))
  awk -v r="$rows" -v f="$(stat -c %s "$file")" -v i="$net_ms" -v k="$net_kb" \
    -v s="$((resave - resave0))" -v sk="$((rkb - resaveKb0))" -v pr="$prev_rows" \
    -v pm="$prev_ms" -v pk="$prev_kb" 'BEGIN {
      step = pr > 0 && pm > 0 ? sprintf("%9.2f", (i / pm) / (r / pr)) : sprintf("%9s", "-")
      mstep = pr > 0 && pk > 0 ? sprintf("%8.2f", (k / pk) / (r / pr)) : sprintf("%8s", "-")
      printf "%9d %8.1f %9d %9.1f %9d %9.1f %s %s\n", r, f / 1048576, i, k / 1024, s, sk / 1024,
        step, mstep}'
  prev_rows=$rows prev_ms=$net_ms prev_kb=$net_kb
  rm -f "$file"
done
echo "time_step, mem_step: growth of the net info figures against the growth of the rows (1.00 is linear)"
