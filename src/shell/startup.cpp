#include "shell/startup.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/app_texts.h"
#include "core/registry_keys.h"
#include "shell/install.h"
#include "shell/texts.h"
#include "store/schedule_store.h"

namespace sched {

namespace {

bool HoldsCountryFiles(const std::string& dataDir) {
  std::error_code error;
  return std::filesystem::is_directory(std::filesystem::path(dataDir) / "pcapps", error);
}

}  // namespace

std::optional<std::string> InstallDirForStart(Registry& registry, SettingsStore& settings,
                                              const InstallSource& source, const CivilDate& today,
                                              std::string& why) {
  if (std::optional<std::string> registered = ReadInstallDir(registry)) return registered;
  const auto data = std::find_if(source.dataDirs.begin(), source.dataDirs.end(), HoldsCountryFiles);
  if (data == source.dataDirs.end()) {
    why = "not installed for this user, and no installed data to lay it out from";
    for (std::size_t i = 0; i < source.dataDirs.size(); ++i) {
      why += (i == 0 ? " (no pcapps in " : ", ") + source.dataDirs[i];
    }
    if (!source.dataDirs.empty()) why += ")";
    return std::nullopt;
  }
  const InstallReport report =
      EnsureInstallation(registry, settings, *data, source.installDir, today);
  if (std::optional<std::string> laidOut = ReadInstallDir(registry)) return laidOut;
  why = "could not lay out an installation in " + source.installDir;
  if (!report.failures.empty()) why += ": could not make " + report.failures.front();
  return std::nullopt;
}

bool OpenCountryFile(Registry& registry, HolidayCalendar& calendar, Messages& messages,
                     const InstallPaths& paths, AppState& state) {
  if (!registry.KeyExists(kSchedulerKey)) {
    messages.Show({texts::kDirectoryMissing, kAppTitle, MsgIcon::Critical, MsgButtons::Ok});
    return false;
  }
  NamedHolidays& named = state.Holidays;
  named.calendar = &calendar;
  named.HolidayHandle = 0;
  named.HolidayReady = 0;
  std::string name = registry.ReadString(kSchedulerKey, kHolidayIniValue).value_or("");
  if (name.size() <= 1) {
    messages.Show({texts::kHolidayValueInvalid, kAppTitle, MsgIcon::Critical, MsgButtons::Ok});
    return true;
  }
  name = name.substr(0, name.find('\0'));
  CalendarHandle handle = 0;
  if (calendar.SorCalender_InitFunction(paths.PcAppsDir + "/" + name, handle) != 0) {
    messages.Show({texts::kHolidayFileNotFound, kAppTitle, MsgIcon::None, MsgButtons::Ok});
    return true;
  }
  named.HolidayHandle = handle;
  named.HolidayReady = -1;
  return true;
}

void CheckPimDataDir(const InstallPaths& paths, Messages& messages) {
  if (!paths.PimDataFound) {
    messages.Show({texts::kDirectoryMissing, kAppTitle, MsgIcon::Critical, MsgButtons::Ok});
  }
}

}  // namespace sched
