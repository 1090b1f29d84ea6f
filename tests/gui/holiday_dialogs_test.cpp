#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "platform/fake/fake_date_formatter.h"
#include "tests/support/holiday_dialog_fakes.h"
#include "tests/support/test_store.h"
#include "ui/dlg_select_holiday.h"
#include "ui/sch_week_h.h"
#include "ui/sch_year_h.h"

namespace sched {
namespace {

using Calls = std::vector<std::string>;

void SaveShot(QWidget* window, const char* name) {
  window->grab().save(QString(SCHEDULER_BUILD_DIR "/") + name);
}

QColor Text(const QWidget* w) {
  return w->palette().color(QPalette::WindowText);
}
QColor Back(const QWidget* w) {
  return w->palette().color(QPalette::Window);
}

// Saturday 2026/11/21, with Sunday and Saturday the weekly holidays.
ScheduleDocument SaturdayDocument() {
  ScheduleDocument doc;
  doc.CurYear = 2026;
  doc.CurMonth = 11;
  doc.CurDay = 21;
  doc.WeekHoliday = {1, 0, 0, 0, 0, 0, 1};
  return doc;
}

class SchWeekHTest : public ::testing::Test {
 protected:
  SchWeekHTest() { dialog.open(); }

  ScheduleDocument doc = SaturdayDocument();
  FakeMessages messages;
  RecordingHolidayHost host;
  SchWeekHModel model{doc, messages, host};
  SchWeekH dialog{model};
};

TEST_F(SchWeekHTest, ShowsTheWeekWithHolidaysRedAndTheCurrentWeekdayInFocus) {
  EXPECT_EQ(dialog.objectName(), "SchWeekH");
  EXPECT_EQ(dialog.windowTitle(), "Setting Holiday");
  const char* captions[] = {" Sun", " Mon", " Tue", " Wed", " Thu", "  Fri", " Sat"};
  for (int i = 0; i < 7; ++i) {
    const HolidayCaption* caption =
        dialog.findChild<HolidayCaption*>(QString("CSCaption1(%1)").arg(i));
    ASSERT_EQ(caption, dialog.CSCaption1(i));
    EXPECT_EQ(caption->text(), captions[i]);
    EXPECT_EQ(Text(caption),
              i == 0 || i == 6 ? QColor(Qt::red) : dialog.palette().color(QPalette::ButtonText))
        << i;
    EXPECT_EQ(Back(caption), i == 6 ? QColor(0, 128, 0) : QColor(Qt::white)) << i;
  }
  EXPECT_EQ(dialog.SetReset()->text(), "Select/Deselect");
  EXPECT_EQ(dialog.Command1()->text(), "&Cancel");
  EXPECT_EQ(dialog.Command2()->text(), "&OK");
  SaveShot(&dialog, "SchWeekH.png");
}

TEST_F(SchWeekHTest, ClicksAndKeysToggleAWeekdayAndOkKeepsIt) {
  QTest::mouseClick(dialog.CSCaption1(3), Qt::LeftButton);
  EXPECT_EQ(model.CurrentCaption(), 3);
  EXPECT_EQ(Back(dialog.CSCaption1(3)), QColor(0, 128, 0));
  EXPECT_EQ(Back(dialog.CSCaption1(6)), QColor(Qt::white));
  QTest::keyClick(dialog.SetReset(), Qt::Key_Left);
  QTest::keyClick(dialog.SetReset(), Qt::Key_Left);
  EXPECT_EQ(model.CurrentCaption(), 1);
  QTest::mouseClick(dialog.SetReset(), Qt::LeftButton);  // Monday becomes a weekly holiday
  EXPECT_EQ(Text(dialog.CSCaption1(1)), QColor(Qt::red));
  QTest::keyClick(dialog.SetReset(), Qt::Key_F1);
  QTest::mouseClick(dialog.Command2(), Qt::LeftButton);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(doc.WeekHoliday, (WeekFlags{1, 1, 0, 0, 0, 0, 1}));
  EXPECT_TRUE(doc.Dirty);
  EXPECT_EQ(host.calls,
            (Calls{"ShowHelp", "SetModifiedMark", "PaintWeekHeads 1100001", "RefillMonthView"}));
  EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(SchWeekHTest, CancelPutsTheWeekBack) {
  QTest::mouseClick(dialog.CSCaption1(0), Qt::LeftButton);
  QTest::mouseClick(dialog.SetReset(), Qt::LeftButton);
  ASSERT_EQ(doc.WeekHoliday[0], 0);
  QTest::mouseClick(dialog.Command1(), Qt::LeftButton);
  EXPECT_EQ(dialog.result(), QDialog::Rejected);
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(doc.WeekHoliday, (WeekFlags{1, 0, 0, 0, 0, 0, 1}));
  EXPECT_FALSE(doc.Dirty);
  EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(SchWeekHTest, TheCloseBoxAsksAndCancelThereKeepsTheDialogOpen) {
  QTest::mouseClick(dialog.CSCaption1(0), Qt::LeftButton);
  QTest::mouseClick(dialog.SetReset(), Qt::LeftButton);
  messages.QueueAnswer(MsgAnswer::Cancel);
  dialog.close();
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(doc.WeekHoliday[0], 0);
  EXPECT_EQ(Text(dialog.CSCaption1(0)), dialog.palette().color(QPalette::ButtonText));
  messages.QueueAnswer(MsgAnswer::No);
  QTest::keyClick(dialog.SetReset(), Qt::Key_Escape);
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(doc.WeekHoliday[0], 1);
  ASSERT_EQ(messages.Shown().size(), 2u);
  EXPECT_EQ(messages.Shown()[1].title, "Setting Weekend");
  EXPECT_EQ(messages.Shown()[1].text, "Do you want to save the changes?");
  EXPECT_FALSE(doc.Dirty);
}

class SchYearHTest : public ::testing::Test {
 protected:
  SchYearHTest() {
    t.doc.CurYear = 2026;
    t.doc.CurMonth = 11;
    t.doc.CurDay = 20;
  }
  std::int32_t NovemberOn() const {
    return t.doc.Tables.AncYY.At(FindYearRow(t.doc.Tables, 2026)).HolidayOn[10];
  }

  TestStore t;
  FakeHolidayCalendar calendar{{{20261120, "Founders' Day"}}};
  NamedHolidays named{&calendar, 1, -1};
  FakeDateFormatter dates;
  RecordingHolidayHost host;
  SchYearHModel model{t.store, named, dates, host};
};

TEST_F(SchYearHTest, ShowsTheDateAndTheQuestionAndOkStoresTheMark) {
  SchYearH dialog(model);
  dialog.open();
  EXPECT_EQ(dialog.objectName(), "SchYearH");
  EXPECT_EQ(dialog.windowTitle(), "Setting Holiday");
  EXPECT_EQ(dialog.Yday()->text(), "2026/11/20");
  EXPECT_EQ(dialog.Label2()->text(), "Setting a Workday.\nAre you sure?");
  EXPECT_EQ(dialog.CAL()->selectedDate(), QDate(2026, 11, 20));
  EXPECT_EQ(dialog.Command1()->text(), "&OK");
  EXPECT_EQ(dialog.Command2()->text(), "&Cancel");
  EXPECT_EQ(t.doc.Tables.YearCount, 1);  // the year's row is there before any answer
  SaveShot(&dialog, "SchYearH.png");

  QTest::mouseClick(dialog.Command1(), Qt::LeftButton);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(NovemberOn(), 1 << 19);
  EXPECT_EQ(t.doc.ShownYearMasks.HolidayOn[10], 1 << 19);
  EXPECT_TRUE(t.doc.Dirty);
  EXPECT_EQ(host.calls, Calls{"SetModifiedMark"});

  SchYearH again(model);
  EXPECT_EQ(again.Label2()->text(), "Setting a Holiday.\nAre you sure?");
}

TEST_F(SchYearHTest, CancelAndTheCloseBoxChangeNothing) {
  for (bool closeBox : {false, true}) {
    SchYearH dialog(model);
    dialog.open();
    QTest::keyClick(dialog.Command1(), Qt::Key_F1);
    QTest::mouseClick(dialog.CAL(), Qt::LeftButton);  // the calendar only shows the date
    if (closeBox) {
      dialog.close();
    } else {
      QTest::mouseClick(dialog.Command2(), Qt::LeftButton);
    }
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_EQ(dialog.CAL()->selectedDate(), QDate(2026, 11, 20));
  }
  EXPECT_EQ(NovemberOn(), 0);
  EXPECT_FALSE(t.doc.Dirty);
  EXPECT_EQ(host.calls, (Calls{"ShowHelp", "ShowHelp"}));
}

class DlgSelectHolidayTest : public ::testing::Test, public CountryFolder {
 protected:
  DlgSelectHolidayTest()
      : CountryFolder({"holidayJP.ini", "holidayUS.ini", "holidayFR.ini"}, "holidayUS.ini") {}

  DlgSelectHolidayModel model{Services(), named};
};

TEST_F(DlgSelectHolidayTest, ListsTheCountriesAndOkChangesToTheChosenOne) {
  DlgSelectHoliday dialog(model);
  dialog.open();
  EXPECT_EQ(dialog.objectName(), "DlgSelectHoliday");
  EXPECT_EQ(dialog.windowTitle(), "Select Country Information");
  EXPECT_EQ(dialog.CancelButton()->text(), "Cancel");
  EXPECT_FALSE(dialog.FListIniList()->isVisible());
  EXPECT_EQ(dialog.FListIniList()->count(), 3);
  QListWidget* list = dialog.ListHolidayInfo();
  ASSERT_EQ(list->count(), 3);
  EXPECT_EQ(list->item(0)->text(), "France");
  EXPECT_EQ(list->item(1)->text(), "Japan");
  EXPECT_EQ(list->item(2)->text(), "United States");
  ASSERT_EQ(list->selectedItems().size(), 1);
  EXPECT_EQ(list->selectedItems()[0]->text(), "United States");
  SaveShot(&dialog, "DlgSelectHoliday.png");

  const QRect france = list->visualItemRect(list->item(0));
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, france.center());
  EXPECT_EQ(model.ListIndex(), 0);
  messages.QueueAnswer(MsgAnswer::Yes);
  QTest::mouseClick(dialog.OKButton(), Qt::LeftButton);
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(registry.ReadString(kSchedulerKey, kHolidayIniValue), "holidayFR.ini");
  EXPECT_EQ(device.files.count("\\system\\ini\\holiday.ini"), 1u);
  EXPECT_NE(Named(2026, 7, 14), "");
}

TEST_F(DlgSelectHolidayTest, WithNothingSelectedOkIsACancel) {
  registry.WriteString(kSchedulerKey, kHolidayIniValue, "holidayDE.ini");
  DlgSelectHoliday dialog(model);
  dialog.open();
  dialog.ListHolidayInfo()->setFocus();
  EXPECT_TRUE(dialog.ListHolidayInfo()->selectedItems().isEmpty());
  QTest::mouseClick(dialog.OKButton(), Qt::LeftButton);
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_TRUE(calendar.calls.empty() || calendar.calls == Calls{"Init holidayUS.ini 0"});
  EXPECT_EQ(registry.ReadString(kSchedulerKey, kHolidayIniValue), "holidayDE.ini");
  EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(DlgSelectHolidayTest, ABrokenInstallationEndsTheProgramWithoutOpeningTheDialog) {
  FakeRegistry empty;
  DlgSelectHolidayModel broken({empty, messages, device, calendar, host, pcapps}, named);
  DlgSelectHoliday dialog(broken);
  EXPECT_FALSE(dialog.Loaded());
  EXPECT_EQ(dialog.exec(), QDialog::Rejected);
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(host.calls, Calls{"EndProgram"});
}

}  // namespace
}  // namespace sched
