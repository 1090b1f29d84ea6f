#!/usr/bin/env bash
# Prints a generated schedule to PDF through scltool and the real printer of Qt, and reads the
# pages back with pdftotext: the records in order with their dates and times, the headers and
# their page numbers per copy, a long memo whole, and the pages a picture of them shows.
# Usage: pdf_test.sh SCLTOOL [PICTURE-FOLDER]
set -euo pipefail
scltool=$1
pictures=${2:-}
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

# Three items a day over November, added out of time order, and on the 15th a fourth with a
# memo of 1024 digits without a blank.
memo=$(for i in $(seq 0 1023); do printf '%d' $((i % 10)); done)
daily=(--date 2026/11/01 --repeat daily --every 1 --count 30)
"$scltool" add "$dir/s.scl" --title Late --time 18:30-19:00 --place Hall "${daily[@]}" >/dev/null
"$scltool" add "$dir/s.scl" --title Early --time 08:00-09:15 --memo "Memo of the day" "${daily[@]}" >/dev/null
"$scltool" add "$dir/s.scl" --title Fair --all-day "${daily[@]}" >/dev/null
"$scltool" add "$dir/s.scl" --title Long --date 2026/11/15 --time 12:00-13:00 --memo "$memo" >/dev/null

"$scltool" print "$dir/s.scl" --from 2026/11/01 --to 2026/11/30 "$dir/one.pdf"
"$scltool" print "$dir/s.scl" --from 2026/11/01 --to 2026/11/30 "$dir/two.pdf" --copies 2
pages=$(pdfinfo "$dir/one.pdf" | awk '/^Pages:/ {print $2}')
[ "$pages" -ge 2 ] || fail "one copy on $pages pages"
[ "$(pdfinfo "$dir/two.pdf" | awk '/^Pages:/ {print $2}')" -eq $((2 * pages)) ] ||
  fail "two copies are not twice $pages pages"
pdftotext -layout "$dir/two.pdf" "$dir/two.txt"

# Each page has its header, with the page number counting from 1 in each copy.
expected=$( (seq 1 "$pages"; seq 1 "$pages") | sed 's/.*/File Name [ s.scl ] -&-/')
actual=$(awk 'BEGIN { RS = "\f" } NF {
    match($0, /File Name \[ [^]]* \]/); name = substr($0, RSTART, RLENGTH)
    match($0, /-[0-9]+-/); print name " " substr($0, RSTART, RLENGTH) }' "$dir/two.txt")
[ "$actual" = "$expected" ] || fail "page headers: $actual"
grep -Eq '(Sun|Mon|Tues|Wednes|Thurs|Fri|Satur)day, [0-9/]+ [0-9]{2}:[0-9]{2} [AP]M -1-' \
  "$dir/two.txt" || fail "no date and time in the header"

# The titles in date order and within a day by time, the all-day item first; twice.
one_copy=$(for day in $(seq 1 30); do
  echo Fair; echo Early; [ "$day" = 15 ] && echo Long; echo Late; done)
titles=$(grep -oE '\b(Fair|Early|Late|Long)\b' "$dir/two.txt")
[ "$titles" = "$(printf '%s\n%s' "$one_copy" "$one_copy")" ] || fail "titles out of order"

# Each date once a copy, and again at the top of a page that goes on with its day.
dates=$(grep -oE '^ *11/[0-9]{2}' "$dir/two.txt" | tr -d ' ' | uniq)
[ "$(echo "$dates" | head -30)" = "$(seq -f '11/%02g' 1 30)" ] || fail "dates: $dates"
grep -q '8:00am-9:15am' "$dir/two.txt" || fail "no time text"
grep -q '6:30pm-7:00pm' "$dir/two.txt" || fail "no afternoon time text"
[ "$(grep -c ' Allday ' "$dir/two.txt")" -eq 60 ] || fail "not every all-day item says Allday"

# The long memo is cut into lines and none of it is lost.
pdftotext -layout "$dir/one.pdf" "$dir/one.txt"
[ "$(grep -oE '[0-9]{20,}' "$dir/one.txt" | tr -d '\n')" = "$memo" ] || fail "the long memo"
awk 'length > 0' "$dir/one.txt" >/dev/null

# A range without a record, and a file that cannot be written: no file left behind.
if "$scltool" print "$dir/s.scl" --from 2027/01/01 --to 2027/12/31 "$dir/none.pdf" 2>"$dir/err"; then
  fail "an empty range printed"
fi
[ "$(cat "$dir/err")" = "There is no record to print." ] || fail "empty range: $(cat "$dir/err")"
[ ! -e "$dir/none.pdf" ] || fail "an empty range left a file"
if "$scltool" print "$dir/s.scl" --from 2026/11/01 --to 2026/11/30 "$dir/no/such.pdf" 2>"$dir/err"; then
  fail "a file in a missing folder printed"
fi
[ "$(cat "$dir/err")" = "Write error!" ] || fail "write failure: $(cat "$dir/err")"
[ -z "$(ls -A "$dir" | grep -v -E '^(s.scl|one.pdf|two.pdf|one.txt|two.txt|err)$')" ] ||
  fail "files left behind: $(ls "$dir")"

if [ -n "$pictures" ]; then
  mkdir -p "$pictures"
  pdftoppm -png -r 100 -f 1 -l 2 "$dir/one.pdf" "$pictures/printed-page"
fi
echo "$pages pages a copy"
