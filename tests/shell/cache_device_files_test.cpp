#include "shell/cache_device_files.h"

#include <gtest/gtest.h>

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
  // Writes a file of the cache, in a folder that is there.
  void Put(const std::string& relative, const std::string& text = "x") const {
    dir.Write("xferbay/cache/" + relative, text);
  }
  // A path of a case file with $cache and $dir in place.
  std::string Expand(const std::string& text) const {
    return sched::Expand(text, {{"$cache", cache.string()}, {"$dir", dir.Path().string()}});
  }
};

TEST_F(CacheFixture, PathsMapBetweenTheDeviceTheCacheAndThePc) {
  const auto optional = [&](const std::string& text) {
    return text.empty() ? std::nullopt : std::optional<std::string>(Expand(text));
  };
  Put("PIM/a.scl");
  for (const CaseRow& row : ReadCases("shell/device-paths.txt", 3, 34)) {
    const std::string path = Expand(row[1]);
    if (row[0] == "to-cache") {
      EXPECT_EQ(device.Sor_ConvPathSorvaneToCache(path), optional(row[2])) << row.where;
    } else if (row[0] == "to-device") {
      EXPECT_EQ(device.Sor_ConvPathCacheToSorvane(path), optional(row[2])) << row.where;
    } else if (row[0] == "get") {
      EXPECT_EQ(device.Sor_GetFile(path), optional(row[2])) << row.where;
    } else if (row[0] == "exists") {
      EXPECT_EQ(device.Sor_IsExist(path), row.YesNo(2)) << row.where;
    } else {
      ASSERT_EQ(row[0], "on-pc") << row.where;
      EXPECT_EQ(device.Sor_IsOnPcFile(path), row.YesNo(2)) << row.where;
    }
  }
}

TEST_F(CacheFixture, PutFileCopiesOntoTheDeviceMakingFolders) {
  const std::string local = dir.Write("upload.tmp", "first");
  EXPECT_EQ(device.Sor_PutFile("\\PIM\\New\\Deeper\\x.scl", local), 0);
  dir.Write("upload.tmp", "second");
  EXPECT_EQ(device.Sor_PutFile("\\pim\\new\\deeper\\X.SCL", local), 0);
  EXPECT_EQ(ReadText(At("PIM/New/Deeper/x.scl")), "second");  // the same file, replaced
  // The cached copy itself is put back as it is.
  EXPECT_EQ(device.Sor_PutFile("\\PIM\\New\\Deeper\\x.scl", At("PIM/New/Deeper/x.scl")), 0);
  EXPECT_EQ(ReadText(At("PIM/New/Deeper/x.scl")), "second");

  EXPECT_EQ(device.Sor_PutFile("\\system\\ini\\holiday.ini", local), 0);
  EXPECT_TRUE(fs::exists(cache / "System/ini/holiday.ini"));
  EXPECT_FALSE(fs::exists(cache / "system"));

  EXPECT_NE(device.Sor_PutFile("\\PIM\\a.scl", dir.File("missing.tmp")), 0);
  EXPECT_NE(device.Sor_PutFile("\\", local), 0);
  EXPECT_NE(device.Sor_PutFile("\\PIM\\..\\..\\escape.scl", local), 0);
  EXPECT_NE(device.Sor_PutFile("\\PIM", local), 0);  // a folder is no file
  EXPECT_FALSE(fs::exists(dir.Path() / "escape.scl"));
}

