#pragma once

#include <functional>

namespace sched {

// A periodic source: while enabled, it runs its routine each time its interval has passed.
class Timer {
 public:
  virtual ~Timer() = default;
  virtual void OnTick(std::function<void()> routine) = 0;
  virtual void SetInterval(int milliseconds) = 0;
  virtual void SetEnabled(bool enabled) = 0;
};

}  // namespace sched
