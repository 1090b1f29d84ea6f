#include <QDir>
#include <QtGlobal>
#include <iostream>
#include <string>
#include <vector>

#include "platform/qt/qt_registry.h"
#include "platform/std/system_clock.h"
#include "shell/install.h"

namespace {

int Usage() {
  std::cerr << "usage: scheduler-setup [--data DIR] [--install DIR]\n"
               "  --data DIR     the folder of the shipped files (holds pcapps/)\n"
               "  --install DIR  the install folder to make when none is registered\n";
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  std::string dataDir = SCHEDULER_DATA_DIR;
  std::string installDir = sched::DefaultInstallDir(
      qEnvironmentVariable("XDG_DATA_HOME").toStdString(), QDir::homePath().toStdString());
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
  const sched::InstallReport report =
      sched::EnsureInstallation(registry, dataDir, installDir, {now.year, now.month, now.day});
  std::cout << "Install folder: " << report.installDir << "\n";
  for (const std::string& item : report.created) std::cout << "  made " << item << "\n";
  if (report.created.empty()) std::cout << "  nothing to do\n";
  for (const std::string& item : report.failures) std::cerr << "  could not make " << item << "\n";
  return report.failures.empty() ? 0 : 1;
}
