#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/device_files.h"
#include "shell/device_service_windows.h"

namespace sched {

inline constexpr const char* kDeviceOpenTitle = "Open file on Tarvex";
inline constexpr const char* kDeviceSaveTitle = "Save file on Tarvex";
// Asked before a save replaces a device file, with the file's name.
inline constexpr const char* kDeviceReplaceQuestion =
    "%1 already exists.\nDo you want to replace it?";

// The device as its cache folder on the PC ("xferbay/cache" of the installation): a device path
// "\PIM\a.scl" is the file PIM/a.scl of that folder. The device's names are case-insensitive, so
// each folder and file name is matched against the disk whatever its case, and a missing one is
// made with the case given.
class CacheDeviceFiles : public DeviceFiles {
 public:
  explicit CacheDeviceFiles(std::string cacheRoot, DeviceServiceWindows windows = {});

  void SetWindows(const DeviceServiceWindows& windows) { windows_ = windows; }

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
  // There is no link to let go: the set-up shows the folder that stands for the device.
  void Sor_SetupDisconnection() override;
  int Sor_DoDisconnect() override { return 0; }

 private:
  // The cached file of a device path; nothing for a path that would leave the cache.
  std::optional<std::filesystem::path> ToLocal(const std::string& devicePath) const;
  std::optional<std::string> RunDialog(DeviceDialogMode mode, const std::string& extension,
                                       const std::string& startPath);
  // The name the user chose, with the extension added when it has none; nothing for a name
  // that is no file's.
  std::optional<std::string> ChosenName(const DeviceFileRequest& request) const;
  // True when `name` is no file of the folder yet, or the user agrees to replace it.
  bool MayReplace(const DeviceFileRequest& request, const std::string& name) const;

  std::string root_;
  DeviceServiceWindows windows_;
};

}  // namespace sched
