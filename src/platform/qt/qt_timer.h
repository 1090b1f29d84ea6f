#pragma once

#include <QTimer>
#include <functional>

#include "platform/timer.h"

namespace sched {

// A QTimer behind the Timer port; it ticks in the window's event loop.
class QtTimer : public Timer {
 public:
  QtTimer();
  void OnTick(std::function<void()> routine) override;
  void SetInterval(int milliseconds) override;
  void SetEnabled(bool enabled) override;

 private:
  QTimer timer_;
  std::function<void()> routine_;
};

}  // namespace sched
