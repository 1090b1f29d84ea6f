#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/device_files.h"
#include "shell/device_file_chooser.h"

namespace sched {

inline constexpr const char* kDeviceOpenTitle = "Open file on Tarvex";
inline constexpr const char* kDeviceSaveTitle = "Save file on Tarvex";

// The device as its cache folder on the PC ("xferbay/cache" of the installation): a device path
// "\PIM\a.scl" is the file PIM/a.scl of that folder. The device's names are case-insensitive, so
// each folder and file name is matched against the disk whatever its case, and a missing one is
// made with the case given.
class CacheDeviceFiles : public DeviceFiles {
 public:
  // `chooser` may be null: the device's file dialogs then cancel.
  explicit CacheDeviceFiles(std::string cacheRoot, DeviceFileChooser* chooser = nullptr);

  void SetChooser(DeviceFileChooser* chooser) { chooser_ = chooser; }
  const std::string& CacheRoot() const { return root_; }

  bool Sor_IsExist(const std::string& devicePath) override;
  std::optional<std::string> Sor_GetFile(const std::string& devicePath) override;
  int Sor_PutFile(const std::string& devicePath, const std::string& localPath) override;
  std::vector<std::string> Sor_DirByExt(const std::string& deviceFolder,
                                        const std::string& extension) override;
  bool Sor_IsOnPcFile(const std::string& path) override;
  std::optional<std::string> Sor_ConvPathCacheToSorvane(const std::string& cachePath) override;
  std::optional<std::string> Sor_ConvPathSorvaneToCache(const std::string& devicePath) override;
  std::optional<std::string> Sor_PIMOpenFileDialog(const std::string& extension,
                                                   const std::string& startPath) override;
  std::optional<std::string> Sor_PIMSaveFileDialog(const std::string& extension,
                                                   const std::string& proposal) override;
  // A real device would now refresh its alarm table from the file; the cache has none.
  void Sor_UpdateSchAlarmInfo(const std::string&) override {}
  void Sor_SetupDisconnection() override {}
  int Sor_DoDisconnect() override { return 0; }

 private:
  // The cached file of a device path; nothing for a path that would leave the cache.
  std::optional<std::filesystem::path> ToLocal(const std::string& devicePath) const;
  std::optional<std::string> RunDialog(DeviceDialogMode mode, const std::string& extension,
                                       const std::string& startPath);

  std::string root_;
  DeviceFileChooser* chooser_;
};

}  // namespace sched
