#pragma once

#include <string>

namespace sched {

// The desktop's own notifications, seen while the program's window is covered or on another
// workspace. Where the desktop offers none, a post is nothing.
class DesktopNotices {
 public:
  virtual ~DesktopNotices() = default;
  // Posts one notification: a one-line summary and a body of a few lines.
  virtual void Post(const std::string& summary, const std::string& body) = 0;
};

}  // namespace sched
