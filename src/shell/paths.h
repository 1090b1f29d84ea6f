#pragma once

#include <optional>
#include <string>

#include "platform/registry.h"

namespace sched {

// The folders and files of an installation, all without a trailing separator. Names below the
// install folder are matched against the disk without regard to case, so that "system" finds a
// folder "System" that is already there.
struct InstallPaths {
  std::string InstallDir;
  std::string PimDataDir;      // the user's files on the PC; the file dialogs open here
  bool PimDataFound = false;   // false when neither candidate of PimDataDir exists
  std::string CacheDir;        // the device's PIM folder as cached on the PC
  std::string SystemIniPath;   // the cached copy of the device's System.ini
  std::string SchIniPath;      // the cached copy of the device's Sch.ini
  std::string SoundCacheDir;   // the cached copy of the device's sounds
  std::string PcAppsDir;       // the country holiday files
  std::string DeviceCacheDir;  // the root of the device's cache: the device's "\" folder
};

InstallPaths MakeInstallPaths(const std::string& installDir);

// The registered install folder: trailing zero bytes cut and one trailing separator removed.
// Nothing when the key or value is absent, the value is no longer than one byte, or nothing is
// left after the cuts.
std::optional<std::string> ReadInstallDir(Registry& registry);

}  // namespace sched
