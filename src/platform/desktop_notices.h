#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace sched {

// One notification of the desktop.
struct DesktopNotice {
  int id = 0;  // names the notification to the action event
  std::string summary;
  std::string body;
  // The buttons it offers, each as the key the action event gets and the label shown.
  std::vector<std::pair<std::string, std::string>> actions;
};

// The desktop's own notifications, seen while the program's window is covered or on another
// workspace. Where the desktop offers none, a post is nothing; where it offers no buttons, a
// notification shows without its actions.
class DesktopNotices {
 public:
  virtual ~DesktopNotices() = default;
  // Posts one notification: a one-line summary and a body of a few lines.
  virtual void Post(const DesktopNotice& notice) = 0;
  // The routine run on the program's thread when the user picks an action of a notification.
  virtual void SetActionEvent(std::function<void(int id, const std::string& key)> event) = 0;
};

}  // namespace sched
