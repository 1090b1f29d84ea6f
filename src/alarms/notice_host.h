#pragma once

#include "alarms/alarm_entry.h"

namespace sched {

// The windows of the notices: one more opens for each alarm, without waiting for it.
class NoticeHost {
 public:
  virtual ~NoticeHost() = default;
  // Opens a notice window for the alarm, in front and with the focus.
  virtual void OpenNoticeWindow(const PendingNotice& notice) = 0;
};

}  // namespace sched
