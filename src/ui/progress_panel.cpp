#include "ui/progress_panel.h"

#include <QApplication>

namespace sched {

ProgressPanel::ProgressPanel(QWidget* parent)
    : caption_(new QLabel(parent)), bar_(new QProgressBar(parent)) {
  caption_->setObjectName("LabelProgress");
  bar_->setObjectName("ProgressBar");
  bar_->setRange(0, kProgressDone);
  bar_->setTextVisible(false);
  bar_->setFixedWidth(220);
  caption_->hide();
  bar_->hide();
}

void ProgressPanel::SetCaption(const std::string& text) {
  caption_->setText(QString::fromStdString(text));
}

void ProgressPanel::SetValue(int value) {
  bar_->setValue(value);
}

void ProgressPanel::SetVisible(bool visible) {
  caption_->setVisible(visible);
  bar_->setVisible(visible);
}

void ProgressPanel::Refresh() {
  // Paints at once: the work that reports its progress holds the thread.
  caption_->repaint();
  bar_->repaint();
}

void ProgressPanel::SetWaitPointer(bool waiting) {
  if (waiting) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

}  // namespace sched
