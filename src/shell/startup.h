#pragma once

#include <string>

#include "platform/holiday_calendar.h"
#include "platform/messages.h"
#include "platform/registry.h"
#include "shell/app_state.h"
#include "shell/paths.h"

namespace sched {

// Opens the country file named in the registry for the named holidays. False when the
// program's registry key is missing: the installation is broken and the program ends (after
// saying so). A missing or unreadable country file is reported and the program goes on
// without named holidays.
bool OpenCountryFile(Registry& registry, HolidayCalendar& calendar, Messages& messages,
                     const InstallPaths& paths, AppState& state);

// Reports a missing folder of the user's files once; the program goes on.
void CheckPimDataDir(const InstallPaths& paths, Messages& messages);

}  // namespace sched
