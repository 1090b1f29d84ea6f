#pragma once

#include <QComboBox>
#include <QLabel>
#include <QToolButton>
#include <QWidget>
#include <array>
#include <vector>

#include "ui/view_widgets.h"
#include "views/calendar_views.h"

namespace sched {

// A cell's back plate (Label9): its colour and frame, and the clicks on the cell.
class CellPlate : public QWidget {
 public:
  CellPlate(int cell, CalendarViews& views, ViewActionSink sink, QWidget* parent);
  void SetBack(const QColor& back);
  const QColor& Back() const { return back_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  int cell_;
  CalendarViews& views_;
  ViewActionSink sink_;
  QColor back_;
};

// One line of text painted over the plate (the day number Label1, the holiday name Label2).
// Clicks pass through to the plate below.
class CellText : public QWidget {
 public:
  explicit CellText(QWidget* parent);
  // `back`, when valid, is painted under the text, so that it reads over a neighbour's parts.
  void Set(const QString& text, const QColor& color, const QColor& back = {});
  // The text stops this many pixels from the left edge; the box may reach further.
  void SetTextWidth(int width);
  const QString& Text() const { return text_; }
  const QColor& Color() const { return color_; }
  // The part of the box that the text covers, in the box's pixels.
  QRect TextRect() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString ShownText() const;

  QString text_;
  QColor color_;
  QColor back_;
  int textWidth_ = -1;
};

// A cell's list of appointments (Grid1): one line a row, the selected row highlighted in the
// selected cell; it scrolls by the wheel or a click on its bar when its items do not fit (the
// blank last line alone makes no bar).
class CellList : public QWidget {
 public:
  CellList(int cell, CalendarViews& views, ViewActionSink sink, QWidget* parent);
  void Show(const MonthCell& cell, const QColor& back);
  const std::vector<QString>& Lines() const { return lines_; }
  int TopRow() const { return top_; }
  int RowHeight() const;
  int VisibleRows() const;
  // The row at a point of the list, -1 below the last line.
  int RowAt(int y) const;
  bool Scrolls() const;
  // The scroll bar's track, empty when the list does not scroll.
  QRect ScrollTrack() const;
  // A part of the list that a control over it covers (ComDt), in the list's pixels: the scroll
  // bar ends above it. Empty for none.
  void KeepClear(const QRect& covered);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void ScrollTo(int top);
  bool OnScrollBar(int x) const;
  int ItemLines() const;

  int cell_;
  CalendarViews& views_;
  ViewActionSink sink_;
  std::vector<QString> lines_;
  QColor back_;
  bool highlight_ = false;
  int selectedRow_ = 0;
  int top_ = 0;
  QRect covered_;
};

// The hidden box that has the focus on the month tab and hands the grid's keys to the views;
// it takes no text.
class GridKeys : public QWidget {
 public:
  GridKeys(CalendarViews& views, ViewActionSink sink, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  CalendarViews& views_;
  ViewActionSink sink_;
};

// The month tab: the weekday heads and the 42 cells of the grid, with ComDt and the box that
// takes the keys. Its month and year controls stand in a bar of their own, which the window
// puts beside the tab buttons.
class MonthTab : public QWidget {
 public:
  MonthTab(CalendarViews& views, ViewActionSink sink, QWidget* parent);

  // Shows the views' state: heads, cells, ComDt and the combos.
  void ShowModel();
  // Places every control by the layout of the last resize, in the page's pixels.
  void ApplyLayout(const FormLayout& layout);

  QWidget* Bar() const { return bar_; }
  QLabel* Label8(int i) const { return heads_[static_cast<std::size_t>(i)]; }
  CellPlate* Label9(int c) const { return plates_[static_cast<std::size_t>(c)]; }
  CellText* Label1(int c) const { return numbers_[static_cast<std::size_t>(c)]; }
  CellText* Label2(int c) const { return names_[static_cast<std::size_t>(c)]; }
  CellList* Grid1(int c) const { return lists_[static_cast<std::size_t>(c)]; }
  QToolButton* ComDt() const { return comDt_; }
  QComboBox* Combo1() const { return combo1_; }
  QComboBox* Combo2() const { return combo2_; }
  QToolButton* Command1(int i) const { return command1_[static_cast<std::size_t>(i)]; }
  QWidget* Text1() const { return text1_; }

 private:
  void BuildBar();
  void PlaceComDt();
  void FitNames();

  CalendarViews& views_;
  ViewActionSink sink_;
  FormLayout layout_;
  bool laidOut_ = false;
  QWidget* bar_ = nullptr;
  QComboBox* combo1_ = nullptr;
  QComboBox* combo2_ = nullptr;
  std::array<QToolButton*, 3> command1_{};
  std::array<QLabel*, 7> heads_{};
  std::array<CellPlate*, kMonthCells> plates_{};
  std::array<CellText*, kMonthCells> numbers_{};
  std::array<CellText*, kMonthCells> names_{};
  std::array<CellList*, kMonthCells> lists_{};
  QToolButton* comDt_ = nullptr;
  GridKeys* text1_ = nullptr;
};

}  // namespace sched
