#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "shell/desktop_files.h"
#include "tests/shell/shell_test_support.h"
#include "tests/support/temp_dir.h"

namespace sched {
namespace {

namespace fs = std::filesystem;

// The set-up program and the desktop's tools as a user of a plain desktop runs them, with a home,
// data and config folders of the test's own.
class SetupProgram : public ::testing::Test {
 protected:
  TempDir dir;
  const std::string setup = std::string("'") + SCHEDULER_SETUP_PATH + "'";
  const std::string queryDefault = std::string("xdg-mime query default ") + kScheduleMimeType;

  // The command's exit status and its output without the line ends at its end.
  std::pair<int, std::string> Shell(const std::string& command) const {
    const std::string folder = "'" + dir.Path().string();
    // No desktop is named, so that xdg-mime asks the shared MIME database of the data folders.
    auto run = RunCommand(
        "env -u XDG_CURRENT_DESKTOP -u DESKTOP_SESSION -u KDE_FULL_SESSION HOME=" + folder +
        "/home' XDG_DATA_HOME=" + folder + "/data' XDG_CONFIG_HOME=" + folder + "/config' " +
        command + " 2>/dev/null");
    while (run.second.ends_with('\n')) run.second.pop_back();
    return run;
  }
  std::string FileType(const fs::path& file) const {
    return Shell("xdg-mime query filetype '" + file.string() + "'").second;
  }
};

TEST_F(SetupProgram, MakesTheDesktopOpenScheduleFilesWithTheProgram) {
  if (!HaveTool("xdg-mime") || !HaveTool("update-mime-database")) {
    GTEST_SKIP() << "xdg-mime or update-mime-database is missing";
  }
  fs::create_directories(dir.Path() / "home");
  ASSERT_EQ(Shell(setup).first, 0);

  const fs::path sample = dir.Path() / "data/Sorvane/Tarvex/userdata/PIMdata/Sample.scl";
  ASSERT_TRUE(fs::is_regular_file(sample));
  fs::copy_file(sample, dir.Path() / "schedule.dat");
  dir.Write("notes.txt", "Day,Title\n");
  EXPECT_EQ(FileType(sample), kScheduleMimeType) << "by its name";
  EXPECT_EQ(FileType(dir.Path() / "schedule.dat"), kScheduleMimeType) << "by its first bytes";
  EXPECT_NE(FileType(dir.Path() / "notes.txt"), kScheduleMimeType);
  EXPECT_EQ(Shell(queryDefault).second, kDesktopEntryName);

  const std::string entry = ReadText(dir.Path() / "data/applications" / kDesktopEntryName);
  const fs::path program = fs::path(SCHEDULER_SETUP_PATH).parent_path() / "scheduler";
  EXPECT_NE(entry.find("Exec=" + program.string() + " %f\n"), std::string::npos) << entry;
}

TEST_F(SetupProgram, KeepsTheProgramTheUserChose) {
  if (!HaveTool("xdg-mime")) GTEST_SKIP() << "xdg-mime is missing";
  fs::create_directories(dir.Path() / "home");
  WriteWithFolders(dir, "data/applications/other.desktop",
                   "[Desktop Entry]\nType=Application\nName=Other\nExec=other %f\n"
                   "MimeType=application/x-scheduler-scl;\n");
  ASSERT_EQ(Shell(std::string("xdg-mime default other.desktop ") + kScheduleMimeType).first, 0);
  ASSERT_EQ(Shell(queryDefault).second, "other.desktop");
  ASSERT_EQ(Shell(setup).first, 0);
  EXPECT_EQ(Shell(queryDefault).second, "other.desktop");
}

}  // namespace
}  // namespace sched
