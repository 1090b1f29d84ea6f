#include "shell/settings.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

#include "core/number_text.h"
#include "core/registry_keys.h"
#include "core/text_case.h"
#include "shell/device_service.h"
#include "store/file_location.h"

namespace sched {
namespace {

// The path of a "File1" value after its first field. The name in the middle field may hold
// commas as the path does, so the path is the rest after the comma at which the middle field
// is the location word and the name of that path; a plain third field otherwise.
std::string LastFilePath(std::string_view rest) {
  for (std::size_t comma = rest.find(','); comma != std::string_view::npos;
       comma = rest.find(',', comma + 1)) {
    const std::string path(rest.substr(comma + 1));
    const std::string_view location = rest.substr(0, comma);
    if (location == FormatLocation(path, 1) || location == FormatLocation(path, 0)) return path;
  }
  const std::size_t second = rest.find(',');
  if (second == std::string_view::npos) return {};
  const std::string_view third = rest.substr(second + 1);
  return std::string(third.substr(0, third.find(',')));
}

bool FileExists(const std::string& path) {
  std::error_code error;
  return !path.empty() && std::filesystem::is_regular_file(path, error);
}

}  // namespace

void StoreLastFile(SettingsStore& settings, const std::string& section, const std::string& path,
                   int onPc) {
  const std::string value = std::to_string(onPc) + "," + FormatLocation(path, onPc) + "," + path;
  settings.SaveSetting(kSettingsApp, section, kLastFileKey, value);
}

LastFile RestoreLastFile(SettingsStore& settings, DeviceFiles& device, const std::string& section) {
  LastFile last;
  const std::string value = settings.GetSetting(kSettingsApp, section, kLastFileKey, "");
  if (value.empty()) return last;
  // The first field, PC or device, is worked out again from the path.
  const std::size_t comma = value.find(',');
  const std::string stored =
      comma == std::string::npos ? "" : LastFilePath(std::string_view(value).substr(comma + 1));

  const ResolvedFile resolved = ResolveFileName(device, stored);
  last.ScheduleOnPc = resolved.ScheduleOnPc;
  last.cacheFolder = resolved.cacheFolder;
  std::string path = resolved.path;
  if (last.ScheduleOnPc == 0) {
    const std::optional<std::string> devicePath = device.Sor_ConvPathCacheToSorvane(path);
    if (!devicePath || !device.Sor_IsExist(*devicePath)) return last;
    const std::optional<std::string> fetched = device.Sor_GetFile(*devicePath);
    if (!fetched) return last;
    if (section == kDayviewSection) last.deviceSounds = ReadDeviceSounds(device);
    path = fetched->substr(0, fetched->find('\0'));
  }
  if (!FileExists(path)) return last;
  last.ok = true;
  last.path = path;
  return last;
}

bool IsPimLinkInstalled(Registry& registry) {
  return registry.ReadNumber(kPimLinkKey, kPimLinkInstallValue) == 1u;
}

CodePage ReadCodePage(SettingsStore& settings) {
  const std::string stored = settings.GetSetting(kSettingsApp, kDayviewSection, kCodePageKey, "");
  const std::optional<CodePage> page = CodePageOfNumber(ParseInt(stored).value_or(0));
  if (!page || (*page == CodePage::kJapanese && !ShiftJisAvailable())) return CodePage::kWestern;
  return *page;
}

void SaveCodePage(SettingsStore& settings, CodePage page) {
  settings.SaveSetting(kSettingsApp, kDayviewSection, kCodePageKey,
                       std::to_string(static_cast<int>(page)));
}

std::optional<DateTime> SettingsAlarmCheckMark::ReadLastChecked() {
  const std::string text =
      settings_.GetSetting(kSettingsApp, kDayviewSection, kAlarmCheckedKey, "");
  if (text.size() != 16 || text[10] != ' ' || text[13] != ':') return std::nullopt;
  const std::optional<CivilDate> date = ParseSlashedDate(std::string_view(text).substr(0, 10));
  const std::optional<int> hour = ParseInt(std::string_view(text).substr(11, 2), 10, 0, 23);
  const std::optional<int> minute = ParseInt(std::string_view(text).substr(14, 2), 10, 0, 59);
  if (!date || !hour || !minute) return std::nullopt;
  return DateTime{date->year, date->month, date->day, *hour, *minute, 0};
}

void SettingsAlarmCheckMark::SaveLastChecked(const DateTime& minute) {
  char time[16];
  std::snprintf(time, sizeof time, " %02d:%02d", minute.hour % 100, minute.minute % 100);
  settings_.SaveSetting(kSettingsApp, kDayviewSection, kAlarmCheckedKey,
                        SlashedDate({minute.year, minute.month, minute.day}) + time);
}

std::optional<WindowPlacement> ParseWindowPlacement(const std::string& text) {
  int numbers[5] = {};
  std::size_t start = 0;
  for (int i = 0; i < 5; ++i) {
    const std::size_t stop = i < 4 ? text.find(',', start) : text.size();
    if (stop == std::string::npos) return std::nullopt;
    const std::optional<int> number =
        ParseInt(Trim(std::string_view(text).substr(start, stop - start)));
    if (!number) return std::nullopt;
    numbers[i] = *number;
    start = stop + 1;
  }
  return WindowPlacement{numbers[0], numbers[1], numbers[2], numbers[3], numbers[4]};
}

std::string FormatWindowPlacement(const WindowPlacement& p) {
  return std::to_string(p.showState) + "," + std::to_string(p.left) + "," + std::to_string(p.top) +
         "," + std::to_string(p.right) + "," + std::to_string(p.bottom);
}

std::optional<WindowPlacement> ReadWindowPlacement(SettingsStore& settings,
                                                   const std::string& section) {
  std::optional<WindowPlacement> placement =
      ParseWindowPlacement(settings.GetSetting(kSettingsApp, section, kWindowPlacementKey, ""));
  // A window never comes back as an icon.
  if (placement && placement->showState == kShowMinimized) placement->showState = kShowNormal;
  return placement;
}

void SaveWindowPlacement(SettingsStore& settings, const std::string& section,
                         const WindowPlacement& placement) {
  settings.SaveSetting(kSettingsApp, section, kWindowPlacementKey,
                       FormatWindowPlacement(placement));
}

}  // namespace sched
