#!/usr/bin/env bash
# Whole-process timings on a schedule of years of real use: every run is a fresh process that
# reads the file from the page cache, as a user's command does. Prints the median wall time and
# the median peak memory of `scltool resave`, `scltool info` and `scltool dump`, on a schedule of
# English texts and on one of Japanese texts in the Japanese code page, and, when the window is
# built, the time the window takes to open the English one and paint it. Beside them, in the same
# run: a plain `cp` of the file, and libical parsing the same schedule written as iCalendar by
# the data link's bridge (what a libical-based calendar pays to open it), with the ratios.
#
# usage: bench/cold_bench.sh [BUILD_DIR] [RUNS]
# Needs make_schedule and scltool built in BUILD_DIR (default build), and /usr/bin/time; the
# window is timed when scheduler and scheduler-setup are built too.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
runs=${2:-11}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
file="$work/schedule.scl"
japanese="$work/japanese.scl"
"$build/bench/make_schedule" "$file"
"$build/bench/make_schedule" "$japanese" --japanese

. bench/measure.sh

size_kb=$(($(stat -c %s "$file") / 1024))
echo "Schedule: $((size_kb / 1024)) MB, $("$build/src/cli/scltool" info "$file" |
  sed -n 's/^Records in the file: //p') records, $("$build/src/cli/scltool" info "$file" |
  sed -n 's/^Rows (one a day of each item): //p') rows; median of $runs runs"
printf '%-16s %8s %10s %12s\n' command ms peak_MB peak/file
# report NAME FILE COMMAND...: the command's figures, its peak against the size of FILE.
report() {
  local name=$1 file_kb=$(($(stat -c %s "$2") / 1024)) ms kb
  shift 2
  read -r ms kb < <(measure - "$@")
  last_ms=$ms
  awk -v n="$name" -v ms="$ms" -v kb="$kb" -v file="$file_kb" \
    'BEGIN {printf "%-16s %8d %10.1f %12.2f\n", n, ms, kb / 1024, kb / file}'
}
scltool="$build/src/cli/scltool"
report "cp" "$file" cp "$file" "$work/copy.scl"
cp_ms=$last_ms
report "scltool resave" "$file" "$scltool" resave "$file" "$work/out.scl"
resave_ms=$last_ms
report "scltool info" "$file" "$scltool" info "$file"
info_ms=$last_ms
report "scltool dump" "$file" "$scltool" dump "$file"
if [ -x "$build/bench/ical_parse" ]; then
  "$scltool" export-ics "$file" "$work/schedule.ics"
  report "libical parse" "$work/schedule.ics" "$build/bench/ical_parse" "$work/schedule.ics"
  ical_ms=$last_ms
  awk -v i="$info_ms" -v l="$ical_ms" -v r="$resave_ms" -v c="$cp_ms" 'BEGIN {
    printf "info / libical parse: %.2f (target 0.2); resave / cp: %.1f (target 10)\n", i / l, r / c}'
fi
echo "Japanese texts: $(($(stat -c %s "$japanese") / 1048576)) MB"
report "scltool resave" "$japanese" "$scltool" resave "$japanese" "$work/out.scl" --code-page 932
report "scltool info" "$japanese" "$scltool" info "$japanese" --code-page 932

app="$build/src/app/scheduler"
setup="$build/src/setup/scheduler-setup"
[ -x "$app" ] && [ -x "$setup" ] || exit 0
# The window in an installation of its own, on the offscreen platform. It saves a picture of
# itself (which paints it) 1.5 s after it has opened the file and ends; the time shown leaves
# that wait out. The picture is an uncompressed bitmap, so that compressing it, some 40 ms for a
# PNG, is not counted as the window's.
export HOME="$work/home" XDG_CONFIG_HOME="$work/home/.config" XDG_DATA_HOME="$work/home/.local"
export QT_QPA_PLATFORM=offscreen SCHEDULER_SCREENSHOT="$work/window.bmp"
mkdir -p "$HOME"
"$setup" >/dev/null
read -r ms kb < <(measure - "$app" "$file")
awk -v ms="$ms" -v kb="$kb" \
  'BEGIN {printf "%-16s %8d %10.1f   (open and paint, the 1500 ms wait left out)\n", "window", ms - 1500, kb / 1024}'
