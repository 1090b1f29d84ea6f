#include "shell/paths.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/registry_keys.h"
#include "platform/fake/fake_registry.h"
#include "tests/support/temp_dir.h"

namespace sched {
namespace {

namespace fs = std::filesystem;

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
  struct Case {
    const char* existing;  // folder made below the install folder, "" for none
    const char* expected;  // PimDataDir below the install folder
    bool found;
  };
  const Case cases[] = {
      {"", "userdata/PIMdata", false},
      {"userdata/PIMdata", "userdata/PIMdata", true},
      {"UserData", "UserData", true},
      {"UserData/PIMdata", "UserData/PIMdata", true},
      {"userdata/pimdata", "userdata/pimdata", true},
      {"userdata/other", "userdata", true},
  };
  for (const Case& c : cases) {
    TempDir dir;
    if (*c.existing != '\0') fs::create_directories(dir.Path() / c.existing);
    const InstallPaths paths = MakeInstallPaths(dir.Path().string());
    EXPECT_EQ(paths.PimDataDir, (dir.Path() / c.expected).string()) << c.existing;
    EXPECT_EQ(paths.PimDataFound, c.found) << c.existing;
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
