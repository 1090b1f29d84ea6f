#pragma once

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

#include "platform/std/console.h"

namespace sched {

// A device held in memory: device path -> file content. Records the uploads it was given.
class FakeDeviceFiles : public NoDevice {
 public:
  std::map<std::string, std::string> files;
  std::vector<std::string> alarmInfoUpdates;
  int putResult = 0;
  // The folder whose files stand for the device's ("\\PIM\\x.scl" is cacheRoot + "/PIM/x.scl");
  // no conversion when it is empty.
  std::string cacheRoot;
  // What the device's save dialog answers: a device path, or nothing for cancel.
  std::optional<std::string> saveDialogAnswer;

  bool Sor_IsExist(const std::string& path) override { return files.count(path) > 0; }
  int Sor_PutFile(const std::string& devicePath, const std::string& localPath) override {
    if (putResult != 0) return putResult;
    std::ifstream in(localPath, std::ios::binary);
    if (!in) return -1;
    std::ostringstream content;
    content << in.rdbuf();
    files[devicePath] = content.str();
    return 0;
  }
  std::optional<std::string> Sor_ConvPathCacheToSorvane(const std::string& path) override {
    if (cacheRoot.empty() || !path.starts_with(cacheRoot + "/")) return std::nullopt;
    std::string device = path.substr(cacheRoot.size());
    std::replace(device.begin(), device.end(), '/', '\\');
    return device;
  }
  std::optional<std::string> Sor_ConvPathSorvaneToCache(const std::string& path) override {
    if (cacheRoot.empty()) return std::nullopt;
    std::string local = cacheRoot + path;
    std::replace(local.begin(), local.end(), '\\', '/');
    return local;
  }
  std::optional<std::string> Sor_PIMSaveFileDialog(const std::string&,
                                                   const std::string&) override {
    return saveDialogAnswer;
  }
  void Sor_UpdateSchAlarmInfo(const std::string& path) override {
    alarmInfoUpdates.push_back(path);
  }
};

}  // namespace sched
