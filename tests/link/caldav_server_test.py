#!/usr/bin/python3
"""The data link against a real calendar server: a Radicale on 127.0.0.1 (caldav_server.py).
scltool caldav-export puts a schedule into a calendar, and python3-caldav, a client of its own,
reads back what the server holds (checked by ics_check.py: titles, dates, rules, alarms); a
second export updates the events in place, but one that was changed on the server meanwhile is
kept and reported. Events the client writes (a rule, a day alone, an alarm) come into a
schedule with scltool caldav-import, within the period asked. A wrong password, a server that
is down, a URL that is no calendar and a server that answers late each end in their message,
with the schedule file untouched. A redirect within the host is followed, one to another host
is not; a certificate nobody trusts is refused with its fingerprint.

usage: caldav_server_test.py path/to/scltool"""

import json
import os
import subprocess
import sys
import tempfile

import caldav_server

HERE = os.path.dirname(os.path.realpath(__file__))
SCLTOOL = os.path.realpath(sys.argv[1])


def run(*args, password=caldav_server.PASSWORD, status=0):
    env = dict(os.environ, SCHEDULER_CALDAV_PASSWORD=password)
    done = subprocess.run([SCLTOOL, *args], env=env, capture_output=True, text=True,
                          stdin=subprocess.DEVNULL)
    if done.returncode != status:
        sys.exit("scltool %s: status %d\n%s" % (" ".join(args), done.returncode, done.stderr))
    return done.stderr


def rows(path):
    dump = subprocess.run([SCLTOOL, "dump", path], capture_output=True, text=True, check=True)
    return json.loads(dump.stdout)["rows"]


def server_calendar(server, url, path):
    """The events of the calendar as one iCalendar file, as the independent client reads them."""
    events = [e.icalendar_instance for e in server.calendar(url).events()]
    lines = ["BEGIN:VCALENDAR", "VERSION:2.0", "PRODID:-//check//EN"]
    for calendar in events:
        for event in calendar.walk("VEVENT"):
            lines.append(event.to_ical().decode().strip())
    lines.append("END:VCALENDAR")
    with open(path, "w") as f:
        f.write("\r\n".join(lines) + "\r\n")


def check(condition, what):
    if not condition:
        sys.exit("failed: " + what)


def main():
    work = tempfile.mkdtemp()
    os.chdir(work)
    os.environ["XDG_CONFIG_HOME"] = os.path.join(work, "config")
    os.mkdir(os.path.join(work, "tls"))
    server = caldav_server.Radicale(work)
    try:
        url = server.make_calendar("work", "Work")
        exchange(server, url)
        failures(server, url)
        redirects(server, url)
    finally:
        server.stop()
    secure = caldav_server.Radicale(os.path.join(work, "tls"), tls=True)
    try:
        said = run("caldav-export", "s.scl", secure.make_calendar("work", "Work"), "--user",
                   caldav_server.USER, status=1)
        check(said == "The calendar server's certificate is not trusted, so the connection was "
              "refused.\nSHA-256 fingerprint: %s\nExport failure!\n" % secure.fingerprint,
              "the certificate is refused: " + said)
    finally:
        secure.stop()
    print("ok")


