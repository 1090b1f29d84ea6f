#include "tests/gui/views_gui_support.h"

namespace sched {
namespace {

using DayTabTest = ViewsGuiTest;

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

}  // namespace
}  // namespace sched
