#!/usr/bin/python3
"""Writes the golden schedule files of this folder byte by byte from the layout of the file
format alone, so that they owe nothing to the program's own writer.

Each NAME.scl holds its parts in the order in which a save writes them: per year, in the
year chain's order, each month's records, then the month, and the year behind its last month;
within a month the records day by day in the order of the day's list (all-day items first,
then by start time), an item over several days at the first of its days in that month. So a
load and a save must give the same bytes back. Where the load changes a field (a series of one
record becomes a plain item, a private level becomes the flag 1), NAME.saved.scl holds the bytes
the save must give instead.

Run it from anywhere: python3 make_files.py. The files are committed; run it again only to
change them, and then check the dumps by hand before `scripts/update-golden` takes them."""

import pathlib
import struct

HERE = pathlib.Path(__file__).resolve().parent
NONE = -1

# Rule words: daily every day, weekly on Thursdays, yearly on December 31; over several days.
DAILY = 0x0800
WEEKLY_THURSDAY = 0x1000 | 4 << 2
YEARLY_DEC_31 = 0x4000 | 12 << 6 | 31 << 1
OVER_DAYS = 0x8000


def stamp(year, month, day, hour, minute, second):
    """A creation stamp: date and time packed below the two top bits."""
    value = 0xC0000000 | (((year % 10) * 16 + month) * 32 + day) << 16
    value |= hour << 11 | minute << 5 | second // 2
    return value - (1 << 32)  # held signed


class Record:
    """A record: the 38-byte fixed part and its texts (8-bit bytes)."""

    def __init__(self, date, end, start, finish, title, place=b"", memo=b"", sub=0,
                 stamp=0, parent_sub=0, parent_stamp=0, kind=0, private=0, alarm=None):
        self.date, self.end, self.start, self.finish = date, end, start, finish
        self.title, self.place, self.memo = title, place, memo
        self.sub, self.stamp = sub, stamp
        self.parent_sub, self.parent_stamp = parent_sub, parent_stamp
        self.kind, self.private, self.alarm = kind, private, alarm
        self.prev = self.next = None  # the records around it in its chain

    def variable(self):
        out = b""
        for text in (self.title, self.place, self.memo):
            out += struct.pack("<H", len(text)) + text
        if self.alarm is None:
            return out + struct.pack("<H", 0)
        sound, lead = self.alarm
        return out + struct.pack("<H", 1) + sound.ljust(8, b"\0") + struct.pack("<H", lead)

    def size(self):
        return 38 + len(self.variable())

    def bytes(self, at):
        (y, m, d), (ey, em, ed) = self.date, self.end
        variable = self.variable()
        return struct.pack("<iiBBHBBHhhhihihhh", at[self.prev], at[self.next], d, m, y, ed, em,
                           ey, self.start, self.finish, self.sub, self.stamp, self.parent_sub,
                           self.parent_stamp, self.kind - 0x10000 if self.kind > 0x7FFF else
                           self.kind, self.private, len(variable)) + variable


class Month:
    """A month: its day chains (day -> records in list order) and its multi-day chain."""

    def __init__(self, month, days=None, multi=()):
        self.month, self.days, self.multi = month, days or {}, list(multi)
        self.next = None
        for chain in list(self.days.values()) + [self.multi]:
            for before, after in zip(chain, chain[1:]):
                before.next, after.prev = after, before

    def size(self):
        return 134

    def bytes(self, at):
        heads = [at[self.days[d][0]] if d in self.days else NONE for d in range(1, 32)]
        return struct.pack("<Hi31ii", self.month, at[self.next], *heads,
                           at[self.multi[0]] if self.multi else NONE)


class Year:
    """A year: its months in chain order and its holiday masks (month -> day bits)."""

    def __init__(self, year, months=(), on=None, off=None):
        self.year, self.months = year, list(months)
        self.on, self.off = on or {}, off or {}
        self.next = None
        for before, after in zip(self.months, self.months[1:]):
            before.next = after

    def size(self):
        return 106

    def bytes(self, at):
        on = [self.on.get(m, 0) for m in range(1, 13)]
        off = [self.off.get(m, 0) for m in range(1, 13)]
        return struct.pack("<Hii12i12i", self.year, at[self.next],
                           at[self.months[0]] if self.months else NONE, *on, *off)


def write(name, week_mask, years, order):
    """Lays out the parts in `order` behind the header and writes tests/data/scl/golden/name."""
    for before, after in zip(years, years[1:]):
        before.next = after
    at = {None: NONE}
    offset = 12
    for part in order:
        at[part] = offset
        offset += part.size()
    private = sum(1 for part in order if isinstance(part, Record) and part.private != 0)
    data = b"Q39E" + struct.pack("<HHi", private, week_mask, at[years[0]] if years else NONE)
    for part in order:
        data += part.bytes(at)
    (HERE / name).write_bytes(data)


