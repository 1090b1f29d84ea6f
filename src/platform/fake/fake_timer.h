#pragma once

#include <functional>
#include <utility>

#include "platform/timer.h"

namespace sched {

// A timer that ticks when the test says so.
class FakeTimer : public Timer {
 public:
  void OnTick(std::function<void()> routine) override { routine_ = std::move(routine); }
  void SetInterval(int milliseconds) override { interval = milliseconds; }
  void SetEnabled(bool on) override { enabled = on; }

  // One tick, as an enabled timer gives it when its interval has passed.
  void Tick() {
    if (enabled && routine_) routine_();
  }

  int interval = 0;
  bool enabled = false;

 private:
  std::function<void()> routine_;
};

}  // namespace sched
