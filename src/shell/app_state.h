#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "holidays/holiday_model.h"

namespace sched {

// State of the running program beside its document.
struct AppState {
  std::string LastPcDir;     // start folder of the PC file dialogs
  bool NoticesHeld = false;  // a file dialog is open: due alarms wait for it to close
  bool ExitNoSave = false;   // the end of the program asks nothing and stores nothing
  NamedHolidays Holidays;    // the country file in use
  std::int32_t TodayCode = 0;
  // The device's melodies ("\system\sound\NAME.snd") as the appointment dialog offers them.
  std::vector<std::string> DeviceSounds;
};

}  // namespace sched
