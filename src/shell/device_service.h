#pragma once

#include <string>
#include <vector>

#include "platform/device_files.h"

namespace sched {

inline constexpr const char* kDeviceSoundFolder = "\\system\\sound";

// A file name from the command line, a drop or the last-file setting, made ready to open.
struct ResolvedFile {
  std::string path;      // without the quotes around it
  int ScheduleOnPc = 1;  // 1 on the PC, 0 in the device's cache
  // The file's folder when it lies in the device's cache and exists: the folder that the device's
  // file dialogs start in from now on. Empty otherwise.
  std::string cacheFolder;
};

ResolvedFile ResolveFileName(DeviceFiles& device, const std::string& name);

// The device's melodies as the appointment dialog offers them: "\system\sound\" and a name, for
// each .snd file of the device's sound folder. Empty when the folder does not exist.
std::vector<std::string> ReadDeviceSounds(DeviceFiles& device);

// The name by which an alarm names a melody file: upper case, without folder and extension.
std::string AlarmSoundName(const std::string& path);
// The alarm sounds of the device's sound folder, each name once, in the folder's order.
std::vector<std::string> AlarmSoundNames(DeviceFiles& device);

}  // namespace sched
