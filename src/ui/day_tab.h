#pragma once

#include <QLabel>
#include <QListWidget>
#include <QTimer>
#include <QToolButton>
#include <QWidget>
#include <array>

#include "ui/view_widgets.h"
#include "views/calendar_views.h"

namespace sched {

// The time bar (Pict): the day's 24 hours, painted from the bar's picture in the views.
class TimeBarView : public QWidget {
 public:
  TimeBarView(CalendarViews& views, QWidget* parent);
  // The picture's scale follows the bar's size, with every span of the day painted again.
  void Rescale();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  CalendarViews& views_;
};

// The day tab's month calendar (CSCal4): the month of the current date, a mark on every day
// that has items, the current date selected.
class DayCalendar : public QWidget {
 public:
  DayCalendar(CalendarViews& views, ViewActionSink sink, QWidget* parent);
  // Where a date of the shown page stands; an empty rectangle when it is not on the page.
  QRect DateRect(const CivilDate& date) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct Grid {
    QRect title;
    QRect heads;
    double cellWidth = 0;
    double cellHeight = 0;
    int top = 0;
  };
  Grid Measure() const;
  // The date of each of the page's 42 places: the month's days and its neighbours' around them.
  CivilDate PageDate(int place) const;
  int PlaceAt(const QPoint& point) const;
  QRect PlaceRect(const Grid& grid, int place) const;

  CalendarViews& views_;
  ViewActionSink sink_;
};

// The day tab: the time bar with its hour scale, the list of the day's items, the calendar and
// its month and year arrows; Timer1 blinks the selected item's span.
class DayTab : public QWidget {
 public:
  DayTab(CalendarViews& views, ViewActionSink sink, QWidget* parent);

  // Shows the views' state: calendar, list, bar and the blink timer.
  void ShowModel();
  // Places every control by the layout of the last resize, in the page's pixels.
  void ApplyLayout(const FormLayout& layout);

  DayCalendar* CSCal4() const { return calendar_; }
  QListWidget* List1() const { return list1_; }
  QListWidget* List2() const { return list2_; }
  TimeBarView* Pict() const { return pict_; }
  QToolButton* ComMM(int i) const { return comMM_[static_cast<std::size_t>(i)]; }
  QToolButton* ComYY(int i) const { return comYY_[static_cast<std::size_t>(i)]; }
  QLabel* Label3(int hour) const { return label3_[static_cast<std::size_t>(hour / 2)]; }
  QTimer* Timer1() const { return timer1_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void List1_SelChange();
  QToolButton* Arrow(const QString& name, Qt::ArrowType arrow, std::function<void()> click);

  CalendarViews& views_;
  ViewActionSink sink_;
  FormLayout layout_;
  TimeBarView* pict_ = nullptr;
  DayCalendar* calendar_ = nullptr;
  QListWidget* list1_ = nullptr;
  QListWidget* list2_ = nullptr;
  std::array<QLabel*, 13> label3_{};
  std::array<QLabel*, 2> label5_{};
  std::array<QLabel*, 2> label4_{};
  std::array<QToolButton*, 3> comMM_{};
  std::array<QToolButton*, 3> comYY_{};
  QTimer* timer1_ = nullptr;
};

}  // namespace sched
