#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/clock.h"
#include "platform/date_formatter.h"
#include "platform/messages.h"
#include "platform/print_device.h"
#include "store/document.h"

namespace sched {

// The point size of every printed text.
inline constexpr int kPrintFontSize = 12;

// DlgPrinting as the job sees it: shown without blocking while the job runs.
class PrintingWindow {
 public:
  virtual ~PrintingWindow() = default;
  // Shows the window; its cancel button runs `cancel`.
  virtual void Show(std::function<void()> cancel) = 0;
  // Runs the events that came meanwhile, a click on cancel among them; `done` of `total`
  // records are printed.
  virtual void DoEvents(int done, int total) = 0;
  virtual void Close() = 0;
};

// Calls `visit` with each live row dated within startCode..finishCode (DateCodes), in the order
// of years, months, days and each day's chain; stops when `visit` gives false.
void ForEachRecordInRange(const SchDatCTL& tables, std::int32_t startCode, std::int32_t finishCode,
                          const std::function<bool(int row)>& visit);

// The header's date and time of a job started at `now`, up to the page number:
// "Wednesday, DATE 04:09 PM ", the date in the system's short form.
std::string JobStamp(const DateFormatter& dates, const DateTime& now);

// "There is no record to print.", titled "Warning:".
void WarnNoRecord(Messages& messages);

struct PrintJobServices {
  Messages& messages;
  const DateFormatter& dates;
  const Clock& clock;
};

// Prints the document's records from PrintStartDate to PrintFinishDate (DateCodes), `copies`
// times, each copy's pages numbered from 1. Cancel in the window stops after the record being
// printed; what was printed until then is handed over. A range without a record gives "There
// is no record to print.", the document killed, and nothing; a file that cannot be written
// gives "Write error!". How the document ended.
std::optional<DocumentEnd> PrintSchedule(const ScheduleDocument& doc, PrintDevice& device,
                                         PrintingWindow& window, PrintJobServices services,
                                         std::int32_t PrintStartDate, std::int32_t PrintFinishDate,
                                         int copies);

}  // namespace sched
