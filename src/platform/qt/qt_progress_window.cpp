#include "platform/qt/qt_progress_window.h"

namespace sched {

void QtProgressWindow::Open() {
  dialog_ = std::make_unique<QProgressDialog>(owner_.data());
  dialog_->setObjectName("FrmWavConvert");
  dialog_->setWindowModality(Qt::WindowModal);
  dialog_->setCancelButton(nullptr);
  dialog_->setRange(0, 100);
  dialog_->setValue(0);
}

void QtProgressWindow::SetMaximum(int maximum) {
  if (dialog_) dialog_->setMaximum(maximum);
}

void QtProgressWindow::SetValue(int value) {
  if (dialog_) dialog_->setValue(value);
}

void QtProgressWindow::Close() {
  dialog_.reset();
}

}  // namespace sched
