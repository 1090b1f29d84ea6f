#!/usr/bin/env bash
# Exports schedules to iCalendar files with scltool export-ics and reads them back with a reader
# of its own (ics_check.py): every kind of series, items over several days, private items,
# alarms, texts with the characters iCalendar escapes, Japanese texts, and a series with a gap
# that no rule gives. The calendar imported again with scltool import-ics gives the same items,
# their places moved into the memo. A second export into the same file updates its events and
# keeps the events of other origin; a file that is no calendar is refused. A calendar in the
# style of the desktop programs imports with the right occurrences.
# usage: ics_export_test.sh path/to/scltool
set -euo pipefail
scltool=$(realpath "$1")
check="/usr/bin/python3 $(dirname "$(realpath "$0")")/ics_check.py"
data="$(dirname "$(realpath "$0")")/../data/link"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

add() { "$scltool" add s.scl "$@" >/dev/null; }
add --title 'Rent; due, "now"' --date 2036/08/31 --all-day --repeat monthly --every 1 --count 8
add --title 'Leap day' --date 2036/02/29 --all-day --repeat yearly --every 1 --count 5
add --title 'Review' --date 2036/01/30 --time 14:00-15:30 --repeat monthly-weekday --every 1 \
  --count 6 --ordinal last --weekday wed --alarm 15
add --title 'Second Tuesday' --date 2036/01/08 --time 09:00-09:30 --repeat monthly-weekday \
  --every 2 --count 4 --ordinal 2 --weekday tue
add --title 'Gym' --date 2036/01/05 --time 18:00-19:00 --repeat weekly --every 2 --count 10
add --title 'Every third day' --date 2036/03/01 --time 07:00-07:15 --repeat daily --every 3 \
  --count 12 --private
add --title 'Trip' --date 2036/04/28 --end-date 2036/05/03 --place 'Lisbon, PT' \
  --memo $'Flight at 7\nHotel near the river'
add --title 'Thanksgiving' --date 2036/11/27 --all-day --repeat yearly-weekday --every 1 \
  --count 3 --ordinal 4 --weekday thu
add --title 'Cut short' --date 2036/06/02 --time 10:00-11:00 --repeat weekly --every 1 --count 12
"$scltool" delete s.scl --month 2036/07 2>/dev/null  # a gap in the weekly series

"$scltool" export-ics s.scl s.ics
"$scltool" dump s.scl >s.json
$check s.json s.ics
grep -q '^RDATE' s.ics  # the series with a gap lists its dates
[ "$(grep -c '^RRULE' s.ics)" -eq 7 ]

# Back into a schedule: every row as it was, but for the place, which heads the memo.
"$scltool" import-ics s.ics back.scl
"$scltool" dump back.scl >back.json
/usr/bin/python3 - s.json back.json <<'PY'
import json
import sys


def rows(path, place_in_memo):
    result = []
    for r in json.load(open(path))["rows"]:
        memo = r["Memo"]
        if place_in_memo and r["Place"]:
            memo = "Place: " + r["Place"] + "\r\n" + memo
        # A series with a gap that no rule gives comes back as single items.
        kind = 0 if r["Title"] == "Cut short" else r["RepeatKind"]
        result.append((r["Year"], r["Month"], r["Day"], r["StartTime"], r["EndTime"], r["Title"],
                       memo, r["Private"], r["AlarmOn"], r["AlarmLead"], kind))
    return sorted(result)


before, after = rows(sys.argv[1], True), rows(sys.argv[2], False)
for missing in sorted(set(before) - set(after)):
    print("lost:", missing)
for added in sorted(set(after) - set(before)):
    print("made:", added)
sys.exit(0 if before == after else 1)
PY
! grep -q '"Place":"[^"]' back.json
[ "$(grep -o '"AlarmSound":"SCHALARM"' back.json | wc -l)" -eq "$(grep -o '"AlarmOn":1' back.json | wc -l)" ]

# Japanese texts in the Japanese code page.
"$scltool" add j.scl --title '会議' --place '東京' --memo '資料を持参' --date 2036/02/10 \
  --time 10:00-11:00 --code-page 932 >/dev/null
"$scltool" export-ics j.scl j.ics --code-page 932
"$scltool" dump j.scl --code-page 932 >j.json
$check j.json j.ics

# Exported again into a calendar with an event of another program: ours are updated, not
# doubled, and the other one stays.
sed -i 's/^END:VCALENDAR/BEGIN:VEVENT\nUID:other@example.com\nDTSTAMP:20260101T000000Z\nDTSTART:20360101T080000\nSUMMARY:Other\nEND:VEVENT\nEND:VCALENDAR/' s.ics
before=$(grep -c '^BEGIN:VEVENT' s.ics)
"$scltool" export-ics s.scl s.ics
[ "$(grep -c '^BEGIN:VEVENT' s.ics)" -eq "$before" ]
grep -q '^UID:other@example.com' s.ics

# A calendar as desktop programs write it: a time zone of its own, rules with exceptions and an
# occurrence moved, dates alone, an item over days, UTC times, alarms, a zone nobody knows.
TZ=Europe/Berlin "$scltool" import-ics "$data/pim-calendar.ics" pim.scl
"$scltool" dump pim.scl | /usr/bin/python3 -c '
import json, sys
for r in json.load(sys.stdin)["rows"]:
    s, e = r["StartTime"], r["EndTime"]
    time = "all-day" if s < 0 else "%d:%02d-%d:%02d" % (s // 60, s % 60, e // 60, e % 60)
    lead = r["AlarmLead"] if r["AlarmOn"] else -1
    print("%04d/%02d/%02d\t%s\t%s\t%d\t%d\t%d\t%s" % (r["Year"], r["Month"], r["Day"], time,
          r["Title"], r["RepeatKind"], r["Private"], lead, r["Memo"].replace("\r\n", "|")))
' >pim.rows.txt
grep -v '^#' "$data/pim-calendar.rows.txt" | diff - pim.rows.txt

printf 'no calendar\n' >bad.ics
if "$scltool" export-ics s.scl bad.ics 2>err.txt; then exit 1; fi
grep -q '^Export failure!$' err.txt
grep -q '^no calendar$' bad.ics
echo "ok"
