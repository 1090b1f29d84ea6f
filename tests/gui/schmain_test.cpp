#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QUrl>

#include "shell/settings.h"
#include "tests/gui/gui_fixture.h"

namespace sched {
namespace {

// Drops a file on a widget as the window system would.
void DropFile(QWidget* target, const std::string& path) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
  const QPointF at(target->width() / 2.0, target->height() / 2.0);
  QDragEnterEvent enter(at.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(target, &enter);
  ASSERT_TRUE(enter.isAccepted());
  QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(target, &drop);
}

TEST_F(GuiTest, TheWindowHasEveryMenuAndButtonAndOnlyWorkingOnesAreEnabled) {
  ASSERT_FALSE(Start().has_value());
  SchMain* w = app->Window();
  for (const char* name : {"New_Menu", "OpenF_Menu", "SaveOvw_Menu", "SaveName_Menu",
                           "q390OpenF_Menu", "q390SaveOvw_Menu", "q390SaveName_Menu", "SchEnd_Menu",
                           "MenuCheckMsg", "Disconnect_Setup", "GlobalVersion", "Set_WeekH",
                           "Set_YearH", "SelectHolidayInfo", "Wdsp", "Ydsp", "NewSchdat"}) {
    ASSERT_NE(w->Action(name), nullptr) << name;
    EXPECT_TRUE(w->Action(name)->isEnabled()) << name;
  }
  for (const char* name : {"CopySchdat", "PasteSchdat", "UpdSchDat", "DelSchDat", "DelMonth",
                           "DelYear", "DelBefore", "DelAfter", "MenuPrint", "HelpTopic"}) {
    ASSERT_NE(w->Action(name), nullptr) << name;
    EXPECT_FALSE(w->Action(name)->isEnabled()) << name;
  }
  for (const char* key : {"NewF", "OpenF", "Save", "Q390Open", "Q390Save", "SclAdd"}) {
    EXPECT_TRUE(w->ToolButton(key)->isEnabled()) << key;
    EXPECT_FALSE(w->ToolButton(key)->toolTip().isEmpty()) << key;
  }
  for (const char* key : {"SclDel", "Subject", "Print"}) {
    EXPECT_FALSE(w->ToolButton(key)->isEnabled()) << key;
  }
  EXPECT_EQ(w->Tabs()->count(), 2);
  EXPECT_EQ(w->Progress()->maximum(), 130);
  EXPECT_FALSE(w->Progress()->isVisible());
}

TEST_F(GuiTest, FileCommandsFromTheMenuAndToolbarSetTheTitle) {
  ASSERT_FALSE(Start().has_value());
  SchMain* w = app->Window();
  dialogs.QueueAnswer(Sample());
  w->Action("OpenF_Menu")->trigger();
  EXPECT_EQ(Title(), "Scheduler - PC:Sample.scl");
  EXPECT_EQ(dialogs.ShownDialogs().back().request.folder, install + "/userdata/PIMdata");

  dialogs.QueueAnswer(dir.File("Copy of sample"));
  w->Action("SaveName_Menu")->trigger();
  EXPECT_EQ(Title(), "Scheduler - PC:Copy of sample.scl");
  EXPECT_EQ(ReadBytes(dir.File("Copy of sample.scl")), ReadBytes(Sample()));

  chooser.answers = {std::string("Week plan")};
  w->Action("q390SaveName_Menu")->trigger();
  EXPECT_EQ(Title(), "Scheduler - Tarvex:Week plan.scl");
  ASSERT_EQ(chooser.asked.size(), 1u);
  EXPECT_EQ(chooser.asked[0].mode, DeviceDialogMode::Save);
  EXPECT_EQ(chooser.asked[0].proposal, "Copy of sample.scl");
  EXPECT_EQ(ReadBytes(install + "/xferbay/cache/PIM/Week plan.scl"), ReadBytes(Sample()));

  chooser.answers = {std::string("Sample.scl")};
  w->ToolButton("Q390Open")->trigger();
  EXPECT_EQ(Title(), "Scheduler - Tarvex:Sample.scl");
  EXPECT_EQ(app->Document().Tables.RowCount, 43);
  EXPECT_EQ(chooser.asked.back().files, (std::vector<std::string>{"Sample.scl", "Week plan.scl"}));

  app->Document().Dirty = true;
  messages.QueueAnswer(MsgAnswer::Cancel);
  w->ToolButton("NewF")->trigger();
  EXPECT_EQ(Title(), "Scheduler - Tarvex:Sample.scl");
  messages.QueueAnswer(MsgAnswer::No);
  w->Action("New_Menu")->trigger();
  EXPECT_EQ(Title(), "Scheduler - Untitled");
  EXPECT_EQ(app->Document().Tables.RowCount, 0);

  chooser.answers = {};
  w->Action("q390OpenF_Menu")->trigger();  // cancelled
  EXPECT_EQ(Title(), "Scheduler - Untitled");
}

TEST_F(GuiTest, DroppedFilesOpenOnTheWindowAndOnTheTabs) {
  ASSERT_FALSE(Start().has_value());
  DropFile(app->Window()->Tabs(), Sample());
  EXPECT_EQ(Title(), "Scheduler - PC:Sample.scl");
  EXPECT_EQ(app->Document().Tables.RowCount, 43);

  WriteBytes(dir.File("notes.scl"), {'n', 'o', 't', 'e', 's'});
  DropFile(app->Window(), dir.File("notes.scl"));
  EXPECT_EQ(Texts().back(), "This is not a Scheduler file.");
  EXPECT_EQ(Title(), "Scheduler - PC:Sample.scl");
  EXPECT_EQ(app->Document().Tables.RowCount, 43);
}

TEST_F(GuiTest, TheTransferMessageSettingFollowsItsMenuEntry) {
  ASSERT_FALSE(Start().has_value());
  QAction* entry = app->Window()->Action("MenuCheckMsg");
  app->Window()->findChild<QMenu*>("MenuDefine")->aboutToShow();  // as when the menu opens
  EXPECT_TRUE(entry->isChecked());
  entry->trigger();
  EXPECT_EQ(settings.GetSetting(kSettingsApp, "Global", "MsgDsp", ""), "1");
  entry->trigger();
  EXPECT_EQ(settings.GetSetting(kSettingsApp, "Global", "MsgDsp", ""), "0");
}

TEST_F(GuiTest, LoadingShowsItsProgressAndHidesItAfter) {
  ASSERT_FALSE(Start().has_value());
  SchMain* w = app->Window();
  std::vector<int> values;
  QObject::connect(w->Progress(), &QProgressBar::valueChanged,
                   [&](int value) { values.push_back(value); });
  dialogs.QueueAnswer(Sample());
  w->Action("OpenF_Menu")->trigger();
  EXPECT_NE(std::find(values.begin(), values.end(), 115), values.end());
  EXPECT_NE(std::find(values.begin(), values.end(), 130), values.end());
  EXPECT_FALSE(w->Progress()->isVisible());
  EXPECT_EQ(w->ProgressCaption()->text(), "");
}

}  // namespace
}  // namespace sched
