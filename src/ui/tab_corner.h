#pragma once

#include <QLabel>
#include <QWidget>
#include <functional>

namespace sched {

// The strip beside the tab buttons, to the tab's right edge: the month tab's bar stands at its
// left, where it stays, and the date label is right-aligned by PlaceDateLabel, so that a new
// date moves only the label.
class TabCorner : public QWidget {
 public:
  // `twipsPerPixel` gives the scale of the window's layout at the time of placing.
  TabCorner(QWidget* bar, QLabel* label, std::function<double()> twipsPerPixel, QWidget* parent);

  // The width is all that the tab buttons leave.
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  // Places the bar and the label; after a new date text too, since the label fits its text.
  void Place();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QWidget* bar_;
  QLabel* label_;
  std::function<double()> twipsPerPixel_;
};

}  // namespace sched
