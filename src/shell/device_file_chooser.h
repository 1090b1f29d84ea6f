#pragma once

#include <optional>
#include <string>
#include <vector>

namespace sched {

enum class DeviceDialogMode { Open, Save };

// What the device's own file dialog is asked: the files it can offer in one device folder.
struct DeviceFileRequest {
  DeviceDialogMode mode = DeviceDialogMode::Open;
  std::string title;
  std::string folder;              // device folder, such as "\PIM"
  std::string extension;           // without the dot, such as "scl"
  std::vector<std::string> files;  // names in that folder with that extension, sorted
  std::string proposal;            // the name offered at first; may be empty
};

// The window that lets the user pick or name a file on the device.
class DeviceFileChooser {
 public:
  virtual ~DeviceFileChooser() = default;
  // The chosen name, without folder; nothing when the user cancels.
  virtual std::optional<std::string> ChooseDeviceFile(const DeviceFileRequest& request) = 0;
};

}  // namespace sched
