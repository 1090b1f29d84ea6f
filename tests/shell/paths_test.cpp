#include "shell/paths.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <sstream>

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

TEST(InstallPaths, AreTheLayoutBelowTheInstallFolderAsTheDiskHasIt) {
  const std::map<std::string, std::string InstallPaths::*> kPaths = {
      {"PimDataDir", &InstallPaths::PimDataDir},        {"CacheDir", &InstallPaths::CacheDir},
      {"SystemIniPath", &InstallPaths::SystemIniPath},  {"SchIniPath", &InstallPaths::SchIniPath},
      {"SoundCacheDir", &InstallPaths::SoundCacheDir},  {"PcAppsDir", &InstallPaths::PcAppsDir},
      {"DeviceCacheDir", &InstallPaths::DeviceCacheDir}};
  for (const CaseRow& row : ReadCases("shell/install-paths.txt", 3, 20)) {
    TempDir dir;
    std::istringstream made(row[0]);
    for (std::string folder; made >> folder;) fs::create_directories(dir.Path() / folder);
    const InstallPaths paths = MakeInstallPaths(dir.Path().string());
    EXPECT_EQ(paths.InstallDir, dir.Path().string()) << row.where;
    if (row[1] == "PimDataFound") {
      EXPECT_EQ(paths.PimDataFound, row.YesNo(2)) << row.where;
    } else {
      ASSERT_TRUE(kPaths.contains(row[1])) << row.where;
      EXPECT_EQ(paths.*kPaths.at(row[1]), (dir.Path() / row[2]).string()) << row.where;
    }
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
