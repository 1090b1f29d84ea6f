#include "shell/cache_device_files.h"

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>

#include "platform/fake/fake_messages.h"
#include "shell/device_service.h"
#include "tests/shell/shell_test_support.h"
#include "tests/support/case_file.h"
#include "tests/support/fake_device_chooser.h"
#include "tests/support/message_lines.h"
#include "tests/support/temp_dir.h"

namespace sched {
namespace {

namespace fs = std::filesystem;
using testing::CaseRow;
using testing::ReadCases;

// An install folder with the device's cache as the set-up leaves it: "System" spelt upper case.
struct CacheFixture : ::testing::Test {
  TempDir dir;
  fs::path cache = dir.Path() / "xferbay" / "cache";
  CacheDeviceFiles device{cache.string()};

  void SetUp() override {
    fs::create_directories(cache / "PIM" / "Work");
    fs::create_directories(cache / "System" / "ini");
    fs::create_directories(cache / "System" / "sound");
  }
  std::string At(const std::string& relative) const { return (cache / relative).string(); }
  // A path of a case file with $cache and $dir in place.
  std::string Expand(const std::string& text) const {
    return sched::Expand(text, {{"$cache", cache.string()}, {"$dir", dir.Path().string()}});
  }
};

TEST_F(CacheFixture, PathsMapBetweenTheDeviceTheCacheAndThePc) {
  const auto optional = [&](const std::string& text) {
    return text.empty() ? std::nullopt : std::optional<std::string>(Expand(text));
  };
  for (const CaseRow& row : ReadCases("shell/device-paths.txt", 3, 28)) {
    const std::string path = Expand(row[1]);
    if (row[0] == "to-cache") {
      EXPECT_EQ(device.Sor_ConvPathSorvaneToCache(path), optional(row[2])) << row.where;
    } else if (row[0] == "to-device") {
      EXPECT_EQ(device.Sor_ConvPathCacheToSorvane(path), optional(row[2])) << row.where;
    } else {
      ASSERT_EQ(row[0], "on-pc") << row.where;
      EXPECT_EQ(device.Sor_IsOnPcFile(path), row.YesNo(2)) << row.where;
    }
  }
}

TEST_F(CacheFixture, PutFileCopiesOntoTheDeviceMakingFolders) {
  const std::string local = dir.File("upload.tmp");
  WriteText(local, "first");
  EXPECT_EQ(device.Sor_PutFile("\\PIM\\New\\Deeper\\x.scl", local), 0);
  EXPECT_EQ(ReadText(cache / "PIM/New/Deeper/x.scl"), "first");

  WriteText(local, "second");
  EXPECT_EQ(device.Sor_PutFile("\\pim\\new\\deeper\\X.SCL", local), 0);
  EXPECT_EQ(ReadText(cache / "PIM/New/Deeper/x.scl"), "second");  // the same file, replaced

  EXPECT_EQ(device.Sor_PutFile("\\system\\ini\\holiday.ini", local), 0);
  EXPECT_TRUE(fs::exists(cache / "System/ini/holiday.ini"));
  EXPECT_FALSE(fs::exists(cache / "system"));
}

TEST_F(CacheFixture, PutFileFailures) {
  const std::string local = dir.File("upload.tmp");
  WriteText(local, "data");
  EXPECT_NE(device.Sor_PutFile("\\PIM\\a.scl", dir.File("missing.tmp")), 0);
  EXPECT_NE(device.Sor_PutFile("\\", local), 0);
  EXPECT_NE(device.Sor_PutFile("\\PIM\\..\\..\\escape.scl", local), 0);
  EXPECT_NE(device.Sor_PutFile("\\PIM", local), 0);  // a folder is no file
  EXPECT_FALSE(fs::exists(dir.Path() / "escape.scl"));
}

TEST_F(CacheFixture, PutFileReplacesTheDevicesCopySafely) {
  const std::string local = dir.File("upload.tmp");
  WriteText(local, "new");
  WriteText(cache / "PIM/private.scl", "old");
  fs::permissions(cache / "PIM/private.scl", fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(device.Sor_PutFile("\\PIM\\private.scl", local), 0);
  EXPECT_EQ(ReadText(cache / "PIM/private.scl"), "new");
  EXPECT_EQ(fs::status(cache / "PIM/private.scl").permissions(),
            fs::perms::owner_read | fs::perms::owner_write);

  WriteText(cache / "PIM/locked.scl", "old");
  fs::permissions(cache / "PIM/locked.scl", fs::perms::owner_read);
  EXPECT_NE(device.Sor_PutFile("\\PIM\\locked.scl", local), 0);
  EXPECT_EQ(ReadText(cache / "PIM/locked.scl"), "old");

  fs::create_symlink("Work/real.scl", cache / "PIM/linked.scl");
  EXPECT_EQ(device.Sor_PutFile("\\PIM\\linked.scl", local), 0);
  EXPECT_TRUE(fs::is_symlink(cache / "PIM/linked.scl"));
  EXPECT_EQ(ReadText(cache / "PIM/Work/real.scl"), "new");
}

TEST_F(CacheFixture, PutFileOfTheCachedCopyItselfKeepsIt) {
  WriteText(cache / "PIM/a.scl", "content");
  EXPECT_EQ(device.Sor_PutFile("\\PIM\\a.scl", At("PIM/a.scl")), 0);
  EXPECT_EQ(ReadText(cache / "PIM/a.scl"), "content");
}

TEST_F(CacheFixture, GetFileGivesTheCachedFile) {
  WriteText(cache / "PIM/a.scl", "x");
  EXPECT_EQ(device.Sor_GetFile("\\pim\\A.scl").value_or(""), At("PIM/a.scl"));
  EXPECT_FALSE(device.Sor_GetFile("\\PIM\\missing.scl"));
  EXPECT_FALSE(device.Sor_GetFile("\\PIM"));
  EXPECT_TRUE(device.Sor_IsExist("\\PIM\\a.scl"));
  EXPECT_TRUE(device.Sor_IsExist("\\system\\sound"));
  EXPECT_FALSE(device.Sor_IsExist("\\PIM\\missing.scl"));
}

TEST_F(CacheFixture, DirByExtListsOneExtensionSorted) {
  for (const char* name : {"b.SCL", "A.scl", "c.txt", "a.scl.bak", "scl"}) {
    WriteText(cache / "PIM" / name, "x");
  }
  fs::create_directories(cache / "PIM" / "folder.scl");
  EXPECT_EQ(device.Sor_DirByExt("\\PIM", "scl"), (std::vector<std::string>{"A.scl", "b.SCL"}));
  EXPECT_EQ(device.Sor_DirByExt("\\pim\\", "TXT"), (std::vector<std::string>{"c.txt"}));
  EXPECT_TRUE(device.Sor_DirByExt("\\Nowhere", "scl").empty());
}

TEST_F(CacheFixture, FileDialogsGiveDevicePaths) {
  WriteText(cache / "PIM/Sample.scl", "x");
  WriteText(cache / "PIM/notes.txt", "x");
  WriteText(cache / "PIM/Work/Sample.scl", "x");
  for (const CaseRow& row : ReadCases("shell/device-file-dialogs.txt", 6, 10)) {
    ASSERT_TRUE(row[0] == "open" || row[0] == "save") << row.where;
    const DeviceDialogMode mode =
        row[0] == "open" ? DeviceDialogMode::Open : DeviceDialogMode::Save;
    FakeDeviceChooser chooser;
    chooser.answers = {row[2] == "(cancel)" ? std::nullopt : std::optional<std::string>(row[2])};
    FakeMessages messages;  // says Yes to replacing
    device.SetWindows({&chooser, &messages});
    const std::optional<std::string> result = mode == DeviceDialogMode::Open
                                                  ? device.Sor_PIMOpenFileDialog("scl", row[1])
                                                  : device.Sor_PIMSaveFileDialog("scl", row[1]);
    EXPECT_EQ(result, row[5].empty() ? std::nullopt : std::optional<std::string>(row[5]))
        << row.where;
    ASSERT_EQ(chooser.asked.size(), 1u) << row.where;
    EXPECT_EQ(chooser.asked[0].mode, mode) << row.where;
    EXPECT_EQ(chooser.asked[0].folder, row[3]) << row.where;
    EXPECT_EQ(chooser.asked[0].proposal, row[4]) << row.where;
    EXPECT_EQ(chooser.asked[0].files, std::vector<std::string>{"Sample.scl"}) << row.where;
  }
}

TEST_F(CacheFixture, ASaveOverAFileAsksBeforeReplacingIt) {
  WriteText(cache / "PIM/Sample.scl", "x");
  struct Case {
    std::vector<std::optional<std::string>> names;  // what the user gives the dialog, in turn
    std::vector<MsgAnswer> answers;                 // to the question to replace
    std::optional<std::string> expected;
    std::vector<std::string> asked;  // the names the question names
  };
  const std::string replace = " already exists.\nDo you want to replace it?";
  const Case cases[] = {
      // The name is matched whatever its case and extension.
      {{"SAMPLE"}, {MsgAnswer::Yes}, "\\PIM\\SAMPLE.scl", {"SAMPLE.scl"}},
      // No goes back to the dialog, until the user names another file or cancels.
      {{"Sample.scl", "Other"}, {MsgAnswer::No}, "\\PIM\\Other.scl", {"Sample.scl"}},
      {{"Sample.scl", std::nullopt}, {MsgAnswer::No}, std::nullopt, {"Sample.scl"}},
      {{"Sample.scl", "sample"},
       {MsgAnswer::No, MsgAnswer::Yes},
       "\\PIM\\sample.scl",
       {"Sample.scl", "sample.scl"}},
      {{"New"}, {}, "\\PIM\\New.scl", {}},
  };
  for (const Case& c : cases) {
    FakeDeviceChooser chooser;
    chooser.answers.assign(c.names.begin(), c.names.end());
    FakeMessages messages;
    for (MsgAnswer answer : c.answers) messages.QueueAnswer(answer);
    device.SetWindows({&chooser, &messages});
    EXPECT_EQ(device.Sor_PIMSaveFileDialog("scl", "\\PIM\\Week.scl"), c.expected);
    std::vector<std::string> questions;
    for (const std::string& name : c.asked) {
      questions.push_back("[Save file on Tarvex, Exclamation, YesNo] " + name + replace);
    }
    EXPECT_EQ(testing::MessageLines(messages), questions);
    // The dialog comes back with the name the user would not replace.
    ASSERT_EQ(chooser.asked.size(), c.names.size());
    EXPECT_EQ(chooser.asked[0].proposal, "Week.scl");
    for (std::size_t k = 1; k < chooser.asked.size(); ++k) {
      EXPECT_EQ(chooser.asked[k].proposal, c.asked[k - 1]);
    }
  }

  // Opening a file asks nothing.
  FakeDeviceChooser chooser;
  chooser.answers = {"Sample.scl"};
  FakeMessages quiet;
  device.SetWindows({&chooser, &quiet});
  EXPECT_EQ(device.Sor_PIMOpenFileDialog("scl", "\\PIM"), "\\PIM\\Sample.scl");
  EXPECT_TRUE(quiet.Shown().empty());
}

TEST_F(CacheFixture, WithoutAChooserTheDialogsCancel) {
  EXPECT_FALSE(device.Sor_PIMOpenFileDialog("scl", "\\PIM"));
  EXPECT_FALSE(device.Sor_PIMSaveFileDialog("scl", "\\PIM\\a.scl"));
}

TEST_F(CacheFixture, TheDisconnectionSetupShowsTheFolderThatStandsForTheDevice) {
  struct RecordingSetup : DisconnectionSetupWindow {
    std::vector<std::string> shown;
    void ShowDisconnectionSetup(const std::string& folder) override { shown.push_back(folder); }
  } setup;
  device.SetWindows({nullptr, nullptr, &setup});
  device.Sor_SetupDisconnection();
  EXPECT_EQ(setup.shown, std::vector<std::string>{cache.string()});
}

TEST_F(CacheFixture, DeviceSoundsAreListedWithTheirDevicePath) {
  EXPECT_TRUE(ReadDeviceSounds(device).empty());
  WriteText(cache / "System/sound/SCHALARM.snd", "x");
  WriteText(cache / "System/sound/chime.SND", "x");
  WriteText(cache / "System/sound/readme.txt", "x");
  EXPECT_EQ(ReadDeviceSounds(device), (std::vector<std::string>{"\\system\\sound\\chime.SND",
                                                                "\\system\\sound\\SCHALARM.snd"}));
  fs::remove_all(cache / "System" / "sound");
  EXPECT_TRUE(ReadDeviceSounds(device).empty());
}

TEST_F(CacheFixture, ResolveFileNameCutsQuotesAndFindsTheLocation) {
  WriteText(cache / "PIM/Work/a.scl", "x");
  for (const CaseRow& row : ReadCases("shell/resolved-files.txt", 4, 8)) {
    const ResolvedFile file = ResolveFileName(device, Expand(row[0]));
    EXPECT_EQ(file.path, Expand(row[1])) << row.where;
    EXPECT_EQ(file.ScheduleOnPc, row.Int(2)) << row.where;
    EXPECT_EQ(file.cacheFolder, Expand(row[3])) << row.where;
  }
}

}  // namespace
}  // namespace sched
