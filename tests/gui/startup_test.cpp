#include <QTest>

#include "shell/settings.h"
#include "shell/texts.h"
#include "tests/gui/gui_fixture.h"

namespace sched {
namespace {

TEST_F(GuiTest, WithoutAnInstallFolderTheProgramEndsWithoutAWord) {
  FakeRegistry empty;
  app = std::make_unique<SchedulerApp>(
      AppPorts{empty, settings, messages, dialogs, dates, clock, holidays, chooser});
  EXPECT_EQ(app->Start({"scheduler"}), 0);
  EXPECT_TRUE(messages.Shown().empty());
  EXPECT_EQ(app->Window(), nullptr);
}

TEST_F(GuiTest, WithoutTheProgramsKeyTheProgramSaysSoAndEnds) {
  FakeRegistry broken;
  broken.WriteString(kInstallKey, kInstallDirValue, install);
  app = std::make_unique<SchedulerApp>(
      AppPorts{broken, settings, messages, dialogs, dates, clock, holidays, chooser});
  EXPECT_EQ(app->Start({"scheduler"}), 1);
  ASSERT_EQ(messages.Shown().size(), 1u);
  EXPECT_EQ(messages.Shown()[0].text,
            "Directory does not exist.\r\nPlease install the PC Application again.");
  EXPECT_EQ(messages.Shown()[0].title, "Scheduler");
  EXPECT_EQ(messages.Shown()[0].icon, MsgIcon::Critical);
  EXPECT_EQ(app->Window(), nullptr);
}

TEST_F(GuiTest, TheCountryFileAtStart) {
  struct Case {
    std::string holidayIni;
    std::vector<std::string> texts;
    int ready;
  };
  const Case cases[] = {
      {"holidayJP.ini", {}, -1},
      {"", {"Invalid the holiday information file.\r\nPlease setting the holiday information."}, 0},
      {"holidayXX.ini", {"Not found a holiday infomation file.\nNot setting holidays."}, 0},
  };
  for (const Case& c : cases) {
    FakeMessages quiet;
    registry.WriteString(kSchedulerKey, kHolidayIniValue, c.holidayIni);
    app = std::make_unique<SchedulerApp>(
        AppPorts{registry, settings, quiet, dialogs, dates, clock, holidays, chooser});
    ASSERT_FALSE(app->Start({"scheduler"}).has_value()) << c.holidayIni;
    std::vector<std::string> texts;
    for (const auto& m : quiet.Shown()) texts.push_back(m.text);
    EXPECT_EQ(texts, c.texts) << c.holidayIni;
    EXPECT_EQ(app->State().Holidays.HolidayReady, c.ready) << c.holidayIni;
    app.reset();
  }
}

TEST_F(GuiTest, StartsOnTheFileOfTheCommandLineQuotedOrNot) {
  for (const QString& arg :
       {QString::fromStdString(Sample()), QString::fromStdString("\"" + Sample() + "\"")}) {
    ASSERT_FALSE(Start({arg}).has_value());
    EXPECT_EQ(Title(), "Scheduler - PC:Sample.scl");
    EXPECT_EQ(app->Document().Tables.RowCount, 43);
    EXPECT_TRUE(messages.Shown().empty());
    app.reset();
  }
}

TEST_F(GuiTest, ABadFileOnTheCommandLineLeavesAnUntitledStart) {
  WriteBytes(dir.File("bad.scl"), {'B', 'A', 'D', '!', 0, 0, 0, 0, 0, 0, 0, 0});
  ASSERT_FALSE(Start({QString::fromStdString(dir.File("bad.scl"))}).has_value());
  EXPECT_EQ(Texts(), (std::vector<std::string>{"This is not a Scheduler file."}));
  EXPECT_EQ(Title(), "Scheduler - Untitled");
  EXPECT_EQ(app->Document().ScheduleFile, "");
}

TEST_F(GuiTest, WithoutAFileTheLastOneComesBackAndAGoneOneIsForgottenQuietly) {
  StoreLastFile(settings, kDayviewSection, Sample(), 1);
  ASSERT_FALSE(Start().has_value());
  EXPECT_EQ(Title(), "Scheduler - PC:Sample.scl");
  app.reset();

  StoreLastFile(settings, kDayviewSection, dir.File("gone.scl"), 1);
  ASSERT_FALSE(Start().has_value());
  EXPECT_EQ(Title(), "Scheduler - Untitled");
  EXPECT_TRUE(messages.Shown().empty());
}

TEST_F(GuiTest, ASecondStartBringsTheFirstWindowForwardAndOpensNothing) {
  ASSERT_FALSE(Start().has_value());
  QSignalSpy fronted(app->Window(), &SchMain::BroughtToFront);
  SchedulerApp second(Ports());
  EXPECT_EQ(second.Start({"scheduler", QString::fromStdString(Sample())}), 0);
  EXPECT_EQ(second.Window(), nullptr);
  EXPECT_TRUE(fronted.wait(2000));
  EXPECT_EQ(Title(), "Scheduler - Untitled");
}

TEST_F(GuiTest, TheWindowComesBackToItsPlaceAndNeverAsAnIcon) {
  settings.SaveSetting(kSettingsApp, kDayviewSection, "WindwInformation", "2,40,30,660,510");
  ASSERT_FALSE(Start().has_value());
  SchMain* window = app->Window();
  EXPECT_EQ(window->geometry(), QRect(40, 30, 620, 480));
  EXPECT_FALSE(window->isMinimized());

  window->setGeometry(50, 60, 600, 400);
  EXPECT_TRUE(window->close());
  EXPECT_EQ(settings.GetSetting(kSettingsApp, kDayviewSection, "WindwInformation", ""),
            "1,50,60,650,460");
}

TEST_F(GuiTest, ClosingWithChangesAsksAndCancelKeepsTheProgram) {
  ASSERT_FALSE(Start({QString::fromStdString(Sample())}).has_value());
  app->Document().Dirty = true;
  messages.QueueAnswer(MsgAnswer::Cancel);
  EXPECT_FALSE(app->Window()->close());
  EXPECT_EQ(Texts().back(), "Do you want to save the changes?");
  messages.QueueAnswer(MsgAnswer::No);
  EXPECT_TRUE(app->Window()->close());
}

TEST_F(GuiTest, TheDateFrameShowsTodayAndTheDayWatchStartsByTheClock) {
  ASSERT_FALSE(Start().has_value());
  EXPECT_EQ(app->Window()->DateLabel()->text(), "2026/11/21(Sat) 10:30 AM");
  EXPECT_EQ(app->Window()->DayTimer()->interval(), 60000);
  EXPECT_TRUE(app->Window()->DayTimer()->isActive());
  app.reset();

  clock.Set({2026, 11, 21, 23, 59, 30});
  ASSERT_FALSE(Start().has_value());
  EXPECT_EQ(app->Window()->DayTimer()->interval(), 3000);
  EXPECT_EQ(app->Window()->DateLabel()->text(), "2026/11/21(Sat) 11:59 PM");
}

}  // namespace
}  // namespace sched
