// The road of one appointment through the window: made in the dialogs, shown in the grid,
// saved, opened again and changed as a whole series.
#include <QAbstractButton>
#include <QDateEdit>
#include <QLineEdit>
#include <QTimer>

#include "tests/gui/views_gui_support.h"
#include "tests/support/test_store.h"
#include "ui/repeat.h"

namespace sched {
namespace {

void Type(QWidget* dialog, const char* name, const QString& text) {
  auto* box = Find<QLineEdit>(dialog, name);
  box->setFocus();
  box->selectAll();
  QTest::keyClicks(box, text);
}

class AppointmentRoadTest : public ViewsGuiTest {
 protected:
  int CellOf(int date) const { return Views().Month().FirstCell + date - 1; }
  const MonthCell& Cell(int date) const { return Views().Month().Cell(CellOf(date)); }
};

TEST_F(AppointmentRoadTest, AWeeklySeriesIsMadeSavedReopenedAndChangedWhole) {
  ASSERT_FALSE(Start().has_value());
  window = app->Window();
  month = window->MonthPage();
  window->resize(1280, 800);
  QApplication::processEvents();

  // A double click on Tuesday 24th opens the new item; the repeat dialog sets the rule.
  OnNextDialog([](QWidget* edit) {
    EXPECT_EQ(edit->windowTitle(), "Appointment - New");
    Type(edit, "Text1", "Review");
    OnNextDialog([](QWidget* dialog) {
      auto* repeat = qobject_cast<RepeatForm*>(dialog);
      ASSERT_NE(repeat, nullptr);
      QTest::mouseClick(repeat->Option1(2), Qt::LeftButton);
      Enter(repeat->ImNumber2(), 2);
      Enter(repeat->ImNumber1(), 5);
      QTest::mouseClick(repeat->OKButton(), Qt::LeftButton);
    });
    Find<QAbstractButton>(edit, "Command1")->click();
    EXPECT_FALSE(Find<QDateEdit>(edit, "ImDate1(1)")->isEnabled());
    Find<QAbstractButton>(edit, "SchEditOK")->click();
  });
  // A double click starts with the press that selects the day.
  ClickCell(CellOf(24));
  QTest::mouseDClick(month->Label9(CellOf(24)), Qt::LeftButton, {}, QPoint(5, 5));
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);

  std::vector<SchDatRow> rows = LiveRows(app->Document().Tables);
  ASSERT_EQ(rows.size(), 5u);
  EXPECT_TRUE(app->Document().Dirty);
  // The grid shows this month's two and the first of December among its grey days.
  ASSERT_EQ(Cell(24).rows.size(), 1u);
  EXPECT_NE(Cell(24).lines[0].find("Review"), std::string::npos);
  EXPECT_EQ(Views().Month().Cell(CellOf(30) + 8).rows.size(), 1u);  // December 8th
  Grab("appointment-road");

  // Save to PC, then open the file again.
  const std::string file = dir.File("review.scl");
  dialogs.QueueAnswer(file);
  window->Action("SaveName_Menu")->trigger();
  ASSERT_FALSE(app->Document().Dirty);
  dialogs.QueueAnswer(file);
  window->Action("OpenF_Menu")->trigger();
  ASSERT_EQ(LiveRows(app->Document().Tables).size(), 5u);
  const std::int32_t stamp = LiveRows(app->Document().Tables)[0].Stamp;

  // The third occurrence, December 22nd, opens the dialog on the first.
  ChooseMonth(12);
  OnNextDialog([](QWidget* edit) {
    EXPECT_EQ(edit->windowTitle(), "Appointment - Review");
    EXPECT_EQ(Find<QDateEdit>(edit, "ImDate1(0)")->date(), QDate(2026, 11, 24));
    Type(edit, "Text3", "Room 2");
    Find<QAbstractButton>(edit, "SchEditOK")->click();
  });
  QTest::mouseClick(month->Grid1(CellOf(22)), Qt::LeftButton, {}, QPoint(10, 5));
  QTest::mouseDClick(month->Grid1(CellOf(22)), Qt::LeftButton, {}, QPoint(10, 5));
  rows = LiveRows(app->Document().Tables);
  ASSERT_EQ(rows.size(), 5u);
  for (const SchDatRow& row : rows) {
    EXPECT_EQ(row.Place, "Room 2");
    EXPECT_EQ(static_cast<std::uint32_t>(row.Stamp),
              static_cast<std::uint32_t>(stamp) | 0xC0000000u);
  }
  EXPECT_EQ(Current(), (CivilDate{2026, 12, 22}));
}

}  // namespace
}  // namespace sched
