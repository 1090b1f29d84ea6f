#include "link/link_settings.h"

#include <algorithm>
#include <vector>

#include "core/number_text.h"
#include "shell/settings.h"
#include "store/sch_record.h"

namespace sched {
namespace {

constexpr const char* kLinkCalendarKey = "LinkCalendar";
constexpr const char* kLinkKindKey = "LinkKind";
constexpr const char* kServerUrlKey = "LinkServerUrl";
constexpr const char* kServerUserKey = "LinkServerUser";
constexpr const char* kTypeKey = "DIPType";
constexpr const char* kPeriodKey = "DIPKKN";
constexpr const char* kSoundKey = "DIPSndF";

std::string Get(SettingsStore& settings, const char* key, const char* fallback) {
  return settings.GetSetting(kSettingsApp, kDayviewSection, key, fallback);
}

void Put(SettingsStore& settings, const char* key, const std::string& value) {
  settings.SaveSetting(kSettingsApp, kDayviewSection, key, value);
}

std::vector<std::string> Fields(const std::string& text) {
  std::vector<std::string> fields(1);
  for (char c : text) {
    if (c == ',') {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

}  // namespace

bool ReadExpOption(SettingsStore& settings) {
  return Get(settings, kExpOptionKey, "1") != "0";
}

void SaveExpOption(SettingsStore& settings, bool on) {
  Put(settings, kExpOptionKey, on ? "1" : "0");
}

std::string ReadLinkCalendar(SettingsStore& settings) {
  return Get(settings, kLinkCalendarKey, "");
}

void SaveLinkCalendar(SettingsStore& settings, const std::string& path) {
  Put(settings, kLinkCalendarKey, path);
}

std::string LinkCalendarPath(SettingsStore& settings, const std::string& pimDataDir) {
  const std::string chosen = ReadLinkCalendar(settings);
  return chosen.empty() ? pimDataDir + "/" + kDefaultLinkCalendar : chosen;
}

LinkKind ReadLinkKind(SettingsStore& settings) {
  return Get(settings, kLinkKindKey, "0") == "1" ? LinkKind::kServer : LinkKind::kFile;
}

void SaveLinkKind(SettingsStore& settings, LinkKind kind) {
  Put(settings, kLinkKindKey, kind == LinkKind::kServer ? "1" : "0");
}

std::string ReadLinkServerUrl(SettingsStore& settings) {
  return Get(settings, kServerUrlKey, "");
}

void SaveLinkServerUrl(SettingsStore& settings, const std::string& url) {
  Put(settings, kServerUrlKey, url);
}

std::string ReadLinkServerUser(SettingsStore& settings) {
  return Get(settings, kServerUserKey, "");
}

void SaveLinkServerUser(SettingsStore& settings, const std::string& user) {
  Put(settings, kServerUserKey, user);
}

ImportOptions ReadImportOptions(SettingsStore& settings) {
  ImportOptions o;
  o.type = ParseInt(Get(settings, kTypeKey, "0"), 10, 0, 2).value_or(0);
  const std::vector<std::string> period = Fields(Get(settings, kPeriodKey, ""));
  if (period.size() == 4) {
    o.kikan = ParseInt(period[0], 10, 0, 2).value_or(0);
    o.weeks = ParseInt(period[1], 10, 1, 99).value_or(1);
    o.start = period[2];
    o.end = period[3];
  }
  o.sound = Get(settings, kSoundKey, "");
  if (o.sound.empty()) o.sound = kDefaultAlarmSound;
  return o;
}

void SaveImportOptions(SettingsStore& settings, const ImportOptions& o) {
  Put(settings, kTypeKey, std::to_string(o.type));
  Put(settings, kPeriodKey,
      std::to_string(o.kikan) + "," + std::to_string(o.weeks) + "," + o.start + "," + o.end);
  Put(settings, kSoundKey, o.sound);
}

ImportPeriod PeriodOfOptions(const ImportOptions& o, const CivilDate& today) {
  if (o.kikan == 1) return {today, AddDays(today, 7 * o.weeks - 1)};
  if (o.kikan == 2) return {ParseSlashedDate(o.start), ParseSlashedDate(o.end)};
  return {};
}

CivilDate DefaultKikanEnd(const CivilDate& start) {
  const CivilDate end = AddDays(AddMonths(start, 12), -1);
  return std::min(end, CivilDate{kLastYear, 12, 31});
}

}  // namespace sched
