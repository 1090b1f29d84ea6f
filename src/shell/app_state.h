#pragma once

#include <string>
#include <vector>

#include "holidays/holiday_model.h"

namespace sched {

// State of the running program beside its document.
struct AppState {
  std::string LastPcDir;    // start folder of the PC file dialogs
  bool ExitNoSave = false;  // the end of the program asks nothing and stores nothing
  NamedHolidays Holidays;   // the country file in use
  // The device's melodies ("\system\sound\NAME.snd") as the appointment dialog offers them.
  std::vector<std::string> DeviceSounds;
};

}  // namespace sched
