#pragma once

#include <QWidget>

#include "shell/device_service_windows.h"

namespace sched {

// The device service's set-up window: this program keeps the Tarvex as a folder of the PC, so
// there is no link to set up; the window names the folder and opens it in the file manager.
class DisconnectionSetupDialog : public DisconnectionSetupWindow {
 public:
  void SetParent(QWidget* parent) { parent_ = parent; }
  void ShowDisconnectionSetup(const std::string& deviceFolder) override;

 private:
  QWidget* parent_ = nullptr;
};

}  // namespace sched
