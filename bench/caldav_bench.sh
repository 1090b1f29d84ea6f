#!/usr/bin/env bash
# Whole-process timings of the data link's CalDAV bridge against a local Radicale on
# 127.0.0.1 (tests/link/caldav_server.py): a schedule of 1,000 series (weekly, monthly and
# daily, ten dates each) put into an empty calendar with `scltool caldav-export` (every event
# new), exported again (every event over the ETag it was given), and imported back into a new
# schedule with `scltool caldav-import`. Prints the wall time, the events a second and the peak
# memory of each run.
#
# usage: bench/caldav_bench.sh [BUILD_DIR] [SERIES]
# Needs scltool and scltool-qt in BUILD_DIR (default build), radicale and python3-caldav.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
series=${2:-1000}
scltool=$(realpath "$build/src/cli/scltool")

work=$(mktemp -d)
server=
trap '[ -z "$server" ] || kill "$server"; wait 2>/dev/null; rm -rf "$work"' EXIT
export XDG_CONFIG_HOME="$work/config"
export SCHEDULER_CALDAV_PASSWORD=$(/usr/bin/python3 -c \
  'import sys; sys.path.insert(0, "tests/link"); import caldav_server; print(caldav_server.PASSWORD)')

# The schedule: the series written as a calendar file and taken in by import-ics, in one run.
/usr/bin/python3 - "$series" >"$work/series.ics" <<'PY'
import sys
rules = ["FREQ=WEEKLY", "FREQ=MONTHLY", "FREQ=DAILY;INTERVAL=3"]
print("BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//bench//EN\r")
for i in range(int(sys.argv[1])):
    hour = 8 + i % 10
    print("BEGIN:VEVENT\r\nUID:bench-%d\r\nDTSTAMP:20360101T000000Z\r\n"
          "DTSTART:2036%02d%02dT%02d0000\r\nDTEND:2036%02d%02dT%02d0000\r\n"
          "SUMMARY:Series %d\r\nLOCATION:Room %d\r\nRRULE:%s;COUNT=10\r\nEND:VEVENT\r"
          % (i, i % 12 + 1, i % 28 + 1, hour, i % 12 + 1, i % 28 + 1, hour + 1, i, i % 40,
             rules[i % 3]))
print("END:VCALENDAR\r")
PY
"$scltool" import-ics "$work/series.ics" "$work/s.scl"

/usr/bin/python3 tests/link/caldav_server.py "$work" >"$work/url" &
server=$!
for _ in $(seq 100); do
  [ -s "$work/url" ] && break
  sleep 0.2
done
url=$(cat "$work/url")

# run NAME COMMAND...: the command timed once, and its line.
run() {
  local name=$1 start end
  shift
  start=$(date +%s%N)
  /usr/bin/time -f %M -o "$work/peak" "$@" >/dev/null
  end=$(date +%s%N)
  awk -v n="$name" -v ms="$(((end - start) / 1000000))" -v kb="$(tail -n 1 "$work/peak")" \
    -v e="$series" 'BEGIN {printf "%-32s %8d %12.0f %10.1f\n", n, ms, e * 1000 / (ms > 0 ? ms : 1), kb / 1024}'
}
echo "$series series of 10 dates, Radicale on 127.0.0.1"
printf '%-32s %8s %12s %10s\n' command ms events/s peak_MB
run "caldav-export (all new)" "$scltool" caldav-export "$work/s.scl" "$url" --user alice
run "caldav-export (again, If-Match)" "$scltool" caldav-export "$work/s.scl" "$url" --user alice
run "caldav-import (all)" "$scltool" caldav-import "$url" "$work/in.scl" --user alice
echo "Imported back: $("$scltool" info "$work/in.scl" | sed -n 's/^Records in the file: //p')" \
  "records of $("$scltool" info "$work/s.scl" | sed -n 's/^Records in the file: //p') exported"
