#pragma once

#include <functional>

#include "alarms/alarm_entry.h"

namespace sched {

// The windows of the notices: one more opens for each alarm, without waiting for it.
class NoticeHost {
 public:
  virtual ~NoticeHost() = default;
  // Opens a notice window for the alarm, in front and with the focus.
  virtual void OpenNoticeWindow(const PendingNotice& notice) = 0;
  // Closes the window of the notice numbered `id`, when it is open.
  virtual void CloseNoticeWindow(int id) = 0;
  // The routine run when the user answers a notice window: `snoozeMinutes` long for Snooze,
  // 0 when the window was closed.
  virtual void SetAnswerEvent(std::function<void(int id, int snoozeMinutes)> event) = 0;
};

}  // namespace sched
