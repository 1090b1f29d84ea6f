#include <QDir>
#include <QProcess>
#include <QtGlobal>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "platform/qt/qt_registry.h"
#include "platform/qt/qt_settings_store.h"
#include "platform/std/system_clock.h"
#include "shell/desktop_files.h"
#include "shell/install.h"
#include "shell/paths.h"

namespace {

int Usage() {
  std::cerr << "usage: scheduler-setup [--data DIR] [--install DIR]\n"
               "  --data DIR     the folder of the shipped files (holds pcapps/ and desktop/)\n"
               "  --install DIR  the install folder to make when none is registered\n";
  return 2;
}

// A program installed beside this one.
std::string ProgramBeside(const char* argv0, const char* name) {
  std::error_code error;
  std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) self = std::filesystem::absolute(argv0);
  return (self.parent_path() / name).string();
}

// Runs a tool of the desktop and gives what it printed; nothing when it is not installed or
// fails. The desktop may lack any of them, and the installation works without.
std::optional<std::string> RunTool(const std::vector<std::string>& command) {
  QStringList args;
  for (std::size_t i = 1; i < command.size(); ++i) args << QString::fromStdString(command[i]);
  QProcess process;
  process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process.start(QString::fromStdString(command[0]), args);
  if (!process.waitForStarted() || !process.waitForFinished() ||
      process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
    return std::nullopt;
  }
  return process.readAllStandardOutput().trimmed().toStdString();
}

// Makes the desktop read the files when new ones were made and, unless the user chose
// another program for schedule files, open them with this one.
void RefreshDesktop(const std::string& dataHome, bool filesMade) {
  for (const std::vector<std::string>& command : sched::DesktopRefreshCommands(dataHome)) {
    if (filesMade && !RunTool(command)) std::cout << "  could not run " << command[0] << "\n";
  }
  const std::optional<std::string> chosen =
      RunTool({"xdg-mime", "query", "default", sched::kScheduleMimeType});
  if (chosen && chosen->empty() &&
      RunTool({"xdg-mime", "default", sched::kDesktopEntryName, sched::kScheduleMimeType})) {
    std::cout << "  made " << sched::kDesktopEntryName << " open " << sched::kScheduleMimeType
              << "\n";
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::string dataDir = SCHEDULER_DATA_DIR;
  const std::string xdgDataHome = qEnvironmentVariable("XDG_DATA_HOME").toStdString();
  const std::string home = QDir::homePath().toStdString();
  std::string installDir = sched::DefaultInstallDir(xdgDataHome, home);
  const std::vector<std::string> args(argv + 1, argv + argc);
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (args[i] == "--data" && i + 1 < args.size()) {
      dataDir = args[++i];
    } else if (args[i] == "--install" && i + 1 < args.size()) {
      installDir = args[++i];
    } else {
      return Usage();
    }
  }

  const sched::DateTime now = sched::SystemClock().Now();
  sched::QtRegistry registry;
  sched::QtSettingsStore settings;
  sched::InstallReport report = sched::EnsureInstallation(registry, settings, dataDir, installDir,
                                                          {now.year, now.month, now.day});
  const std::string dataHome = sched::UserDataHome(xdgDataHome, home);
  sched::Installer installer(report);
  const std::size_t madeBefore = report.created.size();
  sched::InstallDesktopFiles(installer, dataDir, dataHome, ProgramBeside(argv[0], "scheduler"));
  const std::string editor = ProgramBeside(argv[0], "mksbjct");
  if (std::filesystem::is_regular_file(editor)) {
    sched::LinkWordListEditor(installer, sched::MakeInstallPaths(report.installDir).PcAppsDir,
                              editor);
  }
  const bool desktopFilesMade = report.created.size() > madeBefore;

  std::cout << "Install folder: " << report.installDir << "\n";
  for (const std::string& item : report.created) std::cout << "  made " << item << "\n";
  if (report.created.empty()) std::cout << "  nothing to do\n";
  for (const std::string& item : report.failures) std::cerr << "  could not make " << item << "\n";
  RefreshDesktop(dataHome, desktopFilesMade);
  return report.failures.empty() ? 0 : 1;
}
