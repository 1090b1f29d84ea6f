// Today's alarms in the running program: the notice windows, the menu switch, a file dialog
// that holds the windows back, and the end of the program closing them.
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <filesystem>

#include "tests/gui/gui_fixture.h"
#include "tests/support/test_store.h"

namespace sched {
namespace {

class AlarmNoticesTest : public GuiTest {
 protected:
  // The program at 10:30 on a file with two alarms at 10:45 of today, one at 11:00 and one at
  // midnight.
  void SetUp() override {
    TestStore file;
    Alarmed(file, MakeItem(2026, 11, 21, 645, 705, "Dentist"), "Main St", "x-ray\r\nno coffee");
    Alarmed(file, MakeItem(2026, 11, 21, 645, 675, "Call the office"), "Phone", "");
    Alarmed(file, MakeItem(2026, 11, 21, 660, 720, "Lunch"), "", "");
    Alarmed(file, MakeItem(2026, 11, 22, 0, 30, "Midnight"), "", "");
    ASSERT_FALSE(file.SaveTo("alarms.scl").empty());
    std::filesystem::copy_file(file.dir.File("alarms.scl"), Path());
    StartOnFile();
  }

  std::string Path() const { return dir.File("alarms.scl"); }
  void StartOnFile() {
    ASSERT_FALSE(Start({QString::fromStdString(Path())}).has_value());
    app->Window()->show();
    QApplication::processEvents();
  }

  static void Alarmed(TestStore& file, SchRecord item, const std::string& place,
                      const std::string& memo) {
    item.AlarmOn = 1;
    item.AlarmSound = kDefaultAlarmSound;
    item.Place = place;
    item.Memo = memo;
    file.store.InsertRecord(item);
  }

  // The clock reaches 10:45:00 and the clock alarm rings.
  void RingAt1045() {
    ASSERT_EQ(clockAlarm.ArmedMinute(), 645);
    clock.Set({2026, 11, 21, 10, 45, 0});
    clockAlarm.Ring();
    QApplication::processEvents();
  }

