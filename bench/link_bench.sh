#!/usr/bin/env bash
# Whole-process timings of the data link's iCalendar bridge on a schedule of years of real use
# (make_schedule, as cold_bench.sh makes it): `scltool export-ics` into a new calendar file and
# again into the file it wrote (which updates its events by UID), and `scltool import-ics` of
# that file into a new schedule; beside them libical's own parse of the same calendar file
# (ical_parse), the floor under every run that reads it. Prints the median wall time and the
# median peak memory of each, and the time against libical's parse.
#
# usage: bench/link_bench.sh [BUILD_DIR] [RUNS]
# Needs make_schedule, scltool and ical_parse (built when libical is found) in BUILD_DIR
# (default build), and /usr/bin/time.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
runs=${2:-11}
scltool="$build/src/cli/scltool"
ical_parse="$build/bench/ical_parse"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
schedule="$work/schedule.scl"
calendar="$work/calendar.ics"
"$build/bench/make_schedule" "$schedule"
"$scltool" export-ics "$schedule" "$calendar" >/dev/null

. bench/measure.sh

mb() { awk -v b="$(stat -c %s "$1")" 'BEGIN {printf "%.1f MB", b / 1048576}'; }
echo "Schedule: $(mb "$schedule"), $("$scltool" info "$schedule" |
  sed -n 's/^Records in the file: //p') records; calendar written: $(mb "$calendar")," \
  "$("$ical_parse" "$calendar") events; median of $runs runs"

read -r parse_ms parse_kb < <(measure - "$ical_parse" "$calendar")
printf '%-28s %8s %10s %10s\n' command ms peak_MB x_parse
# row NAME MS KB: one line of figures, the time against libical's parse.
row() {
  awk -v n="$1" -v ms="$2" -v kb="$3" -v p="$parse_ms" \
    'BEGIN {printf "%-28s %8d %10.1f %10.2f\n", n, ms, kb / 1024, ms / (p > 0 ? p : 1)}'
}
# report NAME FRESH COMMAND...: the command measured, and its line.
report() {
  local name=$1 ms kb
  shift
  read -r ms kb < <(measure "$@")
  row "$name" "$ms" "$kb"
}
row "ical_parse (libical)" "$parse_ms" "$parse_kb"
report "scltool export-ics (new)" "$work/new.ics" "$scltool" export-ics "$schedule" "$work/new.ics"
cp "$calendar" "$work/again.ics"
report "scltool export-ics (again)" - "$scltool" export-ics "$schedule" "$work/again.ics"
report "scltool import-ics" "$work/in.scl" "$scltool" import-ics "$calendar" "$work/in.scl"
echo "Imported back: $("$scltool" info "$work/in.scl" | sed -n 's/^Records in the file: //p') records"
