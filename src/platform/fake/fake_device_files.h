#pragma once

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
  void Sor_UpdateSchAlarmInfo(const std::string& path) override {
    alarmInfoUpdates.push_back(path);
  }
};

}  // namespace sched
