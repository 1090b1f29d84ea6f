#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/desktop_notices.h"

namespace sched {

// Records the desktop notifications, each as "summary / body", and picks their actions as a
// user does.
class FakeDesktopNotices : public DesktopNotices {
 public:
  std::vector<std::string> posted;
  std::vector<DesktopNotice> notices;
  void Post(const DesktopNotice& notice) override {
    posted.push_back(notice.summary + " / " + notice.body);
    notices.push_back(notice);
  }
  void SetActionEvent(std::function<void(int, const std::string&)> event) override {
    event_ = std::move(event);
  }
  // The user picks the action `key` of the notification `id`.
  void Pick(int id, const std::string& key) {
    if (event_) event_(id, key);
  }

 private:
  std::function<void(int, const std::string&)> event_;
};

}  // namespace sched
