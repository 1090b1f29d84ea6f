#!/usr/bin/python3
"""Reads an iCalendar file that the data link wrote, with a reader of its own (icalendar and
dateutil), and checks it against the schedule it came from, as `scltool dump` gives it: one
event for each series, item over several days and single item, its dates expanded from its
rule or its listed dates, its times, texts, class and alarm.

usage: ics_check.py DUMP.json FILE.ics   (exit 0 when they agree; else the differences)"""

import datetime
import json
import sys

import dateutil.rrule
import icalendar

OVER_DAYS = -32768
IDENTITY = 0x3FFFFFFF


def uid(row):
    if row["RepeatKind"] != 0:
        return "scheduler-series-%d-%d" % (row["ParentSubNo"], row["ParentStamp"] & IDENTITY)
    return "scheduler-item-%d-%d" % (row["SubNo"], row["Stamp"] & IDENTITY)


def expected_events(rows):
    events = {}
    for row in rows:
        event = events.setdefault(uid(row), {"rows": []})
        event["rows"].append(row)
    result = {}
    for key, event in events.items():
        first = event["rows"][0]
        dates = sorted({datetime.date(r["Year"], r["Month"], r["Day"]) for r in event["rows"]})
        timed = first["StartTime"] >= 0 and first["RepeatKind"] != OVER_DAYS
        alarm = next((r["AlarmLead"] for r in event["rows"] if r["AlarmOn"]), None)
        result[key] = {
            "dates": dates,
            "times": (first["StartTime"], max(first["EndTime"], first["StartTime"])) if timed else None,
            "summary": first["Title"], "location": first["Place"] or None,
            "description": first["Memo"].replace("\r\n", "\n") or None,
            "private": first["Private"] != 0, "alarm": alarm}
    return result


def minutes(moment):
    return moment.hour * 60 + moment.minute


def read_events(path):
    with open(path, "rb") as f:
        calendar = icalendar.Calendar.from_ical(f.read())
    result = {}
    for event in calendar.walk("VEVENT"):
        start = event.decoded("DTSTART")
        end = event.decoded("DTEND")
        timed = isinstance(start, datetime.datetime)
        if "RRULE" in event:
            rule = dateutil.rrule.rrulestr(event["RRULE"].to_ical().decode(), dtstart=start)
            moments = list(rule)
        else:
            moments = [start]
            rdates = event.get("RDATE", [])
            for rdate in rdates if isinstance(rdates, list) else [rdates]:
                moments += [d.dt for d in rdate.dts]
        dates = sorted({m.date() if isinstance(m, datetime.datetime) else m for m in moments})
        if not timed and (end - start).days > 1:  # one event over several days
            dates = [start + datetime.timedelta(days=n) for n in range((end - start).days)]
        alarms = [a.decoded("TRIGGER") for a in event.walk("VALARM")]
        result[str(event["UID"])] = {
            "dates": dates,
            "times": (minutes(start), minutes(end)) if timed else None,
            "summary": str(event["SUMMARY"]),
            "location": str(event["LOCATION"]) if "LOCATION" in event else None,
            "description": str(event["DESCRIPTION"]) if "DESCRIPTION" in event else None,
            "private": str(event.get("CLASS", "")) == "PRIVATE",
            "alarm": int(-alarms[0].total_seconds() // 60) if alarms else None}
    return result


def main():
    with open(sys.argv[1]) as f:
        expected = expected_events(json.load(f)["rows"])
    found = read_events(sys.argv[2])
    problems = []
    for key in sorted(set(expected) | set(found)):
        if expected.get(key) != found.get(key):
            problems.append("%s:\n  schedule %s\n  calendar %s" % (key, expected.get(key), found.get(key)))
    print("\n".join(problems) if problems else "%d events agree" % len(found))
    return 1 if problems else 0


sys.exit(main())
