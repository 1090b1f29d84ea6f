#pragma once

namespace sched {

// Alarm notices that came due while a dialog held them back (AppState::NoticesHeld). The alarm
// engine implements it.
class PendingNotices {
 public:
  virtual ~PendingNotices() = default;
  virtual void FlushPendingNotices() = 0;
};

}  // namespace sched
