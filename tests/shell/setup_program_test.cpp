#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "shell/desktop_files.h"
#include "tests/shell/shell_test_support.h"
#include "tests/support/temp_dir.h"

namespace sched {
namespace {

namespace fs = std::filesystem;

struct ShellRun {
  int status;
  std::string out;
};

// The set-up program and the desktop's tools as a user of a plain desktop runs them, with a home,
// data and config folders of the test's own.
class SetupProgram : public ::testing::Test {
 protected:
  TempDir dir;

  ShellRun Shell(const std::string& command) const {
    const std::string folder = "'" + dir.Path().string();
    // No desktop is named, so that xdg-mime asks the shared MIME database of the data folders.
    const std::string env = "env -u XDG_CURRENT_DESKTOP -u DESKTOP_SESSION -u KDE_FULL_SESSION " +
                            std::string("HOME=") + folder + "/home' XDG_DATA_HOME=" + folder +
                            "/data' XDG_CONFIG_HOME=" + folder + "/config' ";
    auto [status, out] = RunCommand(env + command + " 2>/dev/null");
    ShellRun run{status, out};
    while (!run.out.empty() && run.out.back() == '\n') run.out.pop_back();
    return run;
  }

  std::string FileType(const fs::path& file) const {
    return Shell("xdg-mime query filetype '" + file.string() + "'").out;
  }
};

TEST_F(SetupProgram, MakesTheDesktopOpenScheduleFilesWithTheProgram) {
  if (!HaveTool("xdg-mime") || !HaveTool("update-mime-database")) {
    GTEST_SKIP() << "xdg-mime or update-mime-database is missing";
  }
  fs::create_directories(dir.Path() / "home");
  ASSERT_EQ(Shell(std::string("'") + SCHEDULER_SETUP_PATH + "'").status, 0);

  const fs::path sample = dir.Path() / "data/Sorvane/Tarvex/userdata/PIMdata/Sample.scl";
  ASSERT_TRUE(fs::is_regular_file(sample));
  fs::copy_file(sample, dir.Path() / "schedule.dat");
  WriteText(dir.Path() / "notes.txt", "Day,Title\n");
  EXPECT_EQ(FileType(sample), kScheduleMimeType) << "by its name";
  EXPECT_EQ(FileType(dir.Path() / "schedule.dat"), kScheduleMimeType) << "by its first bytes";
  EXPECT_NE(FileType(dir.Path() / "notes.txt"), kScheduleMimeType);
  EXPECT_EQ(Shell(std::string("xdg-mime query default ") + kScheduleMimeType).out,
            kDesktopEntryName);

  const std::string entry = ReadText(dir.Path() / "data/applications" / kDesktopEntryName);
  const fs::path program = fs::path(SCHEDULER_SETUP_PATH).parent_path() / "scheduler";
  EXPECT_NE(entry.find("Exec=" + program.string() + " %f\n"), std::string::npos) << entry;
}

TEST_F(SetupProgram, KeepsTheProgramTheUserChose) {
  if (!HaveTool("xdg-mime")) GTEST_SKIP() << "xdg-mime is missing";
  fs::create_directories(dir.Path() / "home");
  WriteText(dir.Path() / "data/applications/other.desktop",
            "[Desktop Entry]\nType=Application\nName=Other\nExec=other %f\n"
            "MimeType=application/x-scheduler-scl;\n");
  ASSERT_EQ(Shell(std::string("xdg-mime default other.desktop ") + kScheduleMimeType).status, 0);
  ASSERT_EQ(Shell(std::string("xdg-mime query default ") + kScheduleMimeType).out, "other.desktop");
  ASSERT_EQ(Shell(std::string("'") + SCHEDULER_SETUP_PATH + "'").status, 0);
  EXPECT_EQ(Shell(std::string("xdg-mime query default ") + kScheduleMimeType).out, "other.desktop");
}

}  // namespace
}  // namespace sched
