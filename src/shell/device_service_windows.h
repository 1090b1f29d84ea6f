#pragma once

#include <string>

#include "platform/messages.h"
#include "shell/device_file_chooser.h"

namespace sched {

// The device service's own set-up window: it tells where the device is kept.
class DisconnectionSetupWindow {
 public:
  virtual ~DisconnectionSetupWindow() = default;
  // `deviceFolder` is the folder of this machine that holds the device's files.
  virtual void ShowDisconnectionSetup(const std::string& deviceFolder) = 0;
};

// The windows the device service shows of its own. Without a chooser or a message box its file
// dialogs cancel; without a set-up window its set-up shows nothing.
struct DeviceServiceWindows {
  DeviceFileChooser* chooser = nullptr;
  Messages* messages = nullptr;
  DisconnectionSetupWindow* setup = nullptr;
};

}  // namespace sched
