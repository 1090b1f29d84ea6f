#include "shell/install.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "core/registry_keys.h"
#include "platform/fake/fake_registry.h"
#include "platform/fake/fake_settings_store.h"
#include "shell/paths.h"
#include "shell/settings.h"
#include "shell/startup.h"
#include "tests/shell/shell_test_support.h"

namespace sched {
namespace {

namespace fs = std::filesystem;

constexpr CivilDate kToday{2026, 3, 14};

// Every file below a folder with its content.
std::map<std::string, std::string> Snapshot(const fs::path& root) {
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const std::string relative = fs::relative(entry.path(), root).string();
    files[relative] = entry.is_regular_file() ? ReadText(entry.path()) : "(folder)";
  }
  return files;
}

struct InstallFixture : ::testing::Test {
  TempDir dir;
  fs::path data = dir.Path() / "data";
  std::string defaultDir = (dir.Path() / "share" / "Sorvane" / "Tarvex").string();
  FakeRegistry registry;
  FakeSettingsStore settings;

  void SetUp() override {
    for (const char* name : {"holidayDE.ini", "holidayUS.ini", "holidayJP.ini"}) {
      WriteWithFolders(dir, std::string("data/pcapps/") + name, std::string("; ") + name + "\n");
    }
    dir.Write("data/pcapps/readme.txt", "not a country file");
    WriteWithFolders(dir, "data/userdata/ini/SCHSBJC2.INI", "Meeting");
    WriteWithFolders(dir, "data/userdata/ini/PLCSBJC2.INI", "Office");
  }
  // Writes a file below the default install folder.
  void WriteInstalled(const std::string& relative, const std::string& text) const {
    WriteWithFolders(dir, "share/Sorvane/Tarvex/" + relative, text);
  }
  std::string ReadInstalled(const std::string& relative) const {
    return ReadText(defaultDir + "/" + relative);
  }

