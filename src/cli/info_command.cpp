#include <algorithm>
#include <bit>
#include <map>
#include <vector>

#include "cli/cli_args.h"
#include "cli/cli_store.h"
#include "cli/verb.h"
#include "core/radix_sort.h"
#include "store/sch_record.h"

namespace sched {
namespace {

struct Summary {
  std::map<int, std::uint16_t> monthsOfYear;  // bit m for month m with live rows, years with a row
  int series = 0;
  int multiDay = 0;
  int alarmRows = 0;
  int privateRows = 0;
  int holidayOn = 0;
  int holidayOff = 0;
};

Summary Summarize(const SchDatCTL& t) {
  Summary s;
  for (int y = 0; y < t.YearCount; ++y) {
    const AncYYRow& year = t.AncYY.At(y);
    s.monthsOfYear[year.Year];
    for (int m = 0; m < 12; ++m) {
      s.holidayOn +=
          std::popcount(static_cast<std::uint32_t>(year.HolidayOn[static_cast<std::size_t>(m)]));
      s.holidayOff +=
          std::popcount(static_cast<std::uint32_t>(year.HolidayOff[static_cast<std::size_t>(m)]));
    }
  }
  std::vector<std::uint64_t> repeatSeries;
  std::vector<std::uint64_t> multiDaySeries;
  std::uint16_t* months = nullptr;
  int monthsYear = -1;
  const auto& list = t.SchDatList;
  for (int row = 0; !list.IsEmpty() && row < list.Rows(); ++row) {
    const SchDatRow& r = list.At(row);
    if (!r.IsLive()) continue;
    if (r.Year != monthsYear) {
      monthsYear = r.Year;
      months = &s.monthsOfYear[monthsYear];
    }
    *months = static_cast<std::uint16_t>(*months | 1u << r.Month);
    const std::uint64_t key = r.Series().Packed();
    if (r.RepeatKind == kMultiDayKind) {
      multiDaySeries.push_back(key);
    } else if (r.RepeatKind != 0) {
      repeatSeries.push_back(key);
    }
    if (r.AlarmOn > 0) ++s.alarmRows;
    if (r.Private != 0) ++s.privateRows;
  }
  const auto distinct = [](std::vector<std::uint64_t>& keys) {
    RadixSort(keys, [](std::uint64_t key) { return key; });
    return static_cast<int>(std::unique(keys.begin(), keys.end()) - keys.begin());
  };
  s.series = distinct(repeatSeries);
  s.multiDay = distinct(multiDaySeries);
  return s;
}

void WriteInfo(const ScheduleDocument& doc, std::ostream& out) {
  const Summary s = Summarize(doc.Tables);
  out << "Weekly holidays:";
  for (int w = 0; w < 7; ++w) {
    if (doc.WeekHoliday[static_cast<std::size_t>(w)] != 0) out << ' ' << WeekdayName(w);
  }
  out << "\nYears:";
  if (s.monthsOfYear.empty()) out << " none";
  out << '\n';
  for (const auto& [year, months] : s.monthsOfYear) {
    out << "  " << year << ':';
    if (months == 0) out << " holiday settings only";
    for (int month = 1; month <= 12; ++month) {
      if ((months >> month & 1) != 0) out << ' ' << month;
    }
    out << '\n';
  }
  out << "Records in the file: " << doc.LoadedRecords << '\n'
      << "Rows (one a day of each item): " << doc.Tables.RowCount << '\n'
      << "Repeat series: " << s.series << '\n'
      << "Items over multiple days: " << s.multiDay << '\n'
      << "Rows with an alarm: " << s.alarmRows << '\n'
      << "Private rows: " << s.privateRows << '\n'
      << "Holiday days set: " << s.holidayOn + s.holidayOff << " (" << s.holidayOn
      << " as holidays, " << s.holidayOff << " as workdays)\n";
}

int RunInfo(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
            CodePage page) {
  RequireArguments(args, {"FILE.scl"});
  CliStore cli(err, page);
  if (!cli.Load(args[0])) return kExitRefused;
  out << "File: " << args[0] << '\n';
  WriteInfo(cli.Document(), out);
  return kExitDone;
}

}  // namespace

const Verb kInfoVerb{"info", "FILE.scl",
                     "what the file holds: years, months, counts of rows, series, alarms", RunInfo,
                     true};

}  // namespace sched
