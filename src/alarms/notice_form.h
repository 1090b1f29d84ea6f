#pragma once

#include <array>
#include <string>

#include "alarms/alarm_entry.h"
#include "platform/date_formatter.h"

namespace sched {

// The notice window Form1 of one ringing alarm: its caption and what its controls show.
struct NoticeForm {
  int Id = 0;  // the ring it shows, by which it is answered
  std::string Caption;
  std::string Missed;                 // "Missed at 9:00 AM" above the title; empty on time
  std::string Label1;                 // the title
  std::array<std::string, 3> Label2;  // the date in the short form, the times, the place
  std::string Text1;                  // the memo
};

NoticeForm MakeNoticeForm(const PendingNotice& notice, const DateFormatter& dates);

}  // namespace sched
