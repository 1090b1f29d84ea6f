#pragma once

#include <functional>
#include <optional>

#include "platform/print_device.h"
#include "printing/print_job.h"
#include "printing/select_print_date_model.h"

namespace sched {

// What the print commands ask of the main window.
class PrintHost {
 public:
  virtual ~PrintHost() = default;
  // Shows SelectPrintDate modally over its opened model.
  virtual void ShowSelectPrintDate(SelectPrintDateModel& model) = 0;
  // The print dialog: the printer, its own options and the number of copies; nothing when it
  // was cancelled.
  virtual std::optional<int> ShowPrintDialog() = 0;
  // The printer the dialog chose.
  virtual PrintDevice& Printer() = 0;
  // The preview of the pages, which `paint` prints on the device the preview gives, as often
  // as the preview asks for them.
  virtual void ShowPrintPreview(const std::function<void(PrintDevice&)>& paint) = 0;
  virtual PrintingWindow& DlgPrinting() = 0;
  virtual void RefreshViews() = 0;
};

// MenuPrint ("&Print..."): asks for the range and the printer, then prints the range's
// records.
void MenuPrint_Click(const ScheduleDocument& doc, PrintHost& host, PrintJobServices services);

// "Print Pre&view...": asks for the range and shows the pages the print command would print,
// one copy; a range without a record gives the print command's warning instead.
void MenuPrintPreview_Click(const ScheduleDocument& doc, PrintHost& host,
                            PrintJobServices services);

}  // namespace sched
