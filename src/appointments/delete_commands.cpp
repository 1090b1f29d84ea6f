#include "appointments/delete_commands.h"

#include <tuple>

#include "appointments/occurrences.h"
#include "appointments/repeat_rule.h"
#include "appointments/texts.h"
#include "core/app_texts.h"
#include "store/chains.h"
#include "store/series_check.h"

namespace sched {
namespace {

using namespace appointment_texts;

constexpr std::int32_t kWholeMonth = 0x7FFFFFFF;  // the bits of days 1 to 31

// The place of an item's kind in the kind texts of the delete questions; nothing for a plain
// item.
std::optional<std::size_t> KindIndex(std::int32_t repeatKind) {
  switch (DecodeRepeatKind(static_cast<std::uint16_t>(repeatKind)).code) {
    case kCodeOverDays: return 0;
    case kCodeDaily: return 1;
    case kCodeWeekly: return 2;
    case kCodeMonthly:
    case kCodeMonthlyWeekday: return 3;
    case kCodeYearly:
    case kCodeYearlyWeekday: return 4;
    default: return std::nullopt;
  }
}

}  // namespace

bool DeleteCommands::Ask(const std::string& text) {
  return messages_.Show({text, kAppTitle, MsgIcon::Exclamation, MsgButtons::YesNo}) ==
         MsgAnswer::Yes;
}

bool DeleteCommands::DeleteSelection(const std::vector<int>& rows) {
  if (rows.empty()) return false;
  const auto& list = store_.Document().Tables.SchDatList;
  const bool single = rows.size() == 1;
  if (single) {
    const SchDatRow& line = list.At(rows.front());
    const std::optional<std::size_t> kind = KindIndex(line.RepeatKind);
    const std::string kindText = kind ? std::string(kDeleteKinds[*kind]) + "\r\n" : "";
    const std::string title(list.Texts(line).Title);
    if (!Ask(kDeleteQuestion + kindText + title + "?")) return false;
  } else if (!Ask(kDeleteSelected)) {
    return false;
  }
  bool removed = false;
  for (int row : rows) {
    const SchRecord saved = RowToRecord(list, row);
    const std::optional<std::size_t> kind = KindIndex(saved.RepeatKind);
    if (!single && kind &&
        !Ask(kDeleteQuestion + std::string(kDeleteKindsAgain[*kind]) + saved.Title + "?")) {
      continue;
    }
    store_.DeleteItem(saved);
    removed = true;
  }
  return removed;
}

bool DeleteCommands::DelMonth_Click(int year, int month) {
  const SchDatCTL& t = store_.Document().Tables;
  const int yearRow = FindYearRow(t, year);
  if (yearRow < 0 || FindMonthRow(t, yearRow, month) < 0) return false;
  if (!Ask(kDeleteMonth + std::to_string(year) + "/" + std::to_string(month) + ".\r\n" +
           texts::kAreYouSure)) {
    return false;
  }
  return DeleteDays({DateCode(year, month, 1), DateCode(year, month, 31)});
}

bool DeleteCommands::DelYear_Click(int year) {
  if (FindYearRow(store_.Document().Tables, year) < 0) return false;
  if (!Ask(kDeleteYear + std::to_string(year) + ".\r\n" + texts::kAreYouSure)) {
    return false;
  }
  return DeleteDays({DateCode(year, 1, 1), DateCode(year, 12, 31)});
}

bool DeleteCommands::DelBefore_Click(const CivilDate& date) {
  if (!Ask(kDeleteOlder + dates_.ShortDate(date.year, date.month, date.day) + ". " +
           texts::kAreYouSure)) {
    return false;
  }
  return DeleteDays({INT32_MIN, DateCode(date.year, date.month, date.day) - 1});
}

bool DeleteCommands::DelAfter_Click(const CivilDate& date) {
  if (!Ask(kDeleteNewer + dates_.ShortDate(date.year, date.month, date.day) + ".\r\n" +
           texts::kAreYouSure)) {
    return false;
  }
  return DeleteDays({DateCode(date.year, date.month, date.day) + 1, INT32_MAX});
}

bool DeleteCommands::DeleteDays(const DayRange& range) {
  SchDatCTL& t = store_.Document().Tables;
  BulkRun run;
  // Only the years, months and days in range are walked: a command on one month costs that
  // month's chains, whatever the size of the schedule.
  for (int y = 0; y < t.YearCount; ++y) {
    AncYYRow& year = t.AncYY.Edit(y);
    if (DateCode(year.Year, 12, 31) < range.first || DateCode(year.Year, 1, 1) > range.last) {
      continue;
    }
    ClearHolidayMarks(year, range, run);
    for (int m : MonthChain(t.AncMM, year.FirstMonth)) {
      const AncMMRow& month = t.AncMM.At(m);
      for (int day = 1; day <= 31; ++day) {
        if (!range.Holds(year.Year, month.Month, day)) continue;
        for (int row : DayChain(t.SchDatList, month.DayHead[static_cast<std::size_t>(day - 1)])) {
          BulkRemoveRow(row, run);
        }
      }
    }
  }
  for (const SeriesKey& series : run.cutSeries) RepairSeriesEnds(series);
  if (run.removedRows) CheckSeries(t);
  return run.removedRows || run.clearedMarks;
}

void DeleteCommands::ClearHolidayMarks(AncYYRow& year, const DayRange& range, BulkRun& run) {
  for (std::size_t m = 0; m < 12; ++m) {
    std::int32_t days = 0;
    for (int day = 1; day <= 31; ++day) {
      if (range.Holds(year.Year, static_cast<int>(m) + 1, day)) days |= 1 << (day - 1);
    }
    if (days == 0) continue;
    // A whole month loses every mark; a month cut by the range only those of its days in it.
    const std::int32_t keep = days == kWholeMonth ? 0 : ~days;
    for (std::int32_t* mask : {&year.HolidayOn[m], &year.HolidayOff[m]}) {
      if ((*mask & keep) != *mask) run.clearedMarks = true;
      *mask &= keep;
    }
  }
}

void DeleteCommands::BulkRemoveRow(int row, BulkRun& run) {
  const SchDatRow& r = store_.Document().Tables.SchDatList.At(row);
  if (r.Deleted == kDeleted) return;
  if (r.RepeatKind != 0) {
    if (!run.leaveRepeats) {
      run.leaveRepeats = Ask(std::string(kRepeatsDetected) + "\r\n" + kLeaveRepeats);
    }
    if (*run.leaveRepeats) return;
    run.cutSeries.insert(r.Series());
  }
  store_.RemoveRow(row);
  run.removedRows = true;
}

void DeleteCommands::RepairSeriesEnds(const SeriesKey& series) {
  auto& list = store_.Document().Tables.SchDatList;
  const RowList rows = SeriesRows(store_.Document().Tables, series);
  // The last remaining row: the highest SubNo, and of rows sharing one SubNo (the days of an
  // item over several dates read from a file) the latest date.
  const SchDatRow* last = nullptr;
  const auto order = [](const SchDatRow& r) { return std::make_tuple(r.SubNo, r.StartCode()); };
  for (int row : rows) {
    const SchDatRow& r = list.At(row);
    if (r.IsLive() && (last == nullptr || order(r) > order(*last))) last = &r;
  }
  if (last == nullptr) return;
  const CivilDate end{last->Year, last->Month, last->Day};
  for (int row : rows) {
    SchDatRow& r = list.Edit(row);
    if (!r.IsLive()) continue;
    SetEndDate(r, end);
  }
}

}  // namespace sched
