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
using testing::Unescaped;

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
  FakeRegistry none;
  EXPECT_EQ(ReadInstallDir(none), std::nullopt);
  FakeRegistry empty;
  empty.WriteString(kInstallKey, kInstallDirValue, "");
  EXPECT_EQ(ReadInstallDir(empty), std::nullopt);
  for (const CaseRow& row : ReadCases("shell/install-dirs.txt", 2, 7)) {
    FakeRegistry registry;
    registry.WriteString(kInstallKey, kInstallDirValue, Unescaped(row[0]));
    const std::string expected = Unescaped(row[1]);
    EXPECT_EQ(ReadInstallDir(registry),
              expected.empty() ? std::nullopt : std::optional<std::string>(expected))
        << row.where;
  }
}

}  // namespace
}  // namespace sched
