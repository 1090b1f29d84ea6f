#include "tests/gui/views_gui_support.h"

namespace sched {
namespace {

using DayTabTest = ViewsGuiTest;

QStringList Items(const QListWidget* list) {
  QStringList texts;
  for (int i = 0; i < list->count(); ++i) texts << list->item(i)->text();
  return texts;
}

TEST_F(DayTabTest, TheDayTabShowsTheDatesItemsAndTheirSpans) {
  StartOnSample();
  ShowTab(1);
  EXPECT_FALSE(month->Bar()->isVisible());
  EXPECT_EQ(DateLabel(), "2026/11/21(Sat)");
  EXPECT_EQ(Items(day->List1()),
            (QStringList{"08:00am - 08:30am  Dentist", "12:30pm - 02:00pm  Lunch with Carla",
                         "04:00pm - 04:30pm  Call with supplier", ""}));
  EXPECT_EQ(day->List1()->currentRow(), 0);
  EXPECT_EQ(day->List2()->count(), 3);

  // The bar spans the day's timed items, from 0:00 at its left edge to 24:00 at its right.
  const TimeBar& bar = Views().Day().Pict;
  ASSERT_EQ(bar.ScaleWidth(), day->Pict()->width());
  EXPECT_EQ(bar.At(bar.ColumnOf(8 * 60 + 15)), TimeBar::Paint::Span);
  EXPECT_EQ(bar.At(bar.ColumnOf(13 * 60)), TimeBar::Paint::Span);
  EXPECT_EQ(bar.At(bar.ColumnOf(10 * 60)), TimeBar::Paint::Ground);
  EXPECT_EQ(day->Label3(12)->text(), "12");
  EXPECT_EQ(day->Label3(14)->text(), "2");
  EXPECT_TRUE(day->Timer1()->isActive());
  EXPECT_EQ(day->Timer1()->interval(), 500);

  // Every control of the tab lies inside it.
  for (QWidget* w : std::initializer_list<QWidget*>{day->List1(), day->CSCal4(), day->Pict(),
                                                    day->ComMM(0), day->ComYY(1)}) {
    EXPECT_TRUE(day->rect().contains(w->geometry())) << w->objectName().toStdString();
  }
}

TEST_F(DayTabTest, TheSelectedSpanBlinksAndTheBlankLineStopsIt) {
  StartOnSample();
  const auto Tick = [this] { QMetaObject::invokeMethod(day->Timer1(), "timeout"); };
  ShowTab(1);
  const TimeBar& bar = Views().Day().Pict;
  const int dentist = bar.ColumnOf(8 * 60 + 15);
  const int lunch = bar.ColumnOf(13 * 60);
  day->List1()->setCurrentRow(1);
  Tick();
  EXPECT_EQ(bar.At(lunch), TimeBar::Paint::Ground);
  EXPECT_EQ(bar.At(dentist), TimeBar::Paint::Span);
  Tick();
  EXPECT_EQ(bar.At(lunch), TimeBar::Paint::Span);

  day->List1()->setCurrentRow(3);  // the blank line
  Tick();
  Tick();
  EXPECT_EQ(bar.At(lunch), TimeBar::Paint::Span);
  EXPECT_FALSE(window->Action("UpdSchDat")->isEnabled());

  ShowTab(0);
  EXPECT_FALSE(day->Timer1()->isActive());
}

TEST_F(DayTabTest, TheCalendarAndItsArrowsMoveTheDate) {
  StartOnSample();
  ShowTab(1);
  DayCalendar* calendar = day->CSCal4();
  const QRect second = calendar->DateRect({2026, 11, 2});
  ASSERT_FALSE(second.isEmpty());
  QTest::mouseClick(calendar, Qt::LeftButton, {}, second.center());
  EXPECT_EQ(Current(), (CivilDate{2026, 11, 2}));
  EXPECT_EQ(DateLabel(), "2026/11/02(Mon)");
  EXPECT_EQ(Items(day->List1()), (QStringList{"09:30am - 10:30am  Team meeting", ""}));

  // The calendar's own arrow keys do nothing; its buttons move by month and year.
  QTest::keyClick(calendar, Qt::Key_Right);
  QTest::keyClick(calendar, Qt::Key_PageDown);
  EXPECT_EQ(Current(), (CivilDate{2026, 11, 2}));
  day->ComMM(1)->click();
  EXPECT_EQ(Current(), (CivilDate{2026, 12, 2}));
  EXPECT_EQ(Items(day->List1()), (QStringList{"12/ 1 - 12/ 4  Trip to Lisbon", ""}));
  day->ComYY(0)->click();
  EXPECT_EQ(Current(), (CivilDate{2025, 12, 2}));
  EXPECT_TRUE(Items(day->List1()).isEmpty());

  // A day of another month on the page moves there.
  QTest::mouseClick(calendar, Qt::LeftButton, {}, calendar->DateRect({2026, 1, 1}).center());
  EXPECT_EQ(Current(), (CivilDate{2026, 1, 1}));

  // Back on the month tab the grid shows the month the day tab reached.
  ShowTab(0);
  EXPECT_EQ(month->Combo1()->currentText(), "January");
  EXPECT_EQ(month->Combo2()->currentText(), "2026");
  EXPECT_EQ(month->Label1(Views().Month().SelectedCell)->Text(), "1");
}

TEST_F(DayTabTest, TheYearArrowsStopAtTheCalendarsLimits) {
  StartOnSample();
  ShowTab(1);
  for (int i = 0; i < 130; ++i) day->ComYY(0)->click();
  EXPECT_EQ(Current(), (CivilDate{1901, 11, 21}));
  for (int i = 0; i < 12; ++i) day->ComMM(0)->click();
  EXPECT_EQ(Current(), (CivilDate{1901, 1, 21}));
  EXPECT_EQ(DateLabel(), "1901/01/21(Mon)");
  for (int i = 0; i < 200; ++i) day->ComYY(1)->click();
  day->ComMM(1)->click();
  EXPECT_EQ(Current(), (CivilDate{2099, 2, 21}));
  for (int i = 0; i < 11; ++i) day->ComMM(1)->click();
  EXPECT_EQ(Current(), (CivilDate{2099, 12, 21}));
}

// Where the day tab's controls stand.
std::vector<QRect> Places(const DayTab* day) {
  std::vector<QRect> places;
  for (const QWidget* w : std::initializer_list<const QWidget*>{
           day->List1(), day->CSCal4(), day->Pict(), day->Label3(0), day->Label3(24), day->ComMM(0),
           day->ComMM(1), day->ComYY(0), day->ComYY(1)}) {
    places.push_back(w->geometry());
  }
  return places;
}

TEST_F(DayTabTest, TheDayTabFollowsTheWindowsSizeWhileShown) {
  StartOnSample();
  ShowTab(1);
  Grab("day_before_resize");
  for (const QSize size : {QSize(800, 600), QSize(1600, 1000), QSize(1024, 720)}) {
    window->resize(size);
    QApplication::processEvents();
    Grab(QString("day_resized_%1x%2").arg(size.width()).arg(size.height()));
    const std::vector<QRect> shown = Places(day);
    // The calendar and the bar reach to near the page's right edge, and nothing is cut.
    const QRect page = day->rect();
    EXPECT_LT(page.right() - day->CSCal4()->geometry().right(), 30) << size.width();
    EXPECT_LT(page.right() - day->Pict()->geometry().right(), 30) << size.width();
    for (const QRect& place : shown) EXPECT_TRUE(page.contains(place)) << size.width();
    // The same places as a trip to the month tab and back gives.
    ShowTab(0);
    ShowTab(1);
    EXPECT_EQ(Places(day), shown) << size.width();
  }
}

TEST_F(DayTabTest, RightClicksOfferTheirPopups) {
  StartOnSample();
  ShowTab(1);
  QTest::mouseClick(day->CSCal4(), Qt::RightButton, {}, QPoint(10, 10));
  QMenu* calendarMenu = window->Popup("PopMenuCTRL3");
  EXPECT_TRUE(calendarMenu->isVisible());
  EXPECT_TRUE(window->Action("Pop3Today")->isEnabled());
  EXPECT_TRUE(window->Action("Pop3New")->isEnabled());
  calendarMenu->hide();

  QTest::mouseClick(day->List1()->viewport(), Qt::RightButton, {}, QPoint(10, 5));
  QMenu* listMenu = window->Popup("PopMenuCTRL2");
  EXPECT_TRUE(listMenu->isVisible());
  // The first line is an item: it can be changed.
  EXPECT_TRUE(window->Action("Pop2Update")->isEnabled());
  EXPECT_TRUE(window->Action("Pop2New")->isEnabled());
  listMenu->hide();
}

}  // namespace
}  // namespace sched