  InstallReport Install() {
    return EnsureInstallation(registry, settings, data.string(), defaultDir, kToday);
  }
};

TEST_F(InstallFixture, AFreshMachineGetsTheWholeLayout) {
  const InstallReport report = Install();
  EXPECT_TRUE(report.failures.empty());
  EXPECT_EQ(report.installDir, defaultDir);
  EXPECT_EQ(ReadInstallDir(registry), defaultDir);
  EXPECT_EQ(registry.ReadString(kSchedulerKey, kHolidayIniValue), "holidayUS.ini");
  // The data link's bridge is registered, its first export sending every item.
  EXPECT_EQ(registry.ReadNumber(kPimLinkKey, kPimLinkInstallValue), 1u);
  EXPECT_EQ(settings.GetSetting(kSettingsApp, kDayviewSection, kExpOptionKey, ""), "0");

  const InstallPaths paths = MakeInstallPaths(defaultDir);
  EXPECT_TRUE(paths.PimDataFound);
  for (const char* name : {"holidayDE.ini", "holidayUS.ini", "holidayJP.ini"}) {
    EXPECT_EQ(ReadText(fs::path(paths.PcAppsDir) / name), std::string("; ") + name + "\n");
  }
  EXPECT_FALSE(fs::exists(fs::path(paths.PcAppsDir) / "readme.txt"));
  EXPECT_EQ(ReadInstalled("userdata/ini/SCHSBJC2.INI"), "Meeting");
  EXPECT_EQ(ReadInstalled("userdata/ini/PLCSBJC2.INI"), "Office");
  EXPECT_TRUE(fs::exists(paths.SchIniPath));
  // One device folder "System", holding the settings and the sounds.
  EXPECT_EQ(paths.SoundCacheDir, defaultDir + "/xferbay/cache/System/sound");
  EXPECT_TRUE(fs::exists(fs::path(paths.SoundCacheDir) / "SCHALARM.snd"));

  const std::vector<std::uint8_t> systemIni = ReadBytes(paths.SystemIniPath);
  ASSERT_GE(systemIni.size(), 8u);
  EXPECT_EQ(systemIni[6] | systemIni[7] << 8, 1);  // private level 1
}

TEST_F(InstallFixture, ASecondRunChangesNothing) {
  Install();
  const auto before = Snapshot(defaultDir);
  const std::size_t values = registry.ValueCount();
  const InstallReport again = Install();
  EXPECT_TRUE(again.created.empty());
  EXPECT_TRUE(again.failures.empty());
  EXPECT_EQ(Snapshot(defaultDir), before);
  EXPECT_EQ(registry.ValueCount(), values);
}

TEST_F(InstallFixture, UserFilesAndSettingsAreKept) {
  WriteInstalled("userdata/PIMdata/Sample.scl", "my own schedule");
  const std::string mySystemIni("MYUNIT\x05\x00", 8);  // private level 5
  WriteInstalled("xferbay/cache/System/System.ini", mySystemIni);
  WriteInstalled("xferbay/cache/system/sound/schalarm.snd", "my alarm");
  WriteInstalled("userdata/ini/schsbjc2.ini", "my words");
  registry.WriteString(kSchedulerKey, kHolidayIniValue, "holidayJP.ini");
  Install();
  EXPECT_EQ(ReadInstalled("userdata/PIMdata/Sample.scl"), "my own schedule");
  EXPECT_NE(ReadInstalled("xferbay/cache/PIM/Sample.scl"), "my own schedule");
  EXPECT_EQ(ReadInstalled("xferbay/cache/System/System.ini"), mySystemIni);
  // The melody exists in another case: no second copy beside it.
  EXPECT_EQ(ReadInstalled("xferbay/cache/system/sound/schalarm.snd"), "my alarm");
  EXPECT_FALSE(fs::exists(defaultDir + "/xferbay/cache/system/sound/SCHALARM.snd"));
  EXPECT_EQ(ReadInstalled("userdata/ini/schsbjc2.ini"), "my words");
  EXPECT_FALSE(fs::exists(defaultDir + "/userdata/ini/SCHSBJC2.INI"));
  EXPECT_EQ(registry.ReadString(kSchedulerKey, kHolidayIniValue), "holidayJP.ini");
}

// The editor's link in pcapps: made where nothing is, made anew where it leads nowhere, and
// a user's own file or working link kept.
TEST_F(InstallFixture, TheWordListEditorIsLinkedIntoTheInstallation) {
  struct Case {
    const char* what;
    const char* before;  // "" nothing, "file", "link" to a program, "dangling" link
    const char* after;   // what MkSbjct then holds or leads to
  };
  const Case cases[] = {{"nothing there", "", "new"},
                        {"a link to a program that is gone", "dangling", "new"},
                        {"a link to another program", "link", "old"},
                        {"a file of the user's", "file", "mine"}};
  dir.Write("new", "new");
  dir.Write("old", "old");
  for (const Case& c : cases) {
    const fs::path link = dir.Path() / "pcapps" / "MkSbjct";
    fs::remove_all(link.parent_path());
    fs::create_directories(link.parent_path());
    if (c.before == std::string("file")) dir.Write("pcapps/MkSbjct", "mine");
    if (c.before == std::string("link")) fs::create_symlink(dir.File("old"), link);
    if (c.before == std::string("dangling")) fs::create_symlink(dir.File("gone"), link);
    InstallReport report;
    Installer installer(report);
    LinkWordListEditor(installer, link.parent_path().string(), dir.File("new"));
    EXPECT_EQ(ReadText(link), c.after) << c.what;
    EXPECT_TRUE(report.failures.empty()) << c.what;
  }
}

TEST_F(InstallFixture, ARegisteredFolderThatIsGoneGetsANewInstall) {
  registry.WriteString(kInstallKey, kInstallDirValue, dir.File("removed") + "/");
  const InstallReport report = Install();
  EXPECT_EQ(report.installDir, defaultDir);
  EXPECT_EQ(ReadInstallDir(registry), defaultDir);
  EXPECT_TRUE(fs::exists(defaultDir + "/userdata/PIMdata/Sample.scl"));
  EXPECT_FALSE(fs::exists(dir.File("removed")));
}

TEST_F(InstallFixture, TheUsersOwnInstallIsLeftAlone) {
  const fs::path own = dir.Path() / "own";
  WriteWithFolders(dir, "own/pcapps/holidayFR.ini", "; fr\n");
  registry.WriteString(kInstallKey, kInstallDirValue, own.string());
  const InstallReport report = Install();
  EXPECT_EQ(report.installDir, own.string());
  EXPECT_EQ(ReadInstallDir(registry), own.string());
  EXPECT_EQ(Snapshot(own).size(), 2u);  // pcapps and its one file
  EXPECT_FALSE(fs::exists(defaultDir));
  // The country file setting is still completed from what the folder holds.
  EXPECT_EQ(registry.ReadString(kSchedulerKey, kHolidayIniValue), "holidayFR.ini");
}

TEST_F(InstallFixture, TheCountryFileIsTheFirstByNameWithoutTheUnitedStates) {
  fs::remove(data / "pcapps" / "holidayUS.ini");
  Install();
  EXPECT_EQ(registry.ReadString(kSchedulerKey, kHolidayIniValue), "holidayDE.ini");
}

TEST_F(InstallFixture, WithoutCountryFilesNoneIsRegistered) {
  fs::remove_all(data / "pcapps");
  const InstallReport report = Install();
  EXPECT_TRUE(report.failures.empty());
  EXPECT_FALSE(registry.ReadString(kSchedulerKey, kHolidayIniValue));
  EXPECT_TRUE(registry.KeyExists(kSchedulerKey));  // the program needs the key to start
}

TEST_F(InstallFixture, AStartThatCannotHaveAnInstallationSaysWhy) {
  const std::string none = "not installed for this user, and no installed data to lay it out from";
  struct Case {
    std::vector<std::string> dataDirs;
    bool failWrites;
    std::string why;
  };
  const Case cases[] = {
      {{}, false, none},
      {{dir.File("gone"), dir.File("lost")},
       false,
       none + " (no pcapps in " + dir.File("gone") + ", " + dir.File("lost") + ")"},
      {{data.string()},
       true,
       "could not lay out an installation in " + defaultDir + ": could not make " + kInstallKey +
           "\\" + kInstallDirValue + " = " + defaultDir},
  };
  for (const Case& c : cases) {
    FakeRegistry empty;
    empty.failWrites = c.failWrites;
    std::string why;
    EXPECT_FALSE(InstallDirForStart(empty, settings, {c.dataDirs, defaultDir}, kToday, why));
    EXPECT_EQ(why, c.why);
  }
}

TEST(DefaultInstallDir, UsesAnAbsoluteDataHomeElseTheHomeFolder) {
  EXPECT_EQ(DefaultInstallDir("/data", "/home/u"), "/data/Sorvane/Tarvex");
  EXPECT_EQ(DefaultInstallDir("/data/", "/home/u"), "/data/Sorvane/Tarvex");
  EXPECT_EQ(DefaultInstallDir("", "/home/u"), "/home/u/.local/share/Sorvane/Tarvex");
  EXPECT_EQ(DefaultInstallDir("relative", "/home/u"), "/home/u/.local/share/Sorvane/Tarvex");
}

}  // namespace
}  // namespace sched
