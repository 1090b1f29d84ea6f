#include "shell/install.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "core/registry_keys.h"
#include "core/text_case.h"
#include "holidays/country_file_list.h"
#include "platform/clock.h"
#include "platform/std/console.h"
#include "shell/folder_case.h"
#include "shell/installer.h"
#include "shell/paths.h"
#include "shell/sample_schedule.h"
#include "shell/settings.h"
#include "shell/stock_sounds.h"
#include "store/schedule_store.h"

namespace sched {
namespace fs = std::filesystem;

namespace {

constexpr const char* kSampleName = "Sample.scl";
constexpr const char* kPreferredHolidayFile = "holidayUS.ini";
constexpr const char* kWordListFolder = "userdata/ini";
constexpr const char* kEditorLink = "MkSbjct";

// The folders of the layout, parents first. The device's "System" folder comes before
// "system\sound", which then goes into it: the device does not tell the two apart.
constexpr const char* kLayoutFolders[] = {
    "pcapps",
    "userdata/PIMdata",
    "userdata/ini",
    "xferbay/cache/PIM",
    "xferbay/cache/System/ini",
    "xferbay/cache/system/sound",
};

// The sample schedule is stamped as made at noon of the day it is built for.
class FixedClock : public Clock {
 public:
  explicit FixedClock(const CivilDate& day) : day_(day) {}
  DateTime Now() const override { return {day_.year, day_.month, day_.day, 12, 0, 0}; }
  std::uint64_t TickCount() const override { return ++ticks_; }

