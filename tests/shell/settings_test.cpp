#include "shell/settings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "core/registry_keys.h"
#include "platform/fake/fake_settings_store.h"
#include "shell/cache_device_files.h"
#include "tests/shell/shell_test_support.h"
#include "tests/support/case_file.h"
#include "tests/support/temp_dir.h"

namespace sched {
namespace {

namespace fs = std::filesystem;
using testing::CaseRow;
using testing::ReadCases;

// A file of the device; the document tests see a file on the PC stored.
TEST(StoreLastFile, WritesLocationNameAndPath) {
  FakeSettingsStore settings;
  StoreLastFile(settings, kDayviewSection, "/i/xferbay/cache/PIM/Sample.scl", 0);
  EXPECT_EQ(settings.GetSetting(kSettingsApp, kDayviewSection, kLastFileKey, ""),
            "0,Tarvex:Sample.scl,/i/xferbay/cache/PIM/Sample.scl");
}

TEST(RestoreLastFile, FollowsTheFileToItsPlace) {
  TempDir dir;
  const fs::path cache = dir.Path() / "xferbay" / "cache";
  WriteWithFolders(dir, "PIMdata/Plan.scl", "pc");
  dir.Write("PIMdata/Plans, old.scl", "pc");
  WriteWithFolders(dir, "xferbay/cache/PIM/Sample.scl", "device");
  WriteWithFolders(dir, "xferbay/cache/System/sound/SCHALARM.snd", "snd");
  CacheDeviceFiles device{cache.string()};
  const auto expand = [&](const std::string& text) {
    return Expand(text, {{"$cache", cache.string()}, {"$dir", dir.Path().string()}});
  };
  for (const CaseRow& row : ReadCases("shell/last-files.txt", 7, 9)) {
    FakeSettingsStore store;
    if (row[1] != "(never)") {
      store.SaveSetting(kSettingsApp, kDayviewSection, kLastFileKey, expand(row[1]));
    }
    const LastFile last = RestoreLastFile(store, device, kDayviewSection);
    EXPECT_EQ(last.ok, row.YesNo(2)) << row.where;
    EXPECT_EQ(last.path, expand(row[3])) << row.where;
    EXPECT_EQ(last.ScheduleOnPc, row.Int(4)) << row.where;
    EXPECT_EQ(last.cacheFolder, expand(row[5])) << row.where;
    std::string sounds;
    for (const std::string& sound : last.deviceSounds.value_or(std::vector<std::string>{})) {
      sounds += (sounds.empty() ? "" : " ") + sound;
    }
    EXPECT_EQ(sounds, row[6]) << row.where;
  }
}

TEST(WindowPlacement, ParsesFiveWholeNumbersOnly) {
  EXPECT_EQ(ParseWindowPlacement(""), std::nullopt);
  for (const CaseRow& row : ReadCases("shell/window-placements.txt", 2, 11)) {
    std::optional<WindowPlacement> expected;
    if (!row[1].empty()) {
      WindowPlacement& p = expected.emplace();
      std::istringstream(row[1]) >> p.showState >> p.left >> p.top >> p.right >> p.bottom;
    }
    EXPECT_EQ(ParseWindowPlacement(row[0]), expected) << row.where;
  }
}

// The alarms' minute last looked at reads back as saved; a damaged text reads as none.
TEST(SettingsAlarmCheckMark, ReadsBackWhatItSavedAndNothingElse) {
  FakeSettingsStore settings;
  SettingsAlarmCheckMark mark(settings);
  mark.SaveLastChecked({2099, 12, 31, 23, 59, 0});
  EXPECT_EQ(settings.GetSetting("Sorvane", "Dayview", "AlarmChecked", ""), "2099/12/31 23:59");
  EXPECT_EQ(mark.ReadLastChecked().value().minute, 59);
  for (const char* damaged :
       {"2026/02/29 09:05", "2026/11/23 24:00", "2026/11/23 9:05", "2026/11/23 09:05:00", ""}) {
    settings.SaveSetting("Sorvane", "Dayview", "AlarmChecked", damaged);
    EXPECT_FALSE(mark.ReadLastChecked().has_value()) << damaged;
  }
}

TEST(WindowPlacement, ComesBackAsStoredButNeverMinimised) {
  FakeSettingsStore settings;
  for (const auto& [saved, restored] : {std::pair{1, 1}, {2, 1}, {3, 3}}) {
    SaveWindowPlacement(settings, kDayviewSection, {saved, -8, 20, 1928, 620});
    EXPECT_EQ(ReadWindowPlacement(settings, kDayviewSection),
              (WindowPlacement{restored, -8, 20, 1928, 620}))
        << saved;
  }
}

}  // namespace
}  // namespace sched