def exchange(server, url):
    add = lambda *a: run("add", "s.scl", *a)
    add("--title", "Review", "--date", "2036/01/30", "--time", "14:00-15:30", "--repeat",
        "monthly-weekday", "--every", "1", "--count", "6", "--ordinal", "last", "--weekday", "wed",
        "--alarm", "15")
    add("--title", "Gym", "--date", "2036/01/05", "--time", "18:00-19:00", "--repeat", "weekly",
        "--every", "2", "--count", "10", "--private")
    add("--title", "Leap day", "--date", "2036/02/29", "--all-day", "--repeat", "yearly",
        "--every", "1", "--count", "5")
    add("--title", "Trip", "--date", "2036/04/28", "--end-date", "2036/05/03", "--place",
        "Lisbon, PT", "--memo", "Flight at 7\nHotel near the river")
    add("--title", "Café crème", "--date", "2036/02/10", "--time", "10:00-11:00")
    run("caldav-export", "s.scl", url, "--user", caldav_server.USER)
    with open("s.json", "w") as f:
        f.write(subprocess.run([SCLTOOL, "dump", "s.scl"], capture_output=True, text=True,
                               check=True).stdout)
    server_calendar(server, url, "server.ics")
    subprocess.run(["/usr/bin/python3", os.path.join(HERE, "ics_check.py"), "s.json",
                    "server.ics"], check=True)

    # Someone changes an event on the server; the next export updates the others and keeps it.
    calendar = server.calendar(url)
    gym = next(e for e in calendar.events() if "Gym" in e.data)
    gym.data = gym.data.replace("SUMMARY:Gym", "SUMMARY:Gym at the new place")
    gym.save()
    add("--title", "Added later", "--date", "2036/03/03", "--time", "08:00-08:30")
    said = run("caldav-export", "s.scl", url, "--user", caldav_server.USER)
    check(said == "1 appointment was changed on the server and was not replaced:\nGym\n",
          "the conflict is reported: " + said)
    summaries = sorted(str(e.icalendar_component["SUMMARY"]) for e in calendar.events())
    check(summaries == ["Added later", "Café crème", "Gym at the new place", "Leap day", "Review",
                        "Trip"], "the server keeps its version: %s" % summaries)

    # Events of another client come in: a rule, a day alone, an alarm; one outside the period
    # stays out.
    for uid, body in [
            ("weekly", "DTSTART:20360105T090000\nDTEND:20360105T100000\nSUMMARY:Standup\n"
                       "RRULE:FREQ=WEEKLY;COUNT=4"),
            ("holiday", "DTSTART;VALUE=DATE:20360310\nDTEND;VALUE=DATE:20360311\nSUMMARY:Day off"),
            ("alarm", "DTSTART:20360312T150000\nDTEND:20360312T160000\nSUMMARY:Dentist\n"
                      "BEGIN:VALARM\nACTION:DISPLAY\nDESCRIPTION:Dentist\nTRIGGER:-PT30M\n"
                      "END:VALARM"),
            ("later", "DTSTART:20370101T090000\nDTEND:20370101T100000\nSUMMARY:Next year")]:
        calendar.save_event("BEGIN:VCALENDAR\nVERSION:2.0\nPRODID:-//other//EN\nBEGIN:VEVENT\n"
                            "UID:%s@other\nDTSTAMP:20360101T000000Z\n%s\nEND:VEVENT\n"
                            "END:VCALENDAR\n" % (uid, body))
    run("caldav-import", url, "in.scl", "--user", caldav_server.USER, "--from", "2036/01/01",
        "--to", "2036/12/31")
    got = rows("in.scl")
    titles = lambda t: [r for r in got if r["Title"] == t]
    check([r["Day"] for r in titles("Standup")] == [5, 12, 19, 26], "the rule's dates")
    check(titles("Standup")[0]["RepeatKind"] != 0, "the rule comes as a series")
    check([(r["Month"], r["Day"], r["StartTime"]) for r in titles("Day off")] == [(3, 10, -1)],
          "the day alone")
    check([(r["AlarmOn"], r["AlarmLead"]) for r in titles("Dentist")] == [(1, 30)], "the alarm")
    check(len(titles("Gym at the new place")) == 10 and len(titles("Review")) == 6,
          "the exported series come back")
    check(not titles("Next year"), "nothing beyond the period")


def failures(server, url):
    before = open("in.scl", "rb").read()
    proxy = caldav_server.SlowProxy(server.port, 3)
    cases = [
        ([url], "wrong", "The calendar server refused the login."),
        (["http://127.0.0.1:%d/alice/work/" % caldav_server.free_port()], caldav_server.PASSWORD,
         "The calendar server cannot be reached."),
        ([server.principal_url], caldav_server.PASSWORD, "The URL names no calendar"),
        (["http://127.0.0.1:%d/alice/work/" % proxy.port, "--timeout", "1"],
         caldav_server.PASSWORD, "The calendar server did not answer in time."),
    ]
    for where, password, message in cases:
        said = run("caldav-import", where[0], "in.scl", "--user", caldav_server.USER, *where[1:],
                   password=password, status=1)
        check(said.startswith(message) and said.endswith("Import failure!\n"),
              "%s: %s" % (message, said))
        said = run("caldav-export", "s.scl", where[0], "--user", caldav_server.USER, *where[1:],
                   password=password, status=1)
        check(said.startswith(message) and said.endswith("Export failure!\n"),
              "%s: %s" % (message, said))
        check(open("in.scl", "rb").read() == before, "the schedule stays as it was")


def redirects(server, url):
    path = url[len(server.base) - 1:]
    here = caldav_server.Redirector(server.base)
    run("caldav-import", "http://127.0.0.1:%d%s" % (here.port, path), "via.scl", "--user",
        caldav_server.USER, "--from", "2036/01/01", "--to", "2036/12/31")
    check(len(rows("via.scl")) == len(rows("in.scl")), "the redirect within the host is followed")
    elsewhere = caldav_server.Redirector("http://127.0.0.2:%d/" % server.port)
    said = run("caldav-import", "http://127.0.0.1:%d%s" % (elsewhere.port, path), "via.scl",
               "--user", caldav_server.USER, status=1)
    check(said.startswith("The calendar server sent the request on to another server"), said)


main()
