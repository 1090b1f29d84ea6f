#pragma once

// The records of a schedule of the size and content of years of real use, for the benchmarks.
//
// Twenty years of items: timed and all-day items, weekly and monthly series, items over two to
// six days; titles, places and memos of a few lines as people write them, in English with
// accented letters, dashes and quotes outside ASCII, or in Japanese; some private, some with an
// alarm. 208k rows make about 143k records and a file of 15 MB, half of it text.
#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "bench/vocabulary.h"
#include "core/calendar.h"
#include "store/sch_record.h"

namespace sched {

class ScheduleMaker {
 public:
  explicit ScheduleMaker(std::uint32_t seed, const Vocabulary& words = kEnglishWords)
      : random_(seed), words_(words) {}

  // Records, one a row, until there are at least `rows`.
  std::vector<SchRecord> Make(int rows) {
    std::vector<SchRecord> records;
    records.reserve(static_cast<std::size_t>(rows) + 64);
    while (static_cast<int>(records.size()) < rows) {
      const int kind = Pick(0, 99);
      if (kind < 50) {
        records.push_back(Item(RandomDate(), Pick(0, 3) != 0));
      } else if (kind < 90) {
        AddMultiDay(records);
      } else if (kind < 97) {
        AddSeries(records, 7, Pick(4, 30));
      } else {
        AddMonthly(records);
      }
    }
    return records;
  }

  // The years that the records made next fall in (2010 to 2029 unless told); a series may run on
  // past the last.
  void SetYears(int first, int last) {
    firstYear_ = first;
    lastYear_ = last;
  }

 private:
  int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }
  const char* Any(const Words& words) {
    return words[static_cast<std::size_t>(Pick(0, static_cast<int>(words.size()) - 1))];
  }

  CivilDate RandomDate() {
    const int year = Pick(firstYear_, lastYear_);
    const int month = Pick(1, 12);
    return {year, month, Pick(1, DaysInMonth(year, month))};
  }

  static void SetDate(SchRecord& r, const CivilDate& d) { SetStartDate(r, d); }
  static void SetEnd(SchRecord& r, const CivilDate& d) { SetEndDate(r, d); }

  std::string Title() {
    std::string title = std::string(Any(words_.actions)) + " " + Any(words_.people);
    if (Pick(0, 2) == 0) title += std::string(": ") + Any(words_.topics);
    return title;
  }

  std::string Memo() {
    std::string memo;
    const int lines = Pick(1, 3);
    for (int i = 0; i < lines; ++i) {
      if (i > 0) memo += "\r\n";
      memo += Any(words_.memoLines);
    }
    return memo;
  }

  SchRecord Item(const CivilDate& date, bool timed) {
    SchRecord r;
    SetDate(r, date);
    SetEnd(r, date);
    if (timed) {
      const int start = 15 * Pick(6 * 4, 21 * 4);
      r.StartTime = static_cast<std::int16_t>(start);
      r.EndTime = static_cast<std::int16_t>(std::min(start + 15 * Pick(1, 12), 1439));
    }
    r.Title = Title();
    if (Pick(0, 9) < 5) r.Place = Any(words_.places);
    if (Pick(0, 19) < 7) r.Memo = Memo();
    r.Private = static_cast<std::int16_t>(Pick(0, 9) == 0 ? 1 : 0);
    if (timed && Pick(0, 3) == 0) {
      r.AlarmOn = 1;
      r.AlarmSound = kDefaultAlarmSound;
      r.AlarmLead = static_cast<std::int16_t>(5 * Pick(0, 12));
    }
    r.Stamp = NextStamp();
    return r;
  }

  // Rows of one series: SubNo 1 to n, one identity, the last date in every row.
  void AddRows(std::vector<SchRecord>& records, const std::vector<CivilDate>& dates, SchRecord r,
               std::int16_t kind) {
    r.Stamp = r.ParentStamp = NextStamp();
    r.ParentSubNo = 1;
    r.RepeatKind = kind;
    SetEnd(r, dates.back());
    for (std::size_t i = 0; i < dates.size(); ++i) {
      SetDate(r, dates[i]);
      r.SubNo = static_cast<std::int16_t>(i + 1);
      records.push_back(r);
    }
  }

  void AddMultiDay(std::vector<SchRecord>& records) {
    CivilDate first = RandomDate();
    // Some run into the next month.
    if (Pick(0, 4) == 0) first.day = DaysInMonth(first.year, first.month) - Pick(0, 2);
    const int days = Pick(2, 6);
    std::vector<CivilDate> dates;
    for (int i = 0; i < days; ++i) dates.push_back(AddDays(first, i));
    AddRows(records, dates, Item(first, false), kMultiDayKind);
  }

  void AddSeries(std::vector<SchRecord>& records, int step, int count) {
    const CivilDate first = RandomDate();
    std::vector<CivilDate> dates;
    for (int i = 0; i < count; ++i) dates.push_back(AddDays(first, step * i));
    const auto kind = static_cast<std::int16_t>(0x1000 | WeekdayOf(first) * 4);
    AddRows(records, dates, Item(first, true), kind);
  }

  void AddMonthly(std::vector<SchRecord>& records) {
    CivilDate date = RandomDate();
    date.day = std::min(date.day, 28);
    std::vector<CivilDate> dates;
    for (int i = Pick(6, 24); i > 0; --i) {
      dates.push_back(date);
      date.month = date.month % 12 + 1;
      if (date.month == 1) ++date.year;
    }
    const auto kind = static_cast<std::int16_t>(0x2000 | date.day);
    AddRows(records, dates, Item(dates.front(), true), kind);
  }

  std::int32_t NextStamp() { return static_cast<std::int32_t>(0xC0000000u | ++stamps_); }

  std::mt19937 random_;
  const Vocabulary& words_;
  std::uint32_t stamps_ = 0;
  int firstYear_ = 2010;
  int lastYear_ = 2029;
};

}  // namespace sched
