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
trap '[ -z "$server" ] || kill "$server"; wait; rm -rf "$work"' EXIT
export XDG_CONFIG_HOME="$work/config"
export SCHEDULER_CALDAV_PASSWORD=$(/usr/bin/python3 -c \
  'import sys; sys.path.insert(0, "tests/link"); import caldav_server; print(caldav_server.PASSWORD)')

kinds=("weekly --every 1" "monthly --every 1" "daily --every 3")
for ((i = 0; i < series; i++)); do
  day=$((i % 28 + 1))
  "$scltool" add "$work/s.scl" --title "Series $i" --place "Room $((i % 40))" \
    --date "2036/$(printf %02d $((i % 12 + 1)))/$(printf %02d $day)" \
    --time "$(printf %02d $((8 + i % 10))):00-$(printf %02d $((9 + i % 10))):00" \
    --repeat ${kinds[$((i % 3))]} --count 10 >/dev/null
done

/usr/bin/python3 tests/link/caldav_server.py "$work" >"$work/url" &
server=$!
for ((i = 0; i < 100 && ! -s "$work/url"; i++)); do sleep 0.2; done
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
