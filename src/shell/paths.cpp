#include "shell/paths.h"

#include <filesystem>
#include <system_error>

#include "core/registry_keys.h"
#include "shell/folder_case.h"

namespace sched {
namespace fs = std::filesystem;

namespace {

bool IsFolder(const fs::path& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

}  // namespace

InstallPaths MakeInstallPaths(const std::string& installDir) {
  const fs::path root(installDir);
  const auto under = [&root](std::string_view relative) {
    return ResolveIgnoringCase(root, relative).string();
  };
  InstallPaths paths;
  paths.InstallDir = installDir;
  paths.PimDataDir = under("userdata/PIMdata");
  paths.PimDataFound = IsFolder(paths.PimDataDir);
  if (!paths.PimDataFound) {
    const fs::path older = ResolveIgnoringCase(root, "UserData");
    if (IsFolder(older)) {
      paths.PimDataDir = older.string();
      paths.PimDataFound = true;
    }
  }
  paths.DeviceCacheDir = under("xferbay/cache");
  paths.CacheDir = under("xferbay/cache/PIM");
  paths.SystemIniPath = under("xferbay/cache/System/System.ini");
  paths.SchIniPath = under("xferbay/cache/System/ini/Sch.ini");
  paths.SoundCacheDir = under("xferbay/cache/system/sound");
  paths.PcAppsDir = under("pcapps");
  return paths;
}

std::optional<std::string> ReadInstallDir(Registry& registry) {
  std::optional<std::string> value = registry.ReadString(kInstallKey, kInstallDirValue);
  if (!value || value->size() <= 1) return std::nullopt;
  std::string dir = *value;
  while (!dir.empty() && dir.back() == '\0') dir.pop_back();
  if (!dir.empty() && (dir.back() == '/' || dir.back() == '\\')) dir.pop_back();
  if (dir.empty()) return std::nullopt;
  return dir;
}

}  // namespace sched
