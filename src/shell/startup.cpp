#include "shell/startup.h"

#include "core/app_texts.h"
#include "core/registry_keys.h"
#include "shell/texts.h"
#include "store/schedule_store.h"

namespace sched {

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