TEST_F(CacheFixture, PutFileReplacesTheDevicesCopySafely) {
  const std::string local = dir.Write("upload.tmp", "new");
  Put("PIM/private.scl", "old");
  fs::permissions(cache / "PIM/private.scl", fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(device.Sor_PutFile("\\PIM\\private.scl", local), 0);
  EXPECT_EQ(ReadText(cache / "PIM/private.scl"), "new");
  EXPECT_EQ(fs::status(cache / "PIM/private.scl").permissions(),
            fs::perms::owner_read | fs::perms::owner_write);

  Put("PIM/locked.scl", "old");
  fs::permissions(cache / "PIM/locked.scl", fs::perms::owner_read);
  EXPECT_NE(device.Sor_PutFile("\\PIM\\locked.scl", local), 0);
  EXPECT_EQ(ReadText(cache / "PIM/locked.scl"), "old");

  fs::create_symlink("Work/real.scl", cache / "PIM/linked.scl");
  EXPECT_EQ(device.Sor_PutFile("\\PIM\\linked.scl", local), 0);
  EXPECT_TRUE(fs::is_symlink(cache / "PIM/linked.scl"));
  EXPECT_EQ(ReadText(cache / "PIM/Work/real.scl"), "new");
}

TEST_F(CacheFixture, DirByExtListsOneExtensionSorted) {
  for (const char* name : {"b.SCL", "A.scl", "c.txt", "a.scl.bak", "scl"})
    Put(std::string("PIM/") + name);
  fs::create_directories(cache / "PIM" / "folder.scl");
  EXPECT_EQ(device.Sor_DirByExt("\\PIM", "scl"), (std::vector<std::string>{"A.scl", "b.SCL"}));
  EXPECT_EQ(device.Sor_DirByExt("\\pim\\", "TXT"), (std::vector<std::string>{"c.txt"}));
  EXPECT_TRUE(device.Sor_DirByExt("\\Nowhere", "scl").empty());
}

// The parts of a case file's field, separated by '|'.
std::vector<std::string> Parts(const std::string& field) {
  std::vector<std::string> parts;
  for (std::size_t start = 0;;) {
    const std::size_t bar = field.find('|', start);
    parts.push_back(field.substr(start, bar - start));
    if (bar == std::string::npos) return parts;
    start = bar + 1;
  }
}

TEST_F(CacheFixture, FileDialogsGiveDevicePathsAndAskBeforeReplacing) {
  Put("PIM/Sample.scl");
  Put("PIM/notes.txt");
  Put("PIM/Work/Sample.scl");
  for (const CaseRow& row : ReadCases("shell/device-file-dialogs.txt", 8, 14)) {
    ASSERT_TRUE(row[0] == "open" || row[0] == "save") << row.where;
    const DeviceDialogMode mode =
        row[0] == "open" ? DeviceDialogMode::Open : DeviceDialogMode::Save;
    FakeDeviceChooser chooser;
    for (const std::string& name : Parts(row[2])) {
      chooser.answers.push_back(name == "(cancel)" ? std::nullopt
                                                   : std::optional<std::string>(name));
    }
    FakeMessages messages;
    std::vector<std::string> questions;
    for (const std::string& answer : Parts(row[3])) {
      if (!answer.empty()) messages.QueueAnswer(answer == "yes" ? MsgAnswer::Yes : MsgAnswer::No);
    }
    for (const std::string& name : Parts(row[7])) {
      if (name.empty()) continue;
      questions.push_back("[Save file on Tarvex, Exclamation, YesNo] " + name +
                          " already exists.\nDo you want to replace it?");
    }
    device.SetWindows({&chooser, &messages});
    const std::optional<std::string> result = mode == DeviceDialogMode::Open
                                                  ? device.Sor_PIMOpenFileDialog("scl", row[1])
                                                  : device.Sor_PIMSaveFileDialog("scl", row[1]);
    EXPECT_EQ(result.value_or(""), row[6]) << row.where;
    EXPECT_EQ(testing::MessageLines(messages), questions) << row.where;
    EXPECT_EQ(chooser.asked.size(), Parts(row[2]).size()) << row.where;
    std::string proposals;
    for (const DeviceFileRequest& asked : chooser.asked) {
      EXPECT_EQ(asked.mode, mode) << row.where;
      EXPECT_EQ(asked.folder, row[4]) << row.where;
      EXPECT_EQ(asked.files, std::vector<std::string>{"Sample.scl"}) << row.where;
      proposals += (proposals.empty() ? "" : "|") + asked.proposal;
    }
    EXPECT_EQ(proposals, row[5]) << row.where;
  }
}

TEST_F(CacheFixture, WithoutAChooserTheDialogsCancel) {
  EXPECT_FALSE(device.Sor_PIMOpenFileDialog("scl", "\\PIM"));
  EXPECT_FALSE(device.Sor_PIMSaveFileDialog("scl", "\\PIM\\a.scl"));
}

TEST_F(CacheFixture, DeviceSoundsAreListedWithTheirDevicePath) {
  EXPECT_TRUE(ReadDeviceSounds(device).empty());
  for (const char* name : {"SCHALARM.snd", "chime.SND", "readme.txt"})
    Put(std::string("System/sound/") + name);
  EXPECT_EQ(ReadDeviceSounds(device), (std::vector<std::string>{"\\system\\sound\\chime.SND",
                                                                "\\system\\sound\\SCHALARM.snd"}));
  fs::remove_all(cache / "System" / "sound");
  EXPECT_TRUE(ReadDeviceSounds(device).empty());
}

TEST_F(CacheFixture, ResolveFileNameCutsQuotesAndFindsTheLocation) {
  Put("PIM/Work/a.scl");
  for (const CaseRow& row : ReadCases("shell/resolved-files.txt", 4, 8)) {
    const ResolvedFile file = ResolveFileName(device, Expand(row[0]));
    EXPECT_EQ(file.path, Expand(row[1])) << row.where;
    EXPECT_EQ(file.ScheduleOnPc, row.Int(2)) << row.where;
    EXPECT_EQ(file.cacheFolder, Expand(row[3])) << row.where;
  }
}

}  // namespace
}  // namespace sched
