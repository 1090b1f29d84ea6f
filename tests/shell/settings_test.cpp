#include "shell/settings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "core/registry_keys.h"
#include "platform/fake/fake_registry.h"
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

std::string StoredLastFile(FakeSettingsStore& settings) {
  return settings.GetSetting(kSettingsApp, kDayviewSection, kLastFileKey, "(none)");
}

TEST(StoreLastFile, WritesLocationNameAndPath) {
  FakeSettingsStore settings;
  StoreLastFile(settings, kDayviewSection, "/home/u/PIMdata/Plan.scl", 1);
  EXPECT_EQ(StoredLastFile(settings), "1,PC:Plan.scl,/home/u/PIMdata/Plan.scl");
  StoreLastFile(settings, kDayviewSection, "/i/xferbay/cache/PIM/Sample.scl", 0);
  EXPECT_EQ(StoredLastFile(settings), "0,Tarvex:Sample.scl,/i/xferbay/cache/PIM/Sample.scl");
}

struct LastFileFixture : ::testing::Test {
  TempDir dir;
  fs::path cache = dir.Path() / "xferbay" / "cache";
  CacheDeviceFiles device{cache.string()};
  FakeSettingsStore settings;

  void SetUp() override {
    WriteText(dir.Path() / "PIMdata" / "Plan.scl", "pc");
    WriteText(dir.Path() / "PIMdata" / "Plans, old.scl", "pc");
    WriteText(cache / "PIM" / "Sample.scl", "device");
    WriteText(cache / "System" / "sound" / "SCHALARM.snd", "snd");
  }
};

TEST_F(LastFileFixture, RestoreFollowsTheFileToItsPlace) {
  const auto expand = [&](const std::string& text) {
    return Expand(text, {{"$cache", cache.string()}, {"$dir", dir.Path().string()}});
  };
  for (const CaseRow& row : ReadCases("shell/last-files.txt", 5, 9)) {
    FakeSettingsStore store;
    if (row[1] != "(never)") {
      store.SaveSetting(kSettingsApp, kDayviewSection, kLastFileKey, expand(row[1]));
    }
    const LastFile last = RestoreLastFile(store, device, kDayviewSection);
    EXPECT_EQ(last.ok, row.YesNo(2)) << row.where;
    EXPECT_EQ(last.path, expand(row[3])) << row.where;
    EXPECT_EQ(last.ScheduleOnPc, row.Int(4)) << row.where;
  }
}

TEST_F(LastFileFixture, ADeviceFileRefreshesTheDeviceSoundsOfTheDayview) {
  StoreLastFile(settings, kDayviewSection, (cache / "PIM" / "Sample.scl").string(), 0);
  const LastFile last = RestoreLastFile(settings, device, kDayviewSection);
  ASSERT_TRUE(last.ok);
  EXPECT_EQ(last.deviceSounds, std::vector<std::string>{"\\system\\sound\\SCHALARM.snd"});
  EXPECT_EQ(last.cacheFolder, (cache / "PIM").string());

  StoreLastFile(settings, "Other", (cache / "PIM" / "Sample.scl").string(), 0);
  EXPECT_FALSE(RestoreLastFile(settings, device, "Other").deviceSounds);

  StoreLastFile(settings, kDayviewSection, (dir.Path() / "PIMdata" / "Plan.scl").string(), 1);
  EXPECT_FALSE(RestoreLastFile(settings, device, kDayviewSection).deviceSounds);
}

TEST(IsPimLinkInstalled, OnlyTheNumberOne) {
  struct Case {
    const char* what;
    std::optional<std::uint32_t> number;
    std::optional<std::string> text;
    bool installed;
  };
  const Case cases[] = {
      {"absent", std::nullopt, std::nullopt, false},
      {"1", 1u, std::nullopt, true},
      {"0", 0u, std::nullopt, false},
      {"2", 2u, std::nullopt, false},
      {"text 1", std::nullopt, "1", false},
  };
  for (const Case& c : cases) {
    FakeRegistry registry;
    if (c.number) registry.WriteNumber(kPimLinkKey, kPimLinkInstallValue, *c.number);
    if (c.text) registry.WriteString(kPimLinkKey, kPimLinkInstallValue, *c.text);
    EXPECT_EQ(IsPimLinkInstalled(registry), c.installed) << c.what;
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

TEST(WindowPlacement, ComesBackAsStoredButNeverMinimised) {
  struct Case {
    WindowPlacement saved;
    int restoredState;
  };
  const Case cases[] = {
      {{1, 10, 20, 810, 620}, 1},
      {{2, 10, 20, 810, 620}, 1},
      {{3, -8, -8, 1928, 1048}, 3},
  };
  for (const Case& c : cases) {
    FakeSettingsStore settings;
    SaveWindowPlacement(settings, kDayviewSection, c.saved);
    std::optional<WindowPlacement> restored = ReadWindowPlacement(settings, kDayviewSection);
    ASSERT_TRUE(restored);
    EXPECT_EQ(restored->showState, c.restoredState);
    restored->showState = c.saved.showState;
    EXPECT_EQ(*restored, c.saved);
  }
  FakeSettingsStore empty;
  EXPECT_FALSE(ReadWindowPlacement(empty, kDayviewSection));
}

}  // namespace
}  // namespace sched
