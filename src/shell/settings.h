#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/codepage.h"
#include "platform/alarm_check_mark.h"
#include "platform/device_files.h"
#include "platform/registry.h"
#include "platform/settings_store.h"

namespace sched {

// The application name of every setting, and the section that this program passes.
inline constexpr const char* kSettingsApp = "Sorvane";
inline constexpr const char* kDayviewSection = "Dayview";
inline constexpr const char* kLastFileKey = "File1";
inline constexpr const char* kWindowPlacementKey = "WindwInformation";
inline constexpr const char* kCodePageKey = "CodePage";
// The mark of the data link's "Import exported data".
inline constexpr const char* kExpOptionKey = "ExpOption";
// The minute up to which the alarms have looked at the clock, "yyyy/mm/dd hh:mm".
inline constexpr const char* kAlarmCheckedKey = "AlarmChecked";

// Remembers the open file: "<onPc>,<PC: or Tarvex:><name>,<full path>".
void StoreLastFile(SettingsStore& settings, const std::string& section, const std::string& path,
                   int onPc);

struct LastFile {
  bool ok = false;       // true when the file can be opened
  std::string path;      // empty unless ok
  int ScheduleOnPc = 1;  // 1 on the PC, 0 a device file, given by its cached copy
  // The folder of a device file, for the device's file dialogs; empty for a PC file.
  std::string cacheFolder;
  // For a device file and the "Dayview" section: the device's sounds, read afresh.
  std::optional<std::vector<std::string>> deviceSounds;
};

// The file remembered by StoreLastFile, fetched from the device when it lies there. A file
// that is gone, or a device that does not have it, gives no file and no word.
LastFile RestoreLastFile(SettingsStore& settings, DeviceFiles& device, const std::string& section);

// True when the data link component is installed: its "Install" value is the number 1.
bool IsPimLinkInstalled(Registry& registry);

// The code page of the device's files, stored under "Dayview" as its number; Western when none
// or another number is stored, and when the system cannot convert the stored one.
CodePage ReadCodePage(SettingsStore& settings);
void SaveCodePage(SettingsStore& settings, CodePage page);

// The alarms' minute last looked at, kept under "Dayview"; a text that is no such minute reads
// as none.
class SettingsAlarmCheckMark final : public AlarmCheckMark {
 public:
  explicit SettingsAlarmCheckMark(SettingsStore& settings) : settings_(settings) {}
  std::optional<DateTime> ReadLastChecked() override;
  void SaveLastChecked(const DateTime& minute) override;

 private:
  SettingsStore& settings_;
};

// The show states of a window's place, as they are stored.
inline constexpr int kShowNormal = 1;
inline constexpr int kShowMinimized = 2;
inline constexpr int kShowMaximized = 3;

// A window's place: its show state and its outer edges.
struct WindowPlacement {
  int showState = kShowNormal;
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  friend bool operator==(const WindowPlacement&, const WindowPlacement&) = default;
};

// Five numbers joined by ","; nothing when the text is empty or not five whole numbers.
std::optional<WindowPlacement> ParseWindowPlacement(const std::string& text);
std::string FormatWindowPlacement(const WindowPlacement& placement);

// The stored place, a minimised window made normal; nothing when none is stored: the window
// is then centred.
std::optional<WindowPlacement> ReadWindowPlacement(SettingsStore& settings,
                                                   const std::string& section);
void SaveWindowPlacement(SettingsStore& settings, const std::string& section,
                         const WindowPlacement& placement);

}  // namespace sched
