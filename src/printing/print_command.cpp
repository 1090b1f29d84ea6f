#include "printing/print_command.h"

namespace sched {
namespace {

// The range, as PrintStartDate and PrintFinishDate.
struct PrintDates {
  std::int32_t start = 0;
  std::int32_t finish = 0;
};

// SelectPrintDate on the shown date; nothing, and the views refreshed, when it was cancelled.
std::optional<PrintDates> AskPrintRange(const ScheduleDocument& doc, PrintHost& host,
                                        Messages& messages) {
  PrintRange range;
  SelectPrintDateModel select(range, messages);
  select.Form_Load({doc.CurYear, doc.CurMonth, doc.CurDay});
  host.ShowSelectPrintDate(select);
  if (!range.Accepted) {
    host.RefreshViews();
    return std::nullopt;
  }
  return PrintDates{DateCode(range.StartYear, range.StartMonth, range.StartDay),
                    DateCode(range.EndYear, range.EndMonth, range.EndDay)};
}

}  // namespace

void MenuPrint_Click(const ScheduleDocument& doc, PrintHost& host, PrintJobServices services) {
  const std::optional<PrintDates> dates = AskPrintRange(doc, host, services.messages);
  if (!dates) return;
  const std::optional<int> copies = host.ShowPrintDialog();
  if (!copies) return;
  PrintSchedule(doc, host.Printer(), host.DlgPrinting(), services, dates->start, dates->finish,
                *copies);
  host.RefreshViews();
}

void MenuPrintPreview_Click(const ScheduleDocument& doc, PrintHost& host,
                            PrintJobServices services) {
  const std::optional<PrintDates> dates = AskPrintRange(doc, host, services.messages);
  if (!dates) return;
  bool any = false;
  ForEachRecordInRange(doc.Tables, dates->start, dates->finish, [&any](int) {
    any = true;
    return false;
  });
  if (!any) {
    WarnNoRecord(services.messages);
  } else {
    host.ShowPrintPreview([&](PrintDevice& device) {
      PrintSchedule(doc, device, host.DlgPrinting(), services, dates->start, dates->finish, 1);
    });
  }
  host.RefreshViews();
}

}  // namespace sched
