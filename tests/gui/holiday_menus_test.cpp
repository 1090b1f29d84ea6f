#include <QAbstractButton>
#include <QListWidget>
#include <QTimer>

#include "tests/gui/gui_fixture.h"
#include "ui/month_tab.h"
#include "views/calendar_views.h"

namespace sched {
namespace {

const MonthCell& CellOf(SchedulerApp& app, int day) {
  const MonthView& month = app.Views()->Month();
  return month.Cells()[static_cast<std::size_t>(month.FirstCell + day - 1)];
}

TEST_F(GuiTest, ChoosingAnotherCountryChangesTheNamedHolidaysOfTheGrid) {
  ASSERT_FALSE(Start({QString::fromStdString(Sample())}).has_value());
  EXPECT_EQ(CellOf(*app, 11).holidayName, "Veterans Day");
  messages.QueueAnswer(MsgAnswer::No);  // not to the device
  OnNextDialog([](QWidget* dialog) {
    auto* list = dialog->findChild<QListWidget*>("ListHolidayInfo");
    ASSERT_NE(list, nullptr);
    const auto found = list->findItems("Japan", Qt::MatchContains);
    ASSERT_FALSE(found.isEmpty());
    list->setCurrentItem(found.front());
    Find<QAbstractButton>(dialog, "OKButton")->click();
  });
  app->Window()->Action("SelectHolidayInfo")->trigger();
  EXPECT_EQ(Texts().back(), "Do you want to change holiday information on Tarvex?");
  EXPECT_EQ(registry.ReadString(kSchedulerKey, kHolidayIniValue), "holidayJP.ini");
  EXPECT_EQ(CellOf(*app, 11).holidayName, "");
  EXPECT_EQ(CellOf(*app, 3).holidayName, "Culture Day");
  EXPECT_EQ(CellOf(*app, 3).dayColor, DayColor::Red);
}

TEST_F(GuiTest, MarkingTheSelectedDayAsAHolidayRedrawsTheGrid) {
  ASSERT_FALSE(Start({QString::fromStdString(Sample())}).has_value());
  app->Views()->SelectCell(app->Views()->Month().FirstCell + 18 - 1, -1);  // Wednesday 18th
  EXPECT_EQ(CellOf(*app, 18).dayColor, DayColor::Black);
  OnNextDialog([](QWidget* dialog) { Find<QAbstractButton>(dialog, "Command1")->click(); });  // OK
  app->Window()->Action("Set_YearH")->trigger();
  EXPECT_EQ(CellOf(*app, 18).dayColor, DayColor::Red);
  EXPECT_TRUE(app->Document().Dirty);
}

}  // namespace
}  // namespace sched
