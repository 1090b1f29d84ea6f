#include "platform/qt/qt_progress_window.h"

#include <QApplication>

namespace sched {

void QtProgressWindow::Open() {
  QWidget* active = QApplication::activeModalWidget();
  dialog_ = std::make_unique<QProgressDialog>(active != nullptr ? active : owner_.data());
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
