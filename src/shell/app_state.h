#pragma once

#include <cstdint>
#include <string>

#include "platform/holiday_calendar.h"

namespace sched {

// State of the running program beside its document.
struct AppState {
  std::string LastPcDir;     // start folder of the PC file dialogs
  bool NoticesHeld = false;  // a file dialog is open: due alarms wait for it to close
  bool ExitNoSave = false;   // the end of the program asks nothing and stores nothing
  HolidayHandle Holiday = 0;
  std::int16_t HolidayReady = 0;  // -1 when a country file is open
  std::int32_t TodayCode = 0;
};

}  // namespace sched
