#pragma once

#include <optional>
#include <string>
#include <vector>

namespace sched {

// The device's file-transfer service. Device paths are root-based with backslashes, such as
// "\PIM\Schedule.scl"; local paths are paths of this machine.
class DeviceFiles {
 public:
  virtual ~DeviceFiles() = default;
  virtual bool Sor_IsExist(const std::string& devicePath) = 0;
  // Copies the device file into the cache and gives its local path; nothing on failure.
  virtual std::optional<std::string> Sor_GetFile(const std::string& devicePath) = 0;
  // Sends a local file to the device; 0 on success.
  virtual int Sor_PutFile(const std::string& devicePath, const std::string& localPath) = 0;
  // Names (without folder) of the files of one extension (without dot) in a device folder.
  virtual std::vector<std::string> Sor_DirByExt(const std::string& deviceFolder,
                                                const std::string& extension) = 0;
  virtual bool Sor_IsOnPcFile(const std::string& path) = 0;
  virtual std::optional<std::string> Sor_ConvPathCacheToSorvane(const std::string& cachePath) = 0;
  virtual std::optional<std::string> Sor_ConvPathSorvaneToCache(const std::string& devicePath) = 0;
  // The device's own file dialogs: the chosen device path, nothing on cancel.
  virtual std::optional<std::string> Sor_PIMOpenFileDialog(const std::string& extension,
                                                           const std::string& startPath) = 0;
  virtual std::optional<std::string> Sor_PIMSaveFileDialog(const std::string& extension,
                                                           const std::string& proposal) = 0;
  virtual void Sor_UpdateSchAlarmInfo(const std::string& devicePath) = 0;
  virtual void Sor_SetupDisconnection() = 0;
  // 0 when the link let go; anything else stops the program's end.
  virtual int Sor_DoDisconnect() = 0;
};

}  // namespace sched
