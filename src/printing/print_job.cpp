#include "printing/print_job.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "appointments/texts.h"
#include "core/app_texts.h"
#include "core/calendar.h"
#include "core/path_parts.h"
#include "core/time_text.h"
#include "printing/page_layout.h"
#include "printing/texts.h"
#include "store/chains.h"

namespace sched {
namespace {

// (number, table row) pairs sorted by number: the years of AncYY, the months of a year.
using NumberedRows = std::vector<std::pair<int, int>>;

NumberedRows SortedYears(const SchDatCTL& t) {
  NumberedRows years;
  if (t.AncYY.IsEmpty()) return years;
  for (int row = 0; row < t.AncYY.Rows(); ++row) years.push_back({t.AncYY.At(row).Year, row});
  std::stable_sort(years.begin(), years.end());
  return years;
}

NumberedRows SortedMonths(const SchDatCTL& t, int yearRow) {
  NumberedRows months;
  for (const int row : MonthChain(t.AncMM, t.AncYY.At(yearRow).FirstMonth)) {
    months.push_back({t.AncMM.At(row).Month, row});
  }
  std::stable_sort(months.begin(), months.end());
  return months;
}

}  // namespace

void ForEachRecordInRange(const SchDatCTL& t, std::int32_t startCode, std::int32_t finishCode,
                          const std::function<bool(int row)>& visit) {
  for (const auto& [year, yearRow] : SortedYears(t)) {
    if (year < startCode / 10000 || year > finishCode / 10000) continue;
    for (const auto& [month, monthRow] : SortedMonths(t, yearRow)) {
      const int yearMonth = year * 100 + month;
      if (yearMonth < startCode / 100 || yearMonth > finishCode / 100) continue;
      for (int day = 1; day <= 31; ++day) {
        const std::int32_t code = DateCode(year, month, day);
        if (code < startCode || code > finishCode) continue;
        for (const int row : DayChain(t.SchDatList, GetDayHead(t, monthRow, day))) {
          const SchDatRow& r = t.SchDatList.At(row);
          if (r.blank || r.Deleted == kDeleted) continue;
          const std::int32_t rowCode = DateCode(r.Year, r.Month, r.Day);
          if (rowCode < startCode || rowCode > finishCode) continue;
          if (!visit(row)) return;
        }
      }
    }
  }
}

void WarnNoRecord(Messages& messages) {
  messages.Show(
      {print_texts::kNoRecord, print_texts::kNoRecordTitle, MsgIcon::Exclamation, MsgButtons::Ok});
}

std::string JobStamp(const DateFormatter& dates, const DateTime& now) {
  const int weekday = WeekdayOf({now.year, now.month, now.day});
  return std::string(appointment_texts::kWeekdays[static_cast<std::size_t>(weekday)]) + ", " +
         dates.ShortDate(now.year, now.month, now.day) + " " +
         TwelveHourTime(now.hour, now.minute, true, " AM", " PM") + " ";
}

std::optional<DocumentEnd> PrintSchedule(const ScheduleDocument& doc, PrintDevice& device,
                                         PrintingWindow& window, PrintJobServices s,
                                         std::int32_t PrintStartDate, std::int32_t PrintFinishDate,
                                         int copies) {
  bool PrintCancelled = false;
  device.SetFontSize(kPrintFontSize);
  window.Show([&PrintCancelled] { PrintCancelled = true; });
  int total = 0;
  ForEachRecordInRange(doc.Tables, PrintStartDate, PrintFinishDate, [&total](int) {
    ++total;
    return true;
  });
  PagePrinter pages(device, MeasureColumns(device), std::string(SplitPath(doc.ScheduleFile).name),
                    JobStamp(s.dates, s.clock.Now()));
  int printed = 0;
  for (int copy = 1; copy <= copies && !PrintCancelled && total > 0; ++copy) {
    pages.StartCopy();
    int done = 0;
    ForEachRecordInRange(doc.Tables, PrintStartDate, PrintFinishDate, [&](int row) {
      pages.PrintRecord(doc.Tables.SchDatList.At(row), doc.Tables.SchDatList.Texts(row));
      ++printed;
      window.DoEvents(++done, total);
      return !PrintCancelled;
    });
    pages.EndCopy();
  }
  if (printed == 0) {
    window.Close();
    WarnNoRecord(s.messages);
    device.KillDoc();
    return std::nullopt;
  }
  const DocumentEnd end = device.EndDoc();
  window.Close();
  // A printer that fails ends the job without a word; a file that cannot be written is told.
  if (end == DocumentEnd::FileNotWritten) {
    s.messages.Show({print_texts::kWriteError, kAppTitle, MsgIcon::Exclamation, MsgButtons::Ok});
  }
  return end;
}

}  // namespace sched