  std::vector<QWidget*> Notices() { return app->NoticeWindows().OpenWindows(); }
  static QString Shown(QWidget* notice, const char* name) {
    const QLabel* label = notice->findChild<QLabel*>(name);
    return label != nullptr ? label->text() : "(none)";
  }
};

TEST_F(AlarmNoticesTest, TwoAlarmsOfAMinuteOpenTwoWindows) {
  RingAt1045();
  const std::vector<QWidget*> notices = Notices();
  ASSERT_EQ(notices.size(), 2u);
  EXPECT_EQ(beep.beeps, 2);
  EXPECT_EQ(desktop.posted,
            (std::vector<std::string>{"Dentist / 10:45am - 11:45am\nMain St",
                                      "Call the office / 10:45am - 11:15am\nPhone"}));
  QWidget* dentist = notices[0];
  EXPECT_TRUE(dentist->isVisible());
  EXPECT_EQ(dentist->windowTitle(), "Scheduler - Matching with Schedule alarm");
  EXPECT_EQ(Shown(dentist, "Label1"), "Dentist");
  EXPECT_EQ(Shown(dentist, "Label2_0"), "2026/11/21");
  EXPECT_EQ(Shown(dentist, "Label2_1"), "10:45am - 11:45am");
  EXPECT_EQ(Shown(dentist, "Label2_2"), "Main St");
  EXPECT_EQ(dentist->findChild<QPlainTextEdit*>("Text1")->toPlainText(), "x-ray\nno coffee");
  EXPECT_EQ(Shown(notices[1], "Label1"), "Call the office");
  for (const char* label : {"Title", "Date", "Time", "Place", "Memo"}) {
    bool found = false;
    for (const QLabel* l : dentist->findChildren<QLabel*>()) found |= l->text() == label;
    EXPECT_TRUE(found) << label;
  }
  // In the middle of the screen.
  const QRect screen = dentist->screen()->availableGeometry();
  EXPECT_LE((dentist->frameGeometry().center() - screen.center()).manhattanLength(), 2);
  dentist->grab().save(PicturePath(dir, "alarm-notice.png"));

  // The next alarm is armed; closing a window leaves the other.
  EXPECT_EQ(clockAlarm.ArmedMinute(), 660);
  QTest::mouseClick(dentist->findChild<QPushButton*>("Command1"), Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_EQ(Notices().size(), 1u);
  EXPECT_EQ(QApplication::activeWindow(), app->Window());
}

TEST_F(AlarmNoticesTest, ANoticeSnoozedInItsWindowRingsAgainAfterTheTimeChosen) {
  RingAt1045();
  ASSERT_EQ(Notices().size(), 2u);
  QWidget* dentist = Notices()[0];
  EXPECT_EQ(Shown(dentist, "LabelMissed"), "(none)");
  auto* snoozeFor = dentist->findChild<QComboBox*>("ComboSnooze");
  ASSERT_NE(snoozeFor, nullptr);
  QStringList choices;
  for (int i = 0; i < snoozeFor->count(); ++i) choices << snoozeFor->itemText(i);
  EXPECT_EQ(choices, QStringList({"5 minutes", "10 minutes", "15 minutes", "30 minutes", "1 hour",
                                  "2 hours", "Tomorrow"}));
  auto* snooze = dentist->findChild<QPushButton*>("CommandSnooze");
  EXPECT_EQ(snooze->text(), "&Snooze");
  // Beside OK, on the same line.
  EXPECT_EQ(snooze->geometry().center().y(),
            dentist->findChild<QPushButton*>("Command1")->geometry().center().y());
  snoozeFor->setCurrentIndex(1);
  QTest::mouseClick(snooze, Qt::LeftButton);
  QApplication::processEvents();
  ASSERT_EQ(Notices().size(), 1u);
  EXPECT_EQ(Shown(Notices()[0], "Label1"), "Call the office");
  EXPECT_EQ(clockAlarm.ArmedMinute(), 655);  // before the next alarm at 11:00

  clock.Set({2026, 11, 21, 10, 55, 0});
  clockAlarm.Ring();
  QApplication::processEvents();
  ASSERT_EQ(Notices().size(), 2u);
  EXPECT_EQ(Shown(Notices()[1], "Label1"), "Dentist");
  EXPECT_EQ(beep.beeps, 3);
  EXPECT_EQ(clockAlarm.ArmedMinute(), 660);
}

TEST_F(AlarmNoticesTest, TheDesktopNotificationsButtonsAnswerTheWindow) {
  RingAt1045();
  ASSERT_EQ(desktop.notices.size(), 2u);
  desktop.Pick(desktop.notices[1].id, "dismiss");
  QApplication::processEvents();
  ASSERT_EQ(Notices().size(), 1u);
  EXPECT_EQ(Shown(Notices()[0], "Label1"), "Dentist");
  desktop.Pick(desktop.notices[0].id, "snooze");
  QApplication::processEvents();
  EXPECT_TRUE(Notices().empty());
  EXPECT_EQ(clockAlarm.ArmedMinute(), 650);
}

// The program ends at 10:40 and starts again at 11:30: the alarms of 10:45 and 11:00 show as
// missed.
TEST_F(AlarmNoticesTest, WhatRangWhileTheProgramWasClosedOrAsleepShowsAsMissed) {
  clock.Set({2026, 11, 21, 10, 40, 0});
  app->Window()->Timer2_Timer();
  app->Window()->close();
  QApplication::processEvents();
  EXPECT_EQ(settings.GetSetting("Sorvane", "Dayview", "AlarmChecked", ""), "2026/11/21 10:40");
  app.reset();
  clock.Set({2026, 11, 21, 11, 30, 0});
  StartOnFile();
  const std::vector<QWidget*> notices = Notices();
  ASSERT_EQ(notices.size(), 3u);
  EXPECT_EQ(Shown(notices[0], "LabelMissed"), "Missed at 10:45 AM");
  EXPECT_EQ(Shown(notices[0], "Label1"), "Dentist");
  EXPECT_EQ(notices[0]->windowTitle(), "Scheduler - Matching with Schedule alarm");
  // The line stands above the title.
  EXPECT_LT(notices[0]->findChild<QLabel*>("LabelMissed")->geometry().bottom(),
            notices[0]->findChild<QLabel*>("Label1")->geometry().top());
  EXPECT_EQ(desktop.posted.back(), "Lunch / Missed at 11:00 AM\n11:00am - 12:00pm");
  EXPECT_EQ(settings.GetSetting("Sorvane", "Dayview", "AlarmChecked", ""), "2026/11/21 11:30");
  notices[0]->grab().save(PicturePath(dir, "alarm-notice-missed.png"));
}

TEST_F(AlarmNoticesTest, TheWindowsDayWatchRingsMidnightsAlarm) {
  clock.Set({2026, 11, 21, 23, 59, 58});
  app->Window()->Timer2_Timer();
  EXPECT_EQ(app->Window()->DayTimer()->interval(), 3000);
  EXPECT_EQ(Notices().size(), 3u);  // the day's alarms the clock jumped over, as missed
  clock.Set({2026, 11, 22, 0, 0, 1});
  app->Window()->Timer2_Timer();
  EXPECT_EQ(app->Window()->DayTimer()->interval(), 10000);
  ASSERT_EQ(Notices().size(), 4u);
  EXPECT_EQ(Shown(Notices()[3], "Label1"), "Midnight");
  EXPECT_EQ(Shown(Notices()[3], "LabelMissed"), "(none)");
  EXPECT_EQ(app->Alarms().TodayCode(), 20261122);
  EXPECT_EQ(app->Window()->DateLabel()->text().toStdString(), "2026/11/22(Sun) 12:00 AM");
}

TEST_F(AlarmNoticesTest, TheMenuSwitchSilencesTheAlarms) {
  QAction* ring = app->Window()->Action("BeepAlarm");
  ASSERT_TRUE(ring->isVisible());
  ASSERT_TRUE(ring->isChecked());
  ring->trigger();
  EXPECT_FALSE(ring->isChecked());
  RingAt1045();
  EXPECT_TRUE(Notices().empty());
  EXPECT_EQ(beep.beeps, 0);
  EXPECT_EQ(clockAlarm.ArmedMinute(), 660);  // the next later alarm

  ring->trigger();
  clock.Set({2026, 11, 21, 11, 0, 0});
  clockAlarm.Ring();
  EXPECT_EQ(Notices().size(), 1u);
}

TEST_F(AlarmNoticesTest, AFileDialogHoldsTheWindowsUntilItCloses) {
  std::size_t duringDialog = 99;
  dialogs.whileOpen = [&] {
    RingAt1045();
    duringDialog = Notices().size();
  };
  app->Window()->Action("OpenF_Menu")->trigger();  // the user cancels
  EXPECT_EQ(duringDialog, 0u);
  EXPECT_EQ(beep.beeps, 2);  // at once, not again later
  EXPECT_EQ(Notices().size(), 2u);
}

TEST_F(AlarmNoticesTest, ANewDocumentRestsTheClockAndTheEndClosesTheWindows) {
  RingAt1045();
  ASSERT_EQ(Notices().size(), 2u);
  app->Session()->ResetToToday(true);  // a new document has no alarms
  EXPECT_EQ(clockAlarm.ArmedMinute(), std::nullopt);
  app->Window()->close();
  QApplication::processEvents();
  EXPECT_TRUE(Notices().empty());
}

}  // namespace
}  // namespace sched
