#include "commands/document_session.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "shell/settings.h"
#include "tests/support/message_lines.h"
#include "tests/support/test_session.h"

namespace sched {
namespace {

void ExpectOneMessage(const TestSession& s, const std::string& text) {
  EXPECT_EQ(testing::MessageLines(s.messages),
            std::vector<std::string>{"[Scheduler, Exclamation, Ok] " + text});
}

TEST(DocumentSession, ALoadShowsItsProgressThenTheDocumentAndItsAlarms) {
  TestSession s;
  const std::string path = s.MakeFile("two years.scl", "A");
  s.doc.CurYear = 2001;  // a month without data: the toolbar's delete goes off
  s.doc.CurMonth = 1;
  s.doc.ScheduleFile = path;
  s.session.LoadScheduleFile();

  EXPECT_EQ(s.progress.values, (std::vector<int>{0, 100, 100, 115, 130, 0}));
  EXPECT_EQ(s.progress.events.front(), "caption Now reading...");
  EXPECT_EQ(s.progress.events.back(), "refresh");
  EXPECT_FALSE(s.progress.visible);
  EXPECT_TRUE(s.messages.Shown().empty());
  EXPECT_EQ(s.doc.Tables.RowCount, 1);
  EXPECT_EQ(s.window.title, "Scheduler - PC:two years.scl");
  EXPECT_TRUE(s.window.Called("ShowViews"));
  EXPECT_FALSE(s.views.Menus().ToolbarDelete);
  EXPECT_EQ(s.settings.GetSetting(kSettingsApp, kDayviewSection, kLastFileKey, ""),
            "1,PC:two years.scl," + path);
  const std::vector<std::string> tail(s.alarms.calls.end() - 2, s.alarms.calls.end());
  EXPECT_EQ(tail, (std::vector<std::string>{"SortTodayAlarms", "ArmNextAlarm"}));

  s.doc.ScheduleOnPc = 0;
  s.session.LoadScheduleFile();
  EXPECT_EQ(s.window.title, "Scheduler - Tarvex:two years.scl");
}

// A file that is missing or damaged ends the same way: one message, an empty untitled document.
TEST(DocumentSession, AFileThatCannotBeReadLeavesAnEmptyUntitledDocument) {
  for (const bool damaged : {false, true}) {
    TestSession s;
    s.store.InsertRecord(MakeItem(1998, 7, 9, 540, 600, "A"));
    s.doc.Dirty = true;
    s.doc.ScheduleFile = s.dir.File("bad.scl");
    if (damaged) WriteBytes(s.doc.ScheduleFile, {'Q', '3', '9', 'E', 0, 0, 1, 0, 12, 0, 0, 0});
    s.session.LoadScheduleFile();
    ExpectOneMessage(s, "Read error!");
    EXPECT_EQ(s.doc.ScheduleFile, "");
    EXPECT_FALSE(s.doc.Dirty);
    EXPECT_EQ(s.doc.Tables.RowCount, 0);
    EXPECT_TRUE(s.doc.Tables.SchDatList.IsEmpty());
    EXPECT_TRUE(s.window.Called("ShowFirstTab"));
    EXPECT_EQ(s.window.calls.back(), "SetTitle Scheduler - Untitled");
    EXPECT_FALSE(s.progress.visible);
    EXPECT_EQ(s.settings.GetSetting(kSettingsApp, kDayviewSection, kLastFileKey, ""), "");
  }
}

// The device's private level comes from its System.ini: it hides private records of a device
// file below it, and it is the level written into a saved file.
TEST(DocumentSession, TheDevicesPrivateLevelIsReadForADeviceFileAndForEverySave) {
  TestSession s;
  SchRecord secret = MakeItem(1998, 7, 9, 540, 600, "secret");
  secret.Private = 1;
  s.store.InsertRecord(secret);
  WriteBytes(s.dir.File("System.ini"), {'S', 'Y', 'S', 'T', 'E', 'M', 3, 0});
  s.doc.ScheduleFile = s.dir.File("private.scl");
  ASSERT_TRUE(s.session.SaveScheduleFile());
  EXPECT_EQ(ReadBytes(s.doc.ScheduleFile)[12 + 34], 3);

  WriteBytes(s.dir.File("System.ini"), {'S', 'Y', 'S', 'T', 'E', 'M', 4, 0});
  struct Case {
    int onPc;
    int rows;
  };
  for (const Case& c : {Case{1, 1}, Case{0, 0}}) {
    s.doc.ScheduleFile = s.dir.File("private.scl");
    s.doc.ScheduleOnPc = c.onPc;
    s.session.LoadScheduleFile();
    EXPECT_EQ(s.doc.Tables.RowCount, c.rows) << "on PC " << c.onPc;
  }
}

TEST(DocumentSession, ASaveShowsItsProgressAndRemembersTheFile) {
  TestSession s;
  s.store.InsertRecord(MakeItem(1998, 7, 9, 540, 600, "new"));
  s.doc.ScheduleFile = s.dir.File("saved.scl");
  ASSERT_TRUE(s.session.SaveScheduleFile());
  EXPECT_TRUE(s.messages.Shown().empty());
  EXPECT_EQ(s.progress.events.front(), "caption Now writing...");
  EXPECT_EQ(s.progress.values, (std::vector<int>{0, 0, 130, 0}));
  EXPECT_FALSE(s.progress.visible);
  EXPECT_EQ(ReadBytes(s.doc.ScheduleFile), s.store.BuildScheduleBytes());
  EXPECT_EQ(s.settings.GetSetting(kSettingsApp, kDayviewSection, kLastFileKey, ""),
            "1,PC:saved.scl," + s.doc.ScheduleFile);
}

TEST(DocumentSession, AFailedSaveSaysWriteErrorAndLeavesTheOldFile) {
  TestSession s;
  const std::string path = s.MakeFile("keep.scl", "first");
  const auto before = ReadBytes(path);
  s.store.InsertRecord(MakeItem(1998, 7, 10, 540, 600, "second"));
  std::filesystem::permissions(path, std::filesystem::perms::owner_read);  // read-only
  s.doc.ScheduleFile = path;
  EXPECT_FALSE(s.session.SaveScheduleFile());
  ExpectOneMessage(s, "Write error!");
  EXPECT_EQ(ReadBytes(path), before);
  EXPECT_FALSE(s.progress.visible);
  EXPECT_EQ(s.settings.GetSetting(kSettingsApp, kDayviewSection, kLastFileKey, ""), "");
}

// A document of one item, cached from the device, about to be saved to it.
void PrepareDeviceSave(TestSession& s) {
  s.store.InsertRecord(MakeItem(1998, 7, 9, 540, 600, "device"));
  s.doc.ScheduleFile = s.dir.File("cache.scl");
  s.doc.ScheduleOnPc = 0;
  s.doc.SaveToDevice = true;
  s.doc.DevicePath = "\\PIM\\Schedule.scl";
}

TEST(DocumentSession, ADeviceFileIsSentThroughATemporaryFile) {
  TestSession s;
  PrepareDeviceSave(s);
  EXPECT_TRUE(s.session.SaveScheduleFile());
  ASSERT_EQ(s.device.files.count("\\PIM\\Schedule.scl"), 1u);
  EXPECT_EQ(s.device.files["\\PIM\\Schedule.scl"].substr(0, 4), "Q39E");
  EXPECT_EQ(s.device.alarmInfoUpdates, (std::vector<std::string>{"\\PIM\\Schedule.scl"}));
  EXPECT_FALSE(s.doc.SaveToDevice);
  EXPECT_EQ(s.doc.ScheduleFile, s.dir.File("cache.scl"));
  EXPECT_TRUE(s.messages.Shown().empty());

  s.doc.SaveToDevice = true;
  s.device.putResult = 7;
  EXPECT_FALSE(s.session.SaveScheduleFile());
  ExpectOneMessage(s, "File translate error when upload to Tarvex!");
  EXPECT_EQ(s.device.alarmInfoUpdates.size(), 1u);
  EXPECT_FALSE(s.doc.SaveToDevice);
}

TEST(DocumentSession, TheDeviceTemporaryFileIsNewAndGoesAway) {
  TestSession s;
  std::filesystem::create_directory(s.dir.File("tmp"));
  const TempFolder temp(s.dir.File("tmp"));
  // Names planted in the temporary folder are passed over, and what they point to stays.
  const std::string victim = s.dir.Write("victim", "precious");
  std::filesystem::create_symlink(victim, s.dir.File("tmp/Sch0001.tmp"));
  std::filesystem::create_symlink(s.dir.File("made by the link"), s.dir.File("tmp/Sch0002.tmp"));
  s.dir.Write("tmp/Sch0003.tmp", "someone else's");
  PrepareDeviceSave(s);
  ASSERT_TRUE(s.session.SaveScheduleFile());
  EXPECT_EQ(s.device.files["\\PIM\\Schedule.scl"].substr(0, 4), "Q39E");
  EXPECT_EQ(ReadBytes(victim), (std::vector<std::uint8_t>{'p', 'r', 'e', 'c', 'i', 'o', 'u', 's'}));
  EXPECT_FALSE(std::filesystem::exists(s.dir.File("made by the link")));
  EXPECT_EQ(ReadBytes(s.dir.File("tmp/Sch0003.tmp")).size(), 14u);
  std::size_t left = 0;
  for ([[maybe_unused]] const auto& entry :
       std::filesystem::directory_iterator(s.dir.File("tmp"))) {
    ++left;
  }
  EXPECT_EQ(left, 3u);  // only what was planted

  // No temporary folder: nothing reaches the device.
  const TempFolder gone(s.dir.File("no such folder"));
  s.doc.SaveToDevice = true;
  s.device.files.clear();
  EXPECT_FALSE(s.session.SaveScheduleFile());
  ExpectOneMessage(s, "Write error!");
  EXPECT_TRUE(s.device.files.empty());
}

}  // namespace
}  // namespace sched
