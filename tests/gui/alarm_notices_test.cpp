// Today's alarms in the running program: the notice windows, the menu switch, a file dialog
// that holds the windows back, and the end of the program closing them.
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
    const std::string path = dir.File("alarms.scl");
    std::filesystem::copy_file(file.dir.File("alarms.scl"), path);
    ASSERT_FALSE(Start({QString::fromStdString(path)}).has_value());
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
    return notice->findChild<QLabel*>(name)->text();
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

TEST_F(AlarmNoticesTest, TheWindowsDayWatchRingsMidnightsAlarm) {
  clock.Set({2026, 11, 21, 23, 59, 58});
  app->Window()->Timer2_Timer();
  EXPECT_EQ(app->Window()->DayTimer()->interval(), 3000);
  EXPECT_TRUE(Notices().empty());
  clock.Set({2026, 11, 22, 0, 0, 1});
  app->Window()->Timer2_Timer();
  EXPECT_EQ(app->Window()->DayTimer()->interval(), 10000);
  ASSERT_EQ(Notices().size(), 1u);
  EXPECT_EQ(Shown(Notices()[0], "Label1"), "Midnight");
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
