#include "shell/desktop_files.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/shell/shell_test_support.h"
#include "tests/support/case_file.h"
#include "tests/support/temp_dir.h"

namespace sched {
namespace {

namespace fs = std::filesystem;

// desktop-file-validate's verdict on an entry: its messages, empty when it is valid.
std::string Validate(const fs::path& entry) {
  const auto [status, out] = RunCommand("desktop-file-validate '" + entry.string() + "' 2>&1");
  return status == 0 ? out : "exit " + std::to_string(status) + ": " + out;
}

TEST(WithProgram, PutsTheProgramIntoTheExecLine) {
  const std::string entry = "[Desktop Entry]\nName=S\nExec=scheduler %f\nIcon=scheduler\n";
  for (const testing::CaseRow& row : testing::ReadCases("shell/exec-lines.txt", 2, 6)) {
    EXPECT_EQ(WithProgram(entry, row[0]),
              "[Desktop Entry]\nName=S\n" + testing::Unescaped(row[1]) + "\nIcon=scheduler\n")
        << row.where;
  }
  EXPECT_EQ(WithProgram("[Desktop Entry]\nName=S\n", "/x"), "[Desktop Entry]\nName=S\n");
}

TEST(DesktopFiles, GoIntoTheUsersDataFoldersOnceAndStayValid) {
  TempDir dir;
  const fs::path home = dir.Path() / "data home";
  const std::string program = (dir.Path() / "my build" / "scheduler").string();
  WriteWithFolders(dir, "data home/icons/hicolor/48x48/apps/scheduler.png", "the user's own");

  InstallReport report;
  Installer installer(report);
  InstallDesktopFiles(installer, SCHEDULER_DATA_DIR, home.string(), program);
  EXPECT_TRUE(report.failures.empty());

  const fs::path entry = home / "applications" / kDesktopEntryName;
  EXPECT_NE(ReadText(entry).find("\nExec=\"" + program + "\" %f\n"), std::string::npos)
      << ReadText(entry);
  for (const char* file :
       {"icons/hicolor/scalable/apps/scheduler.svg", "icons/hicolor/16x16/apps/scheduler.png",
        "icons/hicolor/256x256/apps/scheduler.png", "mime/packages/scheduler-mime.xml"}) {
    EXPECT_TRUE(fs::is_regular_file(home / file)) << file;
  }
  EXPECT_EQ(ReadText(home / "icons/hicolor/48x48/apps/scheduler.png"), "the user's own");

  const std::size_t made = report.created.size();
  InstallDesktopFiles(installer, SCHEDULER_DATA_DIR, home.string(), "/elsewhere/scheduler");
  EXPECT_EQ(report.created.size(), made) << "a second run makes nothing";
  EXPECT_NE(ReadText(entry).find(program), std::string::npos) << "the entry is kept";

  if (!HaveTool("desktop-file-validate")) GTEST_SKIP() << "desktop-file-validate is missing";
  EXPECT_EQ(Validate(entry), "");
}

TEST(DesktopFiles, MissingDataIsAFailure) {
  TempDir dir;
  InstallReport report;
  Installer installer(report);
  InstallDesktopFiles(installer, dir.File("nowhere"), dir.File("home"), "/usr/bin/scheduler");
  EXPECT_FALSE(report.failures.empty());
  EXPECT_FALSE(fs::exists(dir.Path() / "home" / "applications" / kDesktopEntryName));
}

}  // namespace
}  // namespace sched
