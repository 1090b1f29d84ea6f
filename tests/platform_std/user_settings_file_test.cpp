#include "platform/std/user_settings_file.h"

#include <gtest/gtest.h>

#include "tests/support/temp_dir.h"

namespace sched {
namespace {

// A file as the window's settings library writes it.
TEST(UserSettingsFile, ReadsTheWindowsFileAsItsLibraryWritesIt) {
  TempDir dir;
  UserSettingsFile file(
      dir.Write("settings.ini",
                "[Other]\r\n"
                "Key%20With%20Space=x\r\n"
                "\r\n"
                "[Sorvane]\r\n"
                "Dayview\\At=@@at\r\n"
                "Dayview\\CSVfields=\"Title,Start Date,Not Used,\"\r\n"
                "Dayview\\Odd=\" lead \\\"q\\\" back\\\\slash semi;colon \xC3\xA9\"\r\n"
                "Global\\MsgDsp=1\r\n"));
  const auto get = [&file](const char* app, const char* section, const char* key) {
    return file.GetSetting(app, section, key, "(none)");
  };
  EXPECT_EQ(get("Sorvane", "Dayview", "CSVfields"), "Title,Start Date,Not Used,");
  EXPECT_EQ(get("sorvane", "DAYVIEW", "csvfields"), "Title,Start Date,Not Used,");
  EXPECT_EQ(get("Sorvane", "Dayview", "Odd"), " lead \"q\" back\\slash semi;colon \xC3\xA9");
  EXPECT_EQ(get("Sorvane", "Dayview", "At"), "@at");
  EXPECT_EQ(get("Sorvane", "Global", "MsgDsp"), "1");
  EXPECT_EQ(get("Other", "", "Key With Space"), "x");
  EXPECT_EQ(get("Sorvane", "Dayview", "Missing"), "(none)");
  EXPECT_EQ(UserSettingsFile(dir.File("none.ini")).GetSetting("Sorvane", "Dayview", "x", "-"), "-");
}

}  // namespace
}  // namespace sched
