#include <QElapsedTimer>
#include <QMenu>

#include "tests/gui/views_gui_support.h"

namespace sched {
namespace {

using MonthTabTest = ViewsGuiTest;

TEST_F(MonthTabTest, ACellsListScrollsWhenItsLinesDoNotFit) {
  StartOnSample(640, 450);
  CellList* cell = month->Grid1(20);
  ASSERT_TRUE(cell->Scrolls()) << "the cell shows all its items at this size";
  QWheelEvent wheel(QPointF(5, 5), cell->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120),
                    Qt::NoButton, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(cell, &wheel);
  EXPECT_EQ(cell->TopRow(), 1);
  // A click on a line selects it in the cell's list.
  QTest::mouseClick(cell, Qt::LeftButton, {}, QPoint(10, cell->RowHeight() / 2));
  EXPECT_EQ(Views().Month().Cell(20).selectedRow, 1);
}

TEST_F(MonthTabTest, CellsStayInsideTheWindowAtEverySize) {
  StartOnSample();
  for (const QSize size :
       {QSize(1280, 800), QSize(800, 600), QSize(2560, 1600), QSize(640, 450), QSize(480, 360)}) {
    window->resize(size);
    QApplication::processEvents();
    const QRect page = month->rect();
    for (int c = 0; c < kMonthCells; ++c) {
      const QRect plate = month->Label9(c)->geometry();
      EXPECT_TRUE(page.contains(plate)) << size.width() << " cell " << c;
      EXPECT_TRUE(plate.contains(month->Grid1(c)->geometry())) << size.width() << " cell " << c;
      // The number's box holds a two-digit day.
      const QFontMetrics metrics(month->Label1(c)->font());
      EXPECT_GE(month->Label1(c)->width(), metrics.horizontalAdvance("28")) << size.width();
      EXPECT_GE(month->Label1(c)->height() + 1, metrics.height()) << size.width();
    }
    for (int i = 0; i < 7; ++i) EXPECT_TRUE(page.contains(month->Label8(i)->geometry()));
    // The date stands clear of the month and year lists.
    EXPECT_FALSE(window->Label6()->geometry().intersects(month->Bar()->geometry())) << size.width();
    Grab(QString("month_%1x%2").arg(size.width()).arg(size.height()));
    ShowTab(1);
    Grab(QString("day_%1x%2").arg(size.width()).arg(size.height()));
    ShowTab(0);
  }
}

// The part of the page that a holiday name's text covers.
QRect NameText(const MonthTab* month, int cell) {
  const CellText* name = month->Label2(cell);
  return name->TextRect().translated(name->pos());
}

int Advance(const CellText* text) {
  return text->fontMetrics().horizontalAdvance(text->Text());
}

TEST_F(MonthTabTest, ALongHolidayNameRunsOverTheNextCellsNumber) {
  StartOnSample(800, 600);
  // Thanksgiving Day, Thursday 26 November, is longer than its cell leaves it at this size.
  const QRect plate = month->Label9(25)->geometry();
  const CellText* name = month->Label2(25);
  ASSERT_GT(Advance(name), plate.right() - name->x()) << "the name fits its cell";
  // The name is shown whole, over Friday's number, and lies above it.
  EXPECT_EQ(NameText(month, 25).width(), Advance(name) + 2);
  EXPECT_TRUE(NameText(month, 25).intersects(month->Label1(26)->geometry()));
  EXPECT_GT(month->children().indexOf(month->Label2(25)),
            month->children().indexOf(month->Label1(26)));
  EXPECT_GT(name->width(), plate.width());
  Grab("month_long_name_800x600");

  // July 2026: Independence Day is on Saturday the 4th and observed on Friday the 3rd. The
  // Friday's name stops short of the Saturday's; the last column cuts its name at the cell.
  ChooseMonth(7);
  ASSERT_EQ(month->Label2(5)->Text(), "Independence Day (observed)");
  ASSERT_EQ(month->Label2(6)->Text(), "Independence Day");
  EXPECT_GT(NameText(month, 5).right(), month->Label9(6)->x());
  EXPECT_LT(NameText(month, 5).right(), month->Label2(6)->x());
  EXPECT_LT(NameText(month, 5).width(), Advance(month->Label2(5)));
  const QRect lastPlate = month->Label9(6)->geometry();
  EXPECT_TRUE(lastPlate.contains(month->Label2(6)->geometry()));
  EXPECT_LT(NameText(month, 6).width(), Advance(month->Label2(6)));
  Grab("month_july_names_800x600");
}

TEST_F(MonthTabTest, TheMonthArrowsAndListsStayWhereTheyAreWhenTheDateChanges) {
  StartOnSample();
  QWidget* bar = month->Bar();
  const auto Places = [&] {
    QList<QPoint> places;
    for (QWidget* w : std::initializer_list<QWidget*>{month->Command1(0), month->Combo1(),
                                                      month->Combo2(), month->Command1(1)}) {
      places << w->mapTo(window, QPoint(0, 0));
    }
    return places;
  };
  const QList<QPoint> before = Places();
  QLabel* label = window->Label6();
  const auto LabelRight = [&] { return label->mapTo(window, QPoint(label->width(), 0)).x(); };
  const int right = LabelRight();
  QSet<int> widths{label->width()};
  // A second click lands on the same arrow, whatever the date's width.
  const QPoint back = month->Command1(0)->rect().center();
  for (int i = 0; i < 14; ++i) {
    QTest::mouseClick(month->Command1(0), Qt::LeftButton, {}, back);
    QApplication::processEvents();
    EXPECT_EQ(Places(), before) << DateLabel();
    EXPECT_EQ(LabelRight(), right) << DateLabel();
    EXPECT_FALSE(label->geometry().intersects(bar->geometry())) << DateLabel();
    widths << label->width();
  }
  EXPECT_EQ(Current(), (CivilDate{2025, 9, 1}));
  EXPECT_GT(widths.size(), 1) << "the date kept its width";
  Grab("month_arrows_after_moving");
}

TEST_F(MonthTabTest, AMonthChangeRepaintsQuickly) {
  StartOnSample();
  QElapsedTimer elapsed;
  elapsed.start();
  for (int i = 0; i < 20; ++i) {
    month->Command1(i % 2)->click();
    window->repaint();
  }
  EXPECT_LT(static_cast<double>(elapsed.elapsed()) / 20, 25.0) << "ms a month";
}

}  // namespace
}  // namespace sched
