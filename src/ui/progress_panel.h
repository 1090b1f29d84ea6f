#pragma once

#include <QLabel>
#include <QProgressBar>

#include "platform/progress_display.h"

namespace sched {

// The caption and bar at the bottom of the main window, and the mouse pointer, as the progress
// display of long work.
class ProgressPanel : public ProgressDisplay {
 public:
  explicit ProgressPanel(QWidget* parent);

  QLabel* Caption() const { return caption_; }
  QProgressBar* Bar() const { return bar_; }

  void SetCaption(const std::string& text) override;
  void SetValue(int value) override;
  void SetVisible(bool visible) override;
  void Refresh() override;
  void SetWaitPointer(bool waiting) override;

 private:
  QLabel* caption_;
  QProgressBar* bar_;
};

}  // namespace sched
