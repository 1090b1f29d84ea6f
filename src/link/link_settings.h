#pragma once

#include <optional>
#include <string>

#include "core/calendar.h"
#include "link/link_exchange.h"
#include "platform/settings_store.h"

namespace sched {

// The mark of "Import exported data": only items that have not gone over the link go out.
bool ReadExpOption(SettingsStore& settings);
void SaveExpOption(SettingsStore& settings, bool on);

// The name of the iCalendar file in the user's data folder that the link component exchanges
// with until the user chooses another.
inline constexpr const char* kDefaultLinkCalendar = "calendar.ics";

// The iCalendar file that the link component exchanges with; empty when none is set.
std::string ReadLinkCalendar(SettingsStore& settings);
void SaveLinkCalendar(SettingsStore& settings, const std::string& path);
// The file chosen, else kDefaultLinkCalendar in the user's data folder `pimDataDir`.
std::string LinkCalendarPath(SettingsStore& settings, const std::string& pimDataDir);

// What the link component exchanges with: the iCalendar file, or a calendar collection on a
// CalDAV server, given by its URL and the user's name there.
enum class LinkKind { kFile = 0, kServer = 1 };
LinkKind ReadLinkKind(SettingsStore& settings);
void SaveLinkKind(SettingsStore& settings, LinkKind kind);
std::string ReadLinkServerUrl(SettingsStore& settings);
void SaveLinkServerUrl(SettingsStore& settings, const std::string& url);
std::string ReadLinkServerUser(SettingsStore& settings);
void SaveLinkServerUser(SettingsStore& settings, const std::string& user);

// The answers of the import options, as they are stored: the merge, the period mode (0 all,
// 1 weeks from today, 2 the dates), the weeks, the two dates as "yyyy/mm/dd", and the sound of
// imported alarms.
struct ImportOptions {
  int type = 0;
  int kikan = 0;
  int weeks = 1;
  std::string start;
  std::string end;
  std::string sound;
};
ImportOptions ReadImportOptions(SettingsStore& settings);
void SaveImportOptions(SettingsStore& settings, const ImportOptions& options);

// The dates an import with these options takes on `today`.
ImportPeriod PeriodOfOptions(const ImportOptions& options, const CivilDate& today);

// The end a start date proposes: a year on, less a day, at most 2099/12/31.
CivilDate DefaultKikanEnd(const CivilDate& start);

}  // namespace sched
