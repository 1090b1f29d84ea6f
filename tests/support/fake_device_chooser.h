#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "shell/device_file_chooser.h"

namespace sched {

// Answers the device's file dialog as a user would, one queued answer a time (a cancel when
// none is left), and keeps what it was asked.
class FakeDeviceChooser : public DeviceFileChooser {
 public:
  std::deque<std::optional<std::string>> answers;
  std::vector<DeviceFileRequest> asked;

  std::optional<std::string> ChooseDeviceFile(const DeviceFileRequest& request) override {
    asked.push_back(request);
    if (answers.empty()) return std::nullopt;
    std::optional<std::string> answer = answers.front();
    answers.pop_front();
    return answer;
  }
};

}  // namespace sched
