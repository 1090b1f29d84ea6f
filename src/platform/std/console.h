#pragma once

#include "platform/date_formatter.h"
#include "platform/device_files.h"
#include "platform/progress_display.h"

namespace sched {

// For programs without a window: progress goes nowhere.
class SilentProgress : public ProgressDisplay {
 public:
  void SetCaption(const std::string&) override {}
  void SetValue(int) override {}
  void SetVisible(bool) override {}
  void Refresh() override {}
  void SetWaitPointer(bool) override {}
};

// Dates as "yyyy/mm/dd".
class IsoDateFormatter : public DateFormatter {
 public:
  std::string ShortDate(int year, int month, int day) const override;
};

// No device is connected: every operation fails or finds nothing.
class NoDevice : public DeviceFiles {
 public:
  bool Sor_IsExist(const std::string&) override { return false; }
  std::optional<std::string> Sor_GetFile(const std::string&) override { return std::nullopt; }
  int Sor_PutFile(const std::string&, const std::string&) override { return -1; }
  std::vector<std::string> Sor_DirByExt(const std::string&, const std::string&) override {
    return {};
  }
  bool Sor_IsOnPcFile(const std::string&) override { return true; }
  std::optional<std::string> Sor_ConvPathCacheToSorvane(const std::string&) override {
    return std::nullopt;
  }
  std::optional<std::string> Sor_ConvPathSorvaneToCache(const std::string&) override {
    return std::nullopt;
  }
  std::optional<std::string> Sor_PIMOpenFileDialog(const std::string&,
                                                   const std::string&) override {
    return std::nullopt;
  }
  std::optional<std::string> Sor_PIMSaveFileDialog(const std::string&,
                                                   const std::string&) override {
    return std::nullopt;
  }
  void Sor_UpdateSchAlarmInfo(const std::string&) override {}
  void Sor_SetupDisconnection() override {}
  int Sor_DoDisconnect() override { return 0; }
};

}  // namespace sched
