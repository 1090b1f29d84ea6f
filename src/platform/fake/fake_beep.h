#pragma once

#include "platform/beep.h"

namespace sched {

// Counts the beeps.
class FakeBeep : public Beep {
 public:
  int beeps = 0;
  void Sound() override { ++beeps; }
};

}  // namespace sched
