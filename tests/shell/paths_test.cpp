#include "shell/paths.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/registry_keys.h"
#include "platform/fake/fake_registry.h"
#include "tests/support/case_file.h"
#include "tests/support/temp_dir.h"

namespace sched {
namespace {

namespace fs = std::filesystem;
using testing::CaseRow;
using testing::ReadCases;

TEST(InstallPaths, AreTheLayoutBelowTheInstallFolder) {
  TempDir dir;
  const std::string root = dir.Path().string();
  const InstallPaths paths = MakeInstallPaths(root);
  EXPECT_EQ(paths.InstallDir, root);
  EXPECT_EQ(paths.PimDataDir, root + "/userdata/PIMdata");
  EXPECT_FALSE(paths.PimDataFound);
  EXPECT_EQ(paths.DeviceCacheDir, root + "/xferbay/cache");
  EXPECT_EQ(paths.CacheDir, root + "/xferbay/cache/PIM");
  EXPECT_EQ(paths.SystemIniPath, root + "/xferbay/cache/System/System.ini");
  EXPECT_EQ(paths.SchIniPath, root + "/xferbay/cache/System/ini/Sch.ini");
  EXPECT_EQ(paths.SoundCacheDir, root + "/xferbay/cache/system/sound");
  EXPECT_EQ(paths.PcAppsDir, root + "/pcapps");
}

TEST(InstallPaths, FolderNamesFollowTheDiskWhateverTheirCase) {
  TempDir dir;
  fs::create_directories(dir.Path() / "XferBay/Cache/System");
  fs::create_directories(dir.Path() / "PcApps");
  const std::string root = dir.Path().string();
  const InstallPaths paths = MakeInstallPaths(root);
  // "system" of the sound folder is the "System" that exists; missing names keep their case.
  EXPECT_EQ(paths.SoundCacheDir, root + "/XferBay/Cache/System/sound");
  EXPECT_EQ(paths.SystemIniPath, root + "/XferBay/Cache/System/System.ini");
  EXPECT_EQ(paths.CacheDir, root + "/XferBay/Cache/PIM");
  EXPECT_EQ(paths.PcAppsDir, root + "/PcApps");
}

TEST(InstallPaths, PimDataFallsBackToUserData) {
  for (const CaseRow& row : ReadCases("shell/pim-data-folders.txt", 3, 6)) {
    TempDir dir;
    if (!row[0].empty()) fs::create_directories(dir.Path() / row[0]);
    const InstallPaths paths = MakeInstallPaths(dir.Path().string());
    EXPECT_EQ(paths.PimDataDir, (dir.Path() / row[1]).string()) << row.where;
    EXPECT_EQ(paths.PimDataFound, row.YesNo(2)) << row.where;
  }
}

TEST(ReadInstallDir, CutsZerosAndOneSeparator) {
  struct Case {
    std::optional<std::string> stored;
    std::optional<std::string> expected;
  };
  using namespace std::string_literals;
  const Case cases[] = {
      {std::nullopt, std::nullopt},
      {""s, std::nullopt},
      {"/"s, std::nullopt},
      {"/\0"s, std::nullopt},
      {"/opt/tarvex"s, "/opt/tarvex"s},
      {"/opt/tarvex/"s, "/opt/tarvex"s},
      {"/opt/tarvex//"s, "/opt/tarvex/"s},
      {"/opt/tarvex/\0\0"s, "/opt/tarvex"s},
      {"C:\\Tarvex\\"s, "C:\\Tarvex"s},
  };
  for (const Case& c : cases) {
    FakeRegistry registry;
    if (c.stored) registry.WriteString(kInstallKey, kInstallDirValue, *c.stored);
    EXPECT_EQ(ReadInstallDir(registry), c.expected) << c.stored.value_or("(absent)");
  }
}

}  // namespace
}  // namespace sched
