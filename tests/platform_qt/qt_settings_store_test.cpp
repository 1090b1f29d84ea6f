#include "platform/qt/qt_settings_store.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "shell/settings.h"
#include "tests/platform_qt/qt_test_environment.h"

namespace sched {
namespace {

TEST(QtSettingsStore, LivesInTheUsersConfigFolder) {
  const TempDir& home = ConfigHome();
  QtSettingsStore settings;
  EXPECT_EQ(settings.FileName().toStdString(), home.File("Sorvane/settings.ini"));
  SaveWindowPlacement(settings, kDayviewSection, {1, 10, 20, 810, 620});
  EXPECT_TRUE(std::filesystem::exists(home.File("Sorvane/settings.ini")));
}

TEST(QtSettingsStore, TextComesBackAsWritten) {
  TempDir dir;
  const QString file = IniFileIn(dir, "settings.ini");
  const std::string values[] = {
      "",
      "0",
      "1,PC:Plans, old.scl,/home/u/Plans, old.scl",
      "C:\\Tarvex\\userdata\\PIMdata\\a.scl",
      "Caf\u00E9 \"quoted\" ; semicolon = equals",
      " leading and trailing ",
  };
  for (const std::string& value : values) {
    {
      QtSettingsStore settings(file);
      settings.SaveSetting(kSettingsApp, kDayviewSection, "Value", value);
    }
    QtSettingsStore settings(file);
    EXPECT_EQ(settings.GetSetting(kSettingsApp, kDayviewSection, "Value", "(none)"), value);
  }
}

TEST(QtSettingsStore, AbsentKeysGiveTheFallbackAndNamesIgnoreCase) {
  TempDir dir;
  QtSettingsStore settings(IniFileIn(dir, "settings.ini"));
  EXPECT_EQ(settings.GetSetting(kSettingsApp, kDayviewSection, "CSV1line", "0"), "0");
  settings.SaveSetting(kSettingsApp, kDayviewSection, "CSV1line", "1");
  EXPECT_EQ(settings.GetSetting("sorvane", "DAYVIEW", "csv1line", "0"), "1");
  EXPECT_EQ(settings.GetSetting(kSettingsApp, "Global", "CSV1line", "0"), "0");
  settings.SaveSetting("SORVANE", "dayview", "CSV1LINE", "2");
  EXPECT_EQ(settings.GetSetting(kSettingsApp, kDayviewSection, "CSV1line", "0"), "2");
}

}  // namespace
}  // namespace sched
