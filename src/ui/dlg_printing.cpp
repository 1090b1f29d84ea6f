#include "ui/dlg_printing.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "printing/texts.h"
#include "ui/screen_place.h"

namespace sched {

DlgPrinting::DlgPrinting(QWidget* parent) : QDialog(parent) {
  setObjectName("DlgPrinting");
  setWindowTitle(print_texts::kDlgPrintingCaption);
  setWindowModality(Qt::WindowModal);
  auto* layout = new QVBoxLayout(this);
  auto* label = new QLabel(print_texts::kNowPrinting, this);
  label->setObjectName("Label1");
  layout->addWidget(label);
  progress_ = new QProgressBar(this);
  progress_->setObjectName("ProgressBar1");
  progress_->setRange(0, 100);
  progress_->setMinimumWidth(label->sizeHint().width() * 3);
  layout->addWidget(progress_);
  auto* row = new QHBoxLayout();
  row->addStretch(1);
  cancel_ = new QPushButton("Cancel", this);
  cancel_->setObjectName("CancelButton");
  connect(cancel_, &QPushButton::clicked, this, &DlgPrinting::reject);
  row->addWidget(cancel_);
  layout->addLayout(row);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  CentreOnScreen(this);
}

void DlgPrinting::Show(std::function<void()> cancel) {
  onCancel_ = std::move(cancel);
  progress_->setValue(0);
  show();
  QApplication::processEvents();
}

void DlgPrinting::DoEvents(int done, int total) {
  progress_->setValue(total > 0 ? static_cast<int>(100LL * done / total) : 0);
  QApplication::processEvents();
}

void DlgPrinting::Close() {
  onCancel_ = nullptr;
  hide();
}

void DlgPrinting::reject() {
  if (onCancel_) onCancel_();
}

}  // namespace sched
