#include <QElapsedTimer>
#include <QMenu>

#include "tests/gui/views_gui_support.h"

namespace sched {
namespace {

const QColor kRed(255, 0, 0);
const QColor kBlack(0, 0, 0);
const QColor kGrey(0xE0, 0xE0, 0xE0);
const QColor kSelection(0xFF, 0xFF, 0xC0);

using MonthTabTest = ViewsGuiTest;

// November 2026 starts on a Sunday: cell c is November c + 1, cells 30 to 41 are December.
TEST_F(MonthTabTest, TheSampleMonthShowsItsDaysHolidaysAndItems) {
  StartOnSample();
  EXPECT_EQ(month->Combo1()->currentText(), "November");
  EXPECT_EQ(month->Combo2()->currentText(), "2026");
  EXPECT_EQ(DateLabel(), "2026/11/21(Sat)");

  // Sunday and Saturday are the sample's weekly holidays: their heads and days are red.
  for (int i = 0; i < 7; ++i) {
    const QColor expected = i == 0 || i == 6 ? kRed : kBlack;
    EXPECT_EQ(month->Label8(i)->palette().color(QPalette::WindowText), expected) << i;
  }
  for (int c : {0, 6, 7, 13, 14, 27}) EXPECT_EQ(month->Label1(c)->Color(), kRed) << c;
  for (int c : {1, 2, 12, 29}) EXPECT_EQ(month->Label1(c)->Color(), kBlack) << c;

  // The named holidays of the country file, in red.
  EXPECT_EQ(month->Label1(10)->Text(), "11");
  EXPECT_EQ(month->Label1(10)->Color(), kRed);
  EXPECT_EQ(month->Label2(10)->Text(), "Veterans Day");
  EXPECT_EQ(month->Label2(10)->Color(), kRed);
  EXPECT_EQ(month->Label2(25)->Text(), "Thanksgiving Day");
  EXPECT_TRUE(month->Label2(11)->Text().isEmpty());

  // Today is selected; the month's days are on the window colour, December's on grey.
  EXPECT_EQ(month->Label9(20)->Back(), kSelection);
  EXPECT_EQ(month->Label9(19)->Back(), month->palette().color(QPalette::Base));
  EXPECT_EQ(month->Label9(30)->Back(), kGrey);
  EXPECT_EQ(month->Label1(30)->Text(), "1");
  EXPECT_EQ(month->Label1(41)->Text(), "12");

  // A day's items, then the blank line; ComDt leads to the full list.
  const auto& lines = month->Grid1(20)->Lines();
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[0], "8:00am Dentist");
  EXPECT_EQ(lines[2], "4:00pm Call with supplier");
  EXPECT_TRUE(lines[3].isEmpty());
  EXPECT_TRUE(month->Grid1(2)->Lines().empty());
  EXPECT_TRUE(month->ComDt()->isVisible());
  EXPECT_TRUE(month->Label9(20)->geometry().contains(month->ComDt()->geometry()));
}

TEST_F(MonthTabTest, AClickSelectsTheCellAndWritesTheDate) {
  StartOnSample();
  ClickCell(12);
  EXPECT_EQ(month->Label9(12)->Back(), kSelection);
  EXPECT_EQ(month->Label9(20)->Back(), month->palette().color(QPalette::Base));
  EXPECT_EQ(DateLabel(), "2026/11/13(Fri)");
  EXPECT_EQ(Current(), (CivilDate{2026, 11, 13}));
  EXPECT_TRUE(month->ComDt()->isVisible());

  // A day without items hides ComDt; a grey day is selected without turning the month.
  ClickCell(2);
  EXPECT_FALSE(month->ComDt()->isVisible());
  ClickCell(33);
  EXPECT_EQ(month->Label9(33)->Back(), kSelection);
  EXPECT_EQ(Current(), (CivilDate{2026, 12, 4}));
  EXPECT_EQ(month->Combo1()->currentText(), "November");
}

TEST_F(MonthTabTest, ArrowKeysWalkTheGridAndTurnTheMonthAtItsEdges) {
  StartOnSample();
  QWidget* keys = month->Text1();
  ClickCell(29);  // Monday 30 November
  Key(keys, Qt::Key_Down);
  EXPECT_EQ(Current(), (CivilDate{2026, 12, 7}));
  EXPECT_EQ(month->Label9(36)->Back(), kSelection);
  EXPECT_EQ(month->Combo1()->currentText(), "November");

  // From the last row one week on turns the grid to December, on the same weekday.
  Key(keys, Qt::Key_Down);
  EXPECT_EQ(month->Combo1()->currentText(), "December");
  EXPECT_EQ(Current(), (CivilDate{2026, 12, 14}));
  const int cell = Views().Month().SelectedCell;
  EXPECT_EQ(cell % 7, 1);
  EXPECT_EQ(month->Label1(cell)->Text(), "14");
  EXPECT_EQ(month->Label9(cell)->Back(), kSelection);

  Key(keys, Qt::Key_Left);
  EXPECT_EQ(Current(), (CivilDate{2026, 12, 13}));
  // Up from the first row goes one week back into November.
  ClickCell(2);  // Tuesday 1 December
  Key(keys, Qt::Key_Up);
  EXPECT_EQ(Current(), (CivilDate{2026, 11, 24}));
  EXPECT_EQ(month->Combo1()->currentText(), "November");
  EXPECT_EQ(Views().Month().SelectedCell % 7, 2);
  // Right from cell 41 goes to the day after.
  ClickCell(41);
  Key(keys, Qt::Key_Right);
  EXPECT_EQ(Current(), (CivilDate{2026, 12, 13}));
  EXPECT_EQ(month->Combo1()->currentText(), "December");
}

TEST_F(MonthTabTest, TheYearAndMonthListsTurnTheGridToDayOne) {
  StartOnSample();
  ChooseYear(2027);
  EXPECT_EQ(Current(), (CivilDate{2027, 11, 1}));
  EXPECT_EQ(DateLabel(), "2027/11/01(Mon)");
  EXPECT_EQ(month->Label1(1)->Text(), "1");  // Monday
  EXPECT_EQ(month->Label9(1)->Back(), kSelection);
  EXPECT_TRUE(month->Label1(0)->Text() == "31");
  EXPECT_EQ(month->Label2(11)->Text(), "Veterans Day");
  EXPECT_TRUE(month->Grid1(22)->Lines().empty());

  ChooseMonth(2);
  EXPECT_EQ(Current(), (CivilDate{2027, 2, 1}));
  EXPECT_EQ(month->Label1(1)->Text(), "1");
  EXPECT_EQ(month->Label1(28)->Text(), "28");
  EXPECT_EQ(month->Label9(29)->Back(), kGrey);
  EXPECT_EQ(month->Label1(29)->Text(), "1");
}

TEST_F(MonthTabTest, TheArrowsStopAtTheCalendarsLimits) {
  StartOnSample();
  ChooseYear(1901);
  ChooseMonth(1);
  // 1 January 1901 is a Tuesday: the two cells before it are blank, grey and take no click.
  EXPECT_EQ(month->Label1(2)->Text(), "1");
  for (int c : {0, 1}) {
    EXPECT_TRUE(month->Label1(c)->Text().isEmpty());
    EXPECT_EQ(month->Label9(c)->Back(), kGrey);
    EXPECT_FALSE(month->Label9(c)->isEnabled());
  }
  ClickCell(1);
  EXPECT_EQ(Current(), (CivilDate{1901, 1, 1}));
  month->Command1(0)->click();
  EXPECT_EQ(month->Combo1()->currentText(), "January");
  EXPECT_EQ(month->Combo2()->currentText(), "1901");
  EXPECT_EQ(Current(), (CivilDate{1901, 1, 1}));
  Key(month->Text1(), Qt::Key_Left);
  Key(month->Text1(), Qt::Key_Left);
  EXPECT_EQ(Current(), (CivilDate{1901, 1, 1}));

  month->Command1(1)->click();
  EXPECT_EQ(month->Combo1()->currentText(), "February");
  EXPECT_EQ(Current(), (CivilDate{1901, 2, 1}));

  ChooseYear(2099);
  ChooseMonth(12);
  month->Command1(1)->click();
  EXPECT_EQ(month->Combo1()->currentText(), "December");
  EXPECT_EQ(month->Combo2()->currentText(), "2099");
  EXPECT_EQ(Current(), (CivilDate{2099, 12, 1}));
  // 31 December 2099 is a Thursday: the cells after it are blank.
  EXPECT_EQ(month->Label1(32)->Text(), "31");
  EXPECT_FALSE(month->Label9(33)->isEnabled());
  EXPECT_TRUE(month->Label1(41)->Text().isEmpty());

  month->Command1(0)->click();
  EXPECT_EQ(month->Combo1()->currentText(), "November");
}

TEST_F(MonthTabTest, TodayComesBackFromAnotherYear) {
  StartOnSample();
  ChooseYear(1999);
  ASSERT_EQ(Current(), (CivilDate{1999, 11, 1}));
  QPushButton* today = window->TodayButton();
  ASSERT_TRUE(today->isEnabled());
  today->click();
  EXPECT_EQ(Current(), (CivilDate{2026, 11, 21}));
  EXPECT_EQ(month->Combo2()->currentText(), "2026");
  EXPECT_EQ(month->Label9(20)->Back(), kSelection);
  EXPECT_EQ(month->Grid1(20)->Lines().size(), 4u);
}

TEST_F(MonthTabTest, ARightClickSelectsAndOffersThePopupForTheItem) {
  StartOnSample();
  QTest::mouseClick(month->Label9(33), Qt::RightButton, {}, QPoint(5, 5));
  EXPECT_EQ(Current(), (CivilDate{2026, 12, 4}));
  QMenu* popup = window->Popup("PopMenuCTRL2");
  ASSERT_NE(popup, nullptr);
  EXPECT_TRUE(popup->isVisible());
  QStringList names;
  for (QAction* action : popup->actions()) {
    if (!action->isSeparator()) names << action->objectName();
  }
  EXPECT_EQ(names, (QStringList{"Pop2Copy", "Pop2Paste", "Pop2New", "Pop2Update", "Pop2Del", "",
                                "Pop2Today"}));
  // The day's first line is an item; nothing is copied yet.
  for (const char* name : {"Pop2Copy", "Pop2New", "Pop2Update", "Pop2Del"}) {
    EXPECT_TRUE(window->Action(name)->isEnabled()) << name;
  }
  EXPECT_FALSE(window->Action("Pop2Paste")->isEnabled());
  // The grey day turned off the commands by month.
  EXPECT_FALSE(window->Action("DelMonth")->isEnabled());
  popup->hide();
  window->Action("Pop2Today")->trigger();
  EXPECT_EQ(Current(), (CivilDate{2026, 11, 21}));
  EXPECT_EQ(month->Label9(20)->Back(), kSelection);
}

TEST_F(MonthTabTest, ComDtOpensTheListOfTheDayAndEscapeClosesIt) {
  StartOnSample();
  month->ComDt()->click();
  SchDT* list = window->ScheduleListDialog();
  ASSERT_TRUE(list->isVisible());
  EXPECT_EQ(list->windowTitle(), "2026/11/21(Sat)");
  ASSERT_EQ(list->List1()->count(), 4);
  EXPECT_EQ(list->List1()->item(0)->text(), "8:00am-8:30am Dentist");
  // It stands under the selected cell, or above it near the screen's bottom.
  const QRect cell(month->Label9(20)->mapToGlobal(QPoint(0, 0)), month->Label9(20)->size());
  EXPECT_EQ(list->x(), cell.left());
  EXPECT_TRUE(list->y() == cell.bottom() + 1 || list->frameGeometry().bottom() <= cell.top())
      << list->y() << " " << cell.bottom();

  QTest::keyClick(list->List1(), Qt::Key_Escape);
  EXPECT_FALSE(list->isVisible());
  EXPECT_EQ(Current(), (CivilDate{2026, 11, 21}));

  // Enter on the grid opens it too; a day without items has nothing to show.
  QTest::keyClick(month->Text1(), Qt::Key_Return);
  EXPECT_TRUE(list->isVisible());
  ClickCell(20);
  ChooseMonth(10);
  EXPECT_FALSE(list->isVisible());
  ClickCell(3);
  QTest::keyClick(month->Text1(), Qt::Key_Return);
  EXPECT_FALSE(list->isVisible());
}

TEST_F(MonthTabTest, ACellsListScrollsWhenItsLinesDoNotFit) {
  StartOnSample(800, 600);
  CellList* cell = month->Grid1(20);
  ASSERT_GT(cell->Lines().size(), static_cast<std::size_t>(cell->VisibleRows()))
      << "the cell shows all its lines at this size";
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
  for (const QSize size : {QSize(1280, 800), QSize(800, 600), QSize(2560, 1600), QSize(480, 360)}) {
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
    if (size.width() >= 800) {
      Grab(QString("month_%1x%2").arg(size.width()).arg(size.height()));
      ShowTab(1);
      Grab(QString("day_%1x%2").arg(size.width()).arg(size.height()));
      ShowTab(0);
    }
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
