#pragma once

#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <functional>

#include "printing/print_job.h"

namespace sched {

// "Printing...": shown without blocking while a job runs, with how far it is and a cancel
// button that stops the job at the next record.
class DlgPrinting : public QDialog, public PrintingWindow {
  Q_OBJECT

 public:
  explicit DlgPrinting(QWidget* parent = nullptr);

  QProgressBar* Progress() const { return progress_; }
  QPushButton* CancelButton() const { return cancel_; }

  void Show(std::function<void()> cancel) override;
  void DoEvents(int done, int total) override;
  void Close() override;

  // Escape and the close box cancel the job too.
  void reject() override;

 private:
  std::function<void()> onCancel_;
  QProgressBar* progress_ = nullptr;
  QPushButton* cancel_ = nullptr;
};

}  // namespace sched
