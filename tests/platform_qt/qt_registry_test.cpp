#include "platform/qt/qt_registry.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/registry_keys.h"
#include "shell/paths.h"
#include "shell/settings.h"
#include "tests/platform_qt/qt_test_environment.h"
#include "tests/shell/shell_test_support.h"

namespace sched {
namespace {

// Before any test can reach QSettings.
[[maybe_unused]] const TempDir& configHomeAtStart = ConfigHome();

TEST(QtRegistry, LivesInTheUsersConfigFolder) {
  const TempDir& home = ConfigHome();
  QtRegistry registry;
  EXPECT_EQ(registry.FileName().toStdString(), home.File("Sorvane/registry.ini"));
  ASSERT_TRUE(registry.WriteString(kInstallKey, kInstallDirValue, "/opt/tarvex"));
  EXPECT_TRUE(std::filesystem::exists(home.File("Sorvane/registry.ini")));
  EXPECT_EQ(ReadInstallDir(registry), "/opt/tarvex");
}

TEST(QtRegistry, ValuesOutliveTheObject) {
  TempDir dir;
  const QString file = IniFileIn(dir, "registry.ini");
  {
    QtRegistry registry(file);
    registry.WriteString(kInstallKey, kInstallDirValue, "C:\\Program Files\\Tarvex\\");
    registry.WriteNumber(kPimLinkKey, kPimLinkInstallValue, 1);
    registry.CreateKey(kSchedulerKey);
  }
  QtRegistry registry(file);
  EXPECT_EQ(registry.ReadString(kInstallKey, kInstallDirValue), "C:\\Program Files\\Tarvex\\");
  EXPECT_TRUE(IsPimLinkInstalled(registry));
  EXPECT_TRUE(registry.KeyExists(kSchedulerKey));
}

TEST(QtRegistry, KeyAndValueNamesIgnoreCaseAndATrailingBackslash) {
  TempDir dir;
  QtRegistry registry(IniFileIn(dir, "registry.ini"));
  registry.WriteString("Software\\QTL\\Sorvane-e\\PC", "InstallDir", "first");
  for (const auto& [key, name] : {std::pair{"Software\\QTL\\Sorvane-e\\PC", "InstallDir"},
                                  {"software\\qtl\\sorvane-e\\pc", "installdir"},
                                  {"SOFTWARE\\QTL\\SORVANE-E\\PC\\", "INSTALLDIR"},
                                  {"\\Software\\\\QTL\\Sorvane-e\\PC", "InstallDir"}}) {
    EXPECT_EQ(registry.ReadString(key, name), "first") << key << " " << name;
  }
  // A write in another spelling replaces the value and keeps the stored spelling.
  registry.WriteString("software\\qtl\\sorvane-e\\pc\\", "INSTALLDIR", "second");
  EXPECT_EQ(registry.ReadString(kInstallKey, kInstallDirValue), "second");
  const std::string text = ReadText(dir.File("registry.ini"));
  EXPECT_NE(text.find("Sorvane-e\\PC\\InstallDir=second"), std::string::npos) << text;
  EXPECT_EQ(text.find("sorvane-e"), std::string::npos) << text;
}

TEST(QtRegistry, NumbersAndStringsKeepTheirType) {
  TempDir dir;
  QtRegistry registry(IniFileIn(dir, "registry.ini"));
  for (const std::uint32_t number : {0u, 1u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
    registry.WriteNumber(kPimLinkKey, kPimLinkInstallValue, number);
    EXPECT_EQ(registry.ReadNumber(kPimLinkKey, kPimLinkInstallValue), number);
    EXPECT_FALSE(registry.ReadString(kPimLinkKey, kPimLinkInstallValue));
    EXPECT_EQ(IsPimLinkInstalled(registry), number == 1u) << number;
  }
  registry.WriteString(kPimLinkKey, kPimLinkInstallValue, "1");
  EXPECT_FALSE(registry.ReadNumber(kPimLinkKey, kPimLinkInstallValue));
  EXPECT_FALSE(IsPimLinkInstalled(registry));
}

TEST(QtRegistry, KeysExistWhenMadeOrWhenTheyHoldValues) {
  TempDir dir;
  QtRegistry registry(IniFileIn(dir, "registry.ini"));
  EXPECT_FALSE(registry.KeyExists(kSchedulerKey));
  EXPECT_FALSE(registry.ReadString(kSchedulerKey, kHolidayIniValue));
  EXPECT_FALSE(IsPimLinkInstalled(registry));
  ASSERT_TRUE(registry.CreateKey(kSchedulerKey));
  EXPECT_TRUE(registry.KeyExists(kSchedulerKey));
  EXPECT_TRUE(registry.KeyExists(kInstallKey));  // its parent
  EXPECT_FALSE(registry.KeyExists(kPimLinkKey));
  EXPECT_FALSE(registry.ReadString(kSchedulerKey, "(key)"));  // the made key holds no value
  registry.WriteString(kSchedulerKey, kHolidayIniValue, "holidayUS.ini");
  EXPECT_TRUE(registry.KeyExists("software\\QTL\\Sorvane-e\\PC\\SCL\\"));
  EXPECT_EQ(registry.ReadString(kSchedulerKey, kHolidayIniValue), "holidayUS.ini");
}

TEST(QtRegistry, AHandEditedListValueReadsAsItsText) {
  TempDir dir;
  dir.Write("registry.ini", "[Software]\nQTL\\Sorvane-e\\PC\\InstallDir=/a,b\n");
  QtRegistry registry(IniFileIn(dir, "registry.ini"));
  EXPECT_EQ(ReadInstallDir(registry), "/a,b");
}

}  // namespace
}  // namespace sched
