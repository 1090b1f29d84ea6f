#pragma once

#include <QWidget>

#include "shell/device_file_chooser.h"

namespace sched {

// The dialog in which the user picks a file on the Tarvex, or names one to save there.
class DeviceFileDialog : public DeviceFileChooser {
 public:
  void SetParent(QWidget* parent) { parent_ = parent; }
  std::optional<std::string> ChooseDeviceFile(const DeviceFileRequest& request) override;

 private:
  QWidget* parent_ = nullptr;
};

}  // namespace sched
