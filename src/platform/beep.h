#pragma once

namespace sched {

// The system's beep.
class Beep {
 public:
  virtual ~Beep() = default;
  virtual void Sound() = 0;
};

}  // namespace sched
