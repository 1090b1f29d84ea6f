#pragma once

#include <string>
#include <vector>

#include "platform/desktop_notices.h"

namespace sched {

// Records the desktop notifications, each as "summary / body".
class FakeDesktopNotices : public DesktopNotices {
 public:
  std::vector<std::string> posted;
  void Post(const std::string& summary, const std::string& body) override {
    posted.push_back(summary + " / " + body);
  }
};

}  // namespace sched
