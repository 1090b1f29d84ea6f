// The main window's side of the print commands: the dialogs, the printer and the preview.
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <memory>

#include "platform/qt/qt_print_device.h"
#include "printing/print_command.h"
#include "ui/dlg_printing.h"
#include "ui/schmain.h"
#include "ui/screen_place.h"
#include "ui/select_print_date.h"
#include "views/calendar_views.h"

namespace sched {

// The print commands' dialogs over the main window. The printer and its settings stay from one
// command to the next.
class WindowPrintHost : public PrintHost {
 public:
  WindowPrintHost(QWidget* window, std::function<void()> refresh)
      : window_(window), refresh_(std::move(refresh)), dlgPrinting_(window) {
    printer_.setDocName("Scheduler");
  }

  void ShowSelectPrintDate(SelectPrintDateModel& model) override {
    SelectPrintDate dialog(model, window_);
    dialog.exec();
  }

  std::optional<int> ShowPrintDialog() override {
    QPrintDialog dialog(&printer_, window_);
    // A date range is printed, never a selection or pages; printing to a PDF file stays, for a
    // desktop without a printer.
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    CentreOnScreen(&dialog);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    // The job prints each copy itself, numbering its pages from 1; the printer makes one.
    const int copies = printer_.copyCount();
    printer_.setCopyCount(1);
    return copies;
  }

  PrintDevice& Printer() override {
    device_ = std::make_unique<QtPrintDevice>(printer_);
    return *device_;
  }

  void ShowPrintPreview(const std::function<void(PrintDevice&)>& paint) override {
    QPrintPreviewDialog preview(&printer_, window_);
    preview.setObjectName("PrintPreview");
    CentreOnScreen(&preview);
    // The job's window stands over the preview, which blocks the main window.
    sched::DlgPrinting previewPrinting(&preview);
    previewDlg_ = &previewPrinting;
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                     [&paint](QPrinter* printer) {
                       QtPrintDevice device(*printer);
                       paint(device);
                     });
    preview.exec();
    previewDlg_ = nullptr;
  }

  PrintingWindow& DlgPrinting() override {
    return previewDlg_ != nullptr ? *previewDlg_ : dlgPrinting_;
  }
  void RefreshViews() override { refresh_(); }

 private:
  QWidget* window_;
  std::function<void()> refresh_;
  QPrinter printer_{QPrinter::HighResolution};
  std::unique_ptr<QtPrintDevice> device_;
  sched::DlgPrinting dlgPrinting_;
  sched::DlgPrinting* previewDlg_ = nullptr;
};

void SchMain::RunPrintCommand(bool preview) {
  if (store_ == nullptr) return;
  HideScheduleList();
  if (!printHost_) {
    printHost_ = std::make_unique<WindowPrintHost>(this, [this] {
      s_.views.RefreshViews();
      ShowViews();
    });
  }
  const NoticesHeldWhile held(s_.alarms);
  const PrintJobServices services{s_.messages, s_.dates, s_.clock};
  if (preview) {
    MenuPrintPreview_Click(*doc_, *printHost_, services);
  } else {
    MenuPrint_Click(*doc_, *printHost_, services);
  }
}

}  // namespace sched
