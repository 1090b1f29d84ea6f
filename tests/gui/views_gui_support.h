#pragma once

#include <QTest>

#include "tests/gui/gui_fixture.h"
#include "ui/day_tab.h"
#include "ui/month_tab.h"
#include "ui/sch_dt.h"
#include "views/calendar_views.h"

namespace sched {

// The program on the sample schedule, its window shown at a size, with the views' widgets at
// hand.
class ViewsGuiTest : public GuiTest {
 public:
  void StartOnSample(int width = 1280, int height = 800) {
    ASSERT_FALSE(Start({QString::fromStdString(Sample())}).has_value());
    window = app->Window();
    month = window->MonthPage();
    day = window->DayPage();
    window->resize(width, height);
    QApplication::processEvents();
  }

  CalendarViews& Views() const { return *app->Views(); }
  // The cell of a day of the month shown.
  int CellOf(int date) const { return Views().Month().FirstCell + date - 1; }
  CivilDate Current() const {
    return {app->Document().CurYear, app->Document().CurMonth, app->Document().CurDay};
  }
  std::string DateLabel() const { return window->Label6()->text().toStdString(); }
  void ClickCell(int cell) {
    QTest::mouseClick(month->Label9(cell), Qt::LeftButton, {}, QPoint(5, 5));
  }
  void ChooseYear(int year) {
    month->Combo2()->setCurrentIndex(year - kFirstYear);
    emit month->Combo2()->activated(year - kFirstYear);
  }
  void ChooseMonth(int monthNumber) {
    month->Combo1()->setCurrentIndex(monthNumber - 1);
    emit month->Combo1()->activated(monthNumber - 1);
  }
  void ShowTab(int tab) {
    window->Tabs()->setCurrentIndex(tab);
    QApplication::processEvents();
  }
  // Saves a picture of the window, for a look by eye.
  void Grab(const QString& name) { window->grab().save(PicturePath(dir, name + ".png")); }

  SchMain* window = nullptr;
  MonthTab* month = nullptr;
  DayTab* day = nullptr;
};

}  // namespace sched