def kinds(saved):
    """Every kind of record on one month, July 1998, and a year of holiday marks alone."""
    weekly = stamp(1998, 7, 1, 8, 0, 0)
    standup = [Record((1998, 7, 9), (1998, 7, 23), 480, 510, b"Standup", sub=n,
                      stamp=weekly, parent_sub=1, parent_stamp=weekly, kind=WEEKLY_THURSDAY)
               for n in (1, 2, 3)]
    fair = Record((1998, 7, 9), (1998, 7, 9), -1, -1, b"Fair", stamp=stamp(1998, 7, 1, 9, 0, 0))
    meeting = Record((1998, 7, 9), (1998, 7, 9), 540, 600, b"Meeting", b"Room 1",
                     b"Agenda:\nbudget\n\nplans", stamp=stamp(1998, 7, 1, 9, 0, 2),
                     alarm=(b"SCHALARM", 15))
    untitled = Record((1998, 7, 10), (1998, 7, 10), 600, 630, b"",
                      stamp=stamp(1998, 7, 1, 9, 0, 4), alarm=(b"ABCDEFGH", 999))
    # A load turns tabs into blanks; a save writes line ends as LF alone.
    tabbed = Record((1998, 7, 11), (1998, 7, 11), 0, 1439, b"Tab here" if saved else b"Tab\there",
                    b"in place" if saved else b"in\tplace", b"a b\nc" if saved else b"a\tb\r\nc",
                    stamp=stamp(1998, 7, 1, 9, 0, 6))
    trip_stamp = stamp(1998, 7, 1, 10, 0, 0)
    trip = Record((1998, 7, 20), (1998, 7, 22), -1, -1, b"Trip", sub=1, stamp=trip_stamp,
                  parent_sub=1, parent_stamp=trip_stamp, kind=OVER_DAYS)
    long_stamp = stamp(1998, 7, 1, 10, 0, 2)
    long_trip = [Record((1998, 7, 30), (1998, 8, 2), -1, -1, b"Long trip", sub=1,
                        stamp=long_stamp, parent_sub=1, parent_stamp=long_stamp, kind=OVER_DAYS)
                 for _ in (7, 8)]
    lone_stamp = stamp(1998, 7, 1, 10, 0, 4)
    lone = Record((1998, 7, 27), (1998, 7, 27), 720, 780, b"Lone day", sub=1, stamp=lone_stamp,
                  parent_sub=1, parent_stamp=lone_stamp, kind=0 if saved else OVER_DAYS)
    july = Month(7, {9: [fair, standup[0], meeting], 10: [untitled], 11: [tabbed],
                     16: [standup[1]], 23: [standup[2]], 27: [lone]},
                 multi=[trip, long_trip[0]])
    august = Month(8, multi=[long_trip[1]])
    y1998 = Year(1998, [july, august], on={7: 1 << 2}, off={7: 1 << 10})
    y1999 = Year(1999, on={1: 1 << 0 | 1 << 30}, off={12: 1 << 24})
    order = [fair, standup[0], meeting, untitled, tabbed, standup[1], trip, standup[2], lone,
             long_trip[0], july, long_trip[1], august, y1998, y1999]
    return [y1998, y1999], order


def year_end(saved):
    """Spans over a year's end, in a file whose years come latest first."""
    trip_stamp = stamp(1998, 12, 1, 12, 0, 0)
    trip = [Record((1998, 12, 30), (1999, 1, 2), -1, -1, b"New Year trip", sub=1,
                   stamp=trip_stamp, parent_sub=1, parent_stamp=trip_stamp, kind=OVER_DAYS)
            for _ in (1999, 1998)]
    count_stamp = stamp(1998, 12, 1, 12, 0, 2)
    countdown = [Record((1998, 12, 31), (1999, 1, 1), 1380, 1410, b"Countdown", sub=n,
                        stamp=count_stamp, parent_sub=1, parent_stamp=count_stamp, kind=DAILY)
                 for n in (2, 1)]
    early = Record((1999, 1, 1), (1999, 1, 1), 10, 40, b"Early bird", b"Home",
                   stamp=stamp(1998, 12, 1, 12, 0, 4), alarm=(b"SCHALARM", 30))
    january = Month(1, {1: [early, countdown[0]]}, multi=[trip[0]])
    december = Month(12, {31: [countdown[1]]}, multi=[trip[1]])
    y1999 = Year(1999, [january])
    y1998 = Year(1998, [december], on={12: 1 << 24})
    order = [trip[0], early, countdown[0], january, y1999, trip[1], countdown[1], december,
             y1998]
    return [y1999, y1998], order


