#include "shell/device_service.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/path_parts.h"
#include "core/text_case.h"

namespace sched {

ResolvedFile ResolveFileName(DeviceFiles& device, const std::string& name) {
  ResolvedFile file;
  file.path = name;
  if (!file.path.empty() && file.path.back() == '"') file.path.pop_back();
  if (!file.path.empty() && file.path.front() == '"') file.path.erase(0, 1);

  std::string folder(SplitPath(file.path).folder);
  while (folder.size() > 1 && (folder.back() == '/' || folder.back() == '\\')) folder.pop_back();

  file.ScheduleOnPc = device.Sor_IsOnPcFile(file.path) ? 1 : 0;
  std::error_code error;
  if (file.ScheduleOnPc == 0 && !folder.empty() && std::filesystem::is_directory(folder, error)) {
    file.cacheFolder = folder;
  }
  return file;
}

std::vector<std::string> ReadDeviceSounds(DeviceFiles& device) {
  std::vector<std::string> sounds;
  if (!device.Sor_IsExist(kDeviceSoundFolder)) return sounds;
  for (const std::string& name : device.Sor_DirByExt(kDeviceSoundFolder, "snd")) {
    sounds.push_back(std::string(kDeviceSoundFolder) + "\\" + name);
  }
  return sounds;
}

std::string AlarmSoundName(const std::string& path) {
  const std::string_view name = SplitPath(path).name;
  return ToUpperAscii(name.substr(0, name.find_last_of('.')));
}

std::vector<std::string> AlarmSoundNames(DeviceFiles& device) {
  std::vector<std::string> names;
  for (const std::string& path : ReadDeviceSounds(device)) {
    std::string name = AlarmSoundName(path);
    if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
  }
  return names;
}

}  // namespace sched
