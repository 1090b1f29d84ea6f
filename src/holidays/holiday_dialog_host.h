#pragma once

#include "holidays/holiday_model.h"
#include "platform/key_codes.h"

namespace sched {

// What the holiday dialogs ask of the main window.
class HolidayDialogHost {
 public:
  virtual ~HolidayDialogHost() = default;
  // The schedule has just been marked modified (its Dirty flag is set): whatever the window
  // shows of that follows.
  virtual void SetModifiedMark() = 0;
  // The weekday heads of the month view (Label8): red for weekly holidays, button text else.
  virtual void PaintWeekHeads(const WeekFlags& weekHoliday) = 0;
  // Refills the month grid and its lists when the month tab is shown; nothing on the day tab.
  virtual void RefillMonthView() = 0;
  virtual void ShowHelp() = 0;
  // The installation is broken beyond use (its registry key is gone): the program ends.
  virtual void EndProgram() = 0;
};

}  // namespace sched