 private:
  CivilDate day_;
  mutable std::uint64_t ticks_ = 0;
};

// The country files of a folder, sorted by name.
std::vector<fs::path> HolidayFiles(const fs::path& folder) {
  std::vector<fs::path> files;
  std::error_code error;
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    std::error_code kindError;
    if (it->is_regular_file(kindError) && IsCountryFileName(it->path().filename().string())) {
      files.push_back(it->path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

// The System.ini of the device: an eight-byte block of six bytes of text and the private level
// as a little-endian 16-bit number, then text that this program does not read.
std::vector<std::uint8_t> SystemIniBytes() {
  const std::string head = "TARVEX";
  const std::string tail = "\r\n[System]\r\nModel=Tarvex\r\nLanguage=English\r\n";
  std::vector<std::uint8_t> bytes(head.begin(), head.end());
  bytes.push_back(1);
  bytes.push_back(0);
  bytes.insert(bytes.end(), tail.begin(), tail.end());
  return bytes;
}

std::vector<std::uint8_t> SchIniBytes() {
  const std::string text = "[Schedule]\r\nAlarmSound=SCHALARM\r\n";
  return {text.begin(), text.end()};
}

void SaveSample(Installer& installer, const fs::path& file, const CivilDate& today) {
  if (Exists(file)) return;
  ScheduleDocument doc;
  NoAlarmHooks alarms;
  SilentProgress progress;
  FixedClock clock(today);
  ScheduleStore store(doc, StoreServices{alarms, progress, clock});
  store.ClearIndex();
  store.ResetHeader();
  BuildSampleSchedule(store, today);
  installer.Note(file.string(), store.SaveScheduleFile(file.string()));
}

void SetRegistryString(Installer& installer, Registry& registry, const std::string& key,
                       const std::string& name, const std::string& value) {
  installer.Note(key + "\\" + name + " = " + value, registry.WriteString(key, name, value));
}

bool SameFolder(const std::string& a, const std::string& b) {
  std::error_code error;
  return fs::equivalent(a, b, error);
}

void LayOut(Installer& installer, const std::string& installDir, const std::string& dataDir,
            const CivilDate& today) {
  installer.MakeFolder(installDir);
  for (const char* folder : kLayoutFolders) {
    installer.MakeFolder(ResolveIgnoringCase(installDir, folder));
  }
  const InstallPaths paths = MakeInstallPaths(installDir);

  for (const fs::path& file : HolidayFiles(fs::path(dataDir) / "pcapps")) {
    installer.CopyNew(file, fs::path(paths.PcAppsDir) / file.filename());
  }
  // The stock word lists, each only where the user has no list of that name.
  std::error_code error;
  for (fs::directory_iterator it(fs::path(dataDir) / kWordListFolder, error), end;
       !error && it != end; it.increment(error)) {
    const std::string name = it->path().filename().string();
    installer.CopyNew(it->path(), ResolveIgnoringCase(installDir, kWordListFolder + ("/" + name)));
  }
  installer.WriteNew(paths.SystemIniPath, SystemIniBytes());
  installer.WriteNew(paths.SchIniPath, SchIniBytes());
  for (const Melody& melody : StockMelodies()) {
    installer.WriteNew(ResolveIgnoringCase(paths.SoundCacheDir, melody.fileName),
                       EncodeSnd(melody));
  }
  // The same sample on the PC and on the device, each made only where none is yet.
  SaveSample(installer, ResolveIgnoringCase(paths.PimDataDir, kSampleName), today);
  SaveSample(installer, ResolveIgnoringCase(paths.CacheDir, kSampleName), today);
}

// The country file of a new installation: the United States one when it is there, else the
// first by name.
std::optional<std::string> ChooseHolidayFile(const std::string& pcAppsDir) {
  const std::vector<fs::path> files = HolidayFiles(pcAppsDir);
  if (files.empty()) return std::nullopt;
  for (const fs::path& file : files) {
    if (EqualsIgnoringCase(file.filename().string(), kPreferredHolidayFile)) {
      return file.filename().string();
    }
  }
  return files.front().filename().string();
}

}  // namespace

void LinkWordListEditor(Installer& installer, const std::string& pcAppsDir,
                        const std::string& editorProgram) {
  const fs::path link = ResolveIgnoringCase(pcAppsDir, kEditorLink);
  if (Exists(link)) return;  // followed: a link to a program that is gone does not exist
  std::error_code error;
  if (fs::is_symlink(fs::symlink_status(link, error))) fs::remove(link, error);
  fs::create_symlink(fs::absolute(editorProgram, error), link, error);
  installer.Note(link.string(), !error);
}

std::string UserDataHome(std::string_view xdgDataHome, std::string_view home) {
  const std::string dataHome = !xdgDataHome.empty() && xdgDataHome.front() == '/'
                                   ? std::string(xdgDataHome)
                                   : std::string(home) + "/.local/share";
  return fs::path(dataHome).lexically_normal().string();
}

std::string DefaultInstallDir(std::string_view xdgDataHome, std::string_view home) {
  return (fs::path(UserDataHome(xdgDataHome, home)) / "Sorvane" / "Tarvex").string();
}

InstallReport EnsureInstallation(Registry& registry, SettingsStore& settings,
                                 const std::string& dataDir, const std::string& defaultInstallDir,
                                 const CivilDate& today) {
  InstallReport report;
  Installer installer(report);
  const std::optional<std::string> registered = ReadInstallDir(registry);
  std::error_code error;
  const bool keepRegistered = registered && fs::is_directory(*registered, error);
  report.installDir = keepRegistered ? *registered : defaultInstallDir;

  if (!keepRegistered || SameFolder(*registered, defaultInstallDir)) {
    LayOut(installer, report.installDir, dataDir, today);
  }
  if (!keepRegistered) {
    SetRegistryString(installer, registry, kInstallKey, kInstallDirValue, report.installDir);
  }
  if (!registry.KeyExists(kSchedulerKey)) {
    if (registry.CreateKey(kSchedulerKey)) {
      report.created.push_back(kSchedulerKey);
    } else {
      report.failures.push_back(kSchedulerKey);
    }
  }
  // The data link's component, the bridge to an iCalendar file, comes with the program.
  if (!registry.KeyExists(kPimLinkKey)) {
    const bool made = registry.CreateKey(kPimLinkKey) &&
                      registry.WriteNumber(kPimLinkKey, kPimLinkInstallValue, 1);
    (made ? report.created : report.failures).push_back(kPimLinkKey);
    if (made) settings.SaveSetting(kSettingsApp, kDayviewSection, kExpOptionKey, "0");
  }
  const std::optional<std::string> holidayIni =
      registry.ReadString(kSchedulerKey, kHolidayIniValue);
  if (!holidayIni || holidayIni->size() < 2) {
    const std::optional<std::string> chosen =
        ChooseHolidayFile(MakeInstallPaths(report.installDir).PcAppsDir);
    if (chosen) SetRegistryString(installer, registry, kSchedulerKey, kHolidayIniValue, *chosen);
  }
  return report;
}

}  // namespace sched
