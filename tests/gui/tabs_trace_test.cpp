#include <QMenu>
#include <cstdio>
#include <map>
#include <string>

#include "tests/gui/views_gui_support.h"
#include "tests/support/trace.h"

namespace sched {
namespace {

using testing::CaseRow;
using testing::YesNo;

// The program on the sample schedule, its window at 1280 x 800, as tests/data/gui/tabs.txt
// drives its month and day tabs. Today is 2026/11/21, 10:30.
struct Tabs : ViewsGuiTest {
  Tabs() { StartOnSample(); }
  void TestBody() override {}
  void End() {}
  QListWidget* List() const { return window->ScheduleListDialog()->List1(); }
};

std::string Text(const CivilDate& d) {
  char text[40];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d", d.year, d.month, d.day);
  return text;
}

std::string ColourName(const QColor& colour) {
  return colour == QColor(255, 0, 0) ? "red" : colour == QColor(0, 0, 0) ? "black" : "other";
}

// Lines as "[one][two][]".
std::string Lines(const QStringList& lines) {
  std::string text;
  for (const QString& line : lines) text += "[" + line.toStdString() + "]";
  return text;
}

QStringList Items(const QListWidget* list) {
  QStringList texts;
  for (int i = 0; i < list->count(); ++i) texts << list->item(i)->text();
  return texts;
}

Qt::Key KeyOf(const std::string& name) {
  const std::map<std::string, Qt::Key> keys = {{"up", Qt::Key_Up},
                                               {"down", Qt::Key_Down},
                                               {"left", Qt::Key_Left},
                                               {"right", Qt::Key_Right},
                                               {"enter", Qt::Key_Return},
                                               {"escape", Qt::Key_Escape},
                                               {"page-down", Qt::Key_PageDown}};
  return keys.at(name);
}

using S = Tabs&;
using R = const CaseRow&;

testing::Trace<Tabs> TabsTrace() {
  testing::Trace<Tabs> t;
  const auto n = [](int value) { return std::to_string(value); };
  // The month tab.
  t.steps["click"] = [](S w, R r) { w.ClickCell(r.Int(1)); };
  t.steps["right-click"] = [](S w, R r) {
    QTest::mouseClick(w.month->Label9(r.Int(1)), Qt::RightButton, {}, QPoint(5, 5));
  };
  t.steps["key"] = [](S w, R r) { QTest::keyClick(w.month->Text1(), KeyOf(r[1])); };
  t.steps["year"] = [](S w, R r) { w.ChooseYear(r.Int(1)); };
  t.steps["month"] = [](S w, R r) { w.ChooseMonth(r.Int(1)); };
  t.steps["arrow"] = [](S w, R r) { w.month->Command1(r.Int(1))->click(); };
  t.steps["today"] = [](S w, R) { w.window->TodayButton()->click(); };
  t.steps["comdt"] = [](S w, R) { w.month->ComDt()->click(); };
  t.steps["list-key"] = [](S w, R r) { QTest::keyClick(w.List(), KeyOf(r[1])); };
  t.steps["trigger"] = [](S w, R r) { w.window->Action(QString::fromStdString(r[1]))->trigger(); };
  t.steps["hide-popup"] = [](S w, R r) { w.window->Popup(QString::fromStdString(r[1]))->hide(); };
  // The day tab; its arrows clicked TIMES times.
  t.steps["tab"] = [](S w, R r) { w.ShowTab(r.Int(1)); };
  t.steps["day-row"] = [](S w, R r) { w.day->List1()->setCurrentRow(r.Int(1)); };
  t.steps["tick"] = [](S w, R) { QMetaObject::invokeMethod(w.day->Timer1(), "timeout"); };
  t.steps["calendar-click"] = [](S w, R r) {
    DayCalendar* calendar = w.day->CSCal4();
    const QRect date = calendar->DateRect(r.Date(1));
    ASSERT_FALSE(date.isEmpty()) << r.where;
    QTest::mouseClick(calendar, Qt::LeftButton, {}, date.center());
  };
  t.steps["calendar-key"] = [](S w, R r) { QTest::keyClick(w.day->CSCal4(), KeyOf(r[1])); };
  t.steps["calendar-right"] = [](S w, R) {
    QTest::mouseClick(w.day->CSCal4(), Qt::RightButton, {}, QPoint(10, 10));
  };
  t.steps["day-right"] = [](S w, R) {
    QTest::mouseClick(w.day->List1()->viewport(), Qt::RightButton, {}, QPoint(10, 5));
  };
  const auto arrows = [](QToolButton* (DayTab::*button)(int) const) {
    return [button](S w, R r) {
      for (int i = 0; i < (r[2].empty() ? 1 : r.Int(2)); ++i) (w.day->*button)(r.Int(1))->click();
    };
  };
  t.steps["month-arrow"] = arrows(&DayTab::ComMM);
  t.steps["year-arrow"] = arrows(&DayTab::ComYY);

  // The window.
  t.looks["current"] = [](S w, auto&) { return Text(w.Current()); };
  t.looks["label"] = [](S w, auto&) { return w.DateLabel(); };
  t.looks["months"] = [](S w, auto&) {
    return (w.month->Combo1()->currentText() + " " + w.month->Combo2()->currentText())
        .toStdString();
  };
  t.looks["heads"] = [](S w, auto&) {
    std::string heads;
    for (int i = 0; i < 7; ++i) {
      heads +=
          (i ? " " : "") + ColourName(w.month->Label8(i)->palette().color(QPalette::WindowText));
    }
    return heads;
  };
  t.looks["number"] = [](S w, auto& c) {
    return w.month->Label1(std::stoi(c))->Text().toStdString();
  };
  t.looks["number-colour"] = [](S w, auto& c) {
    return ColourName(w.month->Label1(std::stoi(c))->Color());
  };
  t.looks["name"] = [](S w, auto& c) {
    return w.month->Label2(std::stoi(c))->Text().toStdString();
  };
  t.looks["name-colour"] = [](S w, auto& c) {
    return ColourName(w.month->Label2(std::stoi(c))->Color());
  };
  t.looks["back"] = [](S w, auto& c) -> std::string {
    const QColor back = w.month->Label9(std::stoi(c))->Back();
    if (back == QColor(0xFF, 0xFF, 0xC0)) return "selection";
    if (back == QColor(0xE0, 0xE0, 0xE0)) return "grey";
    return back == w.month->palette().color(QPalette::Base) ? "window" : "other";
  };
  t.looks["enabled"] = [](S w, auto& c) {
    return YesNo(w.month->Label9(std::stoi(c))->isEnabled());
  };
  t.looks["lines"] = [](S w, auto& c) {
    const std::vector<QString>& lines = w.month->Grid1(std::stoi(c))->Lines();
    return Lines(QStringList(lines.begin(), lines.end()));
  };
  // The selected cell and its day number.
  t.looks["selected"] = [n](S w, auto&) {
    const int cell = w.Views().Month().SelectedCell;
    return n(cell) + " " + w.month->Label1(cell)->Text().toStdString();
  };
  t.looks["comdt"] = [](S w, auto&) { return YesNo(w.month->ComDt()->isVisible()); };
  t.looks["comdt-in-cell"] = [](S w, auto& c) {
    return YesNo(w.month->Label9(std::stoi(c))->geometry().contains(w.month->ComDt()->geometry()));
  };
  t.looks["today-enabled"] = [](S w, auto&) { return YesNo(w.window->TodayButton()->isEnabled()); };
  t.looks["enabled-action"] = [](S w, auto& name) {
    return YesNo(w.window->Action(QString::fromStdString(name))->isEnabled());
  };
  // A popup, when shown: the object names of its entries, separators left out.
  t.looks["popup"] = [](S w, auto& name) -> std::string {
    QMenu* popup = w.window->Popup(QString::fromStdString(name));
    if (popup == nullptr || !popup->isVisible()) return "(hidden)";
    QStringList names;
    for (QAction* action : popup->actions()) {
      if (!action->isSeparator()) names << action->objectName();
    }
    return names.join(",").toStdString();
  };
  t.looks["popup-shown"] = [](S w, auto& name) {
    return YesNo(w.window->Popup(QString::fromStdString(name))->isVisible());
  };
  // The schedule list dialog: shown, its title and lines; whether it stands under the cell, or
  // above it near the screen's bottom.
  t.looks["list"] = [](S w, auto&) -> std::string {
    SchDT* list = w.window->ScheduleListDialog();
    if (!list->isVisible()) return "(hidden)";
    return list->windowTitle().toStdString() + " " + Lines(Items(list->List1()));
  };
  t.looks["list-at-cell"] = [](S w, auto& c) {
    SchDT* list = w.window->ScheduleListDialog();
    const CellPlate* plate = w.month->Label9(std::stoi(c));
    const QRect cell(plate->mapToGlobal(QPoint(0, 0)), plate->size());
    return YesNo(list->x() == cell.left() &&
                 (list->y() == cell.bottom() + 1 || list->frameGeometry().bottom() <= cell.top()));
  };

  // The day tab.
  t.looks["month-bar"] = [](S w, auto&) { return YesNo(w.month->Bar()->isVisible()); };
  t.looks["day.lines"] = [](S w, auto&) { return Lines(Items(w.day->List1())); };
  t.looks["day.row"] = [n](S w, auto&) { return n(w.day->List1()->currentRow()); };
  t.looks["day.rows"] = [n](S w, auto&) { return n(w.day->List2()->count()); };
  t.looks["day.hour"] = [](S w, auto& h) {
    return w.day->Label3(std::stoi(h))->text().toStdString();
  };
  t.looks["day.timer"] = [n](S w, auto&) {
    return w.day->Timer1()->isActive() ? n(w.day->Timer1()->interval()) : std::string("off");
  };
  // The paint of the bar at a minute; the bar fills its picture from 0:00 to 24:00.
  t.looks["day.bar"] = [](S w, auto& minute) -> std::string {
    const TimeBar& bar = w.Views().Day().Pict;
    EXPECT_EQ(bar.ScaleWidth(), w.day->Pict()->width());
    return bar.At(bar.ColumnOf(std::stoi(minute))) == TimeBar::Paint::Span ? "span" : "ground";
  };
  // Whether every control of the tab lies inside it.
  t.looks["day.inside"] = [](S w, auto&) {
    bool inside = true;
    for (QWidget* c : std::initializer_list<QWidget*>{
             w.day->List1(), w.day->CSCal4(), w.day->Pict(), w.day->ComMM(0), w.day->ComYY(1)}) {
      inside = inside && w.day->rect().contains(c->geometry());
    }
    return YesNo(inside);
  };
  return t;
}

TEST(Tabs, FollowTheTraces) {
  TabsTrace().Run("gui/tabs.txt", 3, 150);
}

}  // namespace
}  // namespace sched
