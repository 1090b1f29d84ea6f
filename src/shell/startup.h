#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "platform/holiday_calendar.h"
#include "platform/messages.h"
#include "platform/registry.h"
#include "platform/settings_store.h"
#include "shell/app_state.h"
#include "shell/paths.h"

namespace sched {

// Where a user's installation comes from when none is registered: the folders where the
// program's shipped data may be, the first that holds its country files taken, and the folder
// to lay the installation out in; and where the word list editor program may be, the first
// that exists linked into the installation at every start.
struct InstallSource {
  std::vector<std::string> dataDirs;
  std::string installDir;
  std::vector<std::string> editorPrograms = {};
};

// The install folder that a start runs on: the registered one; else one laid out from the
// shipped data and registered first, as the set-up step does. Nothing when neither can be had,
// and `why` then says what is missing.
std::optional<std::string> InstallDirForStart(Registry& registry, SettingsStore& settings,
                                              const InstallSource& source, const CivilDate& today,
                                              std::string& why);

// Opens the country file named in the registry for the named holidays. False when the
// program's registry key is missing: the installation is broken and the program ends (after
// saying so). A missing or unreadable country file is reported and the program goes on
// without named holidays.
bool OpenCountryFile(Registry& registry, HolidayCalendar& calendar, Messages& messages,
                     const InstallPaths& paths, AppState& state);

// Reports a missing folder of the user's files once; the program goes on.
void CheckPimDataDir(const InstallPaths& paths, Messages& messages);

}  // namespace sched