def end_2099(saved):
    """Series that end on the calendar's last day."""
    days_stamp = stamp(2099, 12, 1, 8, 0, 0)
    last_days = [Record((2099, 12, 29), (2099, 12, 31), 540, 600, b"Last days", sub=n,
                        stamp=days_stamp, parent_sub=1, parent_stamp=days_stamp, kind=DAILY)
                 for n in (1, 2, 3)]
    trip_stamp = stamp(2099, 12, 1, 8, 0, 2)
    trip = Record((2099, 12, 30), (2099, 12, 31), -1, -1, b"Last trip", sub=1,
                  stamp=trip_stamp, parent_sub=1, parent_stamp=trip_stamp, kind=OVER_DAYS)
    year_stamp = stamp(2097, 12, 1, 8, 0, 4)
    anniversary = [Record((2097, 12, 31), (2099, 12, 31), 600, 660, b"Anniversary", sub=n,
                          stamp=year_stamp, parent_sub=1, parent_stamp=year_stamp,
                          kind=YEARLY_DEC_31)
                   for n in (1, 2, 3)]
    decembers = [Month(12, {31: [anniversary[0]]}), Month(12, {31: [anniversary[1]]}),
                 Month(12, {29: [last_days[0]], 30: [last_days[1]],
                            31: [last_days[2], anniversary[2]]}, multi=[trip])]
    years = [Year(2097, [decembers[0]]), Year(2098, [decembers[1]]),
             Year(2099, [decembers[2]])]
    order = [anniversary[0], decembers[0], years[0], anniversary[1], decembers[1], years[1],
             last_days[0], trip, last_days[1], last_days[2], anniversary[2], decembers[2],
             years[2]]
    return years, order


def code_page(saved):
    """Texts of every 8-bit byte from 0x80 to 0xFF, and an alarm sound of such bytes."""
    item = Record((2026, 11, 24), (2026, 11, 24), 540, 600, bytes(range(0x80, 0xA0)),
                  bytes(range(0xA0, 0xC0)), bytes(range(0xC0, 0x100)),
                  stamp=stamp(2026, 11, 1, 9, 0, 0), alarm=(b"\xC4\xD6\xDC\xDF\xE9", 5))
    november = Month(11, {24: [item]})
    years = [Year(2026, [november])]
    return years, [item, november, years[0]]


def japanese_932(saved):
    """Texts of a Japanese organiser in Shift-JIS: kanji, kana, half-width katakana, a character
    of the NEC extensions, and the national holidays as a PIM program delivers them, with every
    holiday name that the data link passes over. No character has a second pair in the code page,
    so a save writes the same bytes."""
    def sjis(text):
        return text.encode("cp932")
    holiday_names = ["元日", "成人の日", "建国記念日", "春分の日", "みどりの日", "憲法記念日",
                     "国民の休日", "こどもの日", "海の日", "敬老の日", "秋分の日", "体育の日",
                     "文化の日", "勤労感謝の日", "天皇誕生日", "振替休日"]
    when = stamp(2026, 11, 1, 9, 0, 0)
    culture = Record((2026, 11, 3), (2026, 11, 3), NONE, NONE, sjis("文化の日"),
                     memo=sjis("場所:日本"), stamp=when)
    labour = Record((2026, 11, 23), (2026, 11, 23), NONE, NONE, sjis("勤労感謝の日"),
                    memo=sjis("場所:日本"), stamp=when + 2)
    names = Record((2026, 11, 24), (2026, 11, 24), NONE, NONE, sjis("祝日の名前"),
                   memo=sjis("\n".join(holiday_names)), stamp=when + 4)
    meeting = Record((2026, 11, 24), (2026, 11, 24), 540, 600, sjis("会議"),
                     sjis("東京都庁 第一本庁舎"), sjis("資料を持参\n①議題の確認\n②ｶﾀｶﾅ"),
                     stamp=when + 6, alarm=(b"SCHALARM", 10))
    november = Month(11, {3: [culture], 23: [labour], 24: [names, meeting]})
    years = [Year(2026, [november])]
    return years, [culture, labour, names, meeting, november, years[0]]


def private_pc(saved):
    """Private items of several levels in a file on the PC: every one loads."""
    items = [Record((2026, 11, 24), (2026, 11, 24), 480 + 60 * n, 510 + 60 * n,
                    b"Level %d" % level, stamp=stamp(2026, 11, 1, 9, 0, 2 * n),
                    private=1 if saved and level else level)
             for n, level in enumerate((0, 1, 2, 32767, -1))]
    november = Month(11, {24: items})
    years = [Year(2026, [november])]
    return years, items + [november, years[0]]


def empty(saved):
    """The header alone, with Sunday and Saturday as weekly holidays."""
    return [], []


FILES = {"kinds": (kinds, 0x01, True), "year_end": (year_end, 0x41, False),
         "end_2099": (end_2099, 0x01, False), "code_page": (code_page, 0x01, False),
         "japanese_932": (japanese_932, 0x41, False),
         "private_pc": (private_pc, 0x01, True), "empty": (empty, 0x41, False)}

for name, (build, week_mask, changes_on_load) in FILES.items():
    write(name + ".scl", week_mask, *build(False))
    if changes_on_load:
        write(name + ".saved.scl", week_mask, *build(True))
