#pragma once

#include "platform/beep.h"

namespace sched {

// The desktop's beep.
class QtBeep : public Beep {
 public:
  void Sound() override;
};

}  // namespace sched
